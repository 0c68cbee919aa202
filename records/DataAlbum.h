#ifndef QUAVERA_RECORDS_DATA_ALBUM_H_
#define QUAVERA_RECORDS_DATA_ALBUM_H_

#include <string>
#include <vector>

#include "platform/zqshared.h"
#include "records/DataAlbumLite.h"
#include "records/DataArtistLite.h"
#include "records/DataTrackInfo.h"
#include "records/SoapRecords.h"

/// The full album of an album page: the summary, and what only the page shows.
///
/// Element: "Album". `FromXML` expects the *parent* of that element, and merges every "Album" in
/// it. Deliberate deviations: the types that it is not to be shown under stand directly in the
/// element, so that an empty list of them leaves no trace; in the log text the first label has a
/// capital, list items have no line break of their own, and the summary comes last.
class QUAVERA_API DataAlbum : public DataAlbumLite {
 public:
    DataAlbum();
    DataAlbum(const DataAlbum&);
    DataAlbum(DataAlbum&&) noexcept;
    DataAlbum& operator=(const DataAlbum&);
    DataAlbum& operator=(DataAlbum&&) noexcept;
    ~DataAlbum() override;

    /// The element of `soap`, which must not be null; it is the caller's.
    static zq::auto_com<ZQXML::INode> ToXML(Quavera::Quavera2__AlbumMetadata* soap);
    void FromXML(ZQXML::INode* node) override;
    std::string ToString() override;

    std::string albumArt70x70Url;                       ///< address of the cover, 70 by 70 pixels
    std::string copyright;                              ///< copyright text
    std::string label;                                  ///< the record label
    std::vector<std::string> nonDisplayableAlbumTypes;  ///< types that it is not to be shown under
    DataArtistLite primaryArtist;                       ///< the main artist
    std::vector<DataTrackInfo> tracks;                  ///< the tracks, in the order of the tree
    std::string upccode;  ///< the album's UPC code; spelled as the service does
};

#endif  // QUAVERA_RECORDS_DATA_ALBUM_H_
