#include "tests/threads/Conversions.h"

#include <gtest/gtest.h>

#include <string>

#include "common/Branding.h"
#include "common/TextConversion.h"

namespace {

void WidensAscii() {
    EXPECT_EQ(convertFromUtf8("Tra.40013101"), L"Tra.40013101");
}
void WidensOtherText() {
    EXPECT_EQ(convertFromUtf8("Größe 漢 🎵"), L"Gr\u00F6\u00DFe \u6F22 \U0001F3B5");
}
void WidensTextThatIsNone() {
    EXPECT_EQ(convertFromUtf8("a\xFF"), std::wstring(L"a\0\0\0\0\0\0\0", 8));
}
void Narrows() {
    EXPECT_EQ(convertToUtf8(L"Gr\u00F6\u00DFe \u6F22 \U0001F3B5"), "Größe 漢 🎵");
}
void ConvertsToTheDisplaysPage() {
    EXPECT_EQ(convertToCP850(L"Gr\u00F6\u00DFe"),
              "Gr\x94\xE1"
              "e");
}
void ConvertsToAPageByItsName() {
    EXPECT_EQ(convertToCodePage("ISO-8859-1", L"Gr\u00F6\u00DFe"),
              "Gr\xF6\xDF"
              "e");
}
void ConvertsToNoPage() {
    EXPECT_EQ(convertToCodePage("no such page", L"a"), std::string(4, '\0'));
}
void EncodesBase64() {
    EXPECT_EQ(base64EncodeString(std::string("Grüße")), "R3LDvMOfZQ==");
}
void DecodesBase64() {
    EXPECT_EQ(base64DecodeString("R3LDvMOfZQ=="), "Grüße");
}
void DecodesAndWidens() {
    EXPECT_EQ(DecodeAndConvertFromUtf8("R3LDvMOfZQ=="), L"Gr\u00FC\u00DFe");
}
void WritesHex() {
    EXPECT_EQ(CharToHexString('Z'), "5A");
}
void ReadsHex() {
    EXPECT_EQ(HexStringToChar("5A"), 'Z');
}
void NamesABranding() {
    EXPECT_EQ(QuaveraBrandingToString(BrandingOstinex), "Ostinex");
}
void KnowsABrandingsName() {
    EXPECT_EQ(QuaveraBrandingFromString("ostinex"), BrandingOstinex);
}
void KnowsACountrysBranding() {
    EXPECT_EQ(GetQuaveraBranding("us"), BrandingQuavera);
    EXPECT_EQ(GetQuaveraBranding("DE"), BrandingOstinex);
}
void TellsAnError() {
    EXPECT_EQ(QuavErrorToString(QuavResultTooManySessions, BrandingOstinex),
              "Maximum number of Ostinex sessions for this account.");
}
void TellsAnUnknownError() {
    EXPECT_EQ(QuavErrorToString(-11, BrandingQuavera), "Unexpected error.  Please try again.");
}

}  // namespace

const std::vector<Conversion>& Conversions() {
    static const std::vector<Conversion> conversions = {
        {"WidensAscii", WidensAscii},
        {"WidensOtherText", WidensOtherText},
        {"WidensTextThatIsNone", WidensTextThatIsNone},
        {"Narrows", Narrows},
        {"ConvertsToTheDisplaysPage", ConvertsToTheDisplaysPage},
        {"ConvertsToAPageByItsName", ConvertsToAPageByItsName},
        {"ConvertsToNoPage", ConvertsToNoPage},
        {"EncodesBase64", EncodesBase64},
        {"DecodesBase64", DecodesBase64},
        {"DecodesAndWidens", DecodesAndWidens},
        {"WritesHex", WritesHex},
        {"ReadsHex", ReadsHex},
        {"NamesABranding", NamesABranding},
        {"KnowsABrandingsName", KnowsABrandingsName},
        {"KnowsACountrysBranding", KnowsACountrysBranding},
        {"TellsAnError", TellsAnError},
        {"TellsAnUnknownError", TellsAnUnknownError},
    };
    return conversions;
}
