#ifndef QUAVERA_RECORDS_DATA_IMAGE_H_
#define QUAVERA_RECORDS_DATA_IMAGE_H_

#include <string>

#include "platform/zqshared.h"
#include "records/QuavData.h"
#include "records/SoapRecords.h"

/// A picture that the service offers: cover art, an artist's photo.
///
/// Element: "Image". `FromXML` expects that element itself.
/// Deliberate deviations: a size of zero is not written; `imageId` is printed, but nothing fills
/// it.
class QUAVERA_API DataImage : public QuavData {
 public:
    DataImage();
    DataImage(const DataImage&);
    DataImage(DataImage&&) noexcept;
    DataImage& operator=(const DataImage&);
    DataImage& operator=(DataImage&&) noexcept;
    ~DataImage() override;

    /// Adds the elements of `soap` to `node`; neither may be null.
    static void ToXML(ZQXML::INode* node, Quavera::Quavera2__ImageMetadata* soap);
    /// The element of `soap`, which must not be null; it is the caller's.
    static zq::auto_com<ZQXML::INode> ToXML(Quavera::Quavera2__ImageMetadata* soap);
    void FromXML(ZQXML::INode* node) override;
    std::string ToString() override;

    std::string copyright;    ///< copyright line
    int height = 0;           ///< height in pixels
    std::string imageFormat;  ///< the service's name of the format
    std::string imageId;      ///< the service's identifier; filled by nothing here
    std::wstring title;       ///< title of the picture
    std::string url;          ///< address of the picture
    int width = 0;            ///< width in pixels
};

#endif  // QUAVERA_RECORDS_DATA_IMAGE_H_
