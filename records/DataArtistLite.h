#ifndef QUAVERA_RECORDS_DATA_ARTIST_LITE_H_
#define QUAVERA_RECORDS_DATA_ARTIST_LITE_H_

#include <string>

#include "platform/zqshared.h"
#include "records/QuavData.h"

class TextLines;

namespace Quavera {
class Quavera2__LiteArtistMetadata;
}

/// An artist's summary: what lists, search results and albums carry of the artist.
///
/// Element: "Artist". `FromXML` expects that element itself.
/// A null SOAP record is allowed and writes nothing.
class QUAVERA_API DataArtistLite : public QuavData {
 public:
    DataArtistLite();
    DataArtistLite(const DataArtistLite&) = default;
    DataArtistLite(DataArtistLite&&) = default;
    DataArtistLite& operator=(const DataArtistLite&) = default;
    DataArtistLite& operator=(DataArtistLite&&) = default;
    ~DataArtistLite() override;

    static void ToXML(ZQXML::INode* node, Quavera::Quavera2__LiteArtistMetadata* soap);
    static zq::auto_com<ZQXML::INode> ToXML(Quavera::Quavera2__LiteArtistMetadata* soap);
    void FromXML(ZQXML::INode* node) override;
    std::string ToString() override;

    std::string artistId;
    std::wstring name;
    std::string shortcut;

 protected:
    friend class TextLines;

    /// Adds the lines of the log text to those of a record that holds this one.
    void AddLines(TextLines& lines);
};

#endif  // QUAVERA_RECORDS_DATA_ARTIST_LITE_H_
