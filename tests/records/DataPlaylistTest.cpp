#include "records/DataPlaylist.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <vector>

#include "soap/QuaveraStub.h"
#include "tests/records/RecordTesting.h"
#include "tests/records/SamplePlaylist.h"

namespace {

struct PlaylistCase : RecordCase, SamplePlaylist {
    using Record = DataPlaylist;
    static constexpr bool kWritesIntoGivenNode = false;
    inline static const std::string kTextReadTwice = kTracksText + kText;
    static constexpr const char* kEmptyTree = SamplePlaylistLite::kEmptyTree;
    static constexpr const char* kEmptyText = SamplePlaylistLite::kEmptyText;
};

const RulesFor<PlaylistCase> kRules("DataPlaylist");

static_assert(AreAll<std::vector<DataTrackInfo>>(&DataPlaylist::tracks));
static_assert(std::is_base_of_v<DataPlaylistLite, DataPlaylist>);

using Soap = Quavera::Quavera2__PlaylistMetadata;
using Tracks = Quavera::Quavera2__ArrayOfLiteTrackMetadata;

DataPlaylist Playlist(const std::string& content) {
    return FromTree<DataPlaylist>(Wrapped("Playlist", content));
}

std::vector<std::string> TrackIds(const DataPlaylist& playlist) {
    std::vector<std::string> ids;
    for (const DataTrackInfo& track : playlist.tracks) {
        ids.push_back(track.trackId);
    }
    return ids;
}

using Ids = std::vector<std::string>;

TEST(DataPlaylist, ReadsEachElementIntoItsField) {
    const auto playlist = FromTree<DataPlaylist>(SamplePlaylist::kTree);
    EXPECT_EQ(playlist.createdDate, "1199145600");
    EXPECT_EQ(playlist.lastModifiedDate, "3000000007");
    EXPECT_EQ(playlist.name, "Été & <Hiver> 冬");
    EXPECT_EQ(playlist.playlistId, "Pll.4401");
    EXPECT_EQ(playlist.type, "MEMBER");
    ASSERT_EQ(TrackIds(playlist), (Ids{"Tra.1010", "Tra.2020"}));
    EXPECT_EQ(playlist.tracks[0].genreId, "g.404");
    EXPECT_EQ(playlist.tracks[1].name, L"\u00D1and\u00FA");
}

TEST(DataPlaylist, CanBeHandedToTheSummarysWriter) {
    Values values;
    EXPECT_EQ(TreeOf<DataPlaylistLite>(*values.Filled<SamplePlaylist>()),
              SamplePlaylistLite::kTree);
}

TEST(DataPlaylist, NullWrapperGivesNoTracksElement) {
    Values values;
    Soap soap;
    SamplePlaylistLite::Fill(soap, values);
    EXPECT_EQ(TreeOf<DataPlaylist>(soap), SamplePlaylistLite::kTree);
}

TEST(DataPlaylist, EmptyWrapperGivesAnEmptyTracksElement) {
    Values values;
    Soap soap;
    soap.tracks = values.List<Tracks>({});
    const std::string tree = TreeOf<DataPlaylist>(soap);
    EXPECT_EQ(tree, "<Playlist><Tracks/></Playlist>");
    EXPECT_EQ(TrackIds(FromTree<DataPlaylist>(tree)), Ids());
}

TEST(DataPlaylist, NilTracksAreLeftOut) {
    Values values;
    Soap soap;
    soap.tracks = values.List<Tracks>({nullptr, values.Filled<SampleShortTrack>(), nullptr});
    EXPECT_EQ(TreeOf<DataPlaylist>(soap),
              Wrapped("Playlist", Wrapped("Tracks", SampleShortTrack::kTree)));
}

TEST(DataPlaylist, TracksMayHaveAnyNames) {
    const auto playlist = Playlist(
        "<Tracks><Track><TrackId>1</TrackId></Track><Song><TrackId>2</TrackId></Song>"
        "<_><TrackId>3</TrackId></_></Tracks>");
    EXPECT_EQ(TrackIds(playlist), (Ids{"1", "2", "3"}));
}

TEST(DataPlaylist, EmptyTrackElementIsATrack) {
    EXPECT_EQ(TrackIds(Playlist("<Tracks><Track/><Track/></Tracks>")), (Ids{"", ""}));
}

TEST(DataPlaylist, SeveralTracksElementsContributeInOrder) {
    const auto playlist = Playlist(
        "<Tracks><Track><TrackId>1</TrackId></Track><Track><TrackId>2</TrackId></Track></Tracks>"
        "<Name>between</Name><Tracks><Track><TrackId>3</TrackId></Track></Tracks>");
    EXPECT_EQ(TrackIds(playlist), (Ids{"1", "2", "3"}));
    EXPECT_EQ(playlist.name, "between");
}

TEST(DataPlaylist, MissingTracksElementLeavesTracks) {
    auto playlist = FromTree<DataPlaylist>(SamplePlaylist::kTree);
    ReadNode(playlist, "<Playlist><Name>new</Name><Tracks/></Playlist>");
    EXPECT_EQ(playlist.name, "new");
    EXPECT_EQ(TrackIds(playlist), (Ids{"Tra.1010", "Tra.2020"}));
}

TEST(DataPlaylist, IgnoresNamesThatDifferInLetterCase) {
    auto playlist = Playlist("<name>wrong</name><tracks><Track/></tracks><TRACKS><a/></TRACKS>");
    EXPECT_EQ(playlist.ToString(), PlaylistCase::kEmptyText);
}

TEST(DataPlaylist, TracksOfThePlaylistsParentAreNotRead) {
    auto playlist = FromTree<DataPlaylist>(Wrapped("Playlists", SamplePlaylist::kTree));
    EXPECT_EQ(playlist.ToString(), PlaylistCase::kEmptyText);
}

TEST(DataPlaylist, TextBeginsWithTracksAndEndsWithTheSummary) {
    auto playlist = Playlist(
        "<Type>T</Type><Tracks><Track><AlbumId>A</AlbumId></Track>"
        "<Track><AlbumId>B</AlbumId></Track></Tracks>");
    const std::string text = playlist.ToString();
    EXPECT_EQ(text.rfind("Track AlbumId = A\r\nAlbumId = A\r\n", 0), 0U);
    EXPECT_NE(text.find("UserData = \r\nTrack AlbumId = B\r\n"), std::string::npos);
    const std::string summary = DataPlaylistLite(playlist).ToString();
    EXPECT_EQ(text.substr(text.size() - summary.size() - 13), "UserData = \r\n" + summary);
    EXPECT_EQ(text.substr(text.size() - 10), "type = T\r\n");
}

TEST(DataPlaylist, DocumentArrives) {
    ExpectDocument<PlaylistCase>("DataPlaylist/full.xml", "Quavera2:PlaylistMetadata",
                                 TestData("DataPlaylist/full.tree.xml"),
                                 TestData("DataPlaylist/full.txt"));
}

TEST(DataPlaylist, NilItemsOfADocumentAreLeftOut) {
    ExpectDocument<PlaylistCase>(
        "DataPlaylist/nil-items.xml", "Quavera2:PlaylistMetadata",
        "<Playlist><PlaylistId>Pll.5151</PlaylistId>"
        "<Tracks><Track><TrackId>Tra.6001</TrackId></Track></Tracks></Playlist>",
        "Track AlbumId = \r\nAlbumId = \r\nArtistId = \r\nDiscIndex = 0\r\n"
        "DisplayAlbumName = \r\nDisplayArtistName = \r\nName = \r\nPlaybackSeconds = 0\r\n"
        "TrackId = Tra.6001\r\nTrackIndex = 0\r\nUserData = \r\n"
        "createdDate = \r\nlastModifiedDate = \r\nname = \r\nplaylistId = Pll.5151\r\n"
        "type = \r\n");
}

}  // namespace
