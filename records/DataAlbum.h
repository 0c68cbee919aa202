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
/// it. Deliberate deviations: in the log text the first label has a capital, list items have no
/// line break of their own, and the summary comes last.
class QUAVERA_API DataAlbum : public DataAlbumLite {
 public:
    DataAlbum();
    DataAlbum(const DataAlbum&);
    DataAlbum(DataAlbum&&) noexcept;
    DataAlbum& operator=(const DataAlbum&);
    DataAlbum& operator=(DataAlbum&&) noexcept;
    ~DataAlbum() override;

    static zq::auto_com<ZQXML::INode> ToXML(Quavera::Quavera2__AlbumMetadata* soap);
    void FromXML(ZQXML::INode* node) override;
    std::string ToString() override;

    std::string albumArt70x70Url;
    std::string copyright;
    std::string label;
    std::vector<std::string> nonDisplayableAlbumTypes;
    DataArtistLite primaryArtist;
    std::vector<DataTrackInfo> tracks;
    std::string upccode;  // spelled as the service does
};

#endif  // QUAVERA_RECORDS_DATA_ALBUM_H_
