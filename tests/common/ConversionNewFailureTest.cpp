// Conversions whose `operator new` fails. The C library's converter does not use it.

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "common/QuaveraCommon.h"
#include "tests/common/ConversionFailures.h"
#include "tests/support/AllocationFailure.h"

namespace {

TEST(ConversionsWithoutMemory, ToWideTextThrow) {
    const std::string withZero = kLongUtf8 + '\0';
    ExpectOrderlyFailures<std::wstring>({
        {"valid UTF-8", [] { return convertFromUtf8(kLongUtf8); }, kLongWide, {}, 2},
        {"UTF-8 with a zero byte", [&] { return convertFromUtf8(withZero); }, kLongWide, {}, 2},
    });
}

TEST(ConversionsWithoutMemory, FromWideTextThrow) {
    const std::wstring withZero = kLongWide + L'\0';
    const std::string cp850 = kLongAscii + "\x82";
    const std::string latin = kLongAscii + "\xE9";
    ExpectOrderlyFailures<std::string>({
        {"to UTF-8", [] { return convertToUtf8(kLongWide); }, kLongUtf8, {}, 2},
        {"to UTF-8, zero", [&] { return convertToUtf8(withZero); }, kLongUtf8, {}, 2},
        {"to CP850", [] { return convertToCP850(kLongWide); }, cp850, {}, 2},
        {"to a set", [] { return convertToCodePage("ISO-8859-1", kLongWide); }, latin, {}, 2},
    });
}

TEST(ConversionsWithoutMemory, OfBase64ThrowOrGiveEmptyText) {
    std::string data = kLongUtf8;
    ExpectOrderlyFailures<std::string>({
        {"encode", [] { return base64EncodeString(kLongUtf8); }, kLongBase64, {""}, 2},
        {"encode pointer", [&] { return base64EncodeString(&data); }, kLongBase64, {""}, 1},
        {"decode", [] { return base64DecodeString(kLongBase64); }, kLongUtf8, {""}, 2},
    });
    // Short texts are decoded on the stack.
    const std::string longer = base64EncodeString(kLongAscii + kLongAscii + kLongUtf8);
    const std::wstring longerWide = std::wstring(200, L'a') + kLongWide;
    ExpectOrderlyFailures<std::wstring>({
        {"to text", [] { return DecodeAndConvertFromUtf8(kLongBase64); }, kLongWide, {L""}, 2},
        {"longer", [&] { return DecodeAndConvertFromUtf8(longer); }, longerWide, {L""}, 3},
    });
}

TEST(ConversionsWithoutMemory, OfBase64GiveEmptyTextWhereOnlyTheOutputBufferFails) {
    // The argument is the caller's copy; the buffer is all that is allocated inside.
    std::string data = kLongUtf8;
    std::string text = kLongBase64;
    std::string result = "unchanged";
    allocation::Attempt encoding(0, allocation::Mode::kFromThereOn);
    EXPECT_TRUE(encoding.RunTolerantly([&] { result = base64EncodeString(std::move(data)); }));
    EXPECT_TRUE(encoding.HasFailed());
    EXPECT_EQ(result, "");
    result = "unchanged";
    allocation::Attempt decoding(0, allocation::Mode::kFromThereOn);
    EXPECT_TRUE(decoding.RunTolerantly([&] { result = base64DecodeString(std::move(text)); }));
    EXPECT_TRUE(decoding.HasFailed());
    EXPECT_EQ(result, "");
}

}  // namespace
