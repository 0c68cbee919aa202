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

    /// Adds the elements of `soap` to `node`; neither may be null.
    static void ToXML(ZQXML::INode* node, Quavera::Quavera2__LitePlaylistMetadata* soap);
    /// The element of `soap`, which must not be null; it is the caller's.
    static zq::auto_com<ZQXML::INode> ToXML(Quavera::Quavera2__LitePlaylistMetadata* soap);
    void FromXML(ZQXML::INode* node) override;
    std::string ToString() override;

    std::string createdDate;       ///< date of creation: the element's text, as a rule decimal
    std::string lastModifiedDate;  ///< date of the last change, likewise
    std::string name;              ///< the playlist's name, as received
    std::string playlistId;        ///< the service's identifier of the playlist
    std::string type;              ///< the service's name of the type
};

#endif  // QUAVERA_RECORDS_DATA_PLAYLIST_LITE_H_
