#ifndef QUAVERA_BENCH_PEERS_TREE_READER_H_
#define QUAVERA_BENCH_PEERS_TREE_READER_H_

#include <charconv>
#include <string_view>
#include <vector>

#include "bench/peers/PeerText.h"
#include "bench/shared/NewTrack.h"
#include "records/DataAlbum.h"

namespace bench {

/// How a peer makes its tracks: as the class offers it, or as cheap as it can be had.
enum class NewTracks { kConstructed, kUnreserved };

/// Reads an album's elements from a tree of TreePeer.h.
template <class Tree, NewTracks kNewTracks>
class TreeReader {
 public:
    using Element = typename Tree::Element;

    explicit TreeReader(PeerText& codec) : codec_(codec) {}

    void Read(Element element, DataAlbum& album) {
        for (Element child = Tree::First(element); child; child = Tree::Next(child)) {
            const std::string_view name = Tree::Name(child);
            const char* const text = Tree::Text(child);
            if (name == "AlbumArt162x162Url") {
                album.albumArt162x162Url = text;
            } else if (name == "AlbumId") {
                album.albumId = text;
            } else if (name == "AlbumType") {
                Number(text, album.albumType);
            } else if (name == "Compilation") {
                Flag(text, album.compilation);
            } else if (name == "DisplayName") {
                Display(text, album.displayName);
            } else if (name == "Name") {
                Display(text, album.name);
            } else if (name == "ParentalAuthority") {
                Flag(text, album.parentalAuthority);
            } else if (name == "PrimaryArtistDisplayName") {
                Display(text, album.primaryArtistDisplayName);
            } else if (name == "PrimaryArtistId") {
                album.primaryArtistId = text;
            } else if (name == "PrimaryStyle") {
                album.primaryStyle = text;
            } else if (name == "ReleaseYear") {
                Number(text, album.releaseYear);
            } else if (name == "Shortcut") {
                album.shortcut = text;
            } else if (name == "DisplayableAlbumTypes") {
                for (Element type = Tree::First(child); type; type = Tree::Next(type)) {
                    album.displayableAlbumTypes.emplace_back(Tree::Text(type));
                }
            } else if (name == "AlbumArt70x70Url") {
                album.albumArt70x70Url = text;
            } else if (name == "Copyright") {
                album.copyright = text;
            } else if (name == "Label") {
                album.label = text;
            } else if (name == "NonDisplayableAlbumTypes") {
                album.nonDisplayableAlbumTypes.emplace_back(text);
            } else if (name == "Artist") {
                Read(child, album.primaryArtist);
            } else if (name == "Tracks") {
                for (Element track = Tree::First(child); track; track = Tree::Next(track)) {
                    Read(track, Append(album.tracks));
                }
            } else if (name == "Upccode") {
                album.upccode = text;
            }
        }
    }

 private:
    static DataTrackInfo& Append(std::vector<DataTrackInfo>& tracks) {
        if constexpr (kNewTracks == NewTracks::kUnreserved) {
            return AppendUnreserved(tracks);
        } else {
            return tracks.emplace_back();
        }
    }

    void Read(Element element, DataArtistLite& artist) {
        for (Element child = Tree::First(element); child; child = Tree::Next(child)) {
            const std::string_view name = Tree::Name(child);
            const char* const text = Tree::Text(child);
            if (name == "ArtistId") {
                artist.artistId = text;
            } else if (name == "Name") {
                Display(text, artist.name);
            } else if (name == "Shortcut") {
                artist.shortcut = text;
            }
        }
    }

    void Read(Element element, DataTrackInfo& track) {
        for (Element child = Tree::First(element); child; child = Tree::Next(child)) {
            const std::string_view name = Tree::Name(child);
            const char* const text = Tree::Text(child);
            if (name == "AlbumId") {
                track.albumId = text;
            } else if (name == "ArtistId") {
                track.artistId = text;
            } else if (name == "DiscIndex") {
                Number(text, track.discIndex);
            } else if (name == "DisplayAlbumName") {
                Display(text, track.displayAlbumName);
            } else if (name == "DisplayArtistName") {
                Display(text, track.displayArtistName);
            } else if (name == "GenreId") {
                track.genreId = text;
            } else if (name == "Name") {
                Display(text, track.name);
            } else if (name == "PlaybackSeconds") {
                Number(text, track.playbackSeconds);
            } else if (name == "RightFlags") {
                Number(text, track.rightFlags);
            } else if (name == "TrackId") {
                track.trackId = text;
            } else if (name == "TrackIndex") {
                Number(text, track.trackIndex);
            } else if (name == "UserData") {
                track.userData = text;
            }
        }
    }

    static void Number(std::string_view text, int& field) {
        std::from_chars(text.data(), text.data() + text.size(), field);
    }

    static void Flag(std::string_view text, bool& field) {
        if (text == "true") {
            field = true;
        }
    }

    void Display(std::string_view text, std::wstring& field) { field = codec_.DecodeToWide(text); }

    PeerText& codec_;
};

}  // namespace bench

#endif  // QUAVERA_BENCH_PEERS_TREE_READER_H_
