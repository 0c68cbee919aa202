// The member's own records (playlists, the library and what belongs to it) and the review on
// another platform than the bundled one: which operations they call, in which order, and that texts
// of numbers and flags are its own.

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "records/DataAccountProperties.h"
#include "records/DataAlbumReview.h"
#include "records/DataLibraryModificationResult.h"
#include "records/DataMemberLibrary.h"
#include "records/DataMemberLibraryLite.h"
#include "records/DataPlaylist.h"
#include "records/DataPlaylistLite.h"
#include "tests/records/RecordedCalls.h"
#include "tests/records/SampleAccountProperties.h"
#include "tests/records/SampleAlbumReview.h"
#include "tests/records/SampleLibraryModificationResult.h"
#include "tests/records/SampleMemberLibrary.h"
#include "tests/records/SampleMemberLibraryLite.h"
#include "tests/records/SamplePlaylist.h"
#include "tests/records/SamplePlaylistLite.h"

namespace {

/// These calls, one on a line, as calls of the node with this number.
std::string Of(int node, const std::string& calls) {
    std::istringstream in(calls);
    std::string result;
    for (std::string call; std::getline(in, call);) {
        result += std::to_string(node) + "." + call + "\n";
    }
    return result;
}

std::string New(int node, const std::string& name) {
    return Of(node, "CreateXmlNode()\nInitialize(" + ('"' + name + '"') + R"(, ""))");
}

/// A finished child goes to its parent, which holds it from then on.
std::string Attached(int parent, int child) {
    return Of(parent, "AppendChild(" + std::to_string(child) + ")") + Of(child, "Release()");
}

constexpr char kPlaylistCalls[] =
    R"(AddChild("CreatedDate", unsigned 1199145600)
AddChild("LastModifiedDate", unsigned 3000000007)
AddChild("Name", C-string "Été & <Hiver> 冬")
AddChild("PlaylistId", C-string "Pll.4401")
AddChild("Type", C-string "MEMBER"))";

constexpr char kHeaderCalls[] =
    R"(AddChild("LastModified", unsigned 3123456789)
AddChildEncoded("MemberId", "TWl0Z2xpZWQgTsK6IDgxNSDkvJrlk6E="))";

/// The two tracks of the samples: nodes from `first` to `first` + 15, into the node `list`.
std::string Tracks(int list, int first) {
    return New(first, "Track") + Of(first, R"(AddChild("AlbumId", C-string "Alb.101")
AddChild("ArtistId", C-string "Art.202")
AddChild("DiscIndex", int 3)
AddChildEncoded("DisplayAlbumName", "w5xiZXIgZGVuIETDpGNoZXJu")
AddChildEncoded("DisplayArtistName", "0JDQvdGB0LDQvNCx0LvRjCDCq9CX0LDRgNGPwrs=")
AddChild("GenreId", C-string "g.404")
AddChildEncoded("Name", "5rW344Gu5q2MIPCfjrU=")
AddChild("PlaybackSeconds", int 606)
AddChild("RightFlags", int 909)
AddChild("TrackId", C-string "Tra.1010")
AddChild("TrackIndex", int 11))") +
           Attached(list, first) + New(first + 12, "Track") +
           Of(first + 12, R"(AddChild("DiscIndex", int 12)
AddChildEncoded("Name", "w5FhbmTDug==")
AddChild("TrackId", C-string "Tra.2020"))") +
           Attached(list, first + 12);
}

TEST(FakePlatformLibraries, PlaylistSummaryIsWrittenByTheseCalls) {
    EXPECT_EQ((CallsOfWriting<DataPlaylistLite, SamplePlaylistLite>()),
              New(1, "Playlist") + Of(1, kPlaylistCalls) + "1.Release()\n");
}

TEST(FakePlatformLibraries, PlaylistIsWrittenByTheseCalls) {
    EXPECT_EQ((CallsOfWriting<DataPlaylist, SamplePlaylist>()),
              New(1, "Playlist") + Of(1, kPlaylistCalls) + New(7, "Tracks") + Tracks(7, 8) +
                  Attached(1, 7) + "1.Release()\n");
}

TEST(FakePlatformLibraries, LibraryHeaderIsWrittenByTheseCalls) {
    EXPECT_EQ((CallsOfWriting<DataMemberLibraryLite, SampleMemberLibraryLite>()),
              New(1, "MemberLibraryLite") + Of(1, kHeaderCalls) + "1.Release()\n");
}

TEST(FakePlatformLibraries, LibraryIsWrittenByTheseCalls) {
    EXPECT_EQ((CallsOfWriting<DataMemberLibrary, SampleMemberLibrary>()),
              New(1, "MemberLibrary") + Of(1, kHeaderCalls) + New(4, "Tracks") + Tracks(4, 5) +
                  Attached(1, 4) + New(21, "Playlists") + New(22, "Playlist") +
                  Of(22, kPlaylistCalls) + Attached(21, 22) + New(28, "Playlist") +
                  Of(28, R"(AddChild("PlaylistId", C-string "Pll.4402"))") + Attached(21, 28) +
                  Attached(1, 21) + New(30, "Stations") + New(31, "Station") +
                  Of(31, R"(AddChildEncoded("Name", "0J3QvtGH0L3QvtC5INGN0YTQuNGAIPCfk7s=")
AddChild("StationId", string "Sta.404")
AddChild("Type", string "editorial")
AddChild("FreeStation", bool true))") +
                  Attached(30, 31) + New(36, "Station") +
                  Of(36, R"(AddChild("StationId", string "Sta.4403"))") + Attached(30, 36) +
                  Attached(1, 30) + "1.Release()\n");
}

TEST(FakePlatformLibraries, AccountIsWrittenByTheseCalls) {
    EXPECT_EQ(
        (CallsOfWriting<DataAccountProperties, SampleAccountProperties>()),
        New(1, "AccountProperties") + Of(1, R"(AddChild("accountType", C-string "UNLIMITED & more")
AddChild("cobrand", C-string "cob.303")
AddChild("country", C-string "DE")
AddChild("dateCreated", C-string "unsigned int 2222222222")
AddChildEncoded("email", "asO2cmdAZXhhbXBsZS5jb20=")
AddChildEncoded("firstName", "SsO2cmct5aSq6YOO")
AddChild("freePlaysAllowed", C-string "int 1010")
AddChild("freePlaysRemaining", C-string "int -111")
AddChild("freeTrialTimeLeftInMillis", C-string "unsigned int 1212121212")
AddChild("quavera25MonthReset", C-string "unsigned int 3333333333")
AddChild("trialTerminationDate", C-string "unsigned int 4242424242")
AddChildEncoded("userName", "0JbRg9C6IPCfqrI=")
AddChild("zip", C-string "D-60311")
Release())"));
}

TEST(FakePlatformLibraries, ReviewIsWrittenByTheseCalls) {
    EXPECT_EQ((CallsOfWriting<DataAlbumReview, SampleAlbumReview>()),
              New(1, "AlbumReview") + Of(1, R"(AddChildEncoded("Author", "Wm/DqyBNw7xsbGVy")
AddChildEncoded("Blurb", "S3VyeiAmIGd1dCDwn5GN")
AddChild("BlurbSize", int 44)
AddChildEncoded("Detail", "0JTQu9C40L3QvdGL0Lkg0L7RgtC30YvQsgrQsiDQtNCy0LUg0YHRgtGA0L7QutC4")
AddChild("DetailSize", int -66)
AddChild("PublishDate", unsigned 2777777777)
AddChildEncoded("Title", "5pil44Gu6Z+z")
Release())"));
}

TEST(FakePlatformLibraries, ModificationIsWrittenByTheseCalls) {
    EXPECT_EQ((CallsOfWriting<DataLibraryModificationResult, SampleLibraryModificationResult>()),
              New(1, "LibraryModification") + Of(1, R"(AddChild("SubCount", int 4)
AddChild("Value", C-string "Tra.1")
AddChild("Value", C-string "<Größe & 漢>")
AddChild("Value", C-string "Tra.3")
AddChild("Value", C-string "Tra.4")
AddChild("LibraryLastDateModified", unsigned 3987654321)
Release())"));
}

// --- Reading -----------------------------------------------------------------------------------

/// The calls of reading an element with one child, of that name and the text "7".
template <class Record>
std::string CallsOfReading(const std::string& childName) {
    const auto node = ZQXML::CreateXmlNode();
    node->AddChild(childName, "7");
    RecordingPlatform::TakeCalls();
    Record().FromXML(node.get());
    return RecordingPlatform::TakeCalls();
}

TEST(FakePlatformLibraries, ChildrenAreReadByTheseCalls) {
    const auto reading = [](const std::string& call) {
        return "1.GetChildren()\n1.First()\n2.GetName()\n2." + call + "()\n1.Next()\n";
    };
    EXPECT_EQ(CallsOfReading<DataPlaylistLite>("CreatedDate"), reading("GetValue"));
    EXPECT_EQ(CallsOfReading<DataPlaylistLite>("Name"), reading("GetValue"));
    EXPECT_EQ(CallsOfReading<DataMemberLibraryLite>("LastModified"), reading("GetValueInt"));
    EXPECT_EQ(CallsOfReading<DataMemberLibraryLite>("MemberId"), reading("GetValue"));
    EXPECT_EQ(CallsOfReading<DataLibraryModificationResult>("Value"), reading("GetValueDecoded"));
    EXPECT_EQ(CallsOfReading<DataLibraryModificationResult>("LibraryLastDateModified"),
              reading("GetValueInt"));
}

TEST(FakePlatformLibraries, AccountIsFoundByItsParent) {
    const auto parent = ZQXML::CreateXmlNode();
    parent->AddChild("AccountProperties", "");
    RecordingPlatform::TakeCalls();
    DataAccountProperties().FromXML(parent.get());
    EXPECT_EQ(RecordingPlatform::TakeCalls(),
              "1.FindChild(\"AccountProperties\")\n2.GetChildren()\n2.First()\n");
}

TEST(FakePlatformLibraries, AccountWithoutItsElementIsNotWalked) {
    EXPECT_EQ(CallsOfReading<DataAccountProperties>("Other"),
              "1.FindChild(\"AccountProperties\")\n");
}

// --- Texts of numbers and flags ----------------------------------------------------------------

TEST(FakePlatformLibraries, LibraryIsRendered) {
    DataMemberLibrary library;
    library.lastModifiedDate = 4294967295U;
    library.memberId = L"M\u00FC";
    library.stations.resize(1);
    EXPECT_EQ(library.ToString(),
              "Station name = \r\nstationId = \r\ntype = \r\nfreeStation = bool no\r\n"
              "lastModifiedDate = unsigned long 4294967295\r\nmemberId = Mü\r\n");
}

TEST(FakePlatformLibraries, AccountIsRendered) {
    DataAccountProperties account;
    account.dateCreated = 4294967295U;
    account.freePlaysAllowed = 2;
    account.freePlaysRemaining = -3;
    account.freeTrialTimeLeftInMillis = 4294967296U + 4U;
    account.quavera25MonthReset = 2147483648U;
    account.trialTerminationDate = 6;
    EXPECT_EQ(account.ToString(),
              "accountType = \r\ncobrand = \r\ncountry = \r\n"
              "dateCreated = unsigned long 4294967295\r\nemail = \r\nfirstName = \r\n"
              "freePlaysAllowed = int 2\r\nfreePlaysRemaining = int -3\r\n"
              "freeTrialTimeLeftInMillis = unsigned long 4\r\n"
              "quavera25MonthReset = unsigned long 2147483648\r\n"
              "trialTerminationDate = unsigned long 6\r\nuserName = \r\nzip = \r\n");
}

TEST(FakePlatformLibraries, ReviewIsRendered) {
    DataAlbumReview review;
    review.blurbSize = 8;
    review.detailSize = -9;
    EXPECT_EQ(review.ToString(),
              "Author= \r\nBlurb = \r\nBlurbSize = int 8\r\nDetail = \r\nDetailSize = int -9\r\n"
              "PublishDate = \r\nTitle = \r\n");
}

TEST(FakePlatformLibraries, ModificationIsRendered) {
    DataLibraryModificationResult result;
    result.ids = {"one"};
    result.libraryLastDateModified = 4294967295U;
    EXPECT_EQ(result.ToString(),
              "libraryLastDateModified = unsigned long 4294967295\r\nid = one\r\n");
}

// --- Failing allocations -----------------------------------------------------------------------

TEST(FakePlatformLibraries, FailedAllocationLosesNoNode) {
    ExpectNoNodeLost<DataPlaylistLite, SamplePlaylistLite>();
    ExpectNoNodeLost<DataPlaylist, SamplePlaylist>();
    ExpectNoNodeLost<DataMemberLibraryLite, SampleMemberLibraryLite>();
    ExpectNoNodeLost<DataMemberLibrary, SampleMemberLibrary>();
    ExpectNoNodeLost<DataAccountProperties, SampleAccountProperties>();
    ExpectNoNodeLost<DataAlbumReview, SampleAlbumReview>();
    ExpectNoNodeLost<DataLibraryModificationResult, SampleLibraryModificationResult>();
}

}  // namespace
