#ifndef QUAVERA_BENCH_PEERS_TREE_PEER_H_
#define QUAVERA_BENCH_PEERS_TREE_PEER_H_

#include <array>
#include <charconv>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "bench/peers/PeerText.h"
#include "bench/shared/Contender.h"
#include "bench/shared/NewTrack.h"
#include "records/DataAlbum.h"

// An album's elements written and read with another library's tree, in the way of a program that is
// made for speed: texts are borrowed where the tree lends them, buffers are used again.
//
// `Tree` is what differs:
//
//   using Element = ...;  // a handle, false where there is none
//   Element Root(const char* name);                          // makes the document's root
//   Element Root();                                          // finds it
//   Element Add(Element parent, const char* name);           // an element without text
//   void Add(Element, const char* name, std::string_view);   // with text, zero-terminated
//   void AddEncoded(Element, const char* name, std::string_view);  // and with the mark
//   static Element First(Element), Next(Element);            // child elements
//   static const char* Name(Element), * Text(Element);       // zero-terminated

namespace bench {

template <class Tree>
class PeerWriter {
 public:
    using Element = typename Tree::Element;

    PeerWriter(Tree& tree, PeerText& codec) : tree_(tree), codec_(codec) {}

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

/// How a peer makes its tracks: as the class offers it, or as cheap as it can be had.
enum class NewTracks { kConstructed, kUnreserved };

template <class Tree, NewTracks kNewTracks>
class PeerReader {
 public:
    using Element = typename Tree::Element;

    explicit PeerReader(PeerText& codec) : codec_(codec) {}

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

/// A contender by a tree, which is made anew for each album.
template <class Tree, NewTracks kNewTracks = NewTracks::kConstructed>
class TreePeer final : public Contender {
 public:
    void Write(SoapAlbum* soap) override { PeerWriter<Tree>(tree_.emplace(), codec_).Write(*soap); }
    void Read() override {
        PeerReader<Tree, kNewTracks>(codec_).Read(tree_->Root(), record_.emplace());
    }
    void Free() override { tree_.reset(); }
    void Drop() override { record_.reset(); }
    void Save() override { saved_ = tree_->Save(); }
    void Parse() override { tree_.emplace().Parse(saved_); }

    std::string Text() override { return record_->ToString(); }
    std::string Unprinted() const override { return UnprintedOf(*record_); }
    const std::string* Saved() const override { return &saved_; }

 private:
    PeerText codec_;
    std::optional<Tree> tree_;
    std::string saved_;
    std::optional<DataAlbum> record_;
};

}  // namespace bench

#endif  // QUAVERA_BENCH_PEERS_TREE_PEER_H_
