// The conversions against the C library's converter for every short input there is: for all of them
// where tests are quick, for one in some thousand elsewhere.

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>

#include "common/QuaveraCommon.h"
#include "tests/common/ConversionComparison.h"

namespace {

#ifdef QUAVERA_TEST_EVERY_INPUT
constexpr std::uint32_t kStep = 1;
constexpr std::uint32_t kCodeStep = 1;
#else
constexpr std::uint32_t kStep = 4099;  // primes, so that each byte takes all its values
constexpr std::uint32_t kCodeStep = 101;
#endif

char Byte(std::uint32_t value) {
    return static_cast<char>(static_cast<unsigned char>(value));
}

TEST(EveryInput, OfThreeBytesIsReadAsTheConverterReadsIt) {
    constexpr std::uint32_t kCount = 1U << 24;
    FromUtf8Comparison comparison;
    for (std::uint32_t code = 0; code < kCount; code += kStep) {
        comparison.Check({Byte(code >> 16), Byte(code >> 8), Byte(code)});
    }
    EXPECT_EQ(comparison.Inputs(), (kCount + kStep - 1) / kStep);
    if (kStep == 1) {
        // ASCII alone, before and behind a character of two bytes, and characters of three.
        EXPECT_EQ(comparison.Inputs() - comparison.Untrimmed(),
                  128U * 128 * 128 + 2U * 128 * (0x800 - 0x80) + 0x10000 - 0x800 - 0x800);
    }
}

TEST(EveryInput, OfFourBytesAtTheEdgesIsReadAsTheConverterReadsIt) {
    constexpr std::uint32_t kEdges[] = {0x00, 0x01, 0x41, 0x7F, 0x80, 0x81, 0x83, 0x84, 0x87, 0x88,
                                        0x8F, 0x90, 0x9F, 0xA0, 0xBF, 0xC0, 0xE2, 0xF0, 0xFF};
    FromUtf8Comparison comparison;
    for (std::uint32_t first = 0xE0; first < 0x100; ++first) {
        for (const std::uint32_t second : kEdges) {
            for (const std::uint32_t third : kEdges) {
                for (const std::uint32_t fourth : kEdges) {
                    const std::string text = {Byte(first), Byte(second), Byte(third), Byte(fourth)};
                    comparison.Check(text);
                    if (first >= 0xF8) {  // forms of five and six bytes
                        comparison.Check(text + "\xBF");
                        comparison.Check(text + "\x80\x80");
                    }
                }
            }
        }
    }
    EXPECT_GT(comparison.Inputs(), comparison.Untrimmed());
}

/// All code points and those beyond, as far as four bytes would reach.
TEST(EveryInput, OfOneCharacterIsWrittenAsTheConverterWritesIt) {
    constexpr std::uint32_t kBeyond = 0x120000;
    ToUtf8Comparison toUtf8;
    ToCp850Comparison toCp850;
    for (std::uint32_t code = 0; code < kBeyond; code += kCodeStep) {
        toUtf8.Check(Wide({code}));
        toCp850.Check(Wide({code}));
    }
    for (std::uint32_t code = kBeyond; code < 0xFFFF0000U; code += 0xFFFFU) {
        toUtf8.Check(Wide({code}));
        toCp850.Check(Wide({code}));
    }
    if (kCodeStep == 1) {
        // The characters of the page, and the tag characters, which vanish.
        EXPECT_EQ(toCp850.Inputs() - toCp850.Untrimmed(), 256U + 0x80U);
    }
}

}  // namespace
