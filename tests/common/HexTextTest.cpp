#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

#include "common/QuaveraCommon.h"
#include "tests/common/ConversionReference.h"

namespace {

using std::string_literals::operator""s;

/// The code of a character, whether `char` is signed or not.
unsigned Code(char character) {
    return static_cast<unsigned char>(character);
}

/// What the C library reads from `text`: up to two digits, 0 where there is none.
unsigned ScannedCode(const std::string& text) {
    unsigned value = 0;
    // NOLINTNEXTLINE(cert-err34-c): the zero that a failure leaves is the result wanted.
    static_cast<void>(std::sscanf(text.c_str(), "%2X", &value));
    return value & 0xFFU;
}

/// The C library reads a signed number too, which is no hexadecimal text here.
bool IsSigned(const std::string& text) {
    const std::size_t at = text.find_first_not_of(" \t\n\v\f\r");
    return at != std::string::npos && (text[at] == '+' || text[at] == '-');
}

// --- CharToHexString ---------------------------------------------------------------------------

TEST(CharToHexString, PadsOneDigitWithABlank) {
    EXPECT_EQ(CharToHexString('\t'), " 9");
    EXPECT_EQ(CharToHexString('\0'), " 0");
    EXPECT_EQ(CharToHexString('\x0F'), " F");
    EXPECT_EQ(CharToHexString('\x10'), "10");
}

TEST(CharToHexString, WritesUpperCaseDigits) {
    EXPECT_EQ(CharToHexString('z'), "7A");
    EXPECT_EQ(CharToHexString('A'), "41");
    EXPECT_EQ(CharToHexString('\xEF'), "EF");
}

TEST(CharToHexString, TakesCodesAbove127AsUnsigned) {
    EXPECT_EQ(CharToHexString('\x80'), "80");
    EXPECT_EQ(CharToHexString('\xFF'), "FF");
}

TEST(CharToHexString, EqualsPrintfForEveryCharacter) {
    for (unsigned code = 0; code < 256; ++code) {
        char printed[8];
        ASSERT_EQ(std::snprintf(printed, sizeof printed, "%2X", code), 2);
        EXPECT_EQ(CharToHexString(static_cast<char>(code)), printed) << code;
    }
}

// --- HexStringToChar ---------------------------------------------------------------------------

struct HexText {
    std::string text;
    unsigned code;
};

void ExpectCodes(const std::vector<HexText>& table) {
    for (const HexText& row : table) {
        EXPECT_EQ(Code(HexStringToChar(row.text)), row.code) << Hex(row.text);
    }
}

TEST(HexStringToChar, TextWithoutADigitGivesZero) {
    ExpectCodes({{"", 0},
                 {" ", 0},
                 {" \t\n\v\f\r ", 0},
                 {"G", 0},
                 {"g1", 0},
                 {"x41", 0},
                 {"/", 0},
                 {":", 0},
                 {"@", 0},
                 {"`", 0},
                 {"\xC3\xA9", 0},
                 {"\xFF"
                  "41",
                  0},
                 {"\xA0"
                  "41",
                  0},
                 {"\0"s, 0},
                 {"\0"s + "41", 0},
                 {" \0"s + "41", 0}});
}

TEST(HexStringToChar, TakesEitherCase) {
    ExpectCodes({{"7a", 'z'}, {"7A", 'z'}, {"aF", 0xAF}, {"Fa", 0xFA}, {"ff", 0xFF}});
}

TEST(HexStringToChar, TakesOneOrTwoDigitsAndIgnoresTheRest) {
    ExpectCodes({{"9", 9},
                 {"f", 15},
                 {"7a1", 'z'},
                 {"41424344", 'A'},
                 {"4 1", 4},
                 {"4G", 4},
                 {"4-", 4},
                 {"4\xC3\xA9", 4},
                 {"4\0"s + "1", 4},
                 {"41\0"s, 'A'},
                 {"0x41", 0},
                 {"041", 4}});
}

TEST(HexStringToChar, SkipsWhiteSpaceAhead) {
    ExpectCodes({{" 9", 9},
                 {"\t9", 9},
                 {"\n\v\f\r 41", 'A'},
                 {"                    7A", 'z'},
                 {" 4 1", 4}});
}

TEST(HexStringToChar, SignedTextGivesZero) {
    ExpectCodes({{"-1", 0}, {"+1", 0}, {" -1", 0}, {"\n+F", 0}, {"-", 0}, {"+", 0}, {"--", 0}});
}

TEST(HexStringToChar, ReversesCharToHexStringForEveryCharacter) {
    for (unsigned code = 0; code < 256; ++code) {
        EXPECT_EQ(Code(HexStringToChar(CharToHexString(static_cast<char>(code)))), code);
    }
}

TEST(HexStringToChar, EqualsScanfForAllTextsOfUpToTwoBytesUnlessSigned) {
    int signedTexts = 0;
    for (unsigned first = 0; first < 256; ++first) {
        for (unsigned second = 0; second <= 256; ++second) {
            std::string text = {static_cast<char>(first)};
            if (second < 256) {
                text += static_cast<char>(second);
            }
            const unsigned expected = IsSigned(text) ? 0 : ScannedCode(text);
            ASSERT_EQ(Code(HexStringToChar(text)), expected) << Hex(text);
            signedTexts += IsSigned(text) ? 1 : 0;
        }
    }
    // One of the two signs and anything or nothing after it, or one of six blanks ahead of it.
    EXPECT_EQ(signedTexts, 2 * 257 + 6 * 2);
}

TEST(HexStringToChar, EqualsScanfForLongerTextsOfTellingCharactersUnlessSigned) {
    const std::string characters = " \t09aAfFgGxX:/@`\xE9\0"s;
    for (const char first : characters) {
        for (const char second : characters) {
            for (const char third : characters) {
                for (const char fourth : characters) {
                    const std::string text = {first, second, third, fourth};
                    ASSERT_EQ(Code(HexStringToChar(text)), ScannedCode(text)) << Hex(text);
                }
            }
        }
    }
}

}  // namespace
