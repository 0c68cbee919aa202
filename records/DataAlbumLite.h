#ifndef QUAVERA_RECORDS_DATA_ALBUM_LITE_H_
#define QUAVERA_RECORDS_DATA_ALBUM_LITE_H_

#include <cstdint>
#include <string>
#include <vector>

#include "platform/zqshared.h"
#include "records/QuavData.h"
#include "records/SoapRecords.h"

/// An album's summary, as lists, artist pages and libraries carry it; the base of `DataAlbum`.
///
/// Element: "Album". `FromXML` expects that element itself.
/// Deliberate deviations: the display texts are held twice, as UTF-8 from a SOAP record and as wide
/// text from a tree, and no operation goes from one to the other: a record made from SOAP prints
/// empty names, and one read from a tree writes empty names. Albums compare by `releaseYear` alone,
/// newest first.
class QUAVERA_API DataAlbumLite : public QuavData {
 public:
    DataAlbumLite();
    /// The record's members; the wide texts stay empty.
    // Not explicit, so that `albums.push_back(soap)` compiles.
    DataAlbumLite(Quavera::Quavera2__LiteAlbumMetadata* soap);
    DataAlbumLite(const DataAlbumLite&);
    DataAlbumLite(DataAlbumLite&&) noexcept;
    DataAlbumLite& operator=(const DataAlbumLite&);
    DataAlbumLite& operator=(DataAlbumLite&&) noexcept;
    ~DataAlbumLite() override;

    static void ToXML(ZQXML::INode* node, Quavera::Quavera2__LiteAlbumMetadata* soap);
    static zq::auto_com<ZQXML::INode> ToXML(Quavera::Quavera2__LiteAlbumMetadata* soap);
    /// The element of this object's own fields: every scalar, the display texts from their UTF-8
    /// form, the list only if it holds anything.
    zq::auto_com<ZQXML::INode> ToXML();
    void FromXML(ZQXML::INode* node) override;
    std::string ToString() override;

    std::string albumArt162x162Url;
    std::string albumId;
    int albumType = 0;
    bool compilation = false;
    std::wstring displayName;
    std::string displayNameUtf8;
    std::wstring name;
    std::string nameUtf8;
    bool parentalAuthority = false;
    std::wstring primaryArtistDisplayName;
    std::string primaryArtistDisplayNameUtf8;
    std::string primaryArtistId;
    std::string primaryStyle;
    int releaseYear = 0;
    std::uint64_t reserved64;  // carried by copies only, and without a value until then
    std::string shortcut;
    std::vector<std::string> displayableAlbumTypes;
};

/// Whether the albums are of the same year; nothing else is compared.
QUAVERA_API bool operator==(const DataAlbumLite& left, const DataAlbumLite& right);
/// Whether `left` is of a *later* year: sorting puts the newest albums first.
QUAVERA_API bool operator<(const DataAlbumLite& left, const DataAlbumLite& right);

#endif  // QUAVERA_RECORDS_DATA_ALBUM_LITE_H_
