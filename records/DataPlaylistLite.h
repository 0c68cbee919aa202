#ifndef QUAVERA_RECORDS_DATA_PLAYLIST_LITE_H_
#define QUAVERA_RECORDS_DATA_PLAYLIST_LITE_H_

#include <string>

#include "platform/zqshared.h"
#include "records/QuavData.h"
#include "records/SoapRecords.h"

/// A playlist's summary, as member libraries carry it.
///
/// Element: "Playlist". `FromXML` expects that element itself.
/// Deliberate deviations: the name is plain text, not base64; the dates are written as numbers and
/// read back as text.
class QUAVERA_API DataPlaylistLite : public QuavData {
 public:
    DataPlaylistLite();
    DataPlaylistLite(const DataPlaylistLite&);
    DataPlaylistLite(DataPlaylistLite&&) noexcept;
    DataPlaylistLite& operator=(const DataPlaylistLite&);
    DataPlaylistLite& operator=(DataPlaylistLite&&) noexcept;
    ~DataPlaylistLite() override;

    static void ToXML(ZQXML::INode* node, Quavera::Quavera2__LitePlaylistMetadata* soap);
    static zq::auto_com<ZQXML::INode> ToXML(Quavera::Quavera2__LitePlaylistMetadata* soap);
    void FromXML(ZQXML::INode* node) override;
    std::string ToString() override;

    std::string createdDate;       // the element's text
    std::string lastModifiedDate;  // the element's text
    std::string name;              // UTF-8, as received
    std::string playlistId;
    std::string type;
};

#endif  // QUAVERA_RECORDS_DATA_PLAYLIST_LITE_H_
