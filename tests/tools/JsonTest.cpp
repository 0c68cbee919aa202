// What `--json` prints: one line for each document, with the values of the SOAP record, or those
// that the record's reader takes of a tree.

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "tests/tools/Files.h"
#include "tests/tools/Process.h"

namespace {

using tooltest::Arguments;
using tooltest::Contents;
using tooltest::DataPath;
using tooltest::Envelope;
using tooltest::Printed;
using tooltest::Refused;
using tooltest::RunTool;

/// A class and the JSON of its sample document.
struct Case {
    std::string name;
    std::string json;
};

void PrintTo(const Case& printed, std::ostream* out) {
    *out << printed.name;
}

std::string Joined(const std::vector<std::string>& members) {
    std::string all;
    for (const std::string& member : members) {
        all += (all.empty() ? "" : ",") + member;
    }
    return all;
}

std::string Object(const std::vector<std::string>& members) {
    return "{" + Joined(members) + "}";
}

std::string Array(const std::vector<std::string>& items) {
    return "[" + Joined(items) + "]";
}

const std::vector<std::string>& AlbumLiteMembers() {
    static const std::vector<std::string> members = {
        R"("AlbumArt162x162Url":"http://art.example.com/162.jpg?id=821&lang=ja")",
        R"("AlbumId":"Alb.821")",
        R"("AlbumType":822)",
        R"("Compilation":true)",
        R"("DisplayName":"夜の散歩")",
        R"("Name":"Yoru no Sanpo – Süße Nächte")",
        R"("ParentalAuthority":true)",
        R"("PrimaryArtistDisplayName":"さくら楽団")",
        R"("PrimaryArtistId":"Art.823")",
        R"("PrimaryStyle":"City Pop")",
        R"("ReleaseYear":1984)",
        R"("Shortcut":"yoru")",
        R"("DisplayableAlbumTypes":["ALBUM","COMPILATION","R&B"])",
    };
    return members;
}

std::string Album() {
    return Object(
        {Joined(AlbumLiteMembers()),
         R"("AlbumArt70x70Url":"http://art.example.com/70.jpg?id=831&lang=ja")",
         R"("Copyright":"℗ 1984 Nachtmusik")", R"("Label":"Mond & Söhne")",
         R"("NonDisplayableAlbumTypes":["SINGLE","LIVE"])",
         R"json("Artist":{"ArtistId":"Art.833","Name":"さくら楽団 (Sakura)","Shortcut":"sakura"})json",
         R"("Tracks":)" +
             Array(
                 {Object({R"("AlbumId":"Alb.835")", R"("ArtistId":"Art.836")", R"("DiscIndex":1)",
                          R"("DisplayAlbumName":"Süße Nächte")", R"("DisplayArtistName":"Сакура")",
                          R"("GenreId":"g.837")", R"("Name":"月光")", R"("PlaybackSeconds":241)",
                          R"("RightFlags":838)", R"("TrackId":"Tra.839")", R"("TrackIndex":2)"}),
                  R"({"Name":"終わり","TrackId":"Tra.840","TrackIndex":3})"}),
         R"("Upccode":"04988001234567")"});
}

std::string Artist() {
    return Object(
        {R"("ArtistId":"Art.851")", R"("Name":"Хор «Рассвет»")", R"("Shortcut":"rassvet")",
         R"("Albums":)" + Array({Object(AlbumLiteMembers()), R"({"AlbumId":"Alb.853"})"}),
         R"("Station":)" + Object({R"("Name":"Радио Рассвет")", R"("StationId":"Sta.854")",
                                   R"("Type":"ARTIST")", R"("FreeStation":true)"}),
         R"("Bio":"Gegründet 1851 & seither aktiv.")", R"("BioAuthor":"岡田")",
         R"("Blurb":"<Kurz>: ein Chor")",
         R"("Genres":)" + Array({R"({"GenreId":"g.855","Name":"Хоровая музыка","SubCount":856})",
                                 R"({"GenreId":"g.857"})"})});
}

std::string Genre() {
    return Object(
        {R"("Abbreviation":"Kl.")", R"("DisplayName":"Klassik & Oper")", R"("GenreId":"g.8300")",
         R"("Name":"クラシック")", R"("SubGenreCount":31)",
         R"("ChildGenres":)" + Array({R"({"GenreId":"g.8310","Name":"Oper für alle","SubCount":4})",
                                      R"({"GenreId":"g.8320","Name":"Хор"})",
                                      R"({"GenreId":"g.8330","Name":"Kammermusik","SubCount":9})"}),
         R"("Description":"Vom Barock bis heute 🎼")", R"("PrimaryParentGenreId":"g.8000")",
         R"("ParentGenreCount":2)",
         R"("ParentGenres":)" +
             Array({R"({"GenreId":"g.8000","Name":"Música 🎻","SubCount":88})",
                    R"({"GenreId":"g.8001","Name":"Schöne Künste","SubCount":7})"})});
}

std::string Library() {
    return Object(
        {R"("LastModified":2147483648)", R"("MemberId":"Ελένη-7301")",
         R"("Tracks":)" + Array({R"({"Name":"Θάλασσα","PlaybackSeconds":199,"TrackId":"Tra.7330"})",
                                 R"({"TrackId":"Tra.7331","TrackIndex":4})"}),
         R"("Playlists":)" +
             Array({Object({R"("CreatedDate":1230768000)", R"("LastModifiedDate":3456789012)",
                            R"("Name":"Καλοκαίρι")", R"("PlaylistId":"Pll.7310")",
                            R"("Type":"MEMBER")"}),
                    R"({"Name":"Küche","PlaylistId":"Pll.7311"})"}),
         R"("Stations":)" + Array({Object({R"("Name":"東京ラジオ")", R"("StationId":"Sta.7320")",
                                           R"("Type":"decade")", R"("FreeStation":true)"}),
                                   R"({"StationId":"Sta.7321"})"})});
}

// A long of 64 bits, 4294967297, has 32 of them in the tree.
std::string Account() {
    return Object({R"("accountType":"TRIAL")", R"("cobrand":"40143")", R"("country":"GR")",
                   R"("dateCreated":1246406400)", R"("email":"eleni@example.com")",
                   R"("firstName":"Ελένη")", R"("freePlaysAllowed":25)",
                   R"("freePlaysRemaining":3)", R"("freeTrialTimeLeftInMillis":1)",
                   R"("quavera25MonthReset":4294967295)", R"("trialTerminationDate":2147483648)",
                   R"("userName":"ελένη<7>")", R"("zip":"106 71")"});
}

const std::string kPlaylist = Joined(
    {R"("CreatedDate":1262304000)", R"("LastModifiedDate":4294967295)",
     R"("Name":"Straßenmusik & 散歩 🚲")", R"("PlaylistId":"Pll.5150")", R"("Type":"FEATURED")"});

// Of each class that is registered, or JsonOfSample misses it.
std::vector<Case> Samples() {
    return {
        {"DataTrackInfo",
         Object({R"("AlbumId":"Alb.4711")", R"("ArtistId":"Art.2002")", R"("DiscIndex":2)",
                 R"("DisplayAlbumName":"Grüße aus Köln")", R"("DisplayArtistName":"さくら楽団")",
                 R"("GenreId":"g.115")", R"("Name":"夜の散歩 – Süße Träume")",
                 R"("PlaybackSeconds":254)", R"("RightFlags":19)", R"("TrackId":"Tra.9001")",
                 R"("TrackIndex":7)"})},
        {"DataAlbum", Album()},
        {"DataAlbumLite", Object(AlbumLiteMembers())},
        {"DataArtist", Artist()},
        {"DataArtistLite",
         R"({"ArtistId":"Art.811","Name":"Jürgen & die Wölfe","Shortcut":"woelfe"})"},
        {"DataGenre", Genre()},
        {"DataGenreLite", R"({"GenreId":"g.8201","Name":"Żywa klasyka","SubCount":14})"},
        {"DataPlaylist",
         Object(
             {kPlaylist, R"("Tracks":)" +
                             Array({Object({R"("AlbumId":"Alb.6100")", R"("ArtistId":"Art.6200")",
                                            R"("DiscIndex":1)", R"("DisplayAlbumName":"Über Land")",
                                            R"("DisplayArtistName":"Дорога")",
                                            R"("GenreId":"g.63")", R"("Name":"自転車")",
                                            R"("PlaybackSeconds":265)", R"("RightFlags":68)",
                                            R"("TrackId":"Tra.6900")", R"("TrackIndex":17)"}),
                                    R"({"Name":"Rückenwind","TrackId":"Tra.7000"})"})})},
        {"DataPlaylistLite", Object({kPlaylist})},
        {"DataStation", R"({"Name":"Nordlicht Größe","StationId":"Sta.8150","Type":"editorial"})"},
        {"DataStationLite",
         R"({"Name":"Küchenradio","StationId":"Sta.8101","Type":"member","FreeStation":true})"},
        {"DataMemberLibrary", Library()},
        {"DataMemberLibraryLite", R"({"LastModified":2147483648,"MemberId":"Ελένη-7301"})"},
        {"DataAccountProperties", Account()},
        {"DataAlbumReview",
         Object({R"("Author":"René Łukasz")", R"("Blurb":"„Ein Fest“ für die Ohren")",
                 R"("BlurbSize":24)", R"("Detail":"日本の夏を歌う十曲。")", R"("DetailSize":10)",
                 R"("PublishDate":3155760000)", R"("Title":"Sommer & mehr 🌞")"})},
        {"DataImage",
         Object({R"("Copyright":"© 2008 Söhne & Partner")", R"("Height":162)",
                 R"("ImageFormat":"image/png")", R"("Title":"Große Klassik")",
                 R"("Url":"http://img.example.com/cover?id=8401&size=162")", R"("Width":170)"})},
        {"DataIndex", R"({"Letter":"M","Start":1204})"},
        {"DataLibraryModificationResult",
         R"({"SubCount":3,"Value":["Tra.7501","Pll.7502","Ключ & 鍵"],)"
         R"("LibraryLastDateModified":4294967295})"},
    };
}

class JsonOfSample : public testing::TestWithParam<Case> {};

TEST_P(JsonOfSample, IsThatOfItsSoapRecord) {
    const std::string path = DataPath(GetParam().name + "/full.xml");
    EXPECT_TRUE(Printed(RunTool({"show", "--json", path}), GetParam().json + "\n"));
    EXPECT_TRUE(
        Printed(RunTool({"show", "--json", "--record", GetParam().name, "-"}, Contents(path)),
                GetParam().json + "\n"));
}

TEST_P(JsonOfSample, IsTheSameOfItsTree) {
    const std::string soap = DataPath(GetParam().name + "/full.xml");
    const Arguments text = {"text", "--json", "--record", GetParam().name};
    for (const Arguments& tree : {Arguments{"tree", soap}, {"tree", "--indent", soap}}) {
        EXPECT_TRUE(Printed(RunTool(text, RunTool(tree).output), GetParam().json + "\n"));
    }
}

INSTANTIATE_TEST_SUITE_P(All, JsonOfSample, testing::ValuesIn(Samples()),
                         [](const auto& test) { return test.param.name; });

TEST(Json, OfEveryClassIsExpectedHere) {
    std::vector<std::string> registered;
#define QUAVERA_RECORD(Class, Soap, element, node, answer) registered.emplace_back(#Class);
#include "records/Records.def"
    std::vector<std::string> expected;
    for (const Case& sample : Samples()) {
        expected.push_back(sample.name);
    }
    EXPECT_EQ(registered, expected);
}

// --- SOAP responses

/// A document that holds a record of that SOAP type with these members.
std::string Soap(const std::string& type, const std::string& members) {
    return Envelope("<q:" + type + ">" + members + "</q:" + type + ">");
}

testing::AssertionResult IsShown(const std::string& soap, const std::string& json) {
    return Printed(RunTool({"show", "--json"}, soap), json + "\n");
}

TEST(Json, OfRecordWithoutMembersIsAnEmptyObject) {
    EXPECT_TRUE(IsShown(Soap("AlbumMetadata", ""), "{}"));
    EXPECT_TRUE(IsShown(Soap("LibraryModificationResult", ""), "{}"));
    EXPECT_TRUE(IsShown(Soap("AlbumMetadata", "<primaryArtist/>"), R"({"Artist":{}})"));
}

TEST(Json, OfEmptyListElementIsAnEmptyArray) {
    EXPECT_TRUE(IsShown(Soap("GenreMetadata", "<genreId>g</genreId>"),
                        R"({"GenreId":"g","ChildGenres":[],"ParentGenres":[]})"));
    EXPECT_TRUE(IsShown(Soap("AlbumMetadata", "<displayableAlbumTypes/><tracks/>"),
                        R"({"DisplayableAlbumTypes":[],"Tracks":[]})"));
}

TEST(Json, OfNumbersIsANumberAtAllLimits) {
    EXPECT_TRUE(IsShown(
        Soap("LiteTrackMetadata",
             "<discIndex>-1</discIndex><playbackSeconds>2147483647"
             "</playbackSeconds><rightFlags>-2147483648</rightFlags>"
             "<trackIndex>0</trackIndex>"),
        R"({"DiscIndex":-1,"PlaybackSeconds":2147483647,"RightFlags":-2147483648,"TrackIndex":0})"));
    EXPECT_TRUE(IsShown(Soap("LitePlaylistMetadata",
                             "<createdDate>4294967295</createdDate>"
                             "<lastModifiedDate>0</lastModifiedDate>"),
                        R"({"CreatedDate":4294967295,"LastModifiedDate":0})"));
    EXPECT_TRUE(IsShown(Soap("LibraryModificationResult",
                             "<libraryLastDateModified>2147483648</libraryLastDateModified>"),
                        R"({"LibraryLastDateModified":2147483648})"));
}

TEST(Json, OfAccountHasTheLowBitsOfItsTimeLeft) {
    for (const auto& [time, printed] : std::vector<std::pair<std::string, std::string>>{
             {"4294967295", "4294967295"}, {"4294967296", "0"}, {"-1", "4294967295"}}) {
        EXPECT_TRUE(
            IsShown(Soap("AccountMetaData",
                         "<freeTrialTimeLeftInMillis>" + time + "</freeTrialTimeLeftInMillis>"),
                    R"({"freePlaysAllowed":0,"freePlaysRemaining":0,"freeTrialTimeLeftInMillis":)" +
                        printed + "}"));
    }
}

TEST(Json, OfFlagsIsABoolean) {
    EXPECT_TRUE(IsShown(Soap("LiteAlbumMetadata",
                             "<compilation>false</compilation>"
                             "<parentalAuthority>1</parentalAuthority>"),
                        R"({"Compilation":false,"ParentalAuthority":true})"));
}

TEST(Json, OfTextsIsEscapedWhereJsonNeedsIt) {
    const std::string written = "\"\\/&#9;&#10;&#13;&lt;\x7Fé€😀&#x2028;";
    const std::string printed = "\"\\\"\\\\/\\t\\n\\r<\x7Fé€😀\xE2\x80\xA8\"";
    EXPECT_TRUE(IsShown(Soap("LiteArtistMetadata",
                             "<artistId>" + written + "</artistId><name>" + written + "</name>"),
                        "{\"ArtistId\":" + printed + ",\"Name\":" + printed + "}"));
}

TEST(Json, OfIndexHasTheLetter) {
    for (const auto& [letter, printed] :
         std::vector<std::pair<std::string, std::string>>{{"A", R"("A")"},
                                                          {"&quot;", R"("\"")"},
                                                          {"#", R"("#")"},
                                                          {"Abc", R"("A")"},
                                                          {"&#9;", R"("\t")"},
                                                          {"", R"("\u0000")"},
                                                          {"é", "\"\xEF\xBF\xBD\""}}) {
        EXPECT_TRUE(IsShown(Soap("AlphaIndexPosition", "<letter>" + letter + "</letter>"),
                            "{\"Letter\":" + printed + "}"))
            << letter;
    }
}

TEST(Json, OfElementThatMayRepeatIsAnArrayAlsoOfOne) {
    EXPECT_TRUE(IsShown(Soap("LibraryModificationResult", "<values><items>a</items></values>"),
                        R"({"SubCount":1,"Value":["a"]})"));
    EXPECT_TRUE(IsShown(Soap("LibraryModificationResult", "<values/>"), R"({"SubCount":0})"));
    EXPECT_TRUE(
        IsShown(Soap("AlbumMetadata",
                     "<nonDisplayableAlbumTypes><items>LIVE</items></nonDisplayableAlbumTypes>"),
                R"({"NonDisplayableAlbumTypes":["LIVE"]})"));
}

// --- Trees

testing::AssertionResult IsRead(const std::string& tree, const std::string& json) {
    return Printed(RunTool({"text", "--json"}, tree), json + "\n");
}

TEST(Json, OfATreeHasTheValuesThatTheReaderTakes) {
    const std::vector<std::pair<std::string, std::string>> members = {
        {"<DiscIndex>12abc</DiscIndex>", R"("DiscIndex":12)"},
        {"<DiscIndex>  +7</DiscIndex>", R"("DiscIndex":7)"},
        {"<DiscIndex>abc</DiscIndex>", R"("DiscIndex":0)"},
        {"<DiscIndex/>", R"("DiscIndex":0)"},
        {"<DiscIndex>4294967295</DiscIndex>", R"("DiscIndex":-1)"},
        {"<TrackId/>", R"("TrackId":"")"},
        {"<TrackId>a<b/>c</TrackId>", R"("TrackId":"a")"},
        {"<TrackId encoding=\"base64\">YWI=</TrackId>", R"("TrackId":"YWI=")"},
        {"<Name>w7w=</Name>", R"("Name":"ü")"},
        {"<Name encoding=\"base64\">w7w=</Name>", R"("Name":"ü")"},
        {"<Name encoding=\"base64\">w7w</Name>", R"("Name":"")"},
        {"<Name>#no base64#</Name>", R"("Name":"")"},
        {"<Name>8J+YgA==</Name>", R"("Name":"😀")"},
        {"<Name>IgA=</Name>", R"("Name":"\"")"},  // a zero ends it
        {"<Name>YcNi</Name>", R"("Name":"a")"},   // so does what is no UTF-8
        {"<UserData>u</UserData>", R"("UserData":"u")"},
    };
    for (const auto& [element, member] : members) {
        EXPECT_TRUE(IsRead("<Track>" + element + "</Track>", "{" + member + "}")) << element;
    }
}

TEST(Json, OfATreeHasUnsignedNumbersModulo32Bits) {
    for (const auto& [text, number] : std::vector<std::pair<std::string, std::string>>{
             {"4294967295", "4294967295"}, {"-1", "4294967295"}, {"5x", "5"}, {"x", "0"}}) {
        EXPECT_TRUE(IsRead(
            "<MemberLibraryLite><LastModified>" + text + "</LastModified></MemberLibraryLite>",
            "{\"LastModified\":" + number + "}"));
    }
}

// The record holds these dates as texts.
TEST(Json, OfATreeHasDatesAsNumbersUnlessTheyAreNone) {
    for (const auto& [text, value] :
         std::vector<std::pair<std::string, std::string>>{{"4294967295", "4294967295"},
                                                          {"0", "0"},
                                                          {"4294967296", R"("4294967296")"},
                                                          {"-1", R"("-1")"},
                                                          {"12abc", R"("12abc")"},
                                                          {"", R"("")"}}) {
        EXPECT_TRUE(IsRead("<Playlist><CreatedDate>" + text + "</CreatedDate></Playlist>",
                           "{\"CreatedDate\":" + value + "}"));
        EXPECT_TRUE(IsRead("<AlbumReview><PublishDate>" + text + "</PublishDate></AlbumReview>",
                           "{\"PublishDate\":" + value + "}"));
    }
}

TEST(Json, OfATreeHasFlagsThatAreSetByTrueOnly) {
    for (const auto& [text, value] : std::vector<std::pair<std::string, std::string>>{
             {"true", "true"}, {"TRUE", "false"}, {"1", "false"}, {"", "false"}}) {
        EXPECT_TRUE(IsRead("<Album><Compilation>" + text + "</Compilation></Album>",
                           "{\"Compilation\":" + value + "}"));
    }
}

TEST(Json, OfATreeLeavesOutUnknownElements) {
    EXPECT_TRUE(IsRead("<Track><trackId>1</trackId><Isrc>2</Isrc><TrackId>3</TrackId></Track>",
                       R"({"TrackId":"3"})"));
    EXPECT_TRUE(IsRead("<Album><Artist><Bio/><ArtistId>1</ArtistId></Artist></Album>",
                       R"({"Artist":{"ArtistId":"1"}})"));
}

TEST(Json, OfATreeKeepsTheOrderOfItsElements) {
    EXPECT_TRUE(IsRead("<Track><TrackId>1</TrackId><AlbumId>2</AlbumId><Name/></Track>",
                       R"({"TrackId":"1","AlbumId":"2","Name":""})"));
}

TEST(Json, OfElementThatComesTwiceHasWhatTheReaderKeeps) {
    EXPECT_TRUE(
        IsRead("<Track><TrackId>1</TrackId><DiscIndex>1</DiscIndex><TrackId>2</TrackId>"
               "<DiscIndex>2</DiscIndex></Track>",
               R"({"TrackId":"2","DiscIndex":2})"));
    EXPECT_TRUE(
        IsRead("<Album><Compilation>true</Compilation><Compilation>false</Compilation>"
               "</Album>",
               R"({"Compilation":true})"));
    EXPECT_TRUE(
        IsRead("<Album><Compilation>false</Compilation><Compilation>true</Compilation>"
               "</Album>",
               R"({"Compilation":true})"));
    EXPECT_TRUE(
        IsRead("<Album><Artist><Name>YQ==</Name><ArtistId>1</ArtistId></Artist><Artist>"
               "<ArtistId>2</ArtistId></Artist></Album>",
               R"({"Artist":{"Name":"a","ArtistId":"2"}})"));
    EXPECT_TRUE(IsRead("<Album><Tracks><Track/></Tracks><Tracks><Track/><Track/></Tracks></Album>",
                       R"({"Tracks":[{},{},{}]})"));
    EXPECT_TRUE(
        IsRead("<Album><DisplayableAlbumTypes><Value>a</Value></DisplayableAlbumTypes>"
               "<DisplayableAlbumTypes><Value>b</Value></DisplayableAlbumTypes></Album>",
               R"({"DisplayableAlbumTypes":["a","b"]})"));
}

TEST(Json, OfElementThatRepeatsStandsWhereTheFirstDoes) {
    EXPECT_TRUE(
        IsRead("<LibraryModification><Value>a</Value><LibraryLastDateModified>1"
               "</LibraryLastDateModified><Value>b</Value></LibraryModification>",
               R"({"Value":["a","b"],"LibraryLastDateModified":1})"));
}

// Bytes that are marked need not be UTF-8, which JSON has to be.
TEST(Json, OfMarkedTextsIsDecoded) {
    EXPECT_TRUE(
        IsRead("<LibraryModification><Value encoding=\"base64\">w7w=</Value>"
               "<Value>w7w=</Value><Value encoding=\"base64\">Yf9i</Value>"
               "<Value encoding=\"base64\">#</Value></LibraryModification>",
               "{\"Value\":[\"ü\",\"w7w=\",\"a\xEF\xBF\xBD"
               "b\",\"\"]}"));
}

TEST(Json, OfItemsIsReadAsTheRecordDoes) {
    // Whatever their name, but for a genre's.
    EXPECT_TRUE(
        IsRead("<Album><Tracks><Item><TrackId>1</TrackId></Item></Tracks>"
               "<DisplayableAlbumTypes><Item>a</Item></DisplayableAlbumTypes></Album>",
               R"({"Tracks":[{"TrackId":"1"}],"DisplayableAlbumTypes":["a"]})"));
    EXPECT_TRUE(
        IsRead("<Genre><ChildGenres><Genre/><GenreLite><GenreId>1</GenreId></GenreLite>"
               "</ChildGenres></Genre>",
               R"({"ChildGenres":[{"GenreId":"1"}]})"));
    EXPECT_TRUE(IsRead("<Album><Tracks>text</Tracks><Artist>text</Artist></Album>",
                       R"({"Tracks":[],"Artist":{}})"));
}

// --- Usage

TEST(Json, OfBadInputIsAFailure) {
    EXPECT_TRUE(Refused(RunTool({"show", "--json"}, "<a>"), 1, {"standard input: line 1"}));
    EXPECT_TRUE(Refused(RunTool({"text", "--json"}, "<a/>"), 1, {"standard input", "\"a\""}));
}

TEST(Json, IsNoFormOfTree) {
    EXPECT_TRUE(Refused(RunTool({"tree", "--json"}), 2, {"--json"}));
}

}  // namespace
