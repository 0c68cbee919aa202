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
/// "Artist". Deliberate deviations: in the log text the station comes first and the summary last,
/// and list items have no line break of their own.
class QUAVERA_API DataArtist : public DataArtistLite {
 public:
    DataArtist();
    DataArtist(const DataArtist&);
    DataArtist(DataArtist&&) noexcept;
    DataArtist& operator=(const DataArtist&);
    DataArtist& operator=(DataArtist&&) noexcept;
    ~DataArtist() override;

    /// The element of `soap`, which must not be null; it is the caller's.
    static zq::auto_com<ZQXML::INode> ToXML(Quavera::Quavera2__ArtistMetadata* soap);
    void FromXML(ZQXML::INode* node) override;
    std::string ToString() override;

    std::vector<DataAlbumLite> albums;  ///< the artist's albums, in the order of the tree
    DataStationLite artistStation;      ///< the artist's station
    std::wstring bio;                   ///< the biography
    std::wstring bioAuthor;             ///< name of the biography's author
    std::wstring blurb;                 ///< a short description
    std::vector<DataGenreLite> genres;  ///< the artist's genres, in the order of the tree
};

#endif  // QUAVERA_RECORDS_DATA_ARTIST_H_
