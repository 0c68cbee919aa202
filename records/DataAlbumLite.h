#ifndef QUAVERA_RECORDS_DATA_ALBUM_LITE_H_
#define QUAVERA_RECORDS_DATA_ALBUM_LITE_H_

#include <cstdint>
#include <string>
#include <vector>

#include "platform/zqshared.h"
#include "records/QuavData.h"
#include "records/SoapRecords.h"

/// An album's summary, as lists and artist pages carry it; the base of `DataAlbum`.
///
/// Element: "Album". `FromXML` expects that element itself.
/// Deliberate deviations: the display texts are held twice, as UTF-8 from a SOAP record and as wide
/// text from a tree, and no operation goes from one to the other: a record made from SOAP prints
/// empty names, and one read from a tree writes empty names. In the log text each displayable type
/// has a line "  types = ". Albums compare by `releaseYear` alone, newest first.
class QUAVERA_API DataAlbumLite : public QuavData {
 public:
    DataAlbumLite();
    /// The members of `soap`, which must not be null; the wide texts stay empty.
    // Not explicit, so that `albums.push_back(soap)` compiles.
    DataAlbumLite(Quavera::Quavera2__LiteAlbumMetadata* soap);
    DataAlbumLite(const DataAlbumLite&);
    DataAlbumLite(DataAlbumLite&&) noexcept;
    DataAlbumLite& operator=(const DataAlbumLite&);
    DataAlbumLite& operator=(DataAlbumLite&&) noexcept;
    ~DataAlbumLite() override;

    /// Adds the elements of `soap` to `node`; neither may be null.
    static void ToXML(ZQXML::INode* node, Quavera::Quavera2__LiteAlbumMetadata* soap);
    /// The element of `soap`, which must not be null; it is the caller's.
    static zq::auto_com<ZQXML::INode> ToXML(Quavera::Quavera2__LiteAlbumMetadata* soap);
    /// The element of this object's own fields, which is the caller's: every scalar, the display
    /// texts from their UTF-8 form, the list only if it holds anything.
    zq::auto_com<ZQXML::INode> ToXML();
    void FromXML(ZQXML::INode* node) override;
    std::string ToString() override;

    std::string albumArt162x162Url;            ///< address of the cover, 162 by 162 pixels
    std::string albumId;                       ///< the service's identifier of the album
    int albumType = 0;                         ///< the service's code of the type
    bool compilation = false;                  ///< whether the album is a compilation
    std::wstring displayName;                  ///< title for display, from a tree
    std::string displayNameUtf8;               ///< title for display, from a SOAP record
    std::wstring name;                         ///< the album's name, from a tree
    std::string nameUtf8;                      ///< the album's name, from a SOAP record
    bool parentalAuthority = false;            ///< the service's flag of that name
    std::wstring primaryArtistDisplayName;     ///< the main artist's name, from a tree
    std::string primaryArtistDisplayNameUtf8;  ///< the main artist's name, from a SOAP record
    std::string primaryArtistId;               ///< the service's identifier of the main artist
    std::string primaryStyle;                  ///< name of the main style
    int releaseYear = 0;                       ///< year of release, which albums compare by
    std::uint64_t reserved64;  ///< copied, else untouched; no value until it is given one
    std::string shortcut;      ///< the service's short text key of the album
    std::vector<std::string> displayableAlbumTypes;  ///< types that it may be shown under
};

/// Whether the albums are of the same year; nothing else is compared.
QUAVERA_API bool operator==(const DataAlbumLite& left, const DataAlbumLite& right);
/// Whether `left` is of a *later* year: sorting puts the newest albums first.
QUAVERA_API bool operator<(const DataAlbumLite& left, const DataAlbumLite& right);

#endif  // QUAVERA_RECORDS_DATA_ALBUM_LITE_H_
