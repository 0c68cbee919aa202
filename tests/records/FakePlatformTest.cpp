// The records on another platform than the bundled one: which of its operations they call, in which
// order, and that texts of numbers and flags are its own.

#include <gtest/gtest.h>

#include <string>

#include "records/DataTrackInfo.h"
#include "tests/records/RecordedCalls.h"
#include "tests/records/SampleTrack.h"

namespace {

TEST(FakePlatform, TrackIsWrittenByTheseCalls) {
    EXPECT_EQ((CallsOfWriting<DataTrackInfo, SampleTrack>()),
              R"(1.CreateXmlNode()
1.Initialize("Track", "")
1.AddChild("AlbumId", C-string "Alb.101")
1.AddChild("ArtistId", C-string "Art.202")
1.AddChild("DiscIndex", int 3)
1.AddChildEncoded("DisplayAlbumName", "w5xiZXIgZGVuIETDpGNoZXJu")
1.AddChildEncoded("DisplayArtistName", "0JDQvdGB0LDQvNCx0LvRjCDCq9CX0LDRgNGPwrs=")
1.AddChild("GenreId", C-string "g.404")
1.AddChildEncoded("Name", "5rW344Gu5q2MIPCfjrU=")
1.AddChild("PlaybackSeconds", int 606)
1.AddChild("RightFlags", int 909)
1.AddChild("TrackId", C-string "Tra.1010")
1.AddChild("TrackIndex", int 11)
1.Release()
)");
}

TEST(FakePlatform, TrackOfAbsentMembersIsInitialisedAndReleased) {
    Quavera::Quavera2__LiteTrackMetadata soap;
    RecordingPlatform::TakeCalls();
    DataTrackInfo::ToXML(&soap);
    EXPECT_EQ(RecordingPlatform::TakeCalls(),
              "1.CreateXmlNode()\n1.Initialize(\"Track\", \"\")\n1.Release()\n");
}

TEST(FakePlatform, TrackIsReadAndRendered) {
    Values values;
    SampleTrack::Soap soap;
    SampleTrack::Fill(soap, values);
    const auto node = DataTrackInfo::ToXML(&soap);
    DataTrackInfo track;
    track.FromXML(node.get());
    EXPECT_EQ(track.ToString(),
              "AlbumId = Alb.101\r\n"
              "AlbumId = Alb.101\r\n"
              "ArtistId = Art.202\r\n"
              "DiscIndex = int 3\r\n"
              "DisplayAlbumName = Über den Dächern\r\n"
              "DisplayArtistName = Ансамбль «Заря»\r\n"
              "Name = 海の歌 🎵\r\n"
              "PlaybackSeconds = int 606\r\n"
              "TrackId = Tra.1010\r\n"
              "TrackIndex = int 11\r\n"
              "UserData = \r\n");
    EXPECT_EQ(track.genreId, "g.404");
    EXPECT_EQ(track.rightFlags, 909);
}

TEST(FakePlatform, FailedAllocationLosesNoNode) {
    ExpectNoNodeLost<DataTrackInfo, SampleTrack>();
}

}  // namespace
