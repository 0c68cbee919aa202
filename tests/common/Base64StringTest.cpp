#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "common/QuaveraCommon.h"
#include "tests/common/ConversionReference.h"
#include "tests/support/Random.h"

namespace {

using std::string_literals::operator""s;

constexpr char kAlphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

// --- a codec of texts of "0" and "1" -----------------------------------------------------------

std::string Bits(unsigned value, unsigned count) {
    std::string bits;
    while (count-- > 0) {
        bits += (value >> count & 1U) != 0 ? '1' : '0';
    }
    return bits;
}

unsigned Value(const std::string& bits) {
    unsigned value = 0;
    for (const char bit : bits) {
        value = 2 * value + (bit == '1' ? 1 : 0);
    }
    return value;
}

std::string ReferenceEncode(const std::string& data) {
    std::string bits;
    for (const char byte : data) {
        bits += Bits(static_cast<unsigned char>(byte), 8);
    }
    bits.resize((bits.size() + 5) / 6 * 6, '0');
    std::string text;
    for (std::size_t at = 0; at < bits.size(); at += 6) {
        text += kAlphabet[Value(bits.substr(at, 6))];
    }
    text.resize((text.size() + 3) / 4 * 4, '=');
    return text;
}

/// All bytes that `text` stands for; empty if it is malformed.
std::string ReferenceDecode(std::string text) {
    const std::string blanks = " \t\n\v\f\r";
    for (std::size_t at; (at = text.find_first_of(blanks)) != std::string::npos;) {
        text.erase(at, 1);
    }
    if (text.size() % 4 != 0) {
        return "";
    }
    for (int pad = 0; pad < 2 && !text.empty() && text.back() == '='; ++pad) {
        text.pop_back();
    }
    std::string bits;
    for (const char character : text) {
        const std::size_t value = std::string(kAlphabet).find(character);
        if (value == std::string::npos) {
            return "";
        }
        bits += Bits(static_cast<unsigned>(value), 6);
    }
    std::string data;
    for (std::size_t at = 0; at + 8 <= bits.size(); at += 8) {
        data += static_cast<char>(Value(bits.substr(at, 8)));
    }
    return data;
}

std::string UpToZero(const std::string& data) {
    return data.substr(0, data.find('\0'));
}

// --- base64EncodeString ------------------------------------------------------------------------

TEST(Base64EncodeString, EmptyDataGivesEmptyText) {
    EXPECT_EQ(base64EncodeString(""s), "");
}

TEST(Base64EncodeString, PadsToFourCharacters) {
    // RFC 4648, section 10.
    EXPECT_EQ(base64EncodeString("f"s), "Zg==");
    EXPECT_EQ(base64EncodeString("fo"s), "Zm8=");
    EXPECT_EQ(base64EncodeString("foo"s), "Zm9v");
    EXPECT_EQ(base64EncodeString("foob"s), "Zm9vYg==");
    EXPECT_EQ(base64EncodeString("fooba"s), "Zm9vYmE=");
    EXPECT_EQ(base64EncodeString("foobar"s), "Zm9vYmFy");
}

TEST(Base64EncodeString, UsesTheStandardAlphabet) {
    EXPECT_EQ(base64EncodeString("\xFB\xEF\xBE\xFF\xFF\xFF"s), "++++////");
    const std::string all = kAlphabet;
    EXPECT_EQ(base64EncodeString(ReferenceDecode(all)), all);
}

TEST(Base64EncodeString, EncodesZeroBytesLikeAnyOther) {
    EXPECT_EQ(base64EncodeString("\0"s), "AA==");
    EXPECT_EQ(base64EncodeString("a\0b"s), "YQBi");
    EXPECT_EQ(base64EncodeString(std::string(6, '\0')), "AAAAAAAA");
}

TEST(Base64EncodeString, WritesNoLineBreaks) {
    EXPECT_EQ(base64EncodeString(std::string(3000, 'f')).find_first_of(" \r\n"), std::string::npos);
}

TEST(Base64EncodeString, EncodesEveryPairOfBytes) {
    for (unsigned first = 0; first < 256; ++first) {
        for (unsigned second = 0; second < 256; ++second) {
            const std::string data = {static_cast<char>(first), static_cast<char>(second)};
            ASSERT_EQ(base64EncodeString(data), ReferenceEncode(data)) << Hex(data);
        }
    }
}

TEST(Base64EncodeString, PointerFormGivesTheSameAndLeavesTheStringAlone) {
    for (const std::string& data : {""s, "f"s, "a\0b"s, "a text that is longer than fifteen"s}) {
        std::string pointedTo = data;
        EXPECT_EQ(base64EncodeString(&pointedTo), base64EncodeString(data)) << Hex(data);
        EXPECT_EQ(pointedTo, data);
    }
}

// --- base64DecodeString ------------------------------------------------------------------------

TEST(Base64DecodeString, EmptyTextGivesEmptyData) {
    EXPECT_EQ(base64DecodeString(""), "");
}

TEST(Base64DecodeString, DecodesPaddedText) {
    EXPECT_EQ(base64DecodeString("Zg=="), "f");
    EXPECT_EQ(base64DecodeString("Zm8="), "fo");
    EXPECT_EQ(base64DecodeString("Zm9v"), "foo");
    EXPECT_EQ(base64DecodeString("++++////"), "\xFB\xEF\xBE\xFF\xFF\xFF");
}

TEST(Base64DecodeString, CutsAtFirstZeroByte) {
    EXPECT_EQ(base64DecodeString("YQBi"), "a");
    EXPECT_EQ(base64DecodeString("AGFi"), "");
    EXPECT_EQ(base64DecodeString("YWIA"), "ab");
    EXPECT_EQ(base64DecodeString("YWJjAGRlAGZn"), "abc");
}

TEST(Base64DecodeString, MalformedTextGivesEmptyData) {
    const std::vector<std::pair<const char*, std::string>> malformed = {
        {"cut", "Z"},
        {"cut", "Zm"},
        {"cut", "Zm9"},
        {"cut in its second group", "Zm9vY"},
        {"padding missing", "Zg="},
        {"padding only", "===="},
        {"one character and padding", "Z==="},
        {"padding ahead", "=Zm9"},
        {"padding inside a group", "Zg=v"},
        {"padding inside the text", "Zg==Zm9v"},
        {"surplus padding", "Zm9v="},
        {"surplus padding", "Zg==="},
        {"surplus padding", "Zm9v===="},
        {"foreign character", "Zm*v"},
        {"foreign character at the end", "Zm9vZm9*"},
        {"alphabet of URLs", "-_-_"},
        {"zero byte", "Zm9\0"s},
        {"zero byte after the text", "Zm9v\0"s},
        {"byte above 127", "Zm9\xFF"},
        {"no-break space", "Zm9v\xC2\xA0"},
    };
    for (const auto& [kind, text] : malformed) {
        EXPECT_EQ(base64DecodeString(text), "") << kind << ": " << text;
    }
}

/// Long enough for whatever decodes many characters at a time, and for what is left behind it.
TEST(Base64DecodeString, ForeignByteAtEveryPlaceOfALongTextGivesEmptyData) {
    const std::string data(100, 'x');
    const std::string text = base64EncodeString(data);
    for (int value = 0; value < 256; ++value) {
        const char byte = static_cast<char>(static_cast<unsigned char>(value));
        if (std::string_view(kAlphabet).find(byte) != std::string_view::npos) {
            continue;
        }
        const bool isBlank = std::string_view("\t\n\v\f\r ").find(byte) != std::string_view::npos;
        for (std::size_t at = 0; at <= text.size(); ++at) {
            std::string damaged = text;
            damaged.insert(at, 1, byte);
            EXPECT_EQ(base64DecodeString(damaged), isBlank ? data : "") << value << " at " << at;
            if (at + 2 < text.size()) {  // what stands there is data
                damaged = text;
                damaged[at] = byte;
                EXPECT_EQ(base64DecodeString(damaged), "") << value << " at " << at;
            }
        }
    }
}

TEST(Base64DecodeString, SkipsWhiteSpaceAnywhere) {
    const std::string text = "Zm9vYg==";
    for (const char blank : {' ', '\t', '\n', '\v', '\f', '\r'}) {
        for (std::size_t at = 0; at <= text.size(); ++at) {
            EXPECT_EQ(base64DecodeString(std::string(text).insert(at, 2, blank)), "foob")
                << int{blank} << " at " << at;
        }
    }
    EXPECT_EQ(base64DecodeString(" \r\n"), "");
}

TEST(Base64DecodeString, IgnoresUnusedBitsOfTheLastCharacter) {
    for (const char* text : {"Zg==", "Zh==", "Zn==", "Zv=="}) {
        EXPECT_EQ(base64DecodeString(text), "f") << text;
    }
    for (const char* text : {"Zm8=", "Zm9=", "Zm+=", "Zm/="}) {
        EXPECT_EQ(base64DecodeString(text), "fo") << text;
    }
}

TEST(Base64DecodeString, ReversesEncodingForEveryPairOfBytesUpToAZero) {
    for (unsigned first = 0; first < 256; ++first) {
        for (unsigned second = 0; second < 256; ++second) {
            const std::string data = {static_cast<char>(first), static_cast<char>(second)};
            ASSERT_EQ(base64DecodeString(ReferenceEncode(data)), UpToZero(data)) << Hex(data);
        }
    }
}

TEST(Base64DecodeString, EqualsReferenceForRandomTexts) {
    // Mostly of the alphabet, or nearly every text would be malformed.
    const std::string rare = " \t\n\v\f\r====-_*\xFF\0"s;
    Random random(2718);
    int decoded = 0;
    for (int count = 0; count < 100000; ++count) {
        std::string text = ReferenceEncode(random.Bytes(random.Below(12)));
        for (std::size_t changes = random.Below(3); changes > 0 && !text.empty(); --changes) {
            const char character =
                random.OneIn(2) ? kAlphabet[random.Below(64)] : rare[random.Below(rare.size())];
            const std::size_t at = random.Below(text.size());
            text.replace(at, random.Below(2), 1, character);
        }
        const std::string expected = UpToZero(ReferenceDecode(text));
        ASSERT_EQ(base64DecodeString(text), expected) << Hex(text);
        decoded += expected.empty() ? 0 : 1;
    }
    EXPECT_GT(decoded, 30000);
    EXPECT_LT(decoded, 90000);
}

// --- both --------------------------------------------------------------------------------------

TEST(Base64Strings, RoundTripEveryLength) {
    Random random(1618);
    for (std::size_t size = 0; size <= 1024; ++size) {
        std::string data = random.Bytes(size);
        const std::string text = ReferenceEncode(data);
        ASSERT_EQ(base64EncodeString(data), text) << size;
        ASSERT_EQ(base64DecodeString(text), UpToZero(data)) << size;
        for (char& byte : data) {
            byte = byte == '\0' ? '\x01' : byte;
        }
        ASSERT_EQ(base64DecodeString(base64EncodeString(data)), data) << size;
    }
}

// --- DecodeAndConvertFromUtf8 ------------------------------------------------------------------

TEST(DecodeAndConvertFromUtf8, GivesTheWideTextOfEncodedUtf8) {
    EXPECT_EQ(DecodeAndConvertFromUtf8("Q2Fmw6k="), L"Caf\u00E9");
    EXPECT_EQ(DecodeAndConvertFromUtf8("4oKs8J+YgA=="), L"\u20AC\U0001F600");
}

TEST(DecodeAndConvertFromUtf8, EmptyTextGivesEmptyString) {
    EXPECT_EQ(DecodeAndConvertFromUtf8(""), L"");
}

TEST(DecodeAndConvertFromUtf8, MalformedBase64GivesEmptyString) {
    EXPECT_EQ(DecodeAndConvertFromUtf8("Q2Fmw6k"), L"");
    EXPECT_EQ(DecodeAndConvertFromUtf8("Caf\xC3\xA9"), L"");
}

TEST(DecodeAndConvertFromUtf8, InvalidUtf8GivesPrefixAndZerosToFourTimesDecodedLength) {
    EXPECT_EQ(DecodeAndConvertFromUtf8("/w=="), std::wstring(4, L'\0'));
    EXPECT_EQ(DecodeAndConvertFromUtf8(ReferenceEncode("ab\xFF"
                                                       "cd")),
              L"ab"s + std::wstring(18, L'\0'));
    EXPECT_EQ(DecodeAndConvertFromUtf8(ReferenceEncode("ab\xC3")),
              L"ab"s + std::wstring(10, L'\0'));
}

TEST(DecodeAndConvertFromUtf8, ZeroByteHidesEvenAFaultBehindIt) {
    EXPECT_EQ(DecodeAndConvertFromUtf8(ReferenceEncode("a\0b"s)), L"a");
    EXPECT_EQ(DecodeAndConvertFromUtf8(ReferenceEncode("a\0\xFF"s)), L"a");
    EXPECT_EQ(DecodeAndConvertFromUtf8(ReferenceEncode("\xFF\0a"s)), std::wstring(4, L'\0'));
}

TEST(DecodeAndConvertFromUtf8, EqualsItsTwoStepsForRandomTexts) {
    Random random(5772);
    FromUtf8Reference fromUtf8;
    for (int count = 0; count < 5000; ++count) {
        const std::string text = ReferenceEncode(random.Bytes(random.Below(12)));
        ASSERT_EQ(DecodeAndConvertFromUtf8(text), fromUtf8(UpToZero(ReferenceDecode(text))))
            << text;
    }
}

}  // namespace
