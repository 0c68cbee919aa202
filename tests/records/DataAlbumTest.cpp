#include "records/DataAlbum.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <set>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "soap/QuaveraStub.h"
#include "tests/records/RecordTesting.h"
#include "tests/records/SampleAlbum.h"

namespace {

struct AlbumCase : RecordCase, SampleAlbum {
    using Record = DataAlbum;
    static constexpr bool kReadsParent = true;
    static constexpr bool kWritesIntoGivenNode = false;
    static constexpr char kEmptyTree[] = "<Album/>";
    inline static const std::string kEmptyText =
        "AlbumArt70x70Url = \r\n"
        "copyright = \r\n"
        "label = \r\n"
        "primaryArtist = artistId = \r\nname = \r\nshortcut = \r\n\r\n"
        "upccode = \r\n" +
        SampleAlbumLite::TextOfId("");
    static std::set<std::string> RepeatedElements() {
        return {"NonDisplayableAlbumTypes", "DisplayableAlbumTypes", "Tracks"};
    }
};

const RulesFor<AlbumCase> kRules("DataAlbum");

using Soap = Quavera::Quavera2__AlbumMetadata;
using ArrayOfString = Quavera::Quavera2__ArrayOfString;
using ArrayOfTracks = Quavera::Quavera2__ArrayOfLiteTrackMetadata;
using Texts = std::vector<std::string>;

/// An album read from a parent with one "Album" of this content.
DataAlbum Album(const std::string& content) {
    return FromTree<DataAlbum>(Wrapped("Parent", Wrapped("Album", content)));
}

std::vector<std::string> TrackIds(const DataAlbum& album) {
    std::vector<std::string> ids;
    for (const DataTrackInfo& track : album.tracks) {
        ids.push_back(track.trackId);
    }
    return ids;
}

// The list compiles only with members of exactly this type.
TEST(DataAlbum, FieldsHaveTheirTypesAndDefaults) {
    const DataAlbum album;
    for (const auto field : std::initializer_list<std::string DataAlbum::*>{
             &DataAlbum::albumArt70x70Url, &DataAlbum::copyright, &DataAlbum::label,
             &DataAlbum::upccode}) {
        EXPECT_EQ(album.*field, "");
    }
    EXPECT_TRUE((std::is_same_v<decltype(album.nonDisplayableAlbumTypes), Texts>));
    EXPECT_TRUE((std::is_same_v<decltype(album.primaryArtist), DataArtistLite>));
    EXPECT_TRUE((std::is_same_v<decltype(album.tracks), std::vector<DataTrackInfo>>));
    EXPECT_TRUE(album.nonDisplayableAlbumTypes.empty() && album.tracks.empty());
    EXPECT_TRUE((std::is_base_of_v<DataAlbumLite, DataAlbum>));
}

TEST(DataAlbum, OnlyTheSummaryIsWrittenIntoAGivenNode) {
    EXPECT_TRUE((WritesIntoGivenNode<DataAlbumLite, Soap>::value));
    EXPECT_FALSE((WritesIntoGivenNode<DataAlbum, Soap>::value));
}

TEST(DataAlbum, ReadsEachElementIntoItsField) {
    const auto album = FromTree<DataAlbum>(Wrapped("Parent", SampleAlbum::kTree));
    EXPECT_EQ(album.albumArt70x70Url, "http://art.example.com/70?id=51");
    EXPECT_EQ(album.copyright, "© 2007 Größe & Söhne");
    EXPECT_EQ(album.label, "Südlicht <Records>");
    EXPECT_EQ(album.nonDisplayableAlbumTypes, (Texts{"SINGLE", "LIVE & MORE"}));
    EXPECT_EQ(album.primaryArtist.artistId, "Art.3101");
    EXPECT_EQ(album.primaryArtist.name,
              L"\u03A3\u03BF\u03C6\u03AF\u03B1 & \u0394\u03AC\u03C6\u03BD\u03B7");
    EXPECT_EQ(album.primaryArtist.shortcut, "sofia-dafni");
    EXPECT_EQ(TrackIds(album), (Texts{"Tra.1010", "Tra.5206"}));
    EXPECT_EQ(album.upccode, "0042228405207");
}

TEST(DataAlbum, ReadsTheSummarysElementsOnce) {
    const auto album = FromTree<DataAlbum>(Wrapped("Parent", SampleAlbum::kTree));
    EXPECT_EQ(album.albumId, "Alb.4102");
    EXPECT_EQ(album.albumType, 4103);
    EXPECT_EQ(album.name, L"Night Express \u2013 \u00C9dition Deux");
    EXPECT_EQ(album.releaseYear, 2007);
    EXPECT_EQ(album.shortcut, "night-express");
    EXPECT_EQ(album.displayableAlbumTypes, (Texts{"ALBUM", "EP <2>"}));
    EXPECT_EQ(album.nameUtf8, "");
}

TEST(DataAlbum, PlainTextsAreReadUnchanged) {
    const struct {
        const char* element;
        std::string DataAlbum::*field;
    } rows[] = {{"AlbumArt70x70Url", &DataAlbum::albumArt70x70Url},
                {"Copyright", &DataAlbum::copyright},
                {"Label", &DataAlbum::label},
                {"Upccode", &DataAlbum::upccode}};
    for (const auto& row : rows) {
        const auto album =
            Album("<AlbumId>Alb.1</AlbumId>" + Wrapped(row.element, " &lt;a&amp;b&gt; 漢 🎵 "));
        EXPECT_EQ(album.*row.field, " <a&b> 漢 🎵 ") << row.element;
        for (const auto& other : rows) {
            EXPECT_EQ(other.field == row.field, !(album.*other.field).empty()) << other.element;
        }
    }
}

// --- Which elements it reads -------------------------------------------------------------------

TEST(DataAlbum, TheElementItselfFillsNothing) {
    auto album = FromTree<DataAlbum>(SampleAlbum::kTree);
    EXPECT_EQ(album.ToString(), AlbumCase::kEmptyText);
}

TEST(DataAlbum, NameOfTheParentDoesNotMatter) {
    for (const char* parent : {"Parent", "Album", "Artist", "Albums"}) {
        auto album = FromTree<DataAlbum>(Wrapped(parent, SampleAlbum::kTree));
        EXPECT_EQ(album.ToString(), SampleAlbum::kText) << parent;
    }
}

TEST(DataAlbum, AlbumsOfOneParentAreMerged) {
    const auto album = FromTree<DataAlbum>(
        "<Parent><Other><AlbumId>Alb.0</AlbumId></Other>"
        "<Album><AlbumId>Alb.1</AlbumId><ReleaseYear>1999</ReleaseYear><Label>first</Label>"
        "<Compilation>true</Compilation><Copyright>kept</Copyright>"
        "<NonDisplayableAlbumTypes>A</NonDisplayableAlbumTypes>"
        "<DisplayableAlbumTypes><Value>D</Value></DisplayableAlbumTypes>"
        "<Artist><ArtistId>Art.1</ArtistId><Shortcut>kept</Shortcut></Artist>"
        "<Tracks><Track><TrackId>Tra.1</TrackId></Track></Tracks></Album>"
        "<album><AlbumId>Alb.3</AlbumId></album>"
        "<Album><AlbumId>Alb.2</AlbumId><ReleaseYear>2004</ReleaseYear><Label>second</Label>"
        "<Compilation>false</Compilation>"
        "<NonDisplayableAlbumTypes>B</NonDisplayableAlbumTypes>"
        "<DisplayableAlbumTypes><Value>E</Value></DisplayableAlbumTypes>"
        "<Artist><ArtistId>Art.2</ArtistId></Artist>"
        "<Tracks><Track><TrackId>Tra.2</TrackId></Track></Tracks></Album>"
        "<AlbumId>Alb.4</AlbumId></Parent>");
    EXPECT_EQ(album.albumId, "Alb.2");
    EXPECT_EQ(album.releaseYear, 2004);
    EXPECT_EQ(album.label, "second");
    EXPECT_TRUE(album.compilation);
    EXPECT_EQ(album.copyright, "kept");
    EXPECT_EQ(album.nonDisplayableAlbumTypes, (Texts{"A", "B"}));
    EXPECT_EQ(album.displayableAlbumTypes, (Texts{"D", "E"}));
    EXPECT_EQ(album.primaryArtist.artistId, "Art.2");
    EXPECT_EQ(album.primaryArtist.shortcut, "kept");
    EXPECT_EQ(TrackIds(album), (Texts{"Tra.1", "Tra.2"}));
}

TEST(DataAlbum, EveryChildOfTheTracksCountsWhateverItsName) {
    const auto album = Album(
        "<Tracks><Track><TrackId>Tra.1</TrackId></Track><Other><TrackId>Tra.2</TrackId></Other>"
        "<track/></Tracks><Track><TrackId>Tra.3</TrackId></Track>");
    EXPECT_EQ(TrackIds(album), (Texts{"Tra.1", "Tra.2", ""}));
}

TEST(DataAlbum, NestedElementsStayWithTheirRecord) {
    const auto album = Album(
        "<Artist><AlbumId>Alb.1</AlbumId><Shortcut>s</Shortcut><Label>l</Label></Artist>"
        "<Tracks><Track><AlbumId>Alb.2</AlbumId><Upccode>u</Upccode></Track></Tracks>");
    EXPECT_EQ(album.albumId, "");
    EXPECT_EQ(album.shortcut, "");
    EXPECT_EQ(album.label, "");
    EXPECT_EQ(album.upccode, "");
    EXPECT_EQ(album.primaryArtist.shortcut, "s");
    EXPECT_EQ(album.tracks.at(0).albumId, "Alb.2");
}

TEST(DataAlbum, EachTypeNotToDisplayIsAnElementOfItsOwn) {
    const auto album = Album(
        "<NonDisplayableAlbumTypes>A</NonDisplayableAlbumTypes><NonDisplayableAlbumTypes/>"
        "<NonDisplayableAlbumTypes><Value>B</Value></NonDisplayableAlbumTypes>"
        "<NonDisplayableAlbumTypes>C<Value>D</Value></NonDisplayableAlbumTypes>");
    EXPECT_EQ(album.nonDisplayableAlbumTypes, (Texts{"A", "", "", "C"}));
    EXPECT_TRUE(album.displayableAlbumTypes.empty());
}

// --- Writing -----------------------------------------------------------------------------------

TEST(DataAlbum, EmptyTracksAreAnEmptyElementAndEmptyTypesNothing) {
    Values values;
    Soap soap;
    soap.nonDisplayableAlbumTypes = values.List<ArrayOfString>({});
    soap.tracks = values.List<ArrayOfTracks>({});
    EXPECT_EQ(TreeOf<DataAlbum>(soap), "<Album><Tracks/></Album>");
    soap.displayableAlbumTypes = values.List<ArrayOfString>({});
    EXPECT_EQ(TreeOf<DataAlbum>(soap), "<Album><DisplayableAlbumTypes/><Tracks/></Album>");
}

TEST(DataAlbum, NegativeCountsCountAsEmpty) {
    Values values;
    Soap soap;
    soap.nonDisplayableAlbumTypes = values.List<ArrayOfString>({"A"});
    soap.nonDisplayableAlbumTypes->count = -1;
    soap.tracks = values.List<ArrayOfTracks>({nullptr});
    soap.tracks->count = -1;
    EXPECT_EQ(TreeOf<DataAlbum>(soap), "<Album><Tracks/></Album>");
}

TEST(DataAlbum, NilTracksAreSkipped) {
    Values values;
    Soap soap;
    auto* const track = values.Of(SampleTrack::Soap());
    track->trackId = values.Text("Tra.1");
    soap.tracks = values.List<ArrayOfTracks>({nullptr, track, nullptr});
    EXPECT_EQ(TreeOf<DataAlbum>(soap),
              "<Album><Tracks><Track><TrackId>Tra.1</TrackId></Track></Tracks></Album>");
    soap.tracks = values.List<ArrayOfTracks>({nullptr});
    EXPECT_EQ(TreeOf<DataAlbum>(soap), "<Album><Tracks/></Album>");
}

TEST(DataAlbum, RecordsWithoutMembersAreEmptyElements) {
    Values values;
    Soap soap;
    soap.primaryArtist = values.Of(SampleArtistLite::Soap());
    soap.tracks = values.List<ArrayOfTracks>({values.Of(SampleTrack::Soap())});
    EXPECT_EQ(TreeOf<DataAlbum>(soap), "<Album><Artist/><Tracks><Track/></Tracks></Album>");
}

TEST(DataAlbum, EmptyTextsAreWritten) {
    Values values;
    Soap soap;
    soap.albumArt70x70Url = soap.copyright = soap.label = soap.upccode = values.Text("");
    soap.nonDisplayableAlbumTypes = values.List<ArrayOfString>({""});
    EXPECT_EQ(TreeOf<DataAlbum>(soap),
              "<Album><AlbumArt70x70Url/><Copyright/><Label/><NonDisplayableAlbumTypes/>"
              "<Upccode/></Album>");
}

TEST(DataAlbum, MembersWithoutAFieldAreNotWritten) {
    Values values;
    Soap soap;
    soap.originalReleaseYear = soap.playbackSeconds = values.Of(1);
    EXPECT_EQ(TreeOf<DataAlbum>(soap), AlbumCase::kEmptyTree);
}

TEST(DataAlbum, PlainTextsEndAtTheirFirstZeroByte) {
    const std::string text("a\0b", 3);
    Values values;
    Soap soap;
    soap.label = values.Text(text);
    soap.nonDisplayableAlbumTypes = values.List<ArrayOfString>({text});
    EXPECT_EQ(TreeOf<DataAlbum>(soap),
              "<Album><Label>a</Label><NonDisplayableAlbumTypes>a</NonDisplayableAlbumTypes>"
              "</Album>");
}

// --- The log text ------------------------------------------------------------------------------

TEST(DataAlbum, TypesNotToDisplayAndTheArtistShareALine) {
    DataAlbum album;
    album.nonDisplayableAlbumTypes = {"A", "B"};
    album.primaryArtist.artistId = "Art.1";
    EXPECT_NE(album.ToString().find("label = \r\nnonDisplayableAlbumTypes A"
                                    "nonDisplayableAlbumTypes BprimaryArtist = artistId = Art.1\r\n"
                                    "name = \r\nshortcut = \r\n\r\nupccode = \r\n"),
              std::string::npos);
}

TEST(DataAlbum, OnlyTheFirstLabelHasACapital) {
    const std::string text = DataAlbum().ToString();
    EXPECT_EQ(text.rfind("AlbumArt70x70Url = \r\ncopyright = \r\nlabel = \r\nprimaryArtist = ", 0),
              0U);
}

TEST(DataAlbum, TheSummaryComesLast) {
    auto album = FromTree<DataAlbum>(Wrapped("Parent", SampleAlbum::kTree));
    const std::string end =
        std::string("upccode = 0042228405207\r\n") + album.DataAlbumLite::ToString();
    const std::string text = album.ToString();
    ASSERT_GT(text.size(), end.size());
    EXPECT_EQ(text.substr(text.size() - end.size()), end);
    EXPECT_EQ(album.DataAlbumLite::ToString(), SampleAlbumLite::kText);
}

// --- Copies ------------------------------------------------------------------------------------

TEST(DataAlbum, CopiesHoldTheFieldsThatAreNotRendered) {
    auto original = FromTree<DataAlbum>(Wrapped("Parent", SampleAlbum::kTree));
    original.reserved64 = 0x123456789ABCDEF0U;
    original.nameUtf8 = "UTF-8";
    const DataAlbum copy(original);
    DataAlbum assigned;
    assigned = copy;
    const DataAlbum moved(std::move(original));
    for (const DataAlbum* album :
         std::initializer_list<const DataAlbum*>{&copy, &assigned, &moved}) {
        EXPECT_EQ(album->reserved64, 0x123456789ABCDEF0U);
        EXPECT_EQ(album->nameUtf8, "UTF-8");
        EXPECT_EQ(album->tracks.at(0).genreId, "g.404");
        EXPECT_EQ(album->tracks.at(0).rightFlags, 909);
    }
}

// --- Documents of the service ------------------------------------------------------------------

void ExpectAlbumDocument(const std::string& file, const std::string& tree,
                         const std::string& text) {
    ExpectDocument<AlbumCase>("DataAlbum/" + file, "Quavera2:AlbumMetadata", tree, text);
}

TEST(DataAlbum, DocumentGoesAllTheWay) {
    ExpectAlbumDocument("full.xml", TestData("DataAlbum/full.tree.xml"),
                        TestData("DataAlbum/full.txt"));
}

TEST(DataAlbum, NilTrackOfADocumentIsSkippedAndNilTypeIsAnEmptyText) {
    ExpectAlbumDocument(
        "nil-items.xml",
        "<Album><Label>Leer</Label><NonDisplayableAlbumTypes/>"
        "<NonDisplayableAlbumTypes>LIVE</NonDisplayableAlbumTypes>"
        "<Tracks><Track><TrackId>Tra.1</TrackId></Track></Tracks></Album>",
        "AlbumArt70x70Url = \r\ncopyright = \r\nlabel = Leer\r\n"
        "nonDisplayableAlbumTypes nonDisplayableAlbumTypes LIVE"
        "primaryArtist = artistId = \r\nname = \r\nshortcut = \r\n\r\n"
        "Track AlbumId = \r\nAlbumId = \r\nArtistId = \r\nDiscIndex = 0\r\n"
        "DisplayAlbumName = \r\nDisplayArtistName = \r\nName = \r\nPlaybackSeconds = 0\r\n"
        "TrackId = Tra.1\r\nTrackIndex = 0\r\nUserData = \r\n"
        "upccode = \r\n" +
            SampleAlbumLite::TextOfId(""));
}

TEST(DataAlbum, EmptyListsOfADocument) {
    ExpectAlbumDocument("empty-lists.xml",
                        "<Album><DisplayableAlbumTypes/><Artist/><Tracks/></Album>",
                        AlbumCase::kEmptyText);
}

}  // namespace
