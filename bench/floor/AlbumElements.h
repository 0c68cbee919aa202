#ifndef QUAVERA_BENCH_FLOOR_ALBUM_ELEMENTS_H_
#define QUAVERA_BENCH_FLOOR_ALBUM_ELEMENTS_H_

#include <array>
#include <cstddef>

#include "bench/shared/Album.h"

// The elements of an album's XML text in their order, for a pen that writes them and an eye that
// reads them. The members of SOAP records and of the library's have the same names, so that both
// are walked through alike. `Way` has Plain, Number, Flag and Display, which take an element's tags
// and a member, and Texts, Values, Artist and Tracks for what holds more than one value.

namespace bench::floor {

/// The tags of an element whose name has `Size` characters, known to the compiler.
template <std::size_t Size>
struct Element {
    std::array<char, Size + 2> start{};
    std::array<char, Size + 20> encodedStart{};
    std::array<char, Size + 3> end{};
    std::array<char, Size + 3> empty{};
};

template <std::size_t Size, std::size_t NameSize>
constexpr std::size_t Append(const char (&text)[NameSize], std::size_t at,
                             std::array<char, Size>& to) {
    for (std::size_t from = 0; from + 1 < NameSize; ++from) {
        to[at++] = text[from];
    }
    return at;
}

template <std::size_t NameSize>
constexpr Element<NameSize - 1> MakeElement(const char (&name)[NameSize]) {
    Element<NameSize - 1> element;
    Append(">", Append(name, Append("<", 0, element.start), element.start), element.start);
    Append(R"( encoding="base64">)",
           Append(name, Append("<", 0, element.encodedStart), element.encodedStart),
           element.encodedStart);
    Append(">", Append(name, Append("</", 0, element.end), element.end), element.end);
    Append("/>", Append(name, Append("<", 0, element.empty), element.empty), element.empty);
    return element;
}

namespace elements {

inline constexpr auto kAlbum = MakeElement("Album");
inline constexpr auto kAlbumArt162x162Url = MakeElement("AlbumArt162x162Url");
inline constexpr auto kAlbumArt70x70Url = MakeElement("AlbumArt70x70Url");
inline constexpr auto kAlbumId = MakeElement("AlbumId");
inline constexpr auto kAlbumType = MakeElement("AlbumType");
inline constexpr auto kArtist = MakeElement("Artist");
inline constexpr auto kArtistId = MakeElement("ArtistId");
inline constexpr auto kCompilation = MakeElement("Compilation");
inline constexpr auto kCopyright = MakeElement("Copyright");
inline constexpr auto kDiscIndex = MakeElement("DiscIndex");
inline constexpr auto kDisplayAlbumName = MakeElement("DisplayAlbumName");
inline constexpr auto kDisplayArtistName = MakeElement("DisplayArtistName");
inline constexpr auto kDisplayName = MakeElement("DisplayName");
inline constexpr auto kDisplayableAlbumTypes = MakeElement("DisplayableAlbumTypes");
inline constexpr auto kGenreId = MakeElement("GenreId");
inline constexpr auto kLabel = MakeElement("Label");
inline constexpr auto kName = MakeElement("Name");
inline constexpr auto kNonDisplayableAlbumTypes = MakeElement("NonDisplayableAlbumTypes");
inline constexpr auto kParentalAuthority = MakeElement("ParentalAuthority");
inline constexpr auto kPlaybackSeconds = MakeElement("PlaybackSeconds");
inline constexpr auto kPrimaryArtistDisplayName = MakeElement("PrimaryArtistDisplayName");
inline constexpr auto kPrimaryArtistId = MakeElement("PrimaryArtistId");
inline constexpr auto kPrimaryStyle = MakeElement("PrimaryStyle");
inline constexpr auto kReleaseYear = MakeElement("ReleaseYear");
inline constexpr auto kRightFlags = MakeElement("RightFlags");
inline constexpr auto kShortcut = MakeElement("Shortcut");
inline constexpr auto kTrack = MakeElement("Track");
inline constexpr auto kTrackId = MakeElement("TrackId");
inline constexpr auto kTrackIndex = MakeElement("TrackIndex");
inline constexpr auto kTracks = MakeElement("Tracks");
inline constexpr auto kUpccode = MakeElement("Upccode");
inline constexpr auto kValue = MakeElement("Value");

}  // namespace elements

template <class Way, class Track>
void EachOfTrack(Way& way, Track& track) {
    way.Plain(elements::kAlbumId, track.albumId);
    way.Plain(elements::kArtistId, track.artistId);
    way.Number(elements::kDiscIndex, track.discIndex);
    way.Display(elements::kDisplayAlbumName, track.displayAlbumName);
    way.Display(elements::kDisplayArtistName, track.displayArtistName);
    way.Plain(elements::kGenreId, track.genreId);
    way.Display(elements::kName, track.name);
    way.Number(elements::kPlaybackSeconds, track.playbackSeconds);
    way.Number(elements::kRightFlags, track.rightFlags);
    way.Plain(elements::kTrackId, track.trackId);
    way.Number(elements::kTrackIndex, track.trackIndex);
}

template <class Way, class Artist>
void EachOfArtist(Way& way, Artist& artist) {
    way.Plain(elements::kArtistId, artist.artistId);
    way.Display(elements::kName, artist.name);
    way.Plain(elements::kShortcut, artist.shortcut);
}

template <class Way, class Album>
void EachOfAlbum(Way& way, Album& album) {
    way.Plain(elements::kAlbumArt162x162Url, album.albumArt162x162Url);
    way.Plain(elements::kAlbumId, album.albumId);
    way.Number(elements::kAlbumType, album.albumType);
    way.Flag(elements::kCompilation, album.compilation);
    way.Display(elements::kDisplayName, album.displayName);
    way.Display(elements::kName, album.name);
    way.Flag(elements::kParentalAuthority, album.parentalAuthority);
    way.Display(elements::kPrimaryArtistDisplayName, album.primaryArtistDisplayName);
    way.Plain(elements::kPrimaryArtistId, album.primaryArtistId);
    way.Plain(elements::kPrimaryStyle, album.primaryStyle);
    way.Number(elements::kReleaseYear, album.releaseYear);
    way.Plain(elements::kShortcut, album.shortcut);
    way.Values(elements::kDisplayableAlbumTypes, album.displayableAlbumTypes);

    way.Plain(elements::kAlbumArt70x70Url, album.albumArt70x70Url);
    way.Plain(elements::kCopyright, album.copyright);
    way.Plain(elements::kLabel, album.label);
    way.Texts(elements::kNonDisplayableAlbumTypes, album.nonDisplayableAlbumTypes);
    way.Artist(album.primaryArtist);
    way.Tracks(album.tracks);
    way.Plain(elements::kUpccode, album.upccode);
}

}  // namespace bench::floor

#endif  // QUAVERA_BENCH_FLOOR_ALBUM_ELEMENTS_H_
