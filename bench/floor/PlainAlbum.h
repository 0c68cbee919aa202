#ifndef QUAVERA_BENCH_FLOOR_PLAIN_ALBUM_H_
#define QUAVERA_BENCH_FLOOR_PLAIN_ALBUM_H_

#include <cstdint>
#include <string>
#include <vector>

namespace bench::floor {

// Records with the fields of the library's, in the same order, and nothing else.

struct PlainTrack {
    std::string albumId;
    std::string artistId;
    int discIndex = 0;
    std::wstring displayAlbumName;
    std::wstring displayArtistName;
    std::string genreId;
    std::wstring name;
    int playbackSeconds = 0;
    int rightFlags = 0;
    std::string trackId;
    int trackIndex = 0;
    std::string userData;
};

struct PlainArtist {
    std::string artistId;
    std::wstring name;
    std::string shortcut;
};

struct PlainAlbum {
    std::string albumArt162x162Url;
    std::string albumId;
    int albumType = 0;
    bool compilation = false;
    std::wstring displayName;
    std::string displayNameUtf8;
    std::wstring name;
    std::string nameUtf8;
    bool parentalAuthority = false;
    std::wstring primaryArtistDisplayName;
    std::string primaryArtistDisplayNameUtf8;
    std::string primaryArtistId;
    std::string primaryStyle;
    int releaseYear = 0;
    std::uint64_t reserved64 = 0;
    std::string shortcut;
    std::vector<std::string> displayableAlbumTypes;
    std::string albumArt70x70Url;
    std::string copyright;
    std::string label;
    std::vector<std::string> nonDisplayableAlbumTypes;
    PlainArtist primaryArtist;
    std::vector<PlainTrack> tracks;
    std::string upccode;
};

}  // namespace bench::floor

#endif  // QUAVERA_BENCH_FLOOR_PLAIN_ALBUM_H_
