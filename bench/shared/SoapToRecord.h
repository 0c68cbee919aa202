#ifndef QUAVERA_BENCH_SHARED_SOAP_TO_RECORD_H_
#define QUAVERA_BENCH_SHARED_SOAP_TO_RECORD_H_

#include <cstddef>
#include <vector>

#include "bench/shared/Album.h"

// A record filled straight from the SOAP record, for contenders without a tree. `Way` is how a
// member gets into its field: it has Plain, Number, Flag, Display and Texts, which take a member,
// null where it is absent, and the field; and AppendTrack, which takes the list.

namespace bench {

template <class Way, class Track>
void FillTrack(Way& way, const SoapTrack& soap, Track& track) {
    way.Plain(soap.albumId, track.albumId);
    way.Plain(soap.artistId, track.artistId);
    way.Number(soap.discIndex, track.discIndex);
    way.Display(soap.displayAlbumName, track.displayAlbumName);
    way.Display(soap.displayArtistName, track.displayArtistName);
    way.Plain(soap.genreId, track.genreId);
    way.Display(soap.name, track.name);
    way.Number(soap.playbackSeconds, track.playbackSeconds);
    way.Number(soap.rightFlags, track.rightFlags);
    way.Plain(soap.trackId, track.trackId);
    way.Number(soap.trackIndex, track.trackIndex);
}

template <class Way, class Artist>
void FillArtist(Way& way, const SoapArtist* soap, Artist& artist) {
    if (soap == nullptr) {
        return;
    }
    way.Plain(soap->artistId, artist.artistId);
    way.Display(soap->name, artist.name);
    way.Plain(soap->shortcut, artist.shortcut);
}

template <class Way, class Track>
void FillTracks(Way& way, const SoapTracks* soap, std::vector<Track>& tracks) {
    if (soap == nullptr) {
        return;
    }
    tracks.reserve(static_cast<std::size_t>(soap->count));
    for (int at = 0; at < soap->count; ++at) {
        FillTrack(way, *soap->items[at], way.AppendTrack(tracks));
    }
}

template <class Way, class Record>
void FillAlbum(Way& way, const SoapAlbum& soap, Record& album) {
    way.Plain(soap.albumArt162x162Url, album.albumArt162x162Url);
    way.Plain(soap.albumId, album.albumId);
    way.Number(soap.albumType, album.albumType);
    way.Flag(soap.compilation, album.compilation);
    way.Display(soap.displayName, album.displayName);
    way.Display(soap.name, album.name);
    way.Flag(soap.parentalAuthority, album.parentalAuthority);
    way.Display(soap.primaryArtistDisplayName, album.primaryArtistDisplayName);
    way.Plain(soap.primaryArtistId, album.primaryArtistId);
    way.Plain(soap.primaryStyle, album.primaryStyle);
    way.Number(soap.releaseYear, album.releaseYear);
    way.Plain(soap.shortcut, album.shortcut);
    way.Texts(soap.displayableAlbumTypes, album.displayableAlbumTypes);

    way.Plain(soap.albumArt70x70Url, album.albumArt70x70Url);
    way.Plain(soap.copyright, album.copyright);
    way.Plain(soap.label, album.label);
    way.Texts(soap.nonDisplayableAlbumTypes, album.nonDisplayableAlbumTypes);
    FillArtist(way, soap.primaryArtist, album.primaryArtist);
    FillTracks(way, soap.tracks, album.tracks);
    way.Plain(soap.upccode, album.upccode);
}

}  // namespace bench

#endif  // QUAVERA_BENCH_SHARED_SOAP_TO_RECORD_H_
