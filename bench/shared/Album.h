#ifndef QUAVERA_BENCH_SHARED_ALBUM_H_
#define QUAVERA_BENCH_SHARED_ALBUM_H_

#include <cstddef>
#include <deque>
#include <string>
#include <vector>

#include "soap/QuaveraStub.h"

namespace bench {

using SoapAlbum = Quavera::Quavera2__AlbumMetadata;
using SoapTrack = Quavera::Quavera2__LiteTrackMetadata;
using SoapArtist = Quavera::Quavera2__LiteArtistMetadata;
using SoapTexts = Quavera::Quavera2__ArrayOfString;
using SoapTracks = Quavera::Quavera2__ArrayOfLiteTrackMetadata;

/// The longest display text that an album holds, in bytes of UTF-8.
inline constexpr std::size_t kLongestText = 512;

/// Which members of an album are present: those that a record reads, or also those that none does,
/// which only gSOAP's text carries.
enum class Members { kRead, kAll };

/// A full album as the service sends it. The texts have the lengths of real ones, one in five
/// display names is not ASCII, and the same number of tracks always gives the same album.
class Album {
 public:
    explicit Album(int trackCount, Members members = Members::kRead);
    Album(const Album&) = delete;
    Album& operator=(const Album&) = delete;
    ~Album() = default;

    SoapAlbum* soap() { return &album_; }

 private:
    void FillAlbum();
    void FillArtist();
    void FillTrack(int index, SoapTrack* track);
    void FillUnread();

    std::string* Text(std::string text);
    std::string* DisplayName(std::size_t shortest, std::size_t longest);
    std::string* Identifier(const char* kind, unsigned digits);
    int* Number(int value);
    bool* Flag(bool value);
    unsigned Random(std::size_t count);

    // Deques: their items stay where they are.
    std::deque<std::string> texts_;
    std::deque<int> numbers_;
    std::deque<bool> flags_;
    std::vector<std::string> displayableTypes_ = {"ALBUM", "COMPILATION"};
    std::vector<std::string> otherTypes_ = {"SINGLE", "LIVE"};
    std::vector<SoapTrack> tracks_;
    std::vector<SoapTrack*> trackPointers_;
    SoapArtist artist_;
    SoapTexts displayableTypeArray_;
    SoapTexts otherTypeArray_;
    SoapTracks trackArray_;
    SoapAlbum album_;
    unsigned long releaseDate_ = 1190332800;
    unsigned displayNames_ = 0;
    unsigned state_ = 20070921;
};

}  // namespace bench

#endif  // QUAVERA_BENCH_SHARED_ALBUM_H_
