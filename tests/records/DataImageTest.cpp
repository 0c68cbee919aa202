#include "records/DataImage.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "soap/QuaveraStub.h"
#include "tests/records/RecordTesting.h"
#include "tests/records/SampleImage.h"

namespace {

struct ImageCase : RecordCase, SampleImage {
    using Record = DataImage;
    static constexpr const char* kTextReadTwice = kText;
    static constexpr char kEmptyTree[] = "<Image/>";
    static constexpr char kEmptyText[] =
        "copyright = \r\n"
        "height = 0\r\n"
        "imageFormat = \r\n"
        "imageId = \r\n"
        "title = \r\n"
        "url = \r\n"
        "width = 0\r\n";
};

const RulesFor<ImageCase> kRules("DataImage");

using Soap = Quavera::Quavera2__ImageMetadata;

DataImage Image(const std::string& content) {
    return FromTree<DataImage>(Wrapped("Image", content));
}

TEST(DataImage, FieldsHaveTheirTypes) {
    EXPECT_TRUE(AreAll<std::string>(&DataImage::copyright, &DataImage::imageFormat,
                                    &DataImage::imageId, &DataImage::url));
    EXPECT_TRUE(AreAll<std::wstring>(&DataImage::title));
    EXPECT_TRUE(AreAll<int>(&DataImage::height, &DataImage::width));
}

TEST(DataImage, ReadsEachElementIntoItsField) {
    const auto image = FromTree<DataImage>(SampleImage::kTree);
    EXPECT_EQ(image.copyright, "© 2009 Größe & Söhne");
    EXPECT_EQ(image.height, 202);
    EXPECT_EQ(image.imageFormat, "jpeg");
    EXPECT_EQ(image.title, L"Titelbild \u00AB\u041C\u043E\u0440\u0435\u00BB \U0001F5BC");
    EXPECT_EQ(image.url, "http://img.example.com/6?a=1&b=2");
    EXPECT_EQ(image.width, 707);
}

TEST(DataImage, ReadsTextsAndNumbers) {
    ExpectReadsPlain("Image", "Copyright", &DataImage::copyright);
    ExpectReadsPlain("Image", "ImageFormat", &DataImage::imageFormat);
    ExpectReadsPlain("Image", "Url", &DataImage::url);
    ExpectReadsDisplay("Image", "Title", &DataImage::title);
    ExpectReadsNumber("Image", "Height", &DataImage::height);
    ExpectReadsNumber("Image", "Width", &DataImage::width);
}

TEST(DataImage, WritesNothingButTheMemberThatIsPresent) {
    const struct {
        std::string* Soap::*member;
        const char* tree;
    } cases[] = {
        {&Soap::copyright, "<Image><Copyright>A</Copyright></Image>"},
        {&Soap::imageFormat, "<Image><ImageFormat>A</ImageFormat></Image>"},
        {&Soap::imageId, "<Image/>"},
        {&Soap::title, "<Image><Title encoding=\"base64\">QQ==</Title></Image>"},
        {&Soap::url, "<Image><Url>A</Url></Image>"},
    };
    for (const auto& each : cases) {
        std::string text = "A";
        Soap soap;
        soap.*each.member = &text;
        EXPECT_EQ(TreeOf<DataImage>(soap), each.tree);
    }
}

TEST(DataImage, WritesEmptyTexts) {
    std::string empty;
    Soap soap;
    soap.copyright = soap.imageFormat = soap.title = soap.url = &empty;
    EXPECT_EQ(TreeOf<DataImage>(soap),
              "<Image><Copyright/><ImageFormat/><Title encoding=\"base64\"/><Url/></Image>");
}

TEST(DataImage, SizeOfZeroIsNotWritten) {
    const struct {
        int height;
        int width;
        std::string content;
    } cases[] = {
        {0, 0, ""},
        {0, 300, "<Width>300</Width>"},
        {300, 0, "<Height>300</Height>"},
        {-1, INT_MIN, "<Height>-1</Height><Width>-2147483648</Width>"},
        {INT_MAX, 1, "<Height>2147483647</Height><Width>1</Width>"},
    };
    for (const auto& each : cases) {
        Soap soap;
        soap.height = each.height;
        soap.width = each.width;
        const std::string tree = TreeOf<DataImage>(soap);
        EXPECT_EQ(tree, each.content.empty() ? "<Image/>" : Wrapped("Image", each.content));
        auto image = FromTree<DataImage>(tree);
        EXPECT_EQ(image.height, each.height);
        EXPECT_EQ(image.width, each.width);
        EXPECT_EQ(image.ToString(),
                  "copyright = \r\nheight = " + std::to_string(each.height) +
                      "\r\nimageFormat = \r\nimageId = \r\ntitle = \r\nurl = \r\nwidth = " +
                      std::to_string(each.width) + "\r\n");
    }
}

TEST(DataImage, IdentifierIsRenderedButNeverWrittenOrRead) {
    auto image = Image("<ImageId>Img.1</ImageId><imageId>Img.2</imageId>");
    EXPECT_EQ(image.imageId, "");
    EXPECT_EQ(image.ToString(), ImageCase::kEmptyText);

    image.imageId = "Img.3";
    ReadNode(image, SampleImage::kTree);
    EXPECT_EQ(image.imageId, "Img.3");
    EXPECT_NE(image.ToString().find("\r\nimageId = Img.3\r\n"), std::string::npos);
    const DataImage copy(image);
    EXPECT_EQ(copy.imageId, "Img.3");
}

TEST(DataImage, TitleIsRenderedAsUtf8) {
    auto image = Image("<Title>5ryiIEdyw7bDn2UgXCLwn461</Title>");
    EXPECT_EQ(image.title, L"\u6F22 Gr\u00F6\u00DFe \\\"\U0001F3B5");
    EXPECT_NE(image.ToString().find("\r\ntitle = 漢 Größe \\\"🎵\r\n"), std::string::npos);
}

// --- Documents of the service ------------------------------------------------------------------

constexpr char kType[] = "Quavera2:ImageMetadata";

TEST(DataImage, DocumentGivesItsTreeAndText) {
    ExpectDocument<ImageCase>("DataImage/full.xml", kType, TestData("DataImage/full.tree.xml"),
                              TestData("DataImage/full.txt"));
}

TEST(DataImage, NilAndMissingMembersOfADocumentAreAbsent) {
    ExpectDocument<ImageCase>("DataImage/nil-members.xml", kType,
                              "<Image><Url>http://img.example.com/8402</Url></Image>",
                              "copyright = \r\nheight = 0\r\nimageFormat = \r\nimageId = \r\n"
                              "title = \r\nurl = http://img.example.com/8402\r\nwidth = 0\r\n");
}

}  // namespace
