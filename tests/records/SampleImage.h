#ifndef QUAVERA_TESTS_RECORDS_SAMPLE_IMAGE_H_
#define QUAVERA_TESTS_RECORDS_SAMPLE_IMAGE_H_

#include "soap/QuaveraStub.h"
#include "tests/records/Values.h"

/// A picture with every member present and no value twice.
struct SampleImage {
    using Soap = Quavera::Quavera2__ImageMetadata;

    static void Fill(Soap& soap, Values& values) {
        soap.copyright = values.Text("© 2009 Größe & Söhne");
        soap.height = 202;
        soap.imageFormat = values.Text("jpeg");
        soap.imageId = values.Text("Img.404");
        soap.title = values.Text("Titelbild «Море» 🖼");
        soap.url = values.Text("http://img.example.com/6?a=1&b=2");
        soap.width = 707;
    }

    /// The element that it gives.
    static constexpr char kTree[] =
        "<Image>"
        "<Copyright>© 2009 Größe &amp; Söhne</Copyright>"
        "<Height>202</Height>"
        "<ImageFormat>jpeg</ImageFormat>"
        "<Title encoding=\"base64\">VGl0ZWxiaWxkIMKr0JzQvtGA0LXCuyDwn5a8</Title>"
        "<Url>http://img.example.com/6?a=1&amp;b=2</Url>"
        "<Width>707</Width>"
        "</Image>";

    /// The log text of the record that this element fills.
    static constexpr char kText[] =
        "copyright = © 2009 Größe & Söhne\r\n"
        "height = 202\r\n"
        "imageFormat = jpeg\r\n"
        "imageId = \r\n"
        "title = Titelbild «Море» 🖼\r\n"
        "url = http://img.example.com/6?a=1&b=2\r\n"
        "width = 707\r\n";
};

#endif  // QUAVERA_TESTS_RECORDS_SAMPLE_IMAGE_H_
