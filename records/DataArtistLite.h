#ifndef QUAVERA_RECORDS_DATA_ARTIST_LITE_H_
#define QUAVERA_RECORDS_DATA_ARTIST_LITE_H_

#include <string>

#include "platform/zqshared.h"
#include "records/QuavData.h"
#include "records/SoapRecords.h"

/// An artist's summary: what lists, search results and albums carry of the artist.
///
/// Element: "Artist". `FromXML` expects that element itself.
/// A null SOAP record is allowed and writes nothing.
class QUAVERA_API DataArtistLite : public QuavData {
 public:
    DataArtistLite();
    DataArtistLite(const DataArtistLite&);
    DataArtistLite(DataArtistLite&&) noexcept;
    DataArtistLite& operator=(const DataArtistLite&);
    DataArtistLite& operator=(DataArtistLite&&) noexcept;
    ~DataArtistLite() override;

    static void ToXML(ZQXML::INode* node, Quavera::Quavera2__LiteArtistMetadata* soap);
    static zq::auto_com<ZQXML::INode> ToXML(Quavera::Quavera2__LiteArtistMetadata* soap);
    void FromXML(ZQXML::INode* node) override;
    std::string ToString() override;

    std::string artistId;
    std::wstring name;
    std::string shortcut;
};

#endif  // QUAVERA_RECORDS_DATA_ARTIST_LITE_H_
