#ifndef QUAVERA_RECORDS_DATA_ALBUM_REVIEW_H_
#define QUAVERA_RECORDS_DATA_ALBUM_REVIEW_H_

#include <string>

#include "common/Export.h"
#include "platform/zqshared.h"
#include "records/SoapRecords.h"

/// An editorial review of an album.
///
/// Element: "AlbumReview". `FromXML` expects the *parent* of that element, and merges every
/// "AlbumReview" in it.
/// Deliberate deviations: the class is a root of its own, outside the `QuavData` family; `ToString`
/// is not virtual, its labels have capitals, and the first one lacks the blank ahead of "="; the
/// date is written as a number and read back as text. The library exports seven objects named after
/// the elements besides; docs/reserved-names.md tells what that means for programs.
class QUAVERA_API DataAlbumReview {
 public:
    DataAlbumReview();
    DataAlbumReview(const DataAlbumReview&);
    DataAlbumReview(DataAlbumReview&&) noexcept;
    DataAlbumReview& operator=(const DataAlbumReview&);
    DataAlbumReview& operator=(DataAlbumReview&&) noexcept;
    virtual ~DataAlbumReview();

    static void ToXML(ZQXML::INode* node, Quavera::Quavera2__AlbumReviewMetadata* soap);
    static zq::auto_com<ZQXML::INode> ToXML(Quavera::Quavera2__AlbumReviewMetadata* soap);
    virtual void FromXML(ZQXML::INode* node);
    std::string ToString();

    std::wstring author;
    std::wstring blurb;
    int blurbSize = 0;  // as the service states it
    std::wstring detail;
    int detailSize = 0;       // as the service states it
    std::string publishDate;  // the element's text
    std::wstring title;
};

#endif  // QUAVERA_RECORDS_DATA_ALBUM_REVIEW_H_
