// An item of a list is there with all that it has, or not at all, whichever allocation fails.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "records/DataAlbum.h"
#include "records/DataArtist.h"
#include "records/DataGenre.h"
#include "records/DataMemberLibrary.h"
#include "records/DataPlaylist.h"
#include "tests/records/RecordTesting.h"
#include "tests/support/AllocationFailure.h"

namespace {

constexpr int kItems = 3;

/// A text that no string keeps in itself, so that taking it allocates.
std::string LongText(const std::string& start, int item) {
    return start + " of item " + std::to_string(item) + ", longer than any short text";
}

/// A list with items of that name, which have each of these elements.
std::string ListOf(const std::string& name, const std::string& itemName,
                   const std::vector<std::string>& elements) {
    std::string items;
    for (int item = 0; item < kItems; ++item) {
        std::string content;
        for (const std::string& element : elements) {
            content += Wrapped(element, LongText(element, item));
        }
        items += Wrapped(itemName, content);
    }
    return Wrapped(name, items);
}

/// Reads the tree with every allocation failing in turn. Of a record that was cut off, the items
/// of each list have to be the first ones of the whole list, as they are there.
template <class Record, class Lists>
void ExpectWholeItems(const std::string& xml, Lists listsOf) {
    const auto tree = Parse(xml);
    Record whole;
    whole.FromXML(tree.get());
    const auto wholeLists = listsOf(whole);
    bool wasCutOff = false;
    EXPECT_TRUE(allocation::Sweep(kItems, [&](allocation::Attempt& attempt) {
        Record record;
        const bool isComplete = attempt.Run([&] { record.FromXML(tree.get()); });
        const auto lists = listsOf(record);
        for (std::size_t list = 0; list < lists.size(); ++list) {
            ASSERT_LE(lists[list].size(), wholeLists[list].size());
            for (std::size_t item = 0; item < lists[list].size(); ++item) {
                EXPECT_EQ(lists[list][item], wholeLists[list][item]);
            }
            wasCutOff |= !isComplete && lists[list].size() < wholeLists[list].size();
        }
    }));
    EXPECT_TRUE(wasCutOff);
}

/// The log texts of the items.
template <class Item>
std::vector<std::string> TextsOf(std::vector<Item>& items) {
    std::vector<std::string> texts(items.size());
    std::transform(items.begin(), items.end(), texts.begin(),
                   [](Item& item) { return item.ToString(); });
    return texts;
}

using Lists = std::vector<std::vector<std::string>>;

const std::vector<std::string> kTrackElements = {"AlbumId", "ArtistId", "GenreId", "TrackId"};

TEST(ListItems, OfAnArtistAreWhole) {
    ExpectWholeItems<DataArtist>(
        Wrapped("Artist", ListOf("Albums", "Album", {"AlbumId", "PrimaryStyle", "Shortcut"}) +
                              ListOf("Genres", "GenreLite", {"GenreId"})),
        [](DataArtist& artist) {
            return Lists{TextsOf(artist.albums), TextsOf(artist.genres)};
        });
}

TEST(ListItems, OfAPlaylistAreWhole) {
    ExpectWholeItems<DataPlaylist>(
        Wrapped("Playlist", ListOf("Tracks", "Track", kTrackElements)),
        [](DataPlaylist& playlist) { return Lists{TextsOf(playlist.tracks)}; });
}

TEST(ListItems, OfAGenreAreWhole) {
    ExpectWholeItems<DataGenre>(
        Wrapped("Genre", ListOf("ChildGenres", "GenreLite", {"GenreId"}) +
                             ListOf("ParentGenres", "GenreLite", {"GenreId"})),
        [](DataGenre& genre) {
            return Lists{TextsOf(genre.childGenres), TextsOf(genre.parentGenres)};
        });
}

TEST(ListItems, OfAnAlbumAreWhole) {
    ExpectWholeItems<DataAlbum>(
        Wrapped("Parent", Wrapped("Album", ListOf("Tracks", "Track", kTrackElements))),
        [](DataAlbum& album) { return Lists{TextsOf(album.tracks)}; });
}

TEST(ListItems, OfALibraryAreWhole) {
    ExpectWholeItems<DataMemberLibrary>(
        Wrapped("Parent",
                Wrapped("MemberLibrary",
                        ListOf("Tracks", "Track", kTrackElements) +
                            ListOf("Playlists", "Playlist", {"Name", "PlaylistId", "Type"}) +
                            ListOf("Stations", "Station", {"StationId", "Type"}))),
        [](DataMemberLibrary& library) {
            return Lists{TextsOf(library.tracks), TextsOf(library.playlists),
                         TextsOf(library.stations)};
        });
}

TEST(ListItems, OfTextsAreWhole) {
    ExpectWholeItems<DataAlbumLite>(
        Wrapped("Album",
                Wrapped("DisplayableAlbumTypes", Wrapped("Value", LongText("type", 0)) +
                                                     Wrapped("Value", LongText("type", 1)) +
                                                     Wrapped("Value", LongText("type", 2)))),
        [](DataAlbumLite& album) { return Lists{album.displayableAlbumTypes}; });
}

}  // namespace
