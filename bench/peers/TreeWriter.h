#ifndef QUAVERA_BENCH_PEERS_TREE_WRITER_H_
#define QUAVERA_BENCH_PEERS_TREE_WRITER_H_

#include <array>
#include <charconv>
#include <string>
#include <string_view>

#include "bench/peers/PeerText.h"
#include "bench/shared/Album.h"

namespace bench {

/// Writes an album's elements to a tree of TreePeer.h.
template <class Tree>
class TreeWriter {
 public:
    using Element = typename Tree::Element;

    TreeWriter(Tree& tree, PeerText& codec) : tree_(tree), codec_(codec) {}

    void Write(const SoapAlbum& soap) {
        const Element album = tree_.Root("Album");
        Plain(album, "AlbumArt162x162Url", soap.albumArt162x162Url);
        Plain(album, "AlbumId", soap.albumId);
        Number(album, "AlbumType", soap.albumType);
        Flag(album, "Compilation", soap.compilation);
        Display(album, "DisplayName", soap.displayName);
        Display(album, "Name", soap.name);
        Flag(album, "ParentalAuthority", soap.parentalAuthority);
        Display(album, "PrimaryArtistDisplayName", soap.primaryArtistDisplayName);
        Plain(album, "PrimaryArtistId", soap.primaryArtistId);
        Plain(album, "PrimaryStyle", soap.primaryStyle);
        Number(album, "ReleaseYear", soap.releaseYear);
        Plain(album, "Shortcut", soap.shortcut);
        if (soap.displayableAlbumTypes != nullptr) {
            Texts(tree_.Add(album, "DisplayableAlbumTypes"), "Value", *soap.displayableAlbumTypes);
        }
        Plain(album, "AlbumArt70x70Url", soap.albumArt70x70Url);
        Plain(album, "Copyright", soap.copyright);
        Plain(album, "Label", soap.label);
        if (soap.nonDisplayableAlbumTypes != nullptr) {
            Texts(album, "NonDisplayableAlbumTypes", *soap.nonDisplayableAlbumTypes);
        }
        if (soap.primaryArtist != nullptr) {
            Write(tree_.Add(album, "Artist"), *soap.primaryArtist);
        }
        if (soap.tracks != nullptr) {
            const Element tracks = tree_.Add(album, "Tracks");
            for (int at = 0; at < soap.tracks->count; ++at) {
                Write(tree_.Add(tracks, "Track"), *soap.tracks->items[at]);
            }
        }
        Plain(album, "Upccode", soap.upccode);
    }

 private:
    void Write(Element artist, const SoapArtist& soap) {
        Plain(artist, "ArtistId", soap.artistId);
        Display(artist, "Name", soap.name);
        Plain(artist, "Shortcut", soap.shortcut);
    }

    void Write(Element track, const SoapTrack& soap) {
        Plain(track, "AlbumId", soap.albumId);
        Plain(track, "ArtistId", soap.artistId);
        Number(track, "DiscIndex", soap.discIndex);
        Display(track, "DisplayAlbumName", soap.displayAlbumName);
        Display(track, "DisplayArtistName", soap.displayArtistName);
        Plain(track, "GenreId", soap.genreId);
        Display(track, "Name", soap.name);
        Number(track, "PlaybackSeconds", soap.playbackSeconds);
        Number(track, "RightFlags", soap.rightFlags);
        Plain(track, "TrackId", soap.trackId);
        Number(track, "TrackIndex", soap.trackIndex);
    }

    void Plain(Element parent, const char* name, const std::string* text) {
        if (text != nullptr) {
            tree_.Add(parent, name, *text);
        }
    }

    void Display(Element parent, const char* name, const std::string* text) {
        if (text != nullptr) {
            tree_.AddEncoded(parent, name, codec_.Encode(*text));
        }
    }

    void Number(Element parent, const char* name, const int* value) {
        if (value != nullptr) {
            std::array<char, 16> digits;
            char* const end =
                std::to_chars(digits.data(), digits.data() + digits.size() - 1, *value).ptr;
            *end = '\0';
            const auto size = static_cast<std::size_t>(end - digits.data());
            tree_.Add(parent, name, std::string_view(digits.data(), size));
        }
    }

    void Flag(Element parent, const char* name, const bool* value) {
        if (value != nullptr) {
            tree_.Add(parent, name, std::string_view(*value ? "true" : "false"));
        }
    }

    void Texts(Element parent, const char* name, const SoapTexts& texts) {
        for (int at = 0; at < texts.count; ++at) {
            Plain(parent, name, &texts.items[at]);
        }
    }

    Tree& tree_;
    PeerText& codec_;
};

}  // namespace bench

#endif  // QUAVERA_BENCH_PEERS_TREE_WRITER_H_
