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

    static void ToXML(ZQXML::INode* node, Quavera::Quavera2__ImageMetadata* soap);
    static zq::auto_com<ZQXML::INode> ToXML(Quavera::Quavera2__ImageMetadata* soap);
    void FromXML(ZQXML::INode* node) override;
    std::string ToString() override;

    std::string copyright;
    int height = 0;  // in pixels
    std::string imageFormat;
    std::string imageId;
    std::wstring title;
    std::string url;
    int width = 0;  // in pixels
};

#endif  // QUAVERA_RECORDS_DATA_IMAGE_H_
