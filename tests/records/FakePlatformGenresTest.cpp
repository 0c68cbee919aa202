// Stations, genres, pictures and index entries on another platform than the bundled one.

#include <gtest/gtest.h>

#include <string>

#include "records/DataGenre.h"
#include "records/DataGenreLite.h"
#include "records/DataImage.h"
#include "records/DataIndex.h"
#include "records/DataStation.h"
#include "records/DataStationLite.h"
#include "tests/records/RecordedCalls.h"
#include "tests/records/SampleGenre.h"
#include "tests/records/SampleGenreLite.h"
#include "tests/records/SampleImage.h"
#include "tests/records/SampleIndex.h"
#include "tests/records/SampleStationLite.h"

namespace {

TEST(FakePlatformGenres, StationsAreWrittenByTheseCalls) {
    const std::string calls = R"(1.CreateXmlNode()
1.Initialize("Station", "")
1.AddChildEncoded("Name", "0J3QvtGH0L3QvtC5INGN0YTQuNGAIPCfk7s=")
1.AddChild("StationId", string "Sta.404")
1.AddChild("Type", string "editorial")
1.AddChild("FreeStation", bool true)
1.Release()
)";
    EXPECT_EQ((CallsOfWriting<DataStationLite, SampleStationLite>()), calls);
    EXPECT_EQ((CallsOfWriting<DataStation, SampleStation>()), calls);
}

TEST(FakePlatformGenres, GenreSummaryIsWrittenByTheseCalls) {
    EXPECT_EQ((CallsOfWriting<DataGenreLite, SampleGenreLite>()), R"(1.CreateXmlNode()
1.Initialize("GenreLite", "")
1.AddChild("GenreId", C-string "g.101")
1.AddChildEncoded("Name", "TcO6c2ljYSBsYXRpbmE=")
1.AddChild("SubCount", int 404)
1.Release()
)");
}

// The number of parents is the platform's text; that of sub-genres is handed on as a number.
TEST(FakePlatformGenres, GenreIsWrittenByTheseCalls) {
    EXPECT_EQ((CallsOfWriting<DataGenre, SampleGenre>()), R"(1.CreateXmlNode()
1.Initialize("Genre", "")
1.AddChildEncoded("Abbreviation", "0KQt0JTQtg==")
1.AddChildEncoded("DisplayName", "0KTRjNGO0LbQvS3QtNC20LDQtw==")
1.AddChild("GenreId", C-string "g.303")
1.AddChildEncoded("Name", "44OV44Ol44O844K444On44Oz")
1.AddChild("SubGenreCount", int 606)
7.CreateXmlNode()
7.Initialize("ChildGenres", "")
8.CreateXmlNode()
8.Initialize("GenreLite", "")
8.AddChild("GenreId", C-string "g.711")
8.AddChildEncoded("Name", "RnVuayDDqSBncm9vdmUg8J+OuA==")
8.AddChild("SubCount", int 713)
7.AppendChild(8)
8.Release()
12.CreateXmlNode()
12.Initialize("GenreLite", "")
12.AddChild("GenreId", C-string "g.721")
12.AddChildEncoded("Name", "w4lsZWt0cmlr")
12.AddChild("SubCount", int 723)
7.AppendChild(12)
12.Release()
1.AppendChild(7)
7.Release()
1.AddChildEncoded("Description", "SmF6eiDimao=")
1.AddChild("PrimaryParentGenreId", C-string "g.1011")
1.AddChild("ParentGenreCount", string "int 2")
19.CreateXmlNode()
19.Initialize("ParentGenres", "")
20.CreateXmlNode()
20.Initialize("GenreLite", "")
20.AddChild("GenreId", C-string "g.911")
20.AddChildEncoded("Name", "SmF6eg==")
20.AddChild("SubCount", int 913)
19.AppendChild(20)
20.Release()
24.CreateXmlNode()
24.Initialize("GenreLite", "")
24.AddChild("GenreId", C-string "g.921")
24.AddChildEncoded("Name", "Um9jayDlsqk=")
24.AddChild("SubCount", int 923)
19.AppendChild(24)
24.Release()
1.AppendChild(19)
19.Release()
1.Release()
)");
}

TEST(FakePlatformGenres, ImageIsWrittenByTheseCalls) {
    EXPECT_EQ((CallsOfWriting<DataImage, SampleImage>()), R"(1.CreateXmlNode()
1.Initialize("Image", "")
1.AddChild("Copyright", C-string "© 2009 Größe & Söhne")
1.AddChild("Height", int 202)
1.AddChild("ImageFormat", C-string "jpeg")
1.AddChildEncoded("Title", "VGl0ZWxiaWxkIMKr0JzQvtGA0LXCuyDwn5a8")
1.AddChild("Url", C-string "http://img.example.com/6?a=1&b=2")
1.AddChild("Width", int 707)
1.Release()
)");
}

TEST(FakePlatformGenres, IndexIsWrittenByTheseCalls) {
    EXPECT_EQ((CallsOfWriting<DataIndex, SampleIndex>()), R"(1.CreateXmlNode()
1.Initialize("Index", "")
1.AddChild("Letter", string "42")
1.AddChild("Start", string "int 120")
1.Release()
)");
}

/// What a class with nothing to write calls; `element` is its element's name.
template <class Record, class Sample>
void ExpectBareElement(const std::string& element, const std::string& lists = "") {
    typename Sample::Soap soap;
    RecordingPlatform::TakeCalls();
    Record::ToXML(&soap);
    EXPECT_EQ(RecordingPlatform::TakeCalls(), "1.CreateXmlNode()\n1.Initialize(\"" + element +
                                                  "\", \"\")\n" + lists + "1.Release()\n");
    EXPECT_EQ(RecordingPlatform::LiveNodes(), 0);
}

TEST(FakePlatformGenres, AbsentMembersCallForNothing) {
    ExpectBareElement<DataStationLite, SampleStationLite>("Station");
    ExpectBareElement<DataStation, SampleStation>("Station");
    ExpectBareElement<DataGenreLite, SampleGenreLite>("GenreLite");
    ExpectBareElement<DataGenre, SampleGenre>(
        "Genre",
        "2.CreateXmlNode()\n2.Initialize(\"ChildGenres\", \"\")\n1.AppendChild(2)\n2.Release()\n"
        "3.CreateXmlNode()\n3.Initialize(\"ParentGenres\", \"\")\n1.AppendChild(3)\n3.Release()\n");
    ExpectBareElement<DataImage, SampleImage>("Image");
    ExpectBareElement<DataIndex, SampleIndex>("Index");
}

/// The log text of a sample that this platform's nodes have carried.
template <class Record, class Sample>
std::string Carried() {
    Values values;
    typename Sample::Soap soap;
    Sample::Fill(soap, values);
    const auto node = Record::ToXML(&soap);
    Record record;
    record.FromXML(node.get());
    return record.ToString();
}

TEST(FakePlatformGenres, NumbersAndFlagsOfLogTextsAreThePlatforms) {
    const std::string station =
        "name = Ночной эфир 📻\r\nstationId = Sta.404\r\ntype = editorial\r\n"
        "freeStation = bool yes\r\n";
    EXPECT_EQ((Carried<DataStationLite, SampleStationLite>()), station);
    EXPECT_EQ((Carried<DataStation, SampleStation>()), station);
    EXPECT_EQ((Carried<DataGenreLite, SampleGenreLite>()),
              "genreId = g.101\r\nname = Música latina\r\nsubCount = int 404\r\n");
    EXPECT_EQ((Carried<DataGenre, SampleGenre>()),
              "abbreviation = Ф-Дж\r\ndisplayName = Фьюжн-джаз\r\ngenreId = g.303\r\n"
              "name = フュージョン\r\nsubGenreCount = int 606\r\nparentGenreCount = int 0\r\n"
              "childGenres genreId = g.711\r\nname = Funk é groove 🎸\r\nsubCount = int 713\r\n"
              "childGenres genreId = g.721\r\nname = Élektrik\r\nsubCount = int 723\r\n"
              "parentGenres genreId = g.911\r\nname = Jazz\r\nsubCount = int 913\r\n"
              "parentGenres genreId = g.921\r\nname = Rock 岩\r\nsubCount = int 923\r\n"
              "primaryParentGenreId = g.1011\r\n");
    EXPECT_EQ((Carried<DataImage, SampleImage>()),
              "copyright = © 2009 Größe & Söhne\r\nheight = int 202\r\nimageFormat = jpeg\r\n"
              "imageId = \r\ntitle = Titelbild «Море» 🖼\r\n"
              "url = http://img.example.com/6?a=1&b=2\r\nwidth = int 707\r\n");
    // The position went as "int 120", which this platform's nodes do not read as a number.
    EXPECT_EQ((Carried<DataIndex, SampleIndex>()), "letter = B\r\nstart = int 0\r\n");
}

TEST(FakePlatformGenres, FailedAllocationLosesNoNode) {
    ExpectNoNodeLost<DataStationLite, SampleStationLite>();
    ExpectNoNodeLost<DataStation, SampleStation>();
    ExpectNoNodeLost<DataGenreLite, SampleGenreLite>();
    ExpectNoNodeLost<DataGenre, SampleGenre>();
    ExpectNoNodeLost<DataImage, SampleImage>();
    ExpectNoNodeLost<DataIndex, SampleIndex>();
}

}  // namespace
