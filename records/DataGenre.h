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
/// and leaves the base's three fields alone; both lists are always written, a null one as empty,
/// and of what they hold only elements "GenreLite" are read; a "SubGenreCount" of zero is not
/// written; "ParentGenreCount" is written only beside a primary parent, and never read;
/// `description` is not printed.
class QUAVERA_API DataGenre : public DataGenreLite {
 public:
    DataGenre();
    DataGenre(const DataGenre&);
    DataGenre(DataGenre&&) noexcept;
    DataGenre& operator=(const DataGenre&);
    DataGenre& operator=(DataGenre&&) noexcept;
    ~DataGenre() override;

    /// The element of `soap`, which must not be null; it is the caller's.
    static zq::auto_com<ZQXML::INode> ToXML(Quavera::Quavera2__GenreMetadata* soap);
    void FromXML(ZQXML::INode* node) override;
    std::string ToString() override;

    std::wstring abbreviation;  ///< short form of the name
    std::wstring displayName;   ///< the genre's name for display
    std::string genreId;        ///< the service's identifier; hides the base's
    std::wstring name;          ///< the genre's name; hides the base's
    int subGenreCount = 0;      ///< number of genres below it, as the service states it
    int parentGenreCount = 0;   ///< number of genres above it; filled by nothing here
    std::vector<DataGenreLite> childGenres;   ///< genres below it, in the order of the tree
    std::wstring description;                 ///< text about the genre
    std::vector<DataGenreLite> parentGenres;  ///< genres above it, in the order of the tree
    std::string primaryParentGenreId;         ///< the service's identifier of the main parent
};

#endif  // QUAVERA_RECORDS_DATA_GENRE_H_
