#ifndef QUAVERA_RECORDS_DATA_GENRE_LITE_H_
#define QUAVERA_RECORDS_DATA_GENRE_LITE_H_

#include <string>

#include "platform/zqshared.h"
#include "records/QuavData.h"
#include "records/SoapRecords.h"

/// A genre's summary, as lists carry it, and other genres as parent or child.
///
/// Element: "GenreLite". `FromXML` expects that element itself.
/// Deliberate deviations: there is no writer into a given node; a count of zero is not written.
class QUAVERA_API DataGenreLite : public QuavData {
 public:
    DataGenreLite();
    DataGenreLite(const DataGenreLite&);
    DataGenreLite(DataGenreLite&&) noexcept;
    DataGenreLite& operator=(const DataGenreLite&);
    DataGenreLite& operator=(DataGenreLite&&) noexcept;
    ~DataGenreLite() override;

    /// The element of `soap`, which must not be null; it is the caller's.
    static zq::auto_com<ZQXML::INode> ToXML(Quavera::Quavera2__LiteGenreMetadata* soap);
    void FromXML(ZQXML::INode* node) override;
    std::string ToString() override;

    std::string genreId;  ///< the service's identifier of the genre
    std::wstring name;    ///< the genre's name
    int subCount = 0;     ///< number of genres below it, as the service states it
};

#endif  // QUAVERA_RECORDS_DATA_GENRE_LITE_H_
