#ifndef QUAVERA_RECORDS_NESTED_H_
#define QUAVERA_RECORDS_NESTED_H_

#include "platform/zqshared.h"

/// What records that stand inside others offer to the sources of those others, beside their public
/// functions.

class DataAlbumLite;
class DataArtistLite;
class DataGenreLite;
class DataMemberLibraryLite;
class DataPlaylistLite;
class DataStationLite;
class DataTrackInfo;
class TextLines;

namespace Quavera {
class Quavera2__LiteGenreMetadata;
class Quavera2__LiteTrackMetadata;
}  // namespace Quavera

/// Writers into a given node, of records that have no public one.
struct GenreLiteElements {
    static void ToXML(ZQXML::INode* node, Quavera::Quavera2__LiteGenreMetadata* soap);
};
struct TrackElements {
    static void ToXML(ZQXML::INode* node, Quavera::Quavera2__LiteTrackMetadata* soap);
};

/// Adds the lines of a record's log text to those of the record that it stands in.
void AddLines(const DataAlbumLite& album, TextLines& lines);
void AddLines(const DataArtistLite& artist, TextLines& lines);
void AddLines(const DataGenreLite& genre, TextLines& lines);
void AddLines(const DataMemberLibraryLite& library, TextLines& lines);
void AddLines(const DataPlaylistLite& playlist, TextLines& lines);
void AddLines(const DataStationLite& station, TextLines& lines);
void AddLines(const DataTrackInfo& track, TextLines& lines);

#endif  // QUAVERA_RECORDS_NESTED_H_
