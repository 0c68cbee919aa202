#include "records/DataMemberLibrary.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <vector>

#include "soap/QuaveraStub.h"
#include "tests/records/RecordTesting.h"
#include "tests/records/SampleMemberLibrary.h"

namespace {

struct MemberLibraryCase : RecordCase, SampleMemberLibrary {
    using Record = DataMemberLibrary;
    static constexpr bool kReadsParent = true;
    static constexpr bool kWritesIntoGivenNode = false;
    inline static const std::string kTextReadTwice = kTracksText + kTracksText + kPlaylistsText +
                                                     kPlaylistsText + kStationsText +
                                                     kStationsText + SampleMemberLibraryLite::kText;
    static constexpr char kEmptyTree[] = "<MemberLibrary/>";
    static constexpr char kEmptyText[] = "lastModifiedDate = 0\r\nmemberId = \r\n";
};

const RulesFor<MemberLibraryCase> kRules("DataMemberLibrary");

static_assert(AreAll<std::vector<DataPlaylistLite>>(&DataMemberLibrary::playlists));
static_assert(AreAll<std::vector<DataStationLite>>(&DataMemberLibrary::stations));
static_assert(AreAll<std::vector<DataTrackInfo>>(&DataMemberLibrary::tracks));
static_assert(std::is_base_of_v<DataMemberLibraryLite, DataMemberLibrary>);

using Soap = Quavera::Quavera2__MemberLibrary;
using Playlists = Quavera::Quavera2__ArrayOfLitePlaylistMetadata;
using Stations = Quavera::Quavera2__ArrayOfLiteStationMetadata;
using Tracks = Quavera::Quavera2__ArrayOfLiteTrackMetadata;

/// A library that has read a parent with one "MemberLibrary" for each of these contents.
DataMemberLibrary Library(const std::vector<std::string>& contents) {
    std::string libraries;
    for (const std::string& content : contents) {
        libraries += Wrapped("MemberLibrary", content);
    }
    return FromTree<DataMemberLibrary>(Wrapped("Parent", libraries));
}

/// The identifiers in a library: "tracks; playlists; stations".
std::string Ids(const DataMemberLibrary& library) {
    std::string ids;
    for (const DataTrackInfo& track : library.tracks) {
        ids += track.trackId + " ";
    }
    ids += ";";
    for (const DataPlaylistLite& playlist : library.playlists) {
        ids += " " + playlist.playlistId;
    }
    ids += ";";
    for (const DataStationLite& station : library.stations) {
        ids += " " + station.stationId;
    }
    return ids;
}

constexpr char kNoIds[] = ";;";

TEST(DataMemberLibrary, ReadsEachElementIntoItsField) {
    const auto library = FromTree<DataMemberLibrary>(Wrapped("Parent", MemberLibraryCase::kTree));
    EXPECT_EQ(library.lastModifiedDate, 3123456789U);
    EXPECT_EQ(library.memberId, L"Mitglied N\u00BA 815 \u4F1A\u54E1");
    ASSERT_EQ(Ids(library), "Tra.1010 Tra.2020 ; Pll.4401 Pll.4402; Sta.404 Sta.4403");
    EXPECT_EQ(library.tracks[0].genreId, "g.404");
    EXPECT_EQ(library.playlists[0].name, "Été & <Hiver> 冬");
    EXPECT_TRUE(library.stations[0].freeStation);
    EXPECT_FALSE(library.stations[1].freeStation);
}

TEST(DataMemberLibrary, WritesTracksPlaylistsStationsInThisOrder) {
    Values values;
    Soap soap;
    soap.playlists = values.List<Playlists>({});
    soap.stations = values.List<Stations>({});
    soap.tracks = values.List<Tracks>({});
    EXPECT_EQ(TreeOf<DataMemberLibrary>(soap),
              "<MemberLibrary><Tracks/><Playlists/><Stations/></MemberLibrary>");
}

TEST(DataMemberLibrary, NullWrappersGiveTheHeaderAlone) {
    Values values;
    Soap soap;
    SampleMemberLibraryLite::Fill(soap, values);
    EXPECT_EQ(TreeOf<DataMemberLibrary>(soap),
              Wrapped("MemberLibrary", SampleMemberLibraryLite::kElements));
    soap.lastModified = nullptr;
    soap.memberId = values.Text("m");
    EXPECT_EQ(TreeOf<DataMemberLibrary>(soap),
              "<MemberLibrary><MemberId encoding=\"base64\">bQ==</MemberId></MemberLibrary>");
}

TEST(DataMemberLibrary, EachWrapperStandsForItself) {
    Values values;
    Soap tracks;
    tracks.tracks = values.List<Tracks>({});
    EXPECT_EQ(TreeOf<DataMemberLibrary>(tracks), "<MemberLibrary><Tracks/></MemberLibrary>");
    Soap playlists;
    playlists.playlists = values.List<Playlists>({});
    EXPECT_EQ(TreeOf<DataMemberLibrary>(playlists), "<MemberLibrary><Playlists/></MemberLibrary>");
    Soap stations;
    stations.stations = values.List<Stations>({});
    EXPECT_EQ(TreeOf<DataMemberLibrary>(stations), "<MemberLibrary><Stations/></MemberLibrary>");
}

TEST(DataMemberLibrary, EmptyListElementsAddNothing) {
    auto library = FromTree<DataMemberLibrary>(Wrapped("Parent", MemberLibraryCase::kTree));
    ReadNode(library,
             "<Parent><MemberLibrary><Tracks/><Playlists/><Stations/></MemberLibrary></Parent>");
    EXPECT_EQ(library.ToString(), MemberLibraryCase::kText);
}

TEST(DataMemberLibrary, NilItemsAreLeftOut) {
    Values values;
    Soap soap;
    soap.playlists = values.List<Playlists>({nullptr, values.Filled<SamplePlaylistLite>()});
    soap.stations = values.List<Stations>({values.Filled<SampleStationLite>(), nullptr});
    soap.tracks = values.List<Tracks>({nullptr, nullptr});
    EXPECT_EQ(
        TreeOf<DataMemberLibrary>(soap),
        Wrapped("MemberLibrary", "<Tracks/>" + Wrapped("Playlists", SamplePlaylistLite::kTree) +
                                     Wrapped("Stations", SampleStationLite::kTree)));
}

TEST(DataMemberLibrary, CanBeHandedToTheHeadersWriter) {
    Values values;
    EXPECT_EQ(TreeOf<DataMemberLibraryLite>(*values.Filled<SampleMemberLibrary>()),
              SampleMemberLibraryLite::kTree);
}

TEST(DataMemberLibrary, OwnElementReadsNothing) {
    auto library = FromTree<DataMemberLibrary>(MemberLibraryCase::kTree);
    EXPECT_EQ(library.ToString(), MemberLibraryCase::kEmptyText);
}

TEST(DataMemberLibrary, ParentWithoutTheElementChangesNothing) {
    auto library = FromTree<DataMemberLibrary>(Wrapped("Parent", MemberLibraryCase::kTree));
    ReadNode(library,
             "<Parent><memberlibrary><Tracks><a/></Tracks></memberlibrary><MemberLibraryLite>"
             "<LastModified>1</LastModified></MemberLibraryLite></Parent>");
    EXPECT_EQ(library.ToString(), MemberLibraryCase::kText);
}

TEST(DataMemberLibrary, SeveralElementsAreMergedInOrder) {
    const auto library = FromTree<DataMemberLibrary>(
        "<Parent><MemberLibrary><LastModified>7</LastModified><MemberId>YQ==</MemberId>"
        "<Stations><Station><StationId>s1</StationId></Station></Stations>"
        "<Tracks><Track><TrackId>t1</TrackId></Track></Tracks></MemberLibrary><Other/>"
        "<MemberLibrary><Tracks><Track><TrackId>t2</TrackId></Track></Tracks><MemberId>Yg=="
        "</MemberId><Playlists><Playlist><PlaylistId>p2</PlaylistId></Playlist></Playlists>"
        "<Stations><Station><StationId>s2</StationId></Station></Stations></MemberLibrary>"
        "</Parent>");
    EXPECT_EQ(Ids(library), "t1 t2 ; p2; s1 s2");
    EXPECT_EQ(library.memberId, L"b");
    EXPECT_EQ(library.lastModifiedDate, 7U);
}

TEST(DataMemberLibrary, MemberStaysWhereTheSecondElementHasNone) {
    EXPECT_EQ(Library({"<MemberId>YQ==</MemberId>", "<LastModified>8</LastModified>"}).memberId,
              L"a");
}

TEST(DataMemberLibrary, ListsRepeatedInOneElementAddUp) {
    const auto library = Library(
        {"<Tracks><Track><TrackId>1</TrackId></Track></Tracks><Playlists><Playlist/></Playlists>"
         "<Tracks><Track><TrackId>2</TrackId></Track></Tracks><Stations><Station/></Stations>"
         "<Playlists><Playlist/></Playlists><Stations><Station/></Stations>"});
    EXPECT_EQ(Ids(library), "1 2 ;  ;  ");
}

TEST(DataMemberLibrary, ListItemsMayHaveAnyNames) {
    const auto library = Library(
        {"<Tracks><Song><TrackId>1</TrackId></Song><Playlist><TrackId>2</TrackId></Playlist>"
         "</Tracks><Playlists><List><PlaylistId>3</PlaylistId></List>"
         "<Track><PlaylistId>4</PlaylistId></Track></Playlists>"
         "<Stations><Radio><StationId>5</StationId></Radio>"
         "<_><StationId>6</StationId></_></Stations>"});
    EXPECT_EQ(Ids(library), "1 2 ; 3 4; 5 6");
}

TEST(DataMemberLibrary, ListsOutsideTheElementAreNotRead) {
    const auto library = FromTree<DataMemberLibrary>(
        "<Parent><Tracks><Track/></Tracks><MemberLibrary/><Playlists><Playlist/></Playlists>"
        "<Other><MemberLibrary><Stations><Station/></Stations></MemberLibrary></Other></Parent>");
    EXPECT_EQ(Ids(library), kNoIds);
}

TEST(DataMemberLibrary, EmptyLibraryRendersAsItsHeader) {
    auto library = Library({"<LastModified>9</LastModified><MemberId>YQ==</MemberId>"});
    EXPECT_EQ(library.ToString(), "lastModifiedDate = 9\r\nmemberId = a\r\n");
}

TEST(DataMemberLibrary, StampIsAnUnsignedNumberBothWays) {
    for (const unsigned long stamp : kUnsignedDates) {
        Values values;
        Soap soap;
        soap.lastModified = values.Of(stamp);
        const std::string tree = TreeOf<DataMemberLibrary>(soap);
        EXPECT_EQ(tree, Wrapped("MemberLibrary", Wrapped("LastModified", std::to_string(stamp))));
        EXPECT_EQ(FromTree<DataMemberLibrary>(Wrapped("Parent", tree)).lastModifiedDate, stamp);
    }
}

TEST(DataMemberLibrary, DocumentArrives) {
    ExpectDocument<MemberLibraryCase>("DataMemberLibrary/full.xml", "Quavera2:MemberLibrary",
                                      TestData("DataMemberLibrary/full.tree.xml"),
                                      TestData("DataMemberLibrary/full.txt"));
}

TEST(DataMemberLibrary, NilItemsOfADocumentAreLeftOut) {
    ExpectDocument<MemberLibraryCase>(
        "DataMemberLibrary/nil-items.xml", "Quavera2:MemberLibrary",
        "<MemberLibrary><LastModified>12</LastModified><Tracks/>"
        "<Playlists><Playlist><PlaylistId>Pll.1</PlaylistId></Playlist></Playlists>"
        "<Stations><Station><StationId>Sta.2</StationId></Station></Stations></MemberLibrary>",
        "Playlist createdDate = \r\nlastModifiedDate = \r\nname = \r\nplaylistId = Pll.1\r\n"
        "type = \r\nStation name = \r\nstationId = Sta.2\r\ntype = \r\nfreeStation = false\r\n"
        "lastModifiedDate = 12\r\nmemberId = \r\n");
}

}  // namespace
