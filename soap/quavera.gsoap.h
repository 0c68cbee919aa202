// The service's description, from which soapcpp2 generates the SOAP records, their serializers, the
// client calls and the server skeletons. Not a header to include: include "soap/QuaveraStub.h".
//
// How to read it
// - Each member is an element of the same name on the wire, without a namespace of its own. The
//   records' binary layout follows the order of the members, so a member is never moved, and the
//   ones that the library does not read keep their places too.
// - "0" behind a member means that its element may be missing. A missing element leaves a null
//   pointer, or 0 or false where the record holds the value itself.
// - A full record derives from its summary record, so it begins with the summary's members and
//   can be handed to everything that takes the summary.
// - A repeated element is a pointer to a wrapper record (below).

// The annotations are not C++.
// clang-format off

#include "soap/QuaveraExport.h"
#include "soap/QuaveraWrappers.h"

//gsoap Quavera2 schema namespace: urn:quavera:v2
//gsoap Quavera2 schema form: unqualified
//gsoap Quavera2 service name: Quavera
//gsoap Quavera2 service style: document
//gsoap Quavera2 service encoding: literal

//gsoap Quavera5 schema namespace: urn:quavera:v5
//gsoap Quavera5 schema form: unqualified

// A point in time or a modification stamp; the epoch is the service's own. It has 32 bits on the
// wire, while unsigned long, which the records hold, has 64 on some hosts: soapcpp2 would take it
// for xsd:unsignedLong.
typedef unsigned long xsd__unsignedInt;

class Quavera2__LiteTrackMetadata;
class Quavera2__LiteAlbumMetadata;
class Quavera2__LiteGenreMetadata;
class Quavera2__LitePlaylistMetadata;
class Quavera2__LiteStationMetadata;
class Quavera2__ImageMetadata;
class Quavera2__AlphaIndexPosition;

// Wrapper records: a run of "items" elements. soapcpp2 takes the size only ahead of the items,
// while the records hold it behind them. "volatile" makes it write the serializers, which use the
// members by name, and leave the class itself to QuaveraWrappers.h.

volatile class Quavera2__ArrayOfString {
    $int count;
    std::string* items 0;
};

volatile class Quavera2__ArrayOfLiteTrackMetadata {
    $int count;
    Quavera2__LiteTrackMetadata** items 0;
};

volatile class Quavera2__ArrayOfLiteAlbumMetadata {
    $int count;
    Quavera2__LiteAlbumMetadata** items 0;
};

volatile class Quavera2__ArrayOfLiteGenreMetadata {
    $int count;
    Quavera2__LiteGenreMetadata** items 0;
};

volatile class Quavera2__ArrayOfLitePlaylistMetadata {
    $int count;
    Quavera2__LitePlaylistMetadata** items 0;
};

volatile class Quavera2__ArrayOfLiteStationMetadata {
    $int count;
    Quavera2__LiteStationMetadata** items 0;
};

volatile class Quavera2__ArrayOfImageMetadata {
    $int count;
    Quavera2__ImageMetadata** items 0;
};

volatile class Quavera2__ArrayOfAlphaIndexPosition {
    $int count;
    Quavera2__AlphaIndexPosition** items 0;
};

// A track as the service lists it.
class Quavera2__LiteTrackMetadata {
public:
    std::string* albumId 0;
    std::string* artistId 0;
    int* discIndex 0;               // number of the disc that holds the track
    std::string* displayAlbumName 0;
    std::string* displayArtistName 0;
    std::string* genreId 0;
    std::string* isrc 0;
    std::string* name 0;
    int* playbackSeconds 0;         // length in seconds
    int* popularity 0;
    std::string* previewUrl 0;
    int* rightFlags 0;              // bit set
    std::string* trackId 0;
    int* trackIndex 0;              // position on its disc
};

class Quavera2__LiteAlbumMetadata {
public:
    std::string* albumArt162x162Url 0;
    std::string* albumId 0;
    int* albumType 0;
    bool* compilation 0;
    std::string* displayName 0;
    Quavera2__ArrayOfString* displayableAlbumTypes 0;
    std::string* name 0;
    int* numberOfDiscs 0;
    int* numberOfTracks 0;
    bool* parentalAuthority 0;
    std::string* primaryArtistDisplayName 0;
    std::string* primaryArtistId 0;
    std::string* primaryStyle 0;
    xsd__unsignedInt* releaseDate 0;
    int* releaseYear 0;
    int* rightFlags 0;              // bit set
    std::string* shortcut 0;        // short text key
};

class Quavera2__LiteArtistMetadata {
public:
    std::string* artistId 0;
    std::string* name 0;
    int* rightFlags 0;              // bit set
    std::string* shortcut 0;        // short text key
};

class Quavera2__AlbumMetadata : public Quavera2__LiteAlbumMetadata {
public:
    std::string* albumArt70x70Url 0;
    std::string* copyright 0;
    std::string* label 0;
    Quavera2__ArrayOfString* nonDisplayableAlbumTypes 0;
    int* originalReleaseYear 0;
    int* playbackSeconds 0;         // length of all tracks in seconds
    Quavera2__LiteArtistMetadata* primaryArtist 0;
    Quavera2__ArrayOfLiteTrackMetadata* tracks 0;
    std::string* upccode 0;
};

class Quavera2__LiteGenreMetadata {
public:
    std::string* genreId 0;
    std::string* name 0;
    std::string* shortcut 0;        // short text key
    int subCount 0;                 // number of genres below it; 0 also when the element is missing
};

// Stands alone: it repeats the summary's members among its own.
class Quavera2__GenreMetadata {
public:
    std::string* abbreviation 0;
    std::string* displayName 0;
    std::string* genreId 0;
    std::string* name 0;
    std::string* shortcut 0;        // short text key
    int subGenreCount 0;            // number of genres below it; 0 also when the element is missing
    Quavera2__ArrayOfLiteGenreMetadata* childGenres 0;
    std::string* description 0;
    Quavera2__ArrayOfLiteGenreMetadata* parentGenres 0;
    Quavera2__LiteGenreMetadata* primaryParentGenre 0;
};

class Quavera2__LitePlaylistMetadata {
public:
    std::string* author 0;
    bool* collaborative 0;
    xsd__unsignedInt* createdDate 0;
    std::string* description 0;
    xsd__unsignedInt* lastModifiedDate 0;
    std::string* name 0;
    std::string* playlistId 0;
    int* trackCount 0;
    std::string* type 0;
};

class Quavera2__PlaylistMetadata : public Quavera2__LitePlaylistMetadata {
public:
    Quavera2__ArrayOfLiteTrackMetadata* tracks 0;
};

class Quavera2__LiteStationMetadata {
public:
    bool freeStation 0;             // free of charge; false also when the element is missing
    std::string* name 0;
    std::string* shortcut 0;        // short text key
    std::string* stationId 0;
    std::string* type 0;
};

class Quavera2__StationMetadata : public Quavera2__LiteStationMetadata {
public:
    std::string* description 0;
};

class Quavera2__ArtistMetadata : public Quavera2__LiteArtistMetadata {
public:
    Quavera2__ArrayOfLiteAlbumMetadata* albums 0;
    Quavera2__LiteStationMetadata* artistStation 0;
    std::string* bio 0;
    std::string* bioAuthor 0;
    std::string* blurb 0;
    Quavera2__ArrayOfLiteGenreMetadata* genres 0;
};

// The header of a member's library, the one record of the later schema.
class Quavera5__LiteMemberLibrary {
public:
    xsd__unsignedInt* lastModified 0;
    std::string* memberId 0;
};

class Quavera2__MemberLibrary : public Quavera5__LiteMemberLibrary {
public:
    Quavera2__ArrayOfLitePlaylistMetadata* playlists 0;
    Quavera2__ArrayOfLiteStationMetadata* stations 0;
    Quavera2__ArrayOfLiteTrackMetadata* tracks 0;
};

class Quavera2__AccountMetaData {
public:
    std::string* accountType 0;
    std::string* billingPlan 0;
    std::string* cobrand 0;
    bool* contactByEmail 0;
    std::string* country 0;
    std::string* currency 0;
    unsigned int* dateCreated 0;
    std::string* email 0;
    std::string* firstName 0;
    int freePlaysAllowed 0;
    int freePlaysRemaining 0;
    LONG64 freeTrialTimeLeftInMillis 0;     // milliseconds
    std::string* language 0;
    int* maximumSessions 0;
    std::string* memberId 0;
    int* preferredBitrate 0;                // kbit/s
    unsigned int* quavera25MonthReset 0;
    std::string* state 0;
    unsigned int* trialTerminationDate 0;
    std::string* userName 0;
    std::string* zip 0;
};

class Quavera2__AlbumReviewMetadata {
public:
    std::string* albumId 0;
    std::string* author 0;
    std::string* blurb 0;
    int* blurbSize 0;               // length of the blurb as the service states it
    std::string* detail 0;
    int* detailSize 0;              // length of the full text as the service states it
    xsd__unsignedInt* publishDate 0;
    std::string* source 0;
    std::string* title 0;
};

class Quavera2__ImageMetadata {
public:
    std::string* copyright 0;
    int height 0;                   // pixels; 0 also when the element is missing
    std::string* imageFormat 0;
    std::string* imageId 0;
    std::string* title 0;
    std::string* url 0;
    int width 0;                    // pixels; 0 also when the element is missing
};

// Where in a sorted list the entries of one initial letter begin.
class Quavera2__AlphaIndexPosition {
public:
    std::string* letter 0;
    int* start 0;
};

class Quavera2__LibraryModificationResult {
public:
    Quavera2__ArrayOfString* values 0;      // the identifiers that the change produced or touched
    xsd__unsignedInt* libraryLastDateModified 0;
};

// The list answers. Wrapper records cannot be the answer to an operation, hence the classes around
// them.

class Quavera2__Images {
public:
    Quavera2__ArrayOfImageMetadata* images 0;
};

class Quavera2__AlphaIndex {
public:
    Quavera2__ArrayOfAlphaIndexPosition* positions 0;
};

// The requests. Each names one record by its identifier and is answered by that record directly in
// the envelope's body, as an element named after the record's type.

int Quavera2__getTrack(std::string id, Quavera2__LiteTrackMetadata& track);
int Quavera2__getAlbum(std::string id, Quavera2__AlbumMetadata& album);
int Quavera2__getArtist(std::string id, Quavera2__ArtistMetadata& artist);
int Quavera2__getGenre(std::string id, Quavera2__GenreMetadata& genre);
int Quavera2__getPlaylist(std::string id, Quavera2__PlaylistMetadata& playlist);
int Quavera2__getStation(std::string id, Quavera2__StationMetadata& station);
int Quavera2__getLibrary(std::string id, Quavera2__MemberLibrary& library);
int Quavera2__getAccount(std::string id, Quavera2__AccountMetaData& account);
int Quavera2__getReview(std::string id, Quavera2__AlbumReviewMetadata& review);
int Quavera2__getImages(std::string id, Quavera2__Images& images);
int Quavera2__getIndex(std::string id, Quavera2__AlphaIndex& index);
int Quavera2__getModification(std::string id, Quavera2__LibraryModificationResult& result);
