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
/// Deliberate deviations: the class is a root of its own, outside the `QuavData` family, though all
/// that is stated there of fields, ownership and errors holds here, too; `ToString` is not virtual,
/// its labels have capitals, and the first one lacks the blank ahead of "="; the date is written as
/// a number and read back as text. The library exports seven objects named after the elements
/// besides; docs/reserved-names.md tells what that means for programs.
class QUAVERA_API DataAlbumReview {
 public:
    DataAlbumReview();
    DataAlbumReview(const DataAlbumReview&);
    DataAlbumReview(DataAlbumReview&&) noexcept;
    DataAlbumReview& operator=(const DataAlbumReview&);
    DataAlbumReview& operator=(DataAlbumReview&&) noexcept;
    /// Reviews may be deleted through a pointer to this class.
    virtual ~DataAlbumReview();

    /// Adds the elements of `soap` to `node`; neither may be null.
    static void ToXML(ZQXML::INode* node, Quavera::Quavera2__AlbumReviewMetadata* soap);
    /// The element of `soap`, which must not be null; it is the caller's.
    static zq::auto_com<ZQXML::INode> ToXML(Quavera::Quavera2__AlbumReviewMetadata* soap);
    /// As `QuavData::FromXML`.
    virtual void FromXML(ZQXML::INode* node);
    /// As `QuavData::ToString`, with the labels that are stated above.
    std::string ToString();

    std::wstring author;      ///< the reviewer's name
    std::wstring blurb;       ///< short form of the review
    int blurbSize = 0;        ///< length of `blurb` as the service states it
    std::wstring detail;      ///< full text of the review
    int detailSize = 0;       ///< length of `detail` as the service states it
    std::string publishDate;  ///< date of publication: the element's text, as a rule decimal
    std::wstring title;       ///< title of the review
};

#endif  // QUAVERA_RECORDS_DATA_ALBUM_REVIEW_H_
