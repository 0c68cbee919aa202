#ifndef QUAVERA_RECORDS_DATA_ARTIST_H_
#define QUAVERA_RECORDS_DATA_ARTIST_H_

#include <string>
#include <vector>

#include "platform/zqshared.h"
#include "records/DataAlbumLite.h"
#include "records/DataArtistLite.h"
#include "records/DataGenreLite.h"
#include "records/DataStationLite.h"
#include "records/SoapRecords.h"

/// The artist of an artist page: the summary with albums, station, biography and genres.
///
/// Element: "Artist". `FromXML` expects that element, or a parent, in which it takes the first
/// "Artist". Deliberate deviation: in the log text list items have no line break of their own, and
/// the summary comes last.
class QUAVERA_API DataArtist : public DataArtistLite {
 public:
    DataArtist();
    DataArtist(const DataArtist&);
    DataArtist(DataArtist&&) noexcept;
    DataArtist& operator=(const DataArtist&);
    DataArtist& operator=(DataArtist&&) noexcept;
    ~DataArtist() override;

    static zq::auto_com<ZQXML::INode> ToXML(Quavera::Quavera2__ArtistMetadata* soap);
    void FromXML(ZQXML::INode* node) override;
    std::string ToString() override;

    std::vector<DataAlbumLite> albums;
    DataStationLite artistStation;
    std::wstring bio;
    std::wstring bioAuthor;
    std::wstring blurb;
    std::vector<DataGenreLite> genres;
};

#endif  // QUAVERA_RECORDS_DATA_ARTIST_H_
