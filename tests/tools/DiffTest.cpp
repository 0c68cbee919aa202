// What `diff` tells of two documents of a class, and with which exit status.

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "platform/zqshared.h"
#include "tests/tools/Files.h"
#include "tests/tools/Process.h"

namespace {

using tooltest::Arguments;
using tooltest::Contents;
using tooltest::DataPath;
using tooltest::Envelope;
using tooltest::Outcome;
using tooltest::Printed;
using tooltest::Refused;
using tooltest::RunTool;
using tooltest::TempFolder;

constexpr int kDifferent = 1;
constexpr int kTrouble = 2;

testing::AssertionResult Differs(const Outcome& outcome, const std::string& lines) {
    if (outcome.status == kDifferent && outcome.output == lines && outcome.errors.empty()) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure() << "status " << outcome.status << "\n"
                                       << outcome.output << outcome.errors << "expected\n"
                                       << lines;
}

/// `diff` of two documents by their contents.
Outcome Diff(const std::string& left, const std::string& right, const Arguments& options = {}) {
    const TempFolder folder;
    Arguments all = {"diff", folder.Add("left.xml", left), folder.Add("right.xml", right)};
    all.insert(all.end(), options.begin(), options.end());
    return RunTool(all);
}

/// A text with `from`, which has to be there, replaced where it stands first.
std::string Replaced(std::string text, const std::string& from, const std::string& to) {
    const std::size_t at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    return at == std::string::npos ? text : text.replace(at, from.size(), to);
}

// --- Each member of each class

/// What changes in a sample document, and the line that tells so.
struct Change {
    std::string member;  // an element of the SOAP record that holds `before`: the first such one
    std::string before;
    std::string after;
    std::string line;
};

struct Case {
    std::string name;
    std::vector<Change> changes;
};

void PrintTo(const Case& printed, std::ostream* out) {
    *out << printed.name;
}

Change Number(const std::string& member, const std::string& path, const std::string& before,
              const std::string& after = "77") {
    return {member, before, after, path + ": " + before + " -> " + after};
}

Change Text(const std::string& member, const std::string& path, const std::string& before,
            const std::string& shown = {}) {
    const std::string quoted = "\"" + (shown.empty() ? before : shown) + "\"";
    return {member, before, "neu: ü&quot;", path + ": " + quoted + R"( -> "neu: ü\"")"};
}

std::vector<Change> operator+(std::vector<Change> first, const std::vector<Change>& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

std::vector<Change> AlbumLite(const std::string& path = "") {
    return {
        Text("albumArt162x162Url", path + "AlbumArt162x162Url",
             "http://art.example.com/162.jpg?id=821&amp;lang=ja",
             "http://art.example.com/162.jpg?id=821&lang=ja"),
        Number("albumType", path + "AlbumType", "822"),
        {"compilation", "true", "false", path + "Compilation: true -> false"},
        Text("displayName", path + "DisplayName", "夜の散歩"),
        Text("name", path + "Name", "Yoru no Sanpo – Süße Nächte"),
        {"parentalAuthority", "1", "0", path + "ParentalAuthority: true -> false"},
        Text("primaryArtistDisplayName", path + "PrimaryArtistDisplayName", "さくら楽団"),
        Text("primaryArtistId", path + "PrimaryArtistId", "Art.823"),
        Text("primaryStyle", path + "PrimaryStyle", "City Pop"),
        Number("releaseYear", path + "ReleaseYear", "1984", "-1"),
        Text("shortcut", path + "Shortcut", "yoru"),
        Text("items", path + "DisplayableAlbumTypes[0]", "ALBUM"),
        Text("items", path + "DisplayableAlbumTypes[1]", "COMPILATION"),
        Text("items", path + "DisplayableAlbumTypes[2]", "R&amp;B", "R&B"),
    };
}

std::vector<Change> PlaylistLite() {
    return {
        Number("createdDate", "CreatedDate", "1262304000", "0"),
        Number("lastModifiedDate", "LastModifiedDate", "4294967295", "2147483648"),
        Text("name", "Name", "Straßenmusik &amp; 散歩 🚲", "Straßenmusik & 散歩 🚲"),
        Text("playlistId", "PlaylistId", "Pll.5150"),
        Text("type", "Type", "FEATURED"),
    };
}

std::vector<Case> Cases() {
    return {
        {"DataTrackInfo",
         {Text("albumId", "AlbumId", "Alb.4711"), Text("artistId", "ArtistId", "Art.2002"),
          Number("discIndex", "DiscIndex", "2", "-2147483648"),
          Text("displayAlbumName", "DisplayAlbumName", "Grüße aus Köln"),
          Text("displayArtistName", "DisplayArtistName", "さくら楽団"),
          Text("genreId", "GenreId", "g.115"), Text("name", "Name", "夜の散歩 – Süße Träume"),
          Number("playbackSeconds", "PlaybackSeconds", "254"),
          Number("rightFlags", "RightFlags", "19"), Text("trackId", "TrackId", "Tra.9001"),
          Number("trackIndex", "TrackIndex", "7", "0")}},
        {"DataAlbum", AlbumLite() +
                          std::vector<Change>{
                              Text("albumId", "AlbumId", "Alb.821"),
                              Text("albumArt70x70Url", "AlbumArt70x70Url",
                                   "http://art.example.com/70.jpg?id=831&amp;lang=ja",
                                   "http://art.example.com/70.jpg?id=831&lang=ja"),
                              Text("copyright", "Copyright", "℗ 1984 Nachtmusik"),
                              Text("label", "Label", "Mond &amp; Söhne", "Mond & Söhne"),
                              Text("items", "NonDisplayableAlbumTypes[0]", "SINGLE"),
                              Text("items", "NonDisplayableAlbumTypes[1]", "LIVE"),
                              Text("artistId", "Artist.ArtistId", "Art.833"),
                              Text("name", "Artist.Name", "さくら楽団 (Sakura)"),
                              Text("shortcut", "Artist.Shortcut", "sakura"),
                              Text("albumId", "Tracks[0].AlbumId", "Alb.835"),
                              Text("artistId", "Tracks[0].ArtistId", "Art.836"),
                              Number("discIndex", "Tracks[0].DiscIndex", "1"),
                              Text("displayAlbumName", "Tracks[0].DisplayAlbumName", "Süße Nächte"),
                              Text("displayArtistName", "Tracks[0].DisplayArtistName", "Сакура"),
                              Text("genreId", "Tracks[0].GenreId", "g.837"),
                              Text("name", "Tracks[0].Name", "月光"),
                              Number("playbackSeconds", "Tracks[0].PlaybackSeconds", "241"),
                              Number("rightFlags", "Tracks[0].RightFlags", "838"),
                              Number("trackIndex", "Tracks[0].TrackIndex", "2"),
                              Text("name", "Tracks[1].Name", "終わり"),
                              Number("trackIndex", "Tracks[1].TrackIndex", "3"),
                              Text("upccode", "Upccode", "04988001234567")}},
        {"DataAlbumLite", AlbumLite() + std::vector<Change>{Text("albumId", "AlbumId", "Alb.821")}},
        {"DataArtist", AlbumLite("Albums[0].") +
                           std::vector<Change>{
                               Text("artistId", "ArtistId", "Art.851"),
                               Text("name", "Name", "Хор «Рассвет»"),
                               Text("shortcut", "Shortcut", "rassvet"),
                               Text("name", "Station.Name", "Радио Рассвет"),
                               Text("stationId", "Station.StationId", "Sta.854"),
                               Text("type", "Station.Type", "ARTIST"),
                               {"freeStation", "true", "false", "Station.FreeStation: true -> -"},
                               Text("bio", "Bio", "Gegründet 1851 &amp; seither aktiv.",
                                    "Gegründet 1851 & seither aktiv."),
                               Text("bioAuthor", "BioAuthor", "岡田"),
                               Text("blurb", "Blurb", "&lt;Kurz&gt;: ein Chor", "<Kurz>: ein Chor"),
                               Text("name", "Genres[0].Name", "Хоровая музыка"),
                               Number("subCount", "Genres[0].SubCount", "856"),
                               {"subCount", "0", "5", "Genres[1].SubCount: - -> 5"}}},
        {"DataArtistLite",
         {Text("artistId", "ArtistId", "Art.811"),
          Text("name", "Name", "Jürgen &amp; die Wölfe", "Jürgen & die Wölfe"),
          Text("shortcut", "Shortcut", "woelfe")}},
        {"DataGenre",
         {Text("abbreviation", "Abbreviation", "Kl."),
          Text("displayName", "DisplayName", "Klassik &amp; Oper", "Klassik & Oper"),
          Text("genreId", "GenreId", "g.8300"), Text("name", "Name", "クラシック"),
          Number("subGenreCount", "SubGenreCount", "31"),
          Text("name", "ChildGenres[0].Name", "Oper für alle"),
          Number("subCount", "ChildGenres[0].SubCount", "4"),
          Text("name", "ChildGenres[1].Name", "Хор"),
          Number("subCount", "ChildGenres[2].SubCount", "9"),
          Text("description", "Description", "Vom Barock bis heute 🎼"),
          Text("name", "ParentGenres[0].Name", "Música 🎻"),
          Number("subCount", "ParentGenres[0].SubCount", "88"),
          Text("name", "ParentGenres[1].Name", "Schöne Künste"),
          Number("subCount", "ParentGenres[1].SubCount", "7", "8")}},
        {"DataGenreLite",
         {Text("genreId", "GenreId", "g.8201"),
          Text("name", "Name", "Żywa klasyka"),
          Number("subCount", "SubCount", "14"),
          {"subCount", "14", "0", "SubCount: 14 -> -"}}},
        {"DataPlaylist",
         PlaylistLite() +
             std::vector<Change>{
                 Text("albumId", "Tracks[0].AlbumId", "Alb.6100"),
                 Text("artistId", "Tracks[0].ArtistId", "Art.6200"),
                 Number("discIndex", "Tracks[0].DiscIndex", "1"),
                 Text("displayAlbumName", "Tracks[0].DisplayAlbumName", "Über Land"),
                 Text("displayArtistName", "Tracks[0].DisplayArtistName", "Дорога"),
                 Text("genreId", "Tracks[0].GenreId", "g.63"),
                 Text("name", "Tracks[0].Name", "自転車"),
                 Number("playbackSeconds", "Tracks[0].PlaybackSeconds", "265"),
                 Number("rightFlags", "Tracks[0].RightFlags", "68"),
                 Number("trackIndex", "Tracks[0].TrackIndex", "17"),
                 Text("name", "Tracks[1].Name", "Rückenwind")}},
        {"DataPlaylistLite", PlaylistLite()},
        {"DataStation",
         {Text("name", "Name", "Nordlicht Größe"),
          Text("stationId", "StationId", "Sta.8150"),
          Text("type", "Type", "editorial"),
          {"freeStation", "false", "true", "FreeStation: - -> true"}}},
        {"DataStationLite",
         {Text("name", "Name", "Küchenradio"),
          Text("stationId", "StationId", "Sta.8101"),
          Text("type", "Type", "member"),
          {"freeStation", "true", "false", "FreeStation: true -> -"}}},
        {"DataMemberLibrary",
         {Number("lastModified", "LastModified", "2147483648"),
          Text("memberId", "MemberId", "Ελένη-7301"),
          Text("name", "Tracks[0].Name", "Θάλασσα"),
          Number("playbackSeconds", "Tracks[0].PlaybackSeconds", "199"),
          Number("trackIndex", "Tracks[1].TrackIndex", "4"),
          Number("createdDate", "Playlists[0].CreatedDate", "1230768000"),
          Number("lastModifiedDate", "Playlists[0].LastModifiedDate", "3456789012"),
          Text("name", "Playlists[0].Name", "Καλοκαίρι"),
          Text("type", "Playlists[0].Type", "MEMBER"),
          Text("name", "Playlists[1].Name", "Küche"),
          Text("name", "Stations[0].Name", "東京ラジオ"),
          Text("type", "Stations[0].Type", "decade"),
          {"freeStation", "true", "false", "Stations[0].FreeStation: true -> -"},
          {"freeStation", "false", "true", "Stations[1].FreeStation: - -> true"}}},
        {"DataMemberLibraryLite",
         {Number("lastModified", "LastModified", "2147483648", "4294967295"),
          Text("memberId", "MemberId", "Ελένη-7301")}},
        {"DataAccountProperties",
         {Text("accountType", "accountType", "TRIAL"),
          Text("cobrand", "cobrand", "40143"),
          Text("country", "country", "GR"),
          Number("dateCreated", "dateCreated", "1246406400"),
          Text("email", "email", "eleni@example.com"),
          Text("firstName", "firstName", "Ελένη"),
          Number("freePlaysAllowed", "freePlaysAllowed", "25"),
          Number("freePlaysRemaining", "freePlaysRemaining", "3"),
          {"freeTrialTimeLeftInMillis", "4294967297", "4294967298",
           "freeTrialTimeLeftInMillis: 1 -> 2"},
          Number("quavera25MonthReset", "quavera25MonthReset", "4294967295"),
          Number("trialTerminationDate", "trialTerminationDate", "2147483648"),
          Text("userName", "userName", "ελένη&lt;7&gt;", "ελένη<7>"),
          Text("zip", "zip", "106 71")}},
        {"DataAlbumReview",
         {Text("author", "Author", "René Łukasz"),
          Text("blurb", "Blurb", "„Ein Fest“ für die Ohren"),
          Number("blurbSize", "BlurbSize", "24"), Text("detail", "Detail", "日本の夏を歌う十曲。"),
          Number("detailSize", "DetailSize", "10"),
          Number("publishDate", "PublishDate", "3155760000"),
          Text("title", "Title", "Sommer &amp; mehr 🌞", "Sommer & mehr 🌞")}},
        {"DataImage",
         {Text("copyright", "Copyright", "© 2008 Söhne &amp; Partner", "© 2008 Söhne & Partner"),
          Number("height", "Height", "162"), Text("imageFormat", "ImageFormat", "image/png"),
          Text("title", "Title", "Große Klassik"),
          Text("url", "Url", "http://img.example.com/cover?id=8401&amp;size=162",
               "http://img.example.com/cover?id=8401&size=162"),
          Number("width", "Width", "170")}},
        {"DataIndex",
         {{"letter", "M", "ß", "Letter: \"M\" -> \"\xEF\xBF\xBD\""},
          {"letter", "M", "N", R"(Letter: "M" -> "N")"},
          Number("start", "Start", "1204")}},
        {"DataLibraryModificationResult",
         {Text("items", "Value[0]", "Tra.7501"), Text("items", "Value[1]", "Pll.7502"),
          Text("items", "Value[2]", "Ключ &amp; 鍵", "Ключ & 鍵"),
          Number("libraryLastDateModified", "LibraryLastDateModified", "4294967295")}},
    };
}

class DiffOfClass : public testing::TestWithParam<Case> {
 protected:
    static std::string Sample() { return Contents(DataPath(GetParam().name + "/full.xml")); }
};

TEST_P(DiffOfClass, NamesTheMemberThatChanges) {
    const std::string sample = Sample();
    for (const Change& change : GetParam().changes) {
        const std::string changed =
            Replaced(sample, "<" + change.member + ">" + change.before + "</",
                     "<" + change.member + ">" + change.after + "</");
        EXPECT_TRUE(Differs(Diff(sample, changed), change.line + "\n"));
    }
}

TEST_P(DiffOfClass, OfAllItsFormsIsNone) {
    const std::string soap = DataPath(GetParam().name + "/full.xml");
    const std::string tree = DataPath(GetParam().name + "/full.tree.xml");
    for (const Arguments& pair : {Arguments{soap, tree}, {tree, soap}}) {
        EXPECT_TRUE(Printed(RunTool({"diff", pair[0], pair[1]}), ""));
        EXPECT_TRUE(Printed(
            RunTool({"diff", "--json", "--record", GetParam().name, pair[0], pair[1]}), "[]\n"));
    }
}

/// Calls `take` with the name of each element that holds no others.
void ForEachLeaf(ZQXML::INode* element, const std::function<void(const std::string&)>& take) {
    ZQXML::INodeList* const children = element->GetChildren();
    ZQXML::INode* child = children->First();
    if (child == nullptr) {
        take(element->GetName());
    }
    for (; child != nullptr; child = children->Next()) {
        ForEachLeaf(child, take);
    }
}

/// The last name of a path: "Name" of "Tracks[0].Name: ...".
std::string LastName(const std::string& line) {
    const std::string path = line.substr(0, line.find(": "));
    const std::string last = path.substr(path.rfind('.') + 1);
    return last.substr(0, last.find('['));
}

TEST_P(DiffOfClass, IsTriedWithEachElementOfItsTree) {
    // What a list's items are known by, what its texts are called, and those that follow from
    // others: they are tried below.
    std::set<std::string> tried = {"AlbumId",   "GenreId",          "PlaylistId",
                                   "StationId", "TrackId",          "Value",
                                   "SubCount",  "ParentGenreCount", "PrimaryParentGenreId"};
    for (const Change& change : GetParam().changes) {
        tried.insert(LastName(change.line));
    }
    const auto tree = ZQXML::ParseXml(Contents(DataPath(GetParam().name + "/full.tree.xml")));
    ForEachLeaf(tree.get(),
                [&](const std::string& name) { EXPECT_EQ(tried.count(name), 1U) << name; });
}

INSTANTIATE_TEST_SUITE_P(All, DiffOfClass, testing::ValuesIn(Cases()),
                         [](const auto& test) { return test.param.name; });

TEST(Diff, OfEveryClassIsTried) {
    std::vector<std::string> registered;
#define QUAVERA_RECORD(Class, Soap, element, node, answer) registered.emplace_back(#Class);
#include "records/Records.def"
    std::vector<std::string> tried;
    for (const Case& one : Cases()) {
        tried.push_back(one.name);
    }
    EXPECT_EQ(tried, registered);
}

TEST(Diff, OfWhatFollowsFromOthersIsThatOfTheTrees) {
    const std::string genre = Contents(DataPath("DataGenre/full.tree.xml"));
    EXPECT_TRUE(
        Differs(Diff(genre, Replaced(genre, "<ParentGenreCount>2<", "<ParentGenreCount>3<")),
                "ParentGenreCount: 2 -> 3\n"));
    EXPECT_TRUE(
        Differs(Diff(genre, Replaced(genre, "Id>g.8000</PrimaryParent", "Id>g.1</PrimaryParent")),
                "PrimaryParentGenreId: \"g.8000\" -> \"g.1\"\n"));
    const std::string result = Contents(DataPath("DataLibraryModificationResult/full.tree.xml"));
    EXPECT_TRUE(Differs(Diff(result, Replaced(result, "<SubCount>3<", "<SubCount>2<")),
                        "SubCount: 3 -> 2\n"));
}

TEST(Diff, OfAWholeDocumentIsInTheOrderOfTheFirst) {
    EXPECT_TRUE(Differs(
        Diff("<Track><TrackId>1</TrackId><Name>YQ==</Name><DiscIndex>1</DiscIndex></Track>",
             "<Track><GenreId>g</GenreId><DiscIndex>2</DiscIndex><Name>Yg==</Name><UserData/>"
             "</Track>"),
        "TrackId: \"1\" -> -\nName: \"a\" -> \"b\"\nDiscIndex: 1 -> 2\nGenreId: - -> \"g\"\n"
        "UserData: - -> \"\"\n"));
}

TEST(Diff, IgnoresTheOrderOfMembersAndUnknownElements) {
    const std::string left = "<Track><TrackId>1</TrackId><DiscIndex>1</DiscIndex></Track>";
    const std::string right =
        "<Track><DiscIndex>01x</DiscIndex><Isrc>2</Isrc><TrackId>1</TrackId></Track>";
    EXPECT_TRUE(Printed(Diff(left, right), ""));
    EXPECT_TRUE(Printed(Diff(left, right, {"--json"}), "[]\n"));
}

TEST(Diff, ShowsWhatOneSideLacksAsAHyphen) {
    EXPECT_TRUE(Differs(Diff("<Album><Artist><ArtistId>1</ArtistId></Artist><Tracks/></Album>",
                             "<Album><DisplayableAlbumTypes><Value>-</Value>"
                             "</DisplayableAlbumTypes></Album>"),
                        "Artist: {\"ArtistId\":\"1\"} -> -\nTracks: [] -> -\n"
                        "DisplayableAlbumTypes: - -> [\"-\"]\n"));
    EXPECT_TRUE(
        Differs(Diff("<Track><TrackId>-</TrackId></Track>", "<Track/>"), "TrackId: \"-\" -> -\n"));
    EXPECT_TRUE(Differs(
        Diff("<Track/>", Contents(DataPath("DataTrackInfo/full.tree.xml")),
             {"--record", "DataTrackInfo"}),
        "AlbumId: - -> \"Alb.4711\"\nArtistId: - -> \"Art.2002\"\nDiscIndex: - -> 2\n"
        "DisplayAlbumName: - -> \"Grüße aus Köln\"\nDisplayArtistName: - -> \"さくら楽団\"\n"
        "GenreId: - -> \"g.115\"\nName: - -> \"夜の散歩 – Süße Träume\"\nPlaybackSeconds: - -> "
        "254\n"
        "RightFlags: - -> 19\nTrackId: - -> \"Tra.9001\"\nTrackIndex: - -> 7\n"));
}

TEST(Diff, KeepsEachDifferenceOnALine) {
    EXPECT_TRUE(Differs(Diff("<Track><TrackId>a&#10;b</TrackId></Track>",
                             "<Track><TrackId>a&#13;&#9;b</TrackId></Track>"),
                        "TrackId: \"a\\nb\" -> \"a\\r\\tb\"\n"));
}

// --- Lists

/// An album's tree with tracks, each by its identifier and a number.
std::string Tracks(const std::vector<std::pair<std::string, int>>& tracks) {
    std::string items;
    for (const auto& [identifier, number] : tracks) {
        items += "<Track><TrackId>" + identifier + "</TrackId><DiscIndex>" +
                 std::to_string(number) + "</DiscIndex></Track>";
    }
    return "<Album><Tracks>" + items + "</Tracks></Album>";
}

std::string Track(const std::string& identifier, int number) {
    return R"({"TrackId":")" + identifier + R"(","DiscIndex":)" + std::to_string(number) + "}";
}

TEST(DiffOfList, NamesOnlyTheItemThatIsAdded) {
    const std::string list = Tracks({{"a", 1}, {"b", 2}, {"c", 3}});
    EXPECT_TRUE(Differs(Diff(list, Tracks({{"x", 9}, {"a", 1}, {"b", 2}, {"c", 3}})),
                        "Tracks[0]: - -> " + Track("x", 9) + "\n"));
    EXPECT_TRUE(
        Differs(Diff(list, Tracks({{"a", 1}, {"b", 2}, {"x", 9}, {"y", 8}, {"c", 3}})),
                "Tracks[2]: - -> " + Track("x", 9) + "\nTracks[3]: - -> " + Track("y", 8) + "\n"));
}

TEST(DiffOfList, NamesOnlyTheItemThatIsRemoved) {
    const std::string list = Tracks({{"a", 1}, {"b", 2}, {"c", 3}});
    EXPECT_TRUE(Differs(Diff(list, Tracks({{"b", 2}, {"c", 3}})),
                        "Tracks[0]: " + Track("a", 1) + " -> -\n"));
    EXPECT_TRUE(
        Differs(Diff(list, Tracks({{"a", 1}})),
                "Tracks[1]: " + Track("b", 2) + " -> -\nTracks[2]: " + Track("c", 3) + " -> -\n"));
}

TEST(DiffOfList, ComparesItemsOfOneIdentifierWhereverTheyStand) {
    EXPECT_TRUE(Differs(Diff(Tracks({{"a", 1}, {"b", 2}}), Tracks({{"x", 9}, {"a", 1}, {"b", 5}})),
                        "Tracks[1].DiscIndex: 2 -> 5\nTracks[0]: - -> " + Track("x", 9) + "\n"));
}

TEST(DiffOfList, OfAnotherIdentifierIsAnotherItem) {
    EXPECT_TRUE(
        Differs(Diff(Tracks({{"a", 1}, {"b", 2}}), Tracks({{"a", 1}, {"x", 2}})),
                "Tracks[1]: " + Track("b", 2) + " -> -\nTracks[1]: - -> " + Track("x", 2) + "\n"));
}

TEST(DiffOfList, NamesTheItemThatMoves) {
    const std::string list = Tracks({{"a", 1}, {"b", 2}, {"c", 3}, {"d", 4}});
    EXPECT_TRUE(Differs(Diff(list, Tracks({{"d", 4}, {"a", 1}, {"b", 2}, {"c", 3}})),
                        "Tracks[3]: [3] -> [0]\n"));
    EXPECT_TRUE(Differs(Diff(list, Tracks({{"b", 2}, {"c", 7}, {"d", 4}, {"a", 6}})),
                        "Tracks[0]: [0] -> [3]\nTracks[0].DiscIndex: 1 -> 6\n"
                        "Tracks[2].DiscIndex: 3 -> 7\n"));
}

TEST(DiffOfList, TellsDuplicatesByTheirNumber) {
    EXPECT_TRUE(Printed(Diff(Tracks({{"a", 1}, {"a", 2}}), Tracks({{"a", 1}, {"a", 2}})), ""));
    EXPECT_TRUE(Differs(Diff(Tracks({{"a", 1}, {"a", 2}}), Tracks({{"a", 1}, {"a", 3}})),
                        "Tracks[1].DiscIndex: 2 -> 3\n"));
    EXPECT_TRUE(Differs(Diff(Tracks({{"a", 1}, {"a", 1}}), Tracks({{"a", 1}})),
                        "Tracks[1]: " + Track("a", 1) + " -> -\n"));
}

TEST(DiffOfList, GoesByPlaceWithoutIdentifiers) {
    const std::string left =
        "<Album><Tracks><Track><DiscIndex>1</DiscIndex></Track><Track>"
        "<DiscIndex>2</DiscIndex></Track></Tracks></Album>";
    EXPECT_TRUE(Differs(Diff(left, Replaced(left, "<Track><DiscIndex>1</DiscIndex></Track>", "")),
                        "Tracks[0].DiscIndex: 1 -> 2\nTracks[1]: {\"DiscIndex\":2} -> -\n"));
}

TEST(DiffOfList, KnowsTheIdentifierOfEachListOfRecords) {
    struct List {
        const char* tree;  // in which # stands for items
        const char* item;  // in which # stands for an identifier
        const char* path;
        const char* json;
    };
    const auto with = [](const std::string& text, const std::string& part) {
        return Replaced(text, "#", part);
    };
    for (const List& list :
         {List{"<Playlist><Tracks>#</Tracks></Playlist>", "<Track><TrackId>#</TrackId></Track>",
               "Tracks", "TrackId"},
          {"<MemberLibrary><Tracks>#</Tracks></MemberLibrary>",
           "<Track><TrackId>#</TrackId></Track>", "Tracks", "TrackId"},
          {"<MemberLibrary><Playlists>#</Playlists></MemberLibrary>",
           "<Playlist><PlaylistId>#</PlaylistId></Playlist>", "Playlists", "PlaylistId"},
          {"<MemberLibrary><Stations>#</Stations></MemberLibrary>",
           "<Station><StationId>#</StationId></Station>", "Stations", "StationId"},
          {"<Artist><Albums>#</Albums></Artist>", "<Album><AlbumId>#</AlbumId></Album>", "Albums",
           "AlbumId"},
          {"<Artist><Genres>#</Genres></Artist>", "<GenreLite><GenreId>#</GenreId></GenreLite>",
           "Genres", "GenreId"},
          {"<Genre><ChildGenres>#</ChildGenres></Genre>",
           "<GenreLite><GenreId>#</GenreId></GenreLite>", "ChildGenres", "GenreId"},
          {"<Genre><ParentGenres>#</ParentGenres></Genre>",
           "<GenreLite><GenreId>#</GenreId></GenreLite>", "ParentGenres", "GenreId"}}) {
        const std::string left = with(list.tree, with(list.item, "a"));
        const std::string right = with(list.tree, with(list.item, "x") + with(list.item, "a"));
        EXPECT_TRUE(Differs(Diff(left, right),
                            std::string(list.path) + "[0]: - -> {\"" + list.json + "\":\"x\"}\n"));
    }
}

TEST(DiffOfList, OfTextsGoesByPlace) {
    const auto album = [](const std::vector<std::string>& texts) {
        std::string values;
        std::string repeated;
        for (const std::string& text : texts) {
            values += "<Value>" + text + "</Value>";
            repeated += "<NonDisplayableAlbumTypes>" + text + "</NonDisplayableAlbumTypes>";
        }
        return "<Album><DisplayableAlbumTypes>" + values + "</DisplayableAlbumTypes>" + repeated +
               "</Album>";
    };
    EXPECT_TRUE(Differs(Diff(album({"a", "b"}), album({"x", "a", "b"})),
                        "DisplayableAlbumTypes[0]: \"a\" -> \"x\"\n"
                        "DisplayableAlbumTypes[1]: \"b\" -> \"a\"\n"
                        "DisplayableAlbumTypes[2]: - -> \"b\"\n"
                        "NonDisplayableAlbumTypes[0]: \"a\" -> \"x\"\n"
                        "NonDisplayableAlbumTypes[1]: \"b\" -> \"a\"\n"
                        "NonDisplayableAlbumTypes[2]: - -> \"b\"\n"));
    EXPECT_TRUE(Differs(Diff(album({"a", "b"}), album({"a"})),
                        "DisplayableAlbumTypes[1]: \"b\" -> -\n"
                        "NonDisplayableAlbumTypes[1]: \"b\" -> -\n"));
}

// --- List answers

std::string Images(const std::vector<std::string>& urls) {
    std::string items;
    for (const std::string& url : urls) {
        items += "<items><title>" + url + "</title></items>";
    }
    return Envelope("<q:Images><images>" + items + "</images></q:Images>");
}

TEST(DiffOfListAnswer, NamesItemsByPlace) {
    EXPECT_TRUE(
        Differs(Diff(Images({"a", "b"}), Images({"c", "b"})), "[0].Title: \"a\" -> \"c\"\n"));
    EXPECT_TRUE(Differs(Diff(Images({"a", "b"}), Images({"a"})), "[1]: {\"Title\":\"b\"} -> -\n"));
    EXPECT_TRUE(Differs(Diff(Images({}), Images({"a"})), "[0]: - -> {\"Title\":\"a\"}\n"));
    EXPECT_TRUE(Printed(Diff(Images({}), Images({})), ""));
}

TEST(DiffOfListAnswer, OfItsTreesIsNone) {
    for (const std::string& soap : {Images({"a"}), Images({"a", "b", "c"})}) {
        const std::string trees = RunTool({"tree"}, soap).output;
        EXPECT_TRUE(Printed(Diff(soap, trees), ""));
        EXPECT_TRUE(Printed(Diff(trees, soap, {"--record", "DataImage"}), ""));
        EXPECT_TRUE(Printed(Diff(trees, trees), ""));
    }
    EXPECT_TRUE(Differs(Diff("<Image/>\n", "<Image/>\n<Image/>\n"), "[1]: - -> {}\n"));
}

TEST(DiffOfListAnswer, AgainstASingleSoapRecordIsTrouble) {
    const std::string image = Envelope("<q:ImageMetadata/>");
    EXPECT_TRUE(
        Refused(Diff(Images({"a"}), image), kTrouble, {"DataImage", "a list of DataImage"}));
}

// --- Classes

TEST(DiffOfClasses, TakesATreeForTheClassOfTheOtherDocument) {
    for (const std::string name :
         {"DataAlbumLite", "DataArtistLite", "DataPlaylistLite", "DataStationLite"}) {
        const std::string soap = DataPath(name + "/full.xml");
        const std::string tree = DataPath(name + "/full.tree.xml");
        EXPECT_TRUE(Printed(RunTool({"diff", soap, tree}), "")) << name;
        EXPECT_TRUE(Printed(RunTool({"diff", tree, soap}), "")) << name;
    }
    // What the class does not have is none of the document's.
    EXPECT_TRUE(
        Printed(Diff(Envelope("<q:LiteArtistMetadata/>"), "<Artist><Bio>YQ==</Bio></Artist>"), ""));
}

TEST(DiffOfClasses, ThatDifferIsTrouble) {
    const std::string album = DataPath("DataAlbum/full.xml");
    const std::string track = DataPath("DataTrackInfo/full.tree.xml");
    EXPECT_TRUE(Refused(RunTool({"diff", album, track}), kTrouble,
                        {album, track, "DataAlbum", "DataTrackInfo"}));
    for (const Arguments& option : {Arguments{}, {"--json"}}) {
        EXPECT_TRUE(Refused(Diff("<Image/>", "<Index/>", option), kTrouble,
                            {"left.xml", "right.xml", "DataImage", "DataIndex"}));
    }
}

// SOAP responses name their classes.
TEST(DiffOfClasses, OfOneElementThatDifferIsTrouble) {
    for (const std::string name : {"Album", "Artist", "Playlist", "Station"}) {
        const std::string full = DataPath("Data" + name + "/full.xml");
        const std::string lite = DataPath("Data" + name + "Lite/full.xml");
        EXPECT_TRUE(Refused(RunTool({"diff", full, lite}), kTrouble,
                            {"holds Data" + name + "\n", "holds Data" + name + "Lite,"}))
            << name;
        EXPECT_TRUE(Refused(RunTool({"diff", lite, full}), kTrouble,
                            {"holds Data" + name + ",", "holds Data" + name + "Lite\n"}));
    }
}

TEST(DiffOfClasses, IsTheOneThatIsAsked) {
    const std::string album = "<Album><Label>a</Label><AlbumId>1</AlbumId></Album>";
    const std::string other = "<Album><Label>b</Label><AlbumId>1</AlbumId></Album>";
    EXPECT_TRUE(Differs(Diff(album, other), "Label: \"a\" -> \"b\"\n"));
    EXPECT_TRUE(Printed(Diff(album, other, {"--record", "DataAlbumLite"}), ""));
    EXPECT_TRUE(Refused(Diff(album, other, {"--record", "DataArtist"}), kTrouble,
                        {"left.xml", "\"Album\"", "DataArtist"}));
    EXPECT_TRUE(Refused(
        RunTool({"diff", "--record", "DataAlbumLite", DataPath("DataAlbum/full.xml"), "-"}, album),
        kTrouble, {"\"AlbumMetadata\"", "DataAlbumLite"}));
}

// A library's SOAP record and its tree are called the same; the members are not.
TEST(DiffOfClasses, TellsALibrarysTreeFromItsSoapRecord) {
    const std::string soap = Contents(DataPath("DataMemberLibrary/full.xml"));
    const std::string tree = Contents(DataPath("DataMemberLibrary/full.tree.xml"));
    const std::string bare = "<MemberLibrary><lastModified>1</lastModified></MemberLibrary>";
    const std::string changed = Replaced(tree, ">2147483648<", ">1<");
    EXPECT_TRUE(Differs(Diff(tree, changed), "LastModified: 2147483648 -> 1\n"));
    EXPECT_TRUE(Differs(Diff(soap, changed), "LastModified: 2147483648 -> 1\n"));
    EXPECT_TRUE(Differs(Diff(bare, "<MemberLibrary><LastModified>2</LastModified></MemberLibrary>"),
                        "LastModified: 1 -> 2\n"));
    EXPECT_TRUE(Printed(Diff("<MemberLibrary/>", Envelope("<q:MemberLibrary/>")), ""));
}

// --- Input

TEST(DiffOfInput, MayBeStandardInputOnOneSide) {
    const std::string path = DataPath("DataTrackInfo/full.tree.xml");
    const std::string changed = Replaced(Contents(path), ">Tra.9001<", ">x<");
    EXPECT_TRUE(Differs(RunTool({"diff", path, "-"}, changed), "TrackId: \"Tra.9001\" -> \"x\"\n"));
    EXPECT_TRUE(Differs(RunTool({"diff", "-", path}, changed), "TrackId: \"x\" -> \"Tra.9001\"\n"));
    EXPECT_TRUE(Printed(RunTool({"diff", "-", path}, Contents(path)), ""));
}

TEST(DiffOfInput, ThatIsBadIsTrouble) {
    const std::string good = DataPath("DataTrackInfo/full.xml");
    const std::string missing = DataPath("missing.xml");
    EXPECT_TRUE(Refused(RunTool({"diff", good, missing}), kTrouble,
                        {missing + ": No such file or directory"}));
    EXPECT_TRUE(Refused(RunTool({"diff", missing, good}), kTrouble, {missing + ": "}));
    for (const char* const name : {"mismatched-tag.xml", "empty.xml", "not-utf8.xml",
                                   "document-type.xml", "mismatched-tag.tree.xml"}) {
        const std::string bad = DataPath(std::string("bad/") + name);
        EXPECT_TRUE(Refused(RunTool({"diff", good, bad}), kTrouble, {bad + ": line "}));
        EXPECT_TRUE(Refused(RunTool({"diff", bad, good}), kTrouble, {bad + ": line "}));
    }
    for (const char* const name : {"fault-1.1.xml", "empty-body.xml", "unknown-record.xml",
                                   "unknown-root.tree.xml", "number-is-text.xml"}) {
        const std::string bad = DataPath(std::string("bad/") + name);
        EXPECT_TRUE(Refused(RunTool({"diff", good, bad}), kTrouble, {bad + ": "}));
    }
    EXPECT_TRUE(
        Refused(RunTool({"diff", good, DataPath("bad/fault-1.1.xml")}), kTrouble, {"fault"}));
}

TEST(DiffOfInput, ThatIsWrongUsageIsTrouble) {
    EXPECT_TRUE(Refused(RunTool({"diff"}), kTrouble, {"a is required"}));
    EXPECT_TRUE(Refused(RunTool({"diff", "one.xml"}), kTrouble, {"b is required"}));
    EXPECT_TRUE(
        Refused(RunTool({"diff", "--record", "DataConcert", "a", "b"}), kTrouble, {"DataConcert"}));
}

TEST(DiffOfInput, IntoAFullDeviceIsTrouble) {
    EXPECT_TRUE(Refused(tooltest::RunToolInto(
                            "/dev/full", {"diff", DataPath("DataIndex/full.xml"), "-"}, "<Index/>"),
                        kTrouble, {"standard output: No space left on device"}));
}

std::string Levels(int count, const std::string& name) {
    std::string begin;
    std::string end;
    for (int done = 0; done < count; ++done) {
        begin += "<" + name + ">";
        end += "</" + name + ">";
    }
    return begin + end;
}

TEST(DiffOfInput, ThatIsDeepIsReadOrRefused) {
    const std::string deep = "<Track>" + Levels(9000, "x") + "<TrackId>1</TrackId></Track>";
    EXPECT_TRUE(Differs(Diff("<Track/>", deep), "TrackId: - -> \"1\"\n"));
    EXPECT_TRUE(Printed(Diff("<Artist/>", "<Artist>" + Levels(9000, "Artist") + "</Artist>"), ""));
    EXPECT_TRUE(Refused(Diff("<Track/>", Levels(20000, "Track")), kTrouble, {"right.xml", "deep"}));
    EXPECT_TRUE(Printed(RunTool({"text", "--json"}, deep), "{\"TrackId\":\"1\"}\n"));
}

}  // namespace
