#ifndef QUAVERA_RECORDS_DATA_PLAYLIST_LITE_H_
#define QUAVERA_RECORDS_DATA_PLAYLIST_LITE_H_

#include <string>

#include "platform/zqshared.h"
#include "records/QuavData.h"

class TextLines;

namespace Quavera {
class Quavera2__LitePlaylistMetadata;
}

/// A playlist's summary, as member libraries carry it.
///
/// Element: "Playlist". `FromXML` expects that element itself.
/// Deliberate deviations: the name is plain text, not base64; the dates are written as numbers and
/// read back as text.
class QUAVERA_API DataPlaylistLite : public QuavData {
 public:
    DataPlaylistLite();
    DataPlaylistLite(const DataPlaylistLite&) = default;
    DataPlaylistLite(DataPlaylistLite&&) = default;
    DataPlaylistLite& operator=(const DataPlaylistLite&) = default;
    DataPlaylistLite& operator=(DataPlaylistLite&&) = default;
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

 protected:
    friend class TextLines;

    /// Adds the lines of the log text to those of a record that holds this one.
    void AddLines(TextLines& lines);
};

#endif  // QUAVERA_RECORDS_DATA_PLAYLIST_LITE_H_
