#ifndef QUAVERA_BENCH_FLOOR_LOG_TEXT_H_
#define QUAVERA_BENCH_FLOOR_LOG_TEXT_H_

#include <string>

#include "bench/floor/Pen.h"
#include "bench/shared/Album.h"

namespace bench::floor {

// For 8 texts of a track, or 24 of an album, their labels and numbers.
inline constexpr std::size_t kRoomPerTrack = 9 * kLongestText;
inline constexpr std::size_t kRoomPerAlbum = 26 * kLongestText;

template <class Track>
void PutTrack(const Track& track, Pen& pen) {
    pen.Ensure(kRoomPerTrack);
    pen.Label("Track AlbumId = ");
    pen.Plain(track.albumId);
    pen.Label("\r\nAlbumId = ");
    pen.Plain(track.albumId);
    pen.Label("\r\nArtistId = ");
    pen.Plain(track.artistId);
    pen.Label("\r\nDiscIndex = ");
    pen.Number(track.discIndex);
    pen.Label("\r\nDisplayAlbumName = ");
    pen.Display(track.displayAlbumName);
    pen.Label("\r\nDisplayArtistName = ");
    pen.Display(track.displayArtistName);
    pen.Label("\r\nName = ");
    pen.Display(track.name);
    pen.Label("\r\nPlaybackSeconds = ");
    pen.Number(track.playbackSeconds);
    pen.Label("\r\nTrackId = ");
    pen.Plain(track.trackId);
    pen.Label("\r\nTrackIndex = ");
    pen.Number(track.trackIndex);
    pen.Label("\r\nUserData = ");
    pen.Plain(track.userData);
    pen.Label("\r\n");
}

template <class Record>
void PutSummary(const Record& album, Pen& pen) {
    pen.Label("albumArt162x162Url = ");
    pen.Plain(album.albumArt162x162Url);
    pen.Label("\r\nalbumId = ");
    pen.Plain(album.albumId);
    pen.Label("\r\nalbumType = ");
    pen.Number(album.albumType);
    pen.Label("\r\ncompilation = ");
    pen.Flag(album.compilation);
    pen.Label("\r\ndisplayName = ");
    pen.Display(album.displayName);
    pen.Label("\r\nname = ");
    pen.Display(album.name);
    pen.Label("\r\nparentalAuthority = ");
    pen.Flag(album.parentalAuthority);
    pen.Label("\r\nprimaryArtistDisplayName = ");
    pen.Display(album.primaryArtistDisplayName);
    pen.Label("\r\nprimaryArtistId = ");
    pen.Plain(album.primaryArtistId);
    pen.Label("\r\nprimaryStyle = ");
    pen.Plain(album.primaryStyle);
    pen.Label("\r\nreleaseYear = ");
    pen.Number(album.releaseYear);
    pen.Label("\r\nshortcut = ");
    pen.Plain(album.shortcut);
    pen.Label("\r\n");
    for (const std::string& type : album.displayableAlbumTypes) {
        pen.Label("  types = ");
        pen.Plain(type);
        pen.Label("\r\n");
    }
}

template <class Record>
void PutAlbum(const Record& album, Pen& pen) {
    pen.Ensure(kRoomPerAlbum);
    pen.Label("AlbumArt70x70Url = ");
    pen.Plain(album.albumArt70x70Url);
    pen.Label("\r\ncopyright = ");
    pen.Plain(album.copyright);
    pen.Label("\r\nlabel = ");
    pen.Plain(album.label);
    pen.Label("\r\n");
    for (const std::string& type : album.nonDisplayableAlbumTypes) {
        pen.Label("nonDisplayableAlbumTypes ");
        pen.Plain(type);
    }
    pen.Label("primaryArtist = artistId = ");
    pen.Plain(album.primaryArtist.artistId);
    pen.Label("\r\nname = ");
    pen.Display(album.primaryArtist.name);
    pen.Label("\r\nshortcut = ");
    pen.Plain(album.primaryArtist.shortcut);
    pen.Label("\r\n\r\n");
    for (const auto& track : album.tracks) {
        PutTrack(track, pen);
    }
    pen.Ensure(kRoomPerAlbum);
    pen.Label("upccode = ");
    pen.Plain(album.upccode);
    pen.Label("\r\n");
    PutSummary(album, pen);
}

}  // namespace bench::floor

#endif  // QUAVERA_BENCH_FLOOR_LOG_TEXT_H_
