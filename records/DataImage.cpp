#include "records/DataImage.h"

#include "records/Fields.h"
#include "soap/QuaveraStub.h"

DataImage::DataImage() = default;

void DataImage::ToXML(ZQXML::INode* node, Quavera::Quavera2__ImageMetadata* soap) {
    ElementWriter out(node);
    out.Plain("Copyright", soap->copyright);
    out.NumberUnlessZero("Height", soap->height);
    out.Plain("ImageFormat", soap->imageFormat);
    out.Display("Title", soap->title);
    out.Plain("Url", soap->url);
    out.NumberUnlessZero("Width", soap->width);
}

zq::auto_com<ZQXML::INode> DataImage::ToXML(Quavera::Quavera2__ImageMetadata* soap) {
    return NewElementWith<DataImage>("Image", soap);
}

void DataImage::FromXML(ZQXML::INode* node) {
    for (ChildReader child(node); child.Next();) {
        child.Plain("Copyright", copyright);
        child.Number("Height", height);
        child.Plain("ImageFormat", imageFormat);
        child.Display("Title", title);
        child.Plain("Url", url);
        child.Number("Width", width);
    }
}

void AddLines(const DataImage& image, TextLines& lines) {
    lines.Plain("copyright", image.copyright);
    lines.Number("height", image.height);
    lines.Plain("imageFormat", image.imageFormat);
    lines.Plain("imageId", image.imageId);
    lines.Display("title", image.title);
    lines.Plain("url", image.url);
    lines.Number("width", image.width);
}
