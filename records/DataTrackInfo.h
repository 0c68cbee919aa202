#ifndef QUAVERA_RECORDS_DATA_TRACK_INFO_H_
#define QUAVERA_RECORDS_DATA_TRACK_INFO_H_

#include <string>

#include "platform/zqshared.h"
#include "records/QuavData.h"
#include "records/SoapRecords.h"

/// One track, as the service lists it: the item of an album's, a playlist's and a library's tracks.
///
/// Element: "Track". `FromXML` expects that element itself.
/// Deliberate deviations: there is no writer into a given node; the log text has capital labels,
/// the album's identifier twice, and neither `genreId` nor `rightFlags`; `rightFlags` is not
/// initialised; `userData` is read but never written.
class QUAVERA_API DataTrackInfo : public QuavData {
 public:
    /// Reserves room for 20 characters in each identifier, and for 100 in `displayAlbumName` and in
    /// `displayArtistName`.
    DataTrackInfo();
    /// The same without that room, six allocations less. So the items of lists are made; a copy of
    /// an empty track has none of that room either.
    explicit DataTrackInfo(Unreserved);
    DataTrackInfo(const DataTrackInfo&);
    DataTrackInfo(DataTrackInfo&&) noexcept;
    DataTrackInfo& operator=(const DataTrackInfo&);
    DataTrackInfo& operator=(DataTrackInfo&&) noexcept;
    ~DataTrackInfo() override;

    /// The element of `soap`, which must not be null; it is the caller's.
    static zq::auto_com<ZQXML::INode> ToXML(Quavera::Quavera2__LiteTrackMetadata* soap);
    void FromXML(ZQXML::INode* node) override;
    std::string ToString() override;

    std::string albumId;             ///< the service's identifier of the album
    std::string artistId;            ///< the service's identifier of the artist
    int discIndex = 0;               ///< number of the disc that holds the track
    std::wstring displayAlbumName;   ///< the album's title for display
    std::wstring displayArtistName;  ///< the artist's name for display
    std::string genreId;             ///< the service's identifier of the genre
    std::wstring name;               ///< the track's title
    int playbackSeconds = 0;         ///< length in seconds
    int rightFlags;        ///< the service's rights, a bit set; no value until it is given one
    std::string trackId;   ///< the service's identifier of the track
    int trackIndex = 0;    ///< position of the track on its disc
    std::string userData;  ///< free text that a caller puts into the tree
};

#endif  // QUAVERA_RECORDS_DATA_TRACK_INFO_H_
