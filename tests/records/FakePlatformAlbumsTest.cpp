// Albums and artists on another platform than the bundled one.

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <utility>

#include "records/DataAlbum.h"
#include "records/DataAlbumLite.h"
#include "records/DataArtist.h"
#include "records/DataArtistLite.h"
#include "tests/records/RecordedCalls.h"
#include "tests/records/SampleAlbum.h"
#include "tests/records/SampleArtist.h"

namespace {

/// The calls that write the sample's album summary, by the number of its node and of the node of
/// its types. Plain texts are added in `form`.
std::string SummaryCalls(int album, int types, const std::string& form) {
    std::string calls = R"(#A.CreateXmlNode()
#A.Initialize("Album", "")
#A.AddChild("AlbumArt162x162Url", #F "http://art.example.com/162?id=41&x=1")
#A.AddChild("AlbumId", #F "Alb.4102")
#A.AddChild("AlbumType", int 4103)
#A.AddChild("Compilation", bool true)
#A.AddChildEncoded("DisplayName", "0J3QvtGH0L3QvtC5INGN0LrRgdC/0YDQtdGB0YEgKNC40LfQtNCw0L3QuNC1IDIp")
#A.AddChildEncoded("Name", "TmlnaHQgRXhwcmVzcyDigJMgw4lkaXRpb24gRGV1eA==")
#A.AddChild("ParentalAuthority", bool false)
#A.AddChildEncoded("PrimaryArtistDisplayName", "Tmfhu41jIHbDoCBC4bqhbiBiw6g=")
#A.AddChild("PrimaryArtistId", #F "Art.4106")
#A.AddChild("PrimaryStyle", #F "Jazz & Blues")
#A.AddChild("ReleaseYear", int 2007)
#A.AddChild("Shortcut", #F "night-express")
#T.CreateXmlNode()
#T.Initialize("DisplayableAlbumTypes", "")
#T.AddChild("Value", #F "ALBUM")
#T.AddChild("Value", #F "EP <2>")
#A.AppendChild(#T)
#T.Release()
)";
    const std::pair<const char*, std::string> places[] = {
        {"#A", std::to_string(album)}, {"#T", std::to_string(types)}, {"#F", form}};
    for (const auto& [place, value] : places) {
        for (std::size_t at = calls.find(place); at != std::string::npos; at = calls.find(place)) {
            calls.replace(at, 2, value);
        }
    }
    return calls;
}

TEST(FakePlatformAlbums, ArtistSummaryIsWrittenByTheseCalls) {
    EXPECT_EQ((CallsOfWriting<DataArtistLite, SampleArtistLite>()),
              R"(1.CreateXmlNode()
1.Initialize("Artist", "")
1.AddChild("ArtistId", C-string "Art.3101")
1.AddChildEncoded("Name", "zqPOv8+Gzq/OsSAmIM6UzqzPhs69zrc=")
1.AddChild("Shortcut", C-string "sofia-dafni")
1.Release()
)");
}

TEST(FakePlatformAlbums, NullArtistSummaryIsAnElementWithoutChildren) {
    Quavera::Quavera2__LiteArtistMetadata* const none = nullptr;
    RecordingPlatform::TakeCalls();
    DataArtistLite::ToXML(none);
    EXPECT_EQ(RecordingPlatform::TakeCalls(),
              "1.CreateXmlNode()\n1.Initialize(\"Artist\", \"\")\n1.Release()\n");
}

TEST(FakePlatformAlbums, AlbumSummaryIsWrittenByTheseCalls) {
    EXPECT_EQ((CallsOfWriting<DataAlbumLite, SampleAlbumLite>()),
              SummaryCalls(1, 14, "C-string") + "1.Release()\n");
}

TEST(FakePlatformAlbums, AlbumSummaryWritesItselfByTheseCalls) {
    Values values;
    DataAlbumLite album(values.Filled<SampleAlbumLite>());
    RecordingPlatform::TakeCalls();
    album.ToXML();
    EXPECT_EQ(RecordingPlatform::LiveNodes(), 0);
    EXPECT_EQ(RecordingPlatform::TakeCalls(), SummaryCalls(1, 14, "string") + "1.Release()\n");
}

TEST(FakePlatformAlbums, EmptyAlbumSummaryWritesItselfByTheseCalls) {
    RecordingPlatform::TakeCalls();
    DataAlbumLite().ToXML();
    EXPECT_EQ(RecordingPlatform::TakeCalls(),
              R"(1.CreateXmlNode()
1.Initialize("Album", "")
1.AddChild("AlbumArt162x162Url", string "")
1.AddChild("AlbumId", string "")
1.AddChild("AlbumType", int 0)
1.AddChild("Compilation", bool false)
1.AddChildEncoded("DisplayName", "")
1.AddChildEncoded("Name", "")
1.AddChild("ParentalAuthority", bool false)
1.AddChildEncoded("PrimaryArtistDisplayName", "")
1.AddChild("PrimaryArtistId", string "")
1.AddChild("PrimaryStyle", string "")
1.AddChild("ReleaseYear", int 0)
1.AddChild("Shortcut", string "")
1.Release()
)");
}

TEST(FakePlatformAlbums, AlbumIsWrittenByTheseCalls) {
    EXPECT_EQ((CallsOfWriting<DataAlbum, SampleAlbum>()),
              SummaryCalls(1, 14, "C-string") +
                  R"(1.AddChild("AlbumArt70x70Url", C-string "http://art.example.com/70?id=51")
1.AddChild("Copyright", C-string "© 2007 Größe & Söhne")
1.AddChild("Label", C-string "Südlicht <Records>")
1.AddChild("NonDisplayableAlbumTypes", C-string "SINGLE")
1.AddChild("NonDisplayableAlbumTypes", C-string "LIVE & MORE")
22.CreateXmlNode()
22.Initialize("Artist", "")
22.AddChild("ArtistId", C-string "Art.3101")
22.AddChildEncoded("Name", "zqPOv8+Gzq/OsSAmIM6UzqzPhs69zrc=")
22.AddChild("Shortcut", C-string "sofia-dafni")
1.AppendChild(22)
22.Release()
26.CreateXmlNode()
26.Initialize("Tracks", "")
27.CreateXmlNode()
27.Initialize("Track", "")
27.AddChild("AlbumId", C-string "Alb.101")
27.AddChild("ArtistId", C-string "Art.202")
27.AddChild("DiscIndex", int 3)
27.AddChildEncoded("DisplayAlbumName", "w5xiZXIgZGVuIETDpGNoZXJu")
27.AddChildEncoded("DisplayArtistName", "0JDQvdGB0LDQvNCx0LvRjCDCq9CX0LDRgNGPwrs=")
27.AddChild("GenreId", C-string "g.404")
27.AddChildEncoded("Name", "5rW344Gu5q2MIPCfjrU=")
27.AddChild("PlaybackSeconds", int 606)
27.AddChild("RightFlags", int 909)
27.AddChild("TrackId", C-string "Tra.1010")
27.AddChild("TrackIndex", int 11)
26.AppendChild(27)
27.Release()
39.CreateXmlNode()
39.Initialize("Track", "")
39.AddChild("TrackId", C-string "Tra.5206")
26.AppendChild(39)
39.Release()
1.AppendChild(26)
26.Release()
1.AddChild("Upccode", C-string "0042228405207")
1.Release()
)");
}

TEST(FakePlatformAlbums, ArtistIsWrittenByTheseCalls) {
    EXPECT_EQ((CallsOfWriting<DataArtist, SampleArtist>()),
              R"(1.CreateXmlNode()
1.Initialize("Artist", "")
1.AddChild("ArtistId", C-string "Art.3101")
1.AddChildEncoded("Name", "zqPOv8+Gzq/OsSAmIM6UzqzPhs69zrc=")
1.AddChild("Shortcut", C-string "sofia-dafni")
5.CreateXmlNode()
5.Initialize("Albums", "")
)" + SummaryCalls(6, 19, "C-string") +
                  R"(5.AppendChild(6)
6.Release()
22.CreateXmlNode()
22.Initialize("Album", "")
22.AddChild("AlbumId", C-string "Alb.6101")
5.AppendChild(22)
22.Release()
1.AppendChild(5)
5.Release()
24.CreateXmlNode()
24.Initialize("Station", "")
24.AddChildEncoded("Name", "44Op44K444Kq44O744K944OV44Kj44Ki")
24.AddChild("StationId", string "Sta.6102")
24.AddChild("Type", string "ARTIST")
24.AddChild("FreeStation", bool true)
1.AppendChild(24)
24.Release()
1.AddChildEncoded("Bio", "zpcgzqPOv8+Gzq/OsSDPhM+BzrHOs86/z4XOtM6sLg0KzpTOtc+Nz4TOtc+BzrcgzrPPgc6xzrzOvM6u")
1.AddChildEncoded("BioAuthor", "zpXOu86tzr3OtyDOoM6xz4DPgM6s")
1.AddChildEncoded("Blurb", "S3Vyejog65GQIOuqqeyGjOumrA==")
32.CreateXmlNode()
32.Initialize("Genres", "")
33.CreateXmlNode()
33.Initialize("GenreLite", "")
33.AddChild("GenreId", C-string "g.6103")
33.AddChildEncoded("Name", "zpvOsc+KzrrOrA==")
33.AddChild("SubCount", int 6104)
32.AppendChild(33)
33.Release()
37.CreateXmlNode()
37.Initialize("GenreLite", "")
37.AddChild("GenreId", C-string "g.6105")
32.AppendChild(37)
37.Release()
1.AppendChild(32)
32.Release()
1.Release()
)");
}

// The texts of a true flag and of the log's numbers and flags are the platform's.
TEST(FakePlatformAlbums, NumbersAndFlagsAreThePlatforms) {
    Values values;
    DataAlbumLite album;
    album.FromXML(DataAlbumLite::ToXML(values.Filled<SampleAlbumLite>()).get());
    const std::string text = album.ToString();
    EXPECT_TRUE(album.compilation);
    EXPECT_FALSE(album.parentalAuthority);
    for (const char* line :
         {"\r\nalbumType = int 4103\r\n", "\r\ncompilation = bool yes\r\n",
          "\r\nparentalAuthority = bool no\r\n", "\r\nreleaseYear = int 2007\r\n"}) {
        EXPECT_NE(text.find(line), std::string::npos) << line;
    }
}

TEST(FakePlatformAlbums, FailedAllocationLosesNoNode) {
    ExpectNoNodeLost<DataArtistLite, SampleArtistLite>();
    ExpectNoNodeLost<DataAlbumLite, SampleAlbumLite>();
    ExpectNoNodeLost<DataAlbum, SampleAlbum>();
    ExpectNoNodeLost<DataArtist, SampleArtist>();
}

}  // namespace
