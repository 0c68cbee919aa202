#include "records/DataTrackInfo.h"

#include "records/Fields.h"
#include "soap/QuaveraStub.h"

// rightFlags is left as it is found, on purpose.
DataTrackInfo::DataTrackInfo() {
    constexpr std::size_t kTypicalIdentifier = 20;
    constexpr std::size_t kTypicalDisplayName = 100;
    albumId.reserve(kTypicalIdentifier);
    artistId.reserve(kTypicalIdentifier);
    displayAlbumName.reserve(kTypicalDisplayName);
    displayArtistName.reserve(kTypicalDisplayName);
    genreId.reserve(kTypicalIdentifier);
    trackId.reserve(kTypicalIdentifier);
}

DataTrackInfo::DataTrackInfo(Unreserved /*tag*/) {}

zq::auto_com<ZQXML::INode> DataTrackInfo::ToXML(Quavera::Quavera2__LiteTrackMetadata* soap) {
    return NewElementWith<TrackElements>("Track", soap);
}

void TrackElements::ToXML(ZQXML::INode* node, Quavera::Quavera2__LiteTrackMetadata* soap) {
    ElementWriter out(node);
    out.Plain("AlbumId", soap->albumId);
    out.Plain("ArtistId", soap->artistId);
    out.Number("DiscIndex", soap->discIndex);
    out.Display("DisplayAlbumName", soap->displayAlbumName);
    out.Display("DisplayArtistName", soap->displayArtistName);
    out.Plain("GenreId", soap->genreId);
    out.Display("Name", soap->name);
    out.Number("PlaybackSeconds", soap->playbackSeconds);
    out.Number("RightFlags", soap->rightFlags);
    out.Plain("TrackId", soap->trackId);
    out.Number("TrackIndex", soap->trackIndex);
}

void DataTrackInfo::FromXML(ZQXML::INode* node) {
    for (ChildReader child(node); child.Next();) {
        child.Plain("AlbumId", albumId);
        child.Plain("ArtistId", artistId);
        child.Number("DiscIndex", discIndex);
        child.Display("DisplayAlbumName", displayAlbumName);
        child.Display("DisplayArtistName", displayArtistName);
        child.Plain("GenreId", genreId);
        child.Display("Name", name);
        child.Number("RightFlags", rightFlags);
        child.Number("PlaybackSeconds", playbackSeconds);
        child.Plain("TrackId", trackId);
        child.Number("TrackIndex", trackIndex);
        child.Plain("UserData", userData);
    }
}

void AddLines(const DataTrackInfo& track, TextLines& lines) {
    lines.Plain("AlbumId", track.albumId);
    lines.Plain("AlbumId", track.albumId);  // printed twice: log readers rely on it
    lines.Plain("ArtistId", track.artistId);
    lines.Number("DiscIndex", track.discIndex);
    lines.Display("DisplayAlbumName", track.displayAlbumName);
    lines.Display("DisplayArtistName", track.displayArtistName);
    lines.Display("Name", track.name);
    lines.Number("PlaybackSeconds", track.playbackSeconds);
    lines.Plain("TrackId", track.trackId);
    lines.Number("TrackIndex", track.trackIndex);
    lines.Plain("UserData", track.userData);
}
