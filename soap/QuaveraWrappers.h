#ifndef QUAVERA_SOAP_QUAVERAWRAPPERS_H
#define QUAVERA_SOAP_QUAVERAWRAPPERS_H

#include <string>

/// @file
/// The wrapper records: what a record points to where its element is repeated. They stand here and
/// not among the generated records because they hold `items` ahead of `count`, an order that
/// soapcpp2 does not offer; it generates their serializers all the same (see quavera.gsoap.h).

namespace Quavera {

class Quavera2__LiteTrackMetadata;
class Quavera2__LiteAlbumMetadata;
class Quavera2__LiteGenreMetadata;
class Quavera2__LitePlaylistMetadata;
class Quavera2__LiteStationMetadata;
class Quavera2__ImageMetadata;
class Quavera2__AlphaIndexPosition;

/// A run of `items` elements. Texts are held by value; records are pointed to, and a nil element is
/// a null pointer among them. The array belongs to whoever made it: the SOAP context for a record
/// that was read.
template <typename Item>
struct RecordArray {
    Item* items = nullptr;  ///< the first one; null where there is none
    int count = 0;          ///< their number; less than one stands for none
};

// Classes and not aliases, so that they can be forward-declared under their names.

/// Texts, UTF-8.
class Quavera2__ArrayOfString : public RecordArray<std::string> {};
/// Tracks.
class Quavera2__ArrayOfLiteTrackMetadata : public RecordArray<Quavera2__LiteTrackMetadata*> {};
/// Albums.
class Quavera2__ArrayOfLiteAlbumMetadata : public RecordArray<Quavera2__LiteAlbumMetadata*> {};
/// Genres.
class Quavera2__ArrayOfLiteGenreMetadata : public RecordArray<Quavera2__LiteGenreMetadata*> {};
/// Playlists.
class Quavera2__ArrayOfLitePlaylistMetadata : public RecordArray<Quavera2__LitePlaylistMetadata*> {
};
/// Stations.
class Quavera2__ArrayOfLiteStationMetadata : public RecordArray<Quavera2__LiteStationMetadata*> {};
/// Pictures.
class Quavera2__ArrayOfImageMetadata : public RecordArray<Quavera2__ImageMetadata*> {};
/// Entries of an alphabetic index.
class Quavera2__ArrayOfAlphaIndexPosition : public RecordArray<Quavera2__AlphaIndexPosition*> {};

}  // namespace Quavera

#endif  // QUAVERA_SOAP_QUAVERAWRAPPERS_H
