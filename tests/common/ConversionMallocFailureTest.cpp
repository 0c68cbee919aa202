// Conversions whose `malloc` fails, the C library's converter's included.

#include <gtest/gtest.h>

#include <cstddef>
#include <string>

#include "common/QuaveraCommon.h"
#include "tests/common/ConversionFailures.h"
#include "tests/common/ConversionReference.h"
#include "tests/support/AllocationFailure.h"

namespace {

// How many allocations a conversion makes at least that opens a converter.
constexpr std::size_t kConverterSites = 5;

TEST(ConversionsWithoutMemory, ToWideTextThrowOrGiveZeros) {
    QUAVERA_SKIP_WITHOUT_ALLOCATION_FAILURE();
    const std::string withZero = kLongUtf8 + '\0';
    const std::string withFault = kLongUtf8 + '\xFF';
    const std::wstring zeros(4 * withZero.size(), L'\0');
    std::wstring untrimmed = kLongWide;
    untrimmed.resize(zeros.size());
    ExpectOrderlyFailures<std::wstring>({
        {"valid UTF-8", [] { return convertFromUtf8(kLongUtf8); }, kLongWide, {}, 2},
        {"UTF-8 with a zero byte",
         [&] { return convertFromUtf8(withZero); },
         kLongWide,
         {zeros},
         kConverterSites},
        {"UTF-8 with a fault",
         [&] { return convertFromUtf8(withFault); },
         untrimmed,
         {zeros},
         kConverterSites},
    });
}

TEST(ConversionsWithoutMemory, FromWideTextThrowOrGiveZeros) {
    QUAVERA_SKIP_WITHOUT_ALLOCATION_FAILURE();
    // The C library unloads a set's module when that has been unused for a while, which would look
    // like blocks that are freed too often.
    const ToCodePageReference heldModules[] = {ToCodePageReference("CP850"),
                                               ToCodePageReference("ISO-8859-1")};
    ASSERT_TRUE(heldModules[0].IsKnown() && heldModules[1].IsKnown());
    const std::wstring withZero = kLongWide + L'\0';
    const std::string zeros(4 * kLongWide.size(), '\0');
    const std::string moreZeros(4 * withZero.size(), '\0');
    const std::string cp850 = kLongAscii + "\x82";
    const std::string latin = kLongAscii + "\xE9";
    ExpectOrderlyFailures<std::string>({
        {"to UTF-8", [] { return convertToUtf8(kLongWide); }, kLongUtf8, {}, 2},
        {"to UTF-8, zero",
         [&] { return convertToUtf8(withZero); },
         kLongUtf8,
         {moreZeros},
         kConverterSites},
        {"to CP850", [] { return convertToCP850(kLongWide); }, cp850, {zeros}, kConverterSites},
        {"to a set",
         [] { return convertToCodePage("ISO-8859-1", kLongWide); },
         latin,
         {zeros},
         kConverterSites},
        {"to an unknown set",
         [] { return convertToCodePage("no such set", kLongWide); },
         zeros,
         {zeros},
         kConverterSites},
    });
}

TEST(ConversionsWithoutMemory, OfBase64ThrowOrGiveEmptyText) {
    QUAVERA_SKIP_WITHOUT_ALLOCATION_FAILURE();
    const std::string data = kLongUtf8 + '\xFF';
    const std::string text = base64EncodeString(data);
    const std::wstring zeros(4 * data.size(), L'\0');
    std::wstring untrimmed = kLongWide;
    untrimmed.resize(zeros.size());
    ExpectOrderlyFailures<std::string>({
        {"encode", [&] { return base64EncodeString(data); }, text, {""}, 2},
        {"decode", [&] { return base64DecodeString(text); }, data, {""}, 2},
    });
    ExpectOrderlyFailures<std::wstring>({
        {"to text",
         [&] { return DecodeAndConvertFromUtf8(text); },
         untrimmed,
         {L"", zeros},
         kConverterSites},
    });
}

}  // namespace
