// Records on nodes of another maker: which operations write them, and that they are read with the
// required operations alone, in one walk for each pass over a list.

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include "common/TextConversion.h"
#include "platform/zqshared.h"
#include "records/DataAccountProperties.h"
#include "records/DataAlbum.h"
#include "records/DataAlbumLite.h"
#include "records/DataAlbumReview.h"
#include "records/DataArtist.h"
#include "records/DataArtistLite.h"
#include "records/DataGenre.h"
#include "records/DataGenreLite.h"
#include "records/DataImage.h"
#include "records/DataIndex.h"
#include "records/DataLibraryModificationResult.h"
#include "records/DataMemberLibrary.h"
#include "records/DataMemberLibraryLite.h"
#include "records/DataPlaylist.h"
#include "records/DataPlaylistLite.h"
#include "records/DataStation.h"
#include "records/DataStationLite.h"
#include "records/DataTrackInfo.h"
#include "tests/records/SampleAccountProperties.h"
#include "tests/records/SampleAlbum.h"
#include "tests/records/SampleAlbumLite.h"
#include "tests/records/SampleAlbumReview.h"
#include "tests/records/SampleArtist.h"
#include "tests/records/SampleArtistLite.h"
#include "tests/records/SampleGenre.h"
#include "tests/records/SampleGenreLite.h"
#include "tests/records/SampleImage.h"
#include "tests/records/SampleIndex.h"
#include "tests/records/SampleLibraryModificationResult.h"
#include "tests/records/SampleMemberLibrary.h"
#include "tests/records/SampleMemberLibraryLite.h"
#include "tests/records/SamplePlaylist.h"
#include "tests/records/SamplePlaylistLite.h"
#include "tests/records/SampleStationLite.h"
#include "tests/records/SampleTrack.h"
#include "tests/records/Values.h"
#include "tests/support/StrictNode.h"

namespace {

using Lists = StrictTree::Lists;

// --- Writing -----------------------------------------------------------------------------------

/// Writes a sample into a node of another maker, whose calls are told to be `calls`.
template <class Record, class Sample>
void ExpectCalls(const std::string& calls) {
    Values values;
    StrictTree tree(Lists::kSame, "Any");
    Record::ToXML(tree.Root(), values.Filled<Sample>());
    EXPECT_EQ(tree.Changes(), calls);
    EXPECT_EQ(tree.Violations(), "");
    EXPECT_EQ(tree.Walks(), "");
}

TEST(ForeignNodesWriting, AlbumSummary) {
    ExpectCalls<DataAlbumLite, SampleAlbumLite>(
        R"(AddChild("AlbumArt162x162Url", C-string "http://art.example.com/162?id=41&x=1")
AddChild("AlbumId", C-string "Alb.4102")
AddChild("AlbumType", int 4103)
AddChild("Compilation", bool true)
AddChildEncoded("DisplayName", "0J3QvtGH0L3QvtC5INGN0LrRgdC/0YDQtdGB0YEgKNC40LfQtNCw0L3QuNC1IDIp")
AddChildEncoded("Name", "TmlnaHQgRXhwcmVzcyDigJMgw4lkaXRpb24gRGV1eA==")
AddChild("ParentalAuthority", bool false)
AddChildEncoded("PrimaryArtistDisplayName", "Tmfhu41jIHbDoCBC4bqhbiBiw6g=")
AddChild("PrimaryArtistId", C-string "Art.4106")
AddChild("PrimaryStyle", C-string "Jazz & Blues")
AddChild("ReleaseYear", int 2007)
AddChild("Shortcut", C-string "night-express")
AppendChild("DisplayableAlbumTypes" ("Value" "ALBUM") ("Value" "EP <2>"))
)");
}

TEST(ForeignNodesWriting, ArtistSummary) {
    ExpectCalls<DataArtistLite, SampleArtistLite>(
        R"(AddChild("ArtistId", C-string "Art.3101")
AddChildEncoded("Name", "zqPOv8+Gzq/OsSAmIM6UzqzPhs69zrc=")
AddChild("Shortcut", C-string "sofia-dafni")
)");
}

TEST(ForeignNodesWriting, PlaylistSummary) {
    ExpectCalls<DataPlaylistLite, SamplePlaylistLite>(
        R"(AddChild("CreatedDate", unsigned 1199145600)
AddChild("LastModifiedDate", unsigned 3000000007)
AddChild("Name", C-string "Été & <Hiver> 冬")
AddChild("PlaylistId", C-string "Pll.4401")
AddChild("Type", C-string "MEMBER")
)");
}

TEST(ForeignNodesWriting, StationSummary) {
    ExpectCalls<DataStationLite, SampleStationLite>(
        R"(AddChildEncoded("Name", "0J3QvtGH0L3QvtC5INGN0YTQuNGAIPCfk7s=")
AddChild("StationId", string "Sta.404")
AddChild("Type", string "editorial")
AddChild("FreeStation", bool true)
)");
}

TEST(ForeignNodesWriting, MemberLibrarySummary) {
    ExpectCalls<DataMemberLibraryLite, SampleMemberLibraryLite>(
        R"(AddChild("LastModified", unsigned 3123456789)
AddChildEncoded("MemberId", "TWl0Z2xpZWQgTsK6IDgxNSDkvJrlk6E=")
)");
}

// Its numbers are texts.
TEST(ForeignNodesWriting, AccountProperties) {
    ExpectCalls<DataAccountProperties, SampleAccountProperties>(
        R"(AddChild("accountType", C-string "UNLIMITED & more")
AddChild("cobrand", C-string "cob.303")
AddChild("country", C-string "DE")
AddChild("dateCreated", C-string "2222222222")
AddChildEncoded("email", "asO2cmdAZXhhbXBsZS5jb20=")
AddChildEncoded("firstName", "SsO2cmct5aSq6YOO")
AddChild("freePlaysAllowed", C-string "1010")
AddChild("freePlaysRemaining", C-string "-111")
AddChild("freeTrialTimeLeftInMillis", C-string "1212121212")
AddChild("quavera25MonthReset", C-string "3333333333")
AddChild("trialTerminationDate", C-string "4242424242")
AddChildEncoded("userName", "0JbRg9C6IPCfqrI=")
AddChild("zip", C-string "D-60311")
)");
}

TEST(ForeignNodesWriting, AlbumReview) {
    ExpectCalls<DataAlbumReview, SampleAlbumReview>(
        R"(AddChildEncoded("Author", "Wm/DqyBNw7xsbGVy")
AddChildEncoded("Blurb", "S3VyeiAmIGd1dCDwn5GN")
AddChild("BlurbSize", int 44)
AddChildEncoded("Detail", "0JTQu9C40L3QvdGL0Lkg0L7RgtC30YvQsgrQsiDQtNCy0LUg0YHRgtGA0L7QutC4")
AddChild("DetailSize", int -66)
AddChild("PublishDate", unsigned 2777777777)
AddChildEncoded("Title", "5pil44Gu6Z+z")
)");
}

TEST(ForeignNodesWriting, Image) {
    ExpectCalls<DataImage, SampleImage>(R"(AddChild("Copyright", C-string "© 2009 Größe & Söhne")
AddChild("Height", int 202)
AddChild("ImageFormat", C-string "jpeg")
AddChildEncoded("Title", "VGl0ZWxiaWxkIMKr0JzQvtGA0LXCuyDwn5a8")
AddChild("Url", C-string "http://img.example.com/6?a=1&b=2")
AddChild("Width", int 707)
)");
}

// The letter and the position are texts.
TEST(ForeignNodesWriting, Index) {
    ExpectCalls<DataIndex, SampleIndex>(R"(AddChild("Letter", string "42")
AddChild("Start", string "120")
)");
}

TEST(ForeignNodesWriting, LibraryModificationResult) {
    ExpectCalls<DataLibraryModificationResult, SampleLibraryModificationResult>(
        R"(AddChild("SubCount", int 4)
AddChild("Value", C-string "Tra.1")
AddChild("Value", C-string "<Größe & 漢>")
AddChild("Value", C-string "Tra.3")
AddChild("Value", C-string "Tra.4")
AddChild("LibraryLastDateModified", unsigned 3987654321)
)");
}

// --- What readers may ask for ------------------------------------------------------------------

void AllowEach(StrictTree& tree, const std::string& path, const char* operation,
               const char* childNames) {
    std::istringstream names(childNames);
    for (std::string name; names >> name;) {
        name.insert(0, path + '/');
        tree.Allow(name, operation);
    }
}

/// Lets children of the elements on that path be asked for texts and numbers, which are given by
/// the children's names.
void Allow(StrictTree& tree, const std::string& path, const char* texts, const char* numbers) {
    AllowEach(tree, path, "GetValue", texts);
    AllowEach(tree, path, "GetValueInt", numbers);
}

void AllowTrack(StrictTree& tree, const std::string& path) {
    Allow(tree, path,
          "AlbumId ArtistId DisplayAlbumName DisplayArtistName GenreId Name TrackId UserData",
          "DiscIndex RightFlags PlaybackSeconds TrackIndex");
}

void AllowAlbumSummary(StrictTree& tree, const std::string& path) {
    Allow(tree, path,
          "AlbumArt162x162Url AlbumId Compilation DisplayName Name ParentalAuthority "
          "PrimaryArtistDisplayName PrimaryArtistId PrimaryStyle Shortcut",
          "AlbumType ReleaseYear");
    Allow(tree, path + "/DisplayableAlbumTypes", "*", "");
}

void AllowArtistSummary(StrictTree& tree, const std::string& path) {
    Allow(tree, path, "ArtistId Name Shortcut", "");
}

void AllowGenreSummary(StrictTree& tree, const std::string& path) {
    Allow(tree, path, "GenreId Name", "SubCount");
}

void AllowPlaylistSummary(StrictTree& tree, const std::string& path) {
    Allow(tree, path, "CreatedDate LastModifiedDate Name PlaylistId Type", "");
}

void AllowStationSummary(StrictTree& tree, const std::string& path) {
    Allow(tree, path, "Name StationId Type FreeStation", "");
}

void AllowMemberLibrarySummary(StrictTree& tree, const std::string& path) {
    Allow(tree, path, "MemberId", "LastModified");
}

// --- The records -------------------------------------------------------------------------------

/// A case has beside its sample: the record; whether this reads the parent of its element; the
/// values that it may ask for; the walks that it makes; and the fields that its log text lacks.
struct ReadingCase {
    static constexpr bool kReadsParent = false;
    static constexpr char kUnprinted[] = "";
    template <class Record>
    static std::string Unprinted(const Record& /*record*/) {
        return {};
    }
};

std::string UnprintedOf(const std::vector<DataTrackInfo>& tracks) {
    std::string text;
    for (const DataTrackInfo& track : tracks) {
        text += track.genreId + '\n';
    }
    return text;
}

struct TrackCase : ReadingCase, SampleTrack {
    using Record = DataTrackInfo;
    static void AllowValues(StrictTree& tree) { AllowTrack(tree, "Track"); }
    static constexpr char kWalks[] = "Track 1\n";
    static constexpr char kUnprinted[] = "g.404 909";
    static std::string Unprinted(const Record& record) {
        return record.genreId + ' ' + std::to_string(record.rightFlags);
    }
};

struct AlbumLiteCase : ReadingCase, SampleAlbumLite {
    using Record = DataAlbumLite;
    static void AllowValues(StrictTree& tree) { AllowAlbumSummary(tree, "Album"); }
    static constexpr char kWalks[] = "Album 1\nAlbum/DisplayableAlbumTypes 1\n";
};

// Once for the summary, once for its own fields.
struct AlbumCase : ReadingCase, SampleAlbum {
    using Record = DataAlbum;
    static constexpr bool kReadsParent = true;
    static void AllowValues(StrictTree& tree) {
        AllowAlbumSummary(tree, "Parent/Album");
        Allow(tree, "Parent/Album",
              "AlbumArt70x70Url Copyright Label NonDisplayableAlbumTypes Upccode", "");
        AllowArtistSummary(tree, "Parent/Album/Artist");
        AllowTrack(tree, "Parent/Album/Tracks/Track");
    }
    static constexpr char kWalks[] =
        "Parent 1\nParent/Album 2\nParent/Album/DisplayableAlbumTypes 1\nParent/Album/Artist 1\n"
        "Parent/Album/Tracks 1\nParent/Album/Tracks/Track 1\nParent/Album/Tracks/Track 1\n";
    static constexpr char kUnprinted[] = "g.404\n\n";
    static std::string Unprinted(const Record& record) { return UnprintedOf(record.tracks); }
};

struct ArtistLiteCase : ReadingCase, SampleArtistLite {
    using Record = DataArtistLite;
    static void AllowValues(StrictTree& tree) { AllowArtistSummary(tree, "Artist"); }
    static constexpr char kWalks[] = "Artist 1\n";
};

struct ArtistCase : ReadingCase, SampleArtist {
    using Record = DataArtist;
    static void AllowValues(StrictTree& tree) {
        AllowArtistSummary(tree, "Artist");
        Allow(tree, "Artist", "Bio BioAuthor Blurb", "");
        AllowAlbumSummary(tree, "Artist/Albums/Album");
        AllowStationSummary(tree, "Artist/Station");
        AllowGenreSummary(tree, "Artist/Genres/GenreLite");
    }
    static constexpr char kWalks[] =
        "Artist 2\nArtist/Albums 1\nArtist/Albums/Album 1\n"
        "Artist/Albums/Album/DisplayableAlbumTypes 1\nArtist/Albums/Album 1\nArtist/Station 1\n"
        "Artist/Genres 1\nArtist/Genres/GenreLite 1\nArtist/Genres/GenreLite 1\n";
};

struct GenreLiteCase : ReadingCase, SampleGenreLite {
    using Record = DataGenreLite;
    static void AllowValues(StrictTree& tree) { AllowGenreSummary(tree, "GenreLite"); }
    static constexpr char kWalks[] = "GenreLite 1\n";
};

struct GenreCase : ReadingCase, SampleGenre {
    using Record = DataGenre;
    static void AllowValues(StrictTree& tree) {
        Allow(tree, "Genre",
              "Abbreviation DisplayName Name Description GenreId PrimaryParentGenreId",
              "SubGenreCount");
        AllowGenreSummary(tree, "Genre/ChildGenres/GenreLite");
        AllowGenreSummary(tree, "Genre/ParentGenres/GenreLite");
    }
    static constexpr char kWalks[] =
        "Genre 1\nGenre/ChildGenres 1\nGenre/ChildGenres/GenreLite 1\n"
        "Genre/ChildGenres/GenreLite 1\nGenre/ParentGenres 1\nGenre/ParentGenres/GenreLite 1\n"
        "Genre/ParentGenres/GenreLite 1\n";
    static constexpr char kUnprinted[] = "Jazz ♪";
    static std::string Unprinted(const Record& record) { return convertToUtf8(record.description); }
};

struct PlaylistLiteCase : ReadingCase, SamplePlaylistLite {
    using Record = DataPlaylistLite;
    static void AllowValues(StrictTree& tree) { AllowPlaylistSummary(tree, "Playlist"); }
    static constexpr char kWalks[] = "Playlist 1\n";
};

struct PlaylistCase : ReadingCase, SamplePlaylist {
    using Record = DataPlaylist;
    static void AllowValues(StrictTree& tree) {
        AllowPlaylistSummary(tree, "Playlist");
        AllowTrack(tree, "Playlist/Tracks/Track");
    }
    static constexpr char kWalks[] =
        "Playlist 2\nPlaylist/Tracks 1\nPlaylist/Tracks/Track 1\nPlaylist/Tracks/Track 1\n";
    static constexpr char kUnprinted[] = "g.404\n\n";
    static std::string Unprinted(const Record& record) { return UnprintedOf(record.tracks); }
};

struct StationLiteCase : ReadingCase, SampleStationLite {
    using Record = DataStationLite;
    static void AllowValues(StrictTree& tree) { AllowStationSummary(tree, "Station"); }
    static constexpr char kWalks[] = "Station 1\n";
};

struct StationCase : StationLiteCase {
    using Record = DataStation;
};

struct StationBelowParentCase : ReadingCase, SampleStation {
    using Record = DataStation;
    static constexpr bool kReadsParent = true;
    static void AllowValues(StrictTree& tree) { AllowStationSummary(tree, "Parent/Station"); }
    static constexpr char kWalks[] = "Parent 1\nParent/Station 1\n";
};

struct MemberLibraryLiteCase : ReadingCase, SampleMemberLibraryLite {
    using Record = DataMemberLibraryLite;
    static void AllowValues(StrictTree& tree) {
        AllowMemberLibrarySummary(tree, "MemberLibraryLite");
    }
    static constexpr char kWalks[] = "MemberLibraryLite 1\n";
};

struct MemberLibraryCase : ReadingCase, SampleMemberLibrary {
    using Record = DataMemberLibrary;
    static constexpr bool kReadsParent = true;
    static void AllowValues(StrictTree& tree) {
        AllowMemberLibrarySummary(tree, "Parent/MemberLibrary");
        AllowTrack(tree, "Parent/MemberLibrary/Tracks/Track");
        AllowPlaylistSummary(tree, "Parent/MemberLibrary/Playlists/Playlist");
        AllowStationSummary(tree, "Parent/MemberLibrary/Stations/Station");
    }
    static constexpr char kWalks[] =
        "Parent 1\nParent/MemberLibrary 2\n"
        "Parent/MemberLibrary/Tracks 1\nParent/MemberLibrary/Tracks/Track 1\n"
        "Parent/MemberLibrary/Tracks/Track 1\n"
        "Parent/MemberLibrary/Playlists 1\nParent/MemberLibrary/Playlists/Playlist 1\n"
        "Parent/MemberLibrary/Playlists/Playlist 1\n"
        "Parent/MemberLibrary/Stations 1\nParent/MemberLibrary/Stations/Station 1\n"
        "Parent/MemberLibrary/Stations/Station 1\n";
    static constexpr char kUnprinted[] = "g.404\n\n";
    static std::string Unprinted(const Record& record) { return UnprintedOf(record.tracks); }
};

// Its element is looked up by its name.
struct AccountPropertiesCase : ReadingCase, SampleAccountProperties {
    using Record = DataAccountProperties;
    static constexpr bool kReadsParent = true;
    static void AllowValues(StrictTree& tree) {
        Allow(tree, "Parent/AccountProperties",
              "accountType cobrand country email firstName lastName userName zip",
              "dateCreated freePlaysAllowed freePlaysRemaining freeTrialTimeLeftInMillis "
              "quavera25MonthReset trialTerminationDate");
    }
    static constexpr char kWalks[] = "Parent/AccountProperties 1\n";
};

struct AlbumReviewCase : ReadingCase, SampleAlbumReview {
    using Record = DataAlbumReview;
    static constexpr bool kReadsParent = true;
    static void AllowValues(StrictTree& tree) {
        Allow(tree, "Parent/AlbumReview", "Author Blurb Detail PublishDate Title",
              "BlurbSize DetailSize");
    }
    static constexpr char kWalks[] = "Parent 1\nParent/AlbumReview 1\n";
};

struct ImageCase : ReadingCase, SampleImage {
    using Record = DataImage;
    static void AllowValues(StrictTree& tree) {
        Allow(tree, "Image", "Copyright ImageFormat Title Url", "Height Width");
    }
    static constexpr char kWalks[] = "Image 1\n";
};

struct IndexCase : ReadingCase, SampleIndex {
    using Record = DataIndex;
    static void AllowValues(StrictTree& tree) { Allow(tree, "Index", "Letter", "Start"); }
    static constexpr char kWalks[] = "Index 1\n";
};

struct LibraryModificationResultCase : ReadingCase, SampleLibraryModificationResult {
    using Record = DataLibraryModificationResult;
    static void AllowValues(StrictTree& tree) {
        Allow(tree, "LibraryModification", "", "LibraryLastDateModified");
        tree.Allow("LibraryModification/Value", "GetValueDecoded");
    }
    static constexpr char kWalks[] = "LibraryModification 1\n";
};

// --- Reading -----------------------------------------------------------------------------------

bool Has(const std::vector<std::string>& names, const std::string& name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

/// Elements whose children count by their names, so that unknown ones change nothing.
bool GoesByNames(const std::string& element) {
    return Has({"Parent", "Track", "Album", "Artist", "Genre", "GenreLite", "ChildGenres",
                "ParentGenres", "Playlist", "Station", "MemberLibrary", "MemberLibraryLite",
                "AccountProperties", "AlbumReview", "Image", "Index", "LibraryModification"},
               element);
}

/// Elements of which each one counts, not only the last.
bool AddsUp(const std::string& element) {
    return Has({"NonDisplayableAlbumTypes", "Value"}, element);
}

zq::auto_com<ZQXML::INode> NewNode(const std::string& name, const std::string& text) {
    auto node = ZQXML::CreateXmlNode();
    node->Initialize(name, text);
    return node;
}

void AppendUnknown(ZQXML::INode* node) {
    const auto unknown = NewNode("Unknown", "7");
    unknown->AddChild("Name", "8");
    node->AppendChild(unknown.get());
}

/// A copy with an unknown child ahead of each and after the last, and with elements ahead of those
/// that replace them.
zq::auto_com<ZQXML::INode> WithMore(ZQXML::INode* original) {
    const std::string name = original->GetName();
    auto copy = NewNode(name, original->GetValue());
    ZQXML::INodeList* const children = original->GetChildren();
    for (ZQXML::INode* child = children->First(); child != nullptr; child = children->Next()) {
        if (GoesByNames(name)) {
            AppendUnknown(copy.get());
            const std::string childName = child->GetName();
            if (child->GetChildren()->First() == nullptr && !AddsUp(childName)) {
                copy->AddChild(childName, "1234");  // a text, a number and base64 in one
            }
        }
        copy->AppendChild(WithMore(child).get());
    }
    if (GoesByNames(name)) {
        AppendUnknown(copy.get());
    }
    return copy;
}

/// The node that the record expects, with its whole sample and more.
template <class Case>
zq::auto_com<ZQXML::INode> NodeFor() {
    const std::string xml = Case::kTree;
    const auto node = ZQXML::ParseXml(Case::kReadsParent ? "<Parent>" + xml + "</Parent>" : xml);
    return WithMore(node.get());
}

template <class Case>
class ForeignNodesReading : public testing::Test {
 protected:
    static void ExpectReadsFrom(Lists lists) {
        const auto own = NodeFor<Case>();
        typename Case::Record expected;
        expected.FromXML(own.get());
        ASSERT_EQ(expected.ToString(), Case::kText);
        ASSERT_EQ(Case::Unprinted(expected), Case::kUnprinted);

        StrictTree tree(lists, own.get());
        Case::AllowValues(tree);
        typename Case::Record record;
        record.FromXML(tree.Root());
        tree.Close();
        EXPECT_EQ(record.ToString(), Case::kText);
        EXPECT_EQ(Case::Unprinted(record), Case::kUnprinted);
        EXPECT_EQ(tree.Walks(), Case::kWalks);
        EXPECT_EQ(tree.Violations(), "");
        EXPECT_EQ(tree.Changes(), "");
    }
};

/// The part of a test's name that stands for its case.
struct CaseNames {
    template <class Case>
    static std::string GetName(int index) {
        constexpr const char* kNames[] = {"Track",
                                          "Album",
                                          "AlbumLite",
                                          "Artist",
                                          "ArtistLite",
                                          "Genre",
                                          "GenreLite",
                                          "Playlist",
                                          "PlaylistLite",
                                          "Station",
                                          "StationLite",
                                          "StationBelowParent",
                                          "MemberLibrary",
                                          "MemberLibraryLite",
                                          "AccountProperties",
                                          "AlbumReview",
                                          "Image",
                                          "Index",
                                          "LibraryModificationResult"};
        return kNames[index];
    }
};

using Cases = testing::Types<TrackCase, AlbumCase, AlbumLiteCase, ArtistCase, ArtistLiteCase,
                             GenreCase, GenreLiteCase, PlaylistCase, PlaylistLiteCase, StationCase,
                             StationLiteCase, StationBelowParentCase, MemberLibraryCase,
                             MemberLibraryLiteCase, AccountPropertiesCase, AlbumReviewCase,
                             ImageCase, IndexCase, LibraryModificationResultCase>;
TYPED_TEST_SUITE(ForeignNodesReading, Cases, CaseNames);

TYPED_TEST(ForeignNodesReading, ListThatEachCallPutsBack) {
    this->ExpectReadsFrom(Lists::kSame);
}

TYPED_TEST(ForeignNodesReading, NewListFromEachCall) {
    this->ExpectReadsFrom(Lists::kNew);
}

TYPED_TEST(ForeignNodesReading, OneNodeForAllChildrenOfAList) {
    this->ExpectReadsFrom(Lists::kReused);
}

}  // namespace
