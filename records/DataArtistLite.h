#ifndef QUAVERA_RECORDS_DATA_ARTIST_LITE_H_
#define QUAVERA_RECORDS_DATA_ARTIST_LITE_H_

#include <string>

#include "platform/zqshared.h"
#include "records/QuavData.h"
#include "records/SoapRecords.h"

/// An artist's summary: what lists, search results and albums carry of the artist.
///
/// Element: "Artist". `FromXML` expects that element itself.
/// Deliberate deviation: a SOAP record may be null.
class QUAVERA_API DataArtistLite : public QuavData {
 public:
    DataArtistLite();
    DataArtistLite(const DataArtistLite&);
    DataArtistLite(DataArtistLite&&) noexcept;
    DataArtistLite& operator=(const DataArtistLite&);
    DataArtistLite& operator=(DataArtistLite&&) noexcept;
    ~DataArtistLite() override;

    /// Adds the elements of `soap` to `node`, which must not be null. A null `soap` has none.
    static void ToXML(ZQXML::INode* node, Quavera::Quavera2__LiteArtistMetadata* soap);
    /// The element of `soap`, empty for a null one; it is the caller's.
    static zq::auto_com<ZQXML::INode> ToXML(Quavera::Quavera2__LiteArtistMetadata* soap);
    void FromXML(ZQXML::INode* node) override;
    std::string ToString() override;

    std::string artistId;  ///< the service's identifier of the artist
    std::wstring name;     ///< the artist's name
    std::string shortcut;  ///< the service's short text key of the artist
};

#endif  // QUAVERA_RECORDS_DATA_ARTIST_LITE_H_
