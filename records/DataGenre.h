#ifndef QUAVERA_RECORDS_DATA_GENRE_H_
#define QUAVERA_RECORDS_DATA_GENRE_H_

#include <string>
#include <vector>

#include "platform/zqshared.h"
#include "records/DataGenreLite.h"
#include "records/SoapRecords.h"

/// The full genre, with its child and parent genres.
///
/// Element: "Genre". `FromXML` expects that element itself.
/// Deliberate deviations: the class hides its base's `genreId` and `name` behind fields of its own
/// and leaves the base's three fields alone; both lists are always written, and a null list of a
/// SOAP record counts as empty; "ParentGenreCount" is written only beside a primary parent, and
/// never read; `description` is not printed.
class QUAVERA_API DataGenre : public DataGenreLite {
 public:
    DataGenre();
    DataGenre(const DataGenre&);
    DataGenre(DataGenre&&) noexcept;
    DataGenre& operator=(const DataGenre&);
    DataGenre& operator=(DataGenre&&) noexcept;
    ~DataGenre() override;

    static zq::auto_com<ZQXML::INode> ToXML(Quavera::Quavera2__GenreMetadata* soap);
    void FromXML(ZQXML::INode* node) override;
    std::string ToString() override;

    std::wstring abbreviation;
    std::wstring displayName;
    std::string genreId;
    std::wstring name;
    int subGenreCount = 0;
    int parentGenreCount = 0;  // filled by nothing here
    std::vector<DataGenreLite> childGenres;
    std::wstring description;
    std::vector<DataGenreLite> parentGenres;
    std::string primaryParentGenreId;
};

#endif  // QUAVERA_RECORDS_DATA_GENRE_H_
