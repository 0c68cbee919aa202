#include "records/DataArtist.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <set>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "soap/QuaveraStub.h"
#include "tests/records/RecordTesting.h"
#include "tests/records/SampleArtist.h"

namespace {

struct ArtistCase : RecordCase, SampleArtist {
    using Record = DataArtist;
    static constexpr bool kGoesByName = true;
    static constexpr bool kWritesIntoGivenNode = false;
    static constexpr char kEmptyTree[] = "<Artist/>";
    static constexpr char kEmptyText[] =
        "artistStation = name = \r\nstationId = \r\ntype = \r\nfreeStation = false\r\n\r\n"
        "bio = \r\n"
        "bioAuthor = \r\n"
        "blurb = \r\n"
        "artistId = \r\n"
        "name = \r\n"
        "shortcut = \r\n";
    static std::set<std::string> RepeatedElements() { return {"Albums", "Genres"}; }
};
/// It finds its element below a parent just as well.
struct ArtistBelowParentCase : ArtistCase {
    static constexpr bool kReadsParent = true;
};

const RulesFor<ArtistCase> kRules("DataArtist");
const RulesFor<ArtistBelowParentCase> kRulesBelowParent("DataArtist_BelowParent");

using Soap = Quavera::Quavera2__ArtistMetadata;
using ArrayOfAlbums = Quavera::Quavera2__ArrayOfLiteAlbumMetadata;
using ArrayOfGenres = Quavera::Quavera2__ArrayOfLiteGenreMetadata;
using Texts = std::vector<std::string>;

DataArtist Artist(const std::string& content) {
    return FromTree<DataArtist>(Wrapped("Artist", content));
}

Texts AlbumIds(const DataArtist& artist) {
    Texts ids;
    for (const DataAlbumLite& album : artist.albums) {
        ids.push_back(album.albumId);
    }
    return ids;
}

Texts GenreIds(const DataArtist& artist) {
    Texts ids;
    for (const DataGenreLite& genre : artist.genres) {
        ids.push_back(genre.genreId);
    }
    return ids;
}

// The list compiles only with members of exactly this type.
TEST(DataArtist, FieldsHaveTheirTypesAndDefaults) {
    const DataArtist artist;
    for (const auto field : std::initializer_list<std::wstring DataArtist::*>{
             &DataArtist::bio, &DataArtist::bioAuthor, &DataArtist::blurb}) {
        EXPECT_EQ(artist.*field, L"");
    }
    EXPECT_TRUE((std::is_same_v<decltype(artist.albums), std::vector<DataAlbumLite>>));
    EXPECT_TRUE((std::is_same_v<decltype(artist.artistStation), DataStationLite>));
    EXPECT_TRUE((std::is_same_v<decltype(artist.genres), std::vector<DataGenreLite>>));
    EXPECT_TRUE(artist.albums.empty() && artist.genres.empty());
    EXPECT_TRUE((std::is_base_of_v<DataArtistLite, DataArtist>));
}

TEST(DataArtist, OnlyTheSummaryIsWrittenIntoAGivenNode) {
    EXPECT_TRUE((WritesIntoGivenNode<DataArtistLite, Soap>::value));
    EXPECT_FALSE((WritesIntoGivenNode<DataArtist, Soap>::value));
}

TEST(DataArtist, ReadsEachElementIntoItsField) {
    const auto artist = FromTree<DataArtist>(SampleArtist::kTree);
    EXPECT_EQ(artist.artistId, "Art.3101");
    EXPECT_EQ(artist.name, L"\u03A3\u03BF\u03C6\u03AF\u03B1 & \u0394\u03AC\u03C6\u03BD\u03B7");
    EXPECT_EQ(artist.shortcut, "sofia-dafni");
    EXPECT_EQ(AlbumIds(artist), (Texts{"Alb.4102", "Alb.6101"}));
    EXPECT_EQ(artist.artistStation.name, L"\u30E9\u30B8\u30AA\u30FB\u30BD\u30D5\u30A3\u30A2");
    EXPECT_EQ(artist.artistStation.stationId, "Sta.6102");
    EXPECT_EQ(artist.artistStation.type, "ARTIST");
    EXPECT_TRUE(artist.artistStation.freeStation);
    EXPECT_EQ(artist.bio,
              L"\u0397 \u03A3\u03BF\u03C6\u03AF\u03B1 "
              L"\u03C4\u03C1\u03B1\u03B3\u03BF\u03C5\u03B4\u03AC.\r\n"
              L"\u0394\u03B5\u03CD\u03C4\u03B5\u03C1\u03B7 "
              L"\u03B3\u03C1\u03B1\u03BC\u03BC\u03AE");
    EXPECT_EQ(artist.bioAuthor, L"\u0395\u03BB\u03AD\u03BD\u03B7 \u03A0\u03B1\u03C0\u03C0\u03AC");
    EXPECT_EQ(artist.blurb, L"Kurz: \uB450 \uBAA9\uC18C\uB9AC");
    EXPECT_EQ(GenreIds(artist), (Texts{"g.6103", "g.6105"}));
}

TEST(DataArtist, DisplayTextsAreDecoded) {
    ExpectReadsDisplay("Artist", "Bio", &DataArtist::bio);
    ExpectReadsDisplay("Artist", "BioAuthor", &DataArtist::bioAuthor);
    ExpectReadsDisplay("Artist", "Blurb", &DataArtist::blurb);
}

// --- Which elements it reads -------------------------------------------------------------------

TEST(DataArtist, ArtistIsFoundAmongTheChildrenOfAnotherElement) {
    for (const char* node : {
             "<Parent><Artist><ArtistId>Art.1</ArtistId></Artist></Parent>",
             "<Parent><Other/><Artist><ArtistId>Art.1</ArtistId></Artist></Parent>",
             "<artist><ArtistId>Art.2</ArtistId><Artist><ArtistId>Art.1</ArtistId></Artist></"
             "artist>",
             "<Artists><artist><ArtistId>Art.2</ArtistId></artist>"
             "<Artist><ArtistId>Art.1</ArtistId></Artist></Artists>",
         }) {
        EXPECT_EQ(FromTree<DataArtist>(node).artistId, "Art.1") << node;
    }
}

TEST(DataArtist, OnlyTheFirstArtistOfAParentIsRead) {
    const auto artist = FromTree<DataArtist>(
        "<Parent><Artist><ArtistId>Art.1</ArtistId></Artist>"
        "<Artist><ArtistId>Art.2</ArtistId><Shortcut>second</Shortcut><Bio>QQ==</Bio>"
        "<Albums><Album/></Albums></Artist></Parent>");
    EXPECT_EQ(artist.artistId, "Art.1");
    EXPECT_EQ(artist.shortcut, "");
    EXPECT_EQ(artist.bio, L"");
    EXPECT_TRUE(artist.albums.empty());
}

TEST(DataArtist, AnArtistElementIsReadItselfEvenIfItHoldsAnother) {
    const auto artist = Artist(
        "<Artist><ArtistId>Art.2</ArtistId><Bio>Qg==</Bio></Artist><ArtistId>Art.1</ArtistId>"
        "<Bio>QQ==</Bio>");
    EXPECT_EQ(artist.artistId, "Art.1");
    EXPECT_EQ(artist.bio, L"A");
}

TEST(DataArtist, WithoutAnArtistNothingIsRead) {
    const std::string content =
        "<ArtistId>Art.2</ArtistId><Bio>Qg==</Bio><Albums><Album/></Albums>";
    auto artist = FromTree<DataArtist>(SampleArtist::kTree);
    for (const char* name : {"Other", "artist", "ARTIST", "Artists", "Artis"}) {
        ReadNode(artist, Wrapped(name, content));
        ReadNode(artist, Wrapped("Parent", Wrapped(name, content)));
        ReadNode(artist, Wrapped("Parent", Wrapped("Parent", Wrapped("Artist", content))));
    }
    EXPECT_EQ(artist.ToString(), SampleArtist::kText);
}

TEST(DataArtist, EveryChildOfTheListsCountsWhateverItsName) {
    const auto artist = Artist(
        "<Albums><Album><AlbumId>1</AlbumId></Album><Other><AlbumId>2</AlbumId></Other><_/></"
        "Albums>"
        "<Genres><Genre><GenreId>3</GenreId></Genre><GenreLite><GenreId>4</GenreId></GenreLite>"
        "<Other/></Genres>"
        "<Album><AlbumId>5</AlbumId></Album><GenreLite><GenreId>6</GenreId></GenreLite>");
    EXPECT_EQ(AlbumIds(artist), (Texts{"1", "2", ""}));
    EXPECT_EQ(GenreIds(artist), (Texts{"3", "4", ""}));
}

TEST(DataArtist, RepeatedListsAreAppendedAndStationsMerged) {
    const auto artist = Artist(
        "<Albums><Album><AlbumId>1</AlbumId></Album></Albums>"
        "<Genres><GenreLite><GenreId>2</GenreId></GenreLite></Genres>"
        "<Station><StationId>3</StationId><FreeStation>true</FreeStation></Station>"
        "<Albums><Album><AlbumId>4</AlbumId></Album></Albums>"
        "<Genres><GenreLite><GenreId>5</GenreId></GenreLite></Genres>"
        "<Station><StationId>6</StationId><FreeStation>false</FreeStation></Station>");
    EXPECT_EQ(AlbumIds(artist), (Texts{"1", "4"}));
    EXPECT_EQ(GenreIds(artist), (Texts{"2", "5"}));
    EXPECT_EQ(artist.artistStation.stationId, "6");
    EXPECT_TRUE(artist.artistStation.freeStation);
}

TEST(DataArtist, NestedElementsStayWithTheirRecord) {
    const auto artist = Artist(
        "<Station><Name>QQ==</Name><Bio>Qg==</Bio><ArtistId>1</ArtistId></Station>"
        "<Albums><Album><Shortcut>2</Shortcut></Album></Albums>"
        "<Genres><GenreLite><Name>Qw==</Name></GenreLite></Genres>");
    EXPECT_EQ(artist.artistStation.name, L"A");
    EXPECT_EQ(artist.albums.at(0).shortcut, "2");
    EXPECT_EQ(artist.genres.at(0).name, L"C");
    EXPECT_EQ(artist.name, L"");
    EXPECT_EQ(artist.bio, L"");
    EXPECT_EQ(artist.artistId + artist.shortcut, "");
}

// --- Writing -----------------------------------------------------------------------------------

TEST(DataArtist, EmptyListsAreEmptyElements) {
    Values values;
    Soap soap;
    soap.albums = values.List<ArrayOfAlbums>({});
    EXPECT_EQ(TreeOf<DataArtist>(soap), "<Artist><Albums/></Artist>");
    soap.genres = values.List<ArrayOfGenres>({});
    soap.artistStation = values.Of(Quavera::Quavera2__LiteStationMetadata());
    EXPECT_EQ(TreeOf<DataArtist>(soap), "<Artist><Albums/><Station/><Genres/></Artist>");
}

TEST(DataArtist, NilItemsAreSkipped) {
    Values values;
    auto* const album = values.Of(SampleAlbumLite::Soap());
    album->albumId = values.Text("1");
    auto* const genre = values.Of(Quavera::Quavera2__LiteGenreMetadata());
    genre->genreId = values.Text("2");
    Soap soap;
    soap.albums = values.List<ArrayOfAlbums>({nullptr, album, nullptr});
    soap.genres = values.List<ArrayOfGenres>({nullptr, genre, nullptr});
    EXPECT_EQ(TreeOf<DataArtist>(soap),
              "<Artist><Albums><Album><AlbumId>1</AlbumId></Album></Albums>"
              "<Genres><GenreLite><GenreId>2</GenreId></GenreLite></Genres></Artist>");
    soap.albums = values.List<ArrayOfAlbums>({nullptr});
    soap.genres = values.List<ArrayOfGenres>({nullptr});
    EXPECT_EQ(TreeOf<DataArtist>(soap), "<Artist><Albums/><Genres/></Artist>");
}

TEST(DataArtist, TheFirstCountItemsAreWritten) {
    Values values;
    Soap soap;
    soap.albums = values.List<ArrayOfAlbums>(
        {values.Of(SampleAlbumLite::Soap()), values.Filled<SampleAlbumLite>()});
    soap.albums->count = 1;
    EXPECT_EQ(TreeOf<DataArtist>(soap), "<Artist><Albums><Album/></Albums></Artist>");
    soap.albums->count = -1;
    EXPECT_EQ(TreeOf<DataArtist>(soap), "<Artist><Albums/></Artist>");
}

TEST(DataArtist, EmptyTextsAreWritten) {
    Values values;
    Soap soap;
    soap.bio = soap.bioAuthor = soap.blurb = values.Text("");
    EXPECT_EQ(TreeOf<DataArtist>(soap),
              "<Artist><Bio encoding=\"base64\"/><BioAuthor encoding=\"base64\"/>"
              "<Blurb encoding=\"base64\"/></Artist>");
}

TEST(DataArtist, MemberWithoutAFieldIsNotWritten) {
    Values values;
    Soap soap;
    soap.rightFlags = values.Of(1);
    EXPECT_EQ(TreeOf<DataArtist>(soap), ArtistCase::kEmptyTree);
}

// --- The log text ------------------------------------------------------------------------------

TEST(DataArtist, ListItemsFollowTheirPrefixOnTheSameLine) {
    DataArtist artist;
    artist.albums.resize(2);
    artist.genres.resize(2);
    const std::string album = "Album " + SampleAlbumLite::TextOfId("");
    const std::string genre = "Genres genreId = \r\nname = \r\nsubCount = 0\r\n";
    EXPECT_EQ(artist.ToString(),
              "artistStation = name = \r\nstationId = \r\ntype = \r\nfreeStation = false\r\n\r\n" +
                  album + album + "bio = \r\nbioAuthor = \r\nblurb = \r\n" + genre + genre +
                  "artistId = \r\nname = \r\nshortcut = \r\n");
    EXPECT_EQ(album.rfind("Album albumArt162x162Url = ", 0), 0U);
}

TEST(DataArtist, TheSummaryComesLast) {
    auto artist = FromTree<DataArtist>(SampleArtist::kTree);
    const std::string text = artist.ToString();
    const std::string end = SampleArtistLite::kText;
    EXPECT_EQ(text.rfind("artistStation = ", 0), 0U);
    EXPECT_EQ(text.substr(text.size() - end.size()), end);
    EXPECT_EQ(artist.DataArtistLite::ToString(), end);
}

// --- Copies ------------------------------------------------------------------------------------

TEST(DataArtist, CopiesHoldTheFieldsThatAreNotRendered) {
    auto original = FromTree<DataArtist>(SampleArtist::kTree);
    original.artistStation.reserved64 = 0x123456789ABCDEF0U;
    original.albums.at(0).reserved64 = 0xFEDCBA9876543210U;
    original.albums.at(0).nameUtf8 = "UTF-8";
    const DataArtist copy(original);
    DataArtist assigned;
    assigned = copy;
    const DataArtist moved(std::move(original));
    for (const DataArtist* artist :
         std::initializer_list<const DataArtist*>{&copy, &assigned, &moved}) {
        EXPECT_EQ(artist->artistStation.reserved64, 0x123456789ABCDEF0U);
        EXPECT_EQ(artist->albums.at(0).reserved64, 0xFEDCBA9876543210U);
        EXPECT_EQ(artist->albums.at(0).nameUtf8, "UTF-8");
    }
}

// --- Documents of the service ------------------------------------------------------------------

void ExpectArtistDocument(const std::string& file, const std::string& tree,
                          const std::string& text) {
    ExpectDocument<ArtistCase>("DataArtist/" + file, "Quavera2:ArtistMetadata", tree, text);
    ExpectDocument<ArtistBelowParentCase>("DataArtist/" + file, "Quavera2:ArtistMetadata", tree,
                                          text);
}

TEST(DataArtist, DocumentGoesAllTheWay) {
    ExpectArtistDocument("full.xml", TestData("DataArtist/full.tree.xml"),
                         TestData("DataArtist/full.txt"));
}

TEST(DataArtist, NilItemsOfADocumentAreSkipped) {
    ExpectArtistDocument(
        "nil-items.xml",
        "<Artist><ArtistId>Art.9</ArtistId><Albums><Album><AlbumId>Alb.9</AlbumId></Album></Albums>"
        "<Genres><GenreLite><GenreId>g.9</GenreId></GenreLite></Genres></Artist>",
        "artistStation = name = \r\nstationId = \r\ntype = \r\nfreeStation = false\r\n\r\n"
        "Album " +
            SampleAlbumLite::TextOfId("Alb.9") +
            "bio = \r\nbioAuthor = \r\nblurb = \r\n"
            "Genres genreId = g.9\r\nname = \r\nsubCount = 0\r\n"
            "artistId = Art.9\r\nname = \r\nshortcut = \r\n");
}

TEST(DataArtist, EmptyListsOfADocumentAreEmptyElements) {
    ExpectArtistDocument("empty-lists.xml", "<Artist><Albums/><Station/><Genres/></Artist>",
                         ArtistCase::kEmptyText);
}

}  // namespace
