#include "platform/Base64Encoder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/Random.h"

namespace {

constexpr long kMode = 2;
constexpr long kLongest = std::numeric_limits<long>::max();
constexpr std::string_view kAlphabet =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::string_view kWhiteSpace = " \t\n\v\f\r";

long Size(std::string_view text) {
    return static_cast<long>(text.size());
}

/// A heap block of exactly this size, so that a step beyond it is seen by the address sanitizer.
class Block {
 public:
    explicit Block(long size) : bytes_(std::make_unique<char[]>(static_cast<std::size_t>(size))) {}
    explicit Block(std::string_view content) : Block(Size(content)) {
        std::copy(content.begin(), content.end(), bytes_.get());
    }
    char* get() const { return bytes_.get(); }

 private:
    std::unique_ptr<char[]> bytes_;
};

/// `length` comes back with the result, so that a test can look at it after a failure too.
std::optional<std::string> EncodeInto(long capacity, std::string_view data, long* length) {
    const Block input(data);
    const Block output(std::max(capacity, 0L));
    *length = capacity;
    if (Base64Encoder().Encode(input.get(), Size(data), output.get(), length, kMode) == 0) {
        return std::nullopt;
    }
    return std::string(output.get(), static_cast<std::size_t>(*length));
}

std::optional<std::string> DecodeInto(long capacity, std::string_view text, long* length) {
    const Block input(text);
    const Block output(std::max(capacity, 0L));
    *length = capacity;
    if (Base64Encoder().Decode(input.get(), Size(text), output.get(), length) == 0) {
        return std::nullopt;
    }
    return std::string(output.get(), static_cast<std::size_t>(*length));
}

/// With the capacity that `EncodeGetLength` states.
std::string Encode(std::string_view data) {
    long length = 0;
    const long capacity = Base64Encoder().EncodeGetLength(Size(data), kMode);
    return EncodeInto(capacity, data, &length).value_or("failed");
}

/// With more capacity than any decoding needs.
std::optional<std::string> Decode(std::string_view text) {
    long length = 0;
    return DecodeInto(Size(text), text, &length);
}

// An independent codec: bytes and characters by way of a string of "0" and "1".

std::string Bits(std::size_t value, int count) {
    std::string bits;
    while (count-- > 0) {
        bits += (value >> count & 1) != 0 ? '1' : '0';
    }
    return bits;
}

std::size_t Value(std::string_view bits) {
    std::size_t value = 0;
    for (const char bit : bits) {
        value = value * 2 + (bit == '1' ? 1 : 0);
    }
    return value;
}

std::string PlainEncode(std::string_view data) {
    std::string bits;
    for (const char byte : data) {
        bits += Bits(static_cast<unsigned char>(byte), 8);
    }
    bits.resize((bits.size() + 5) / 6 * 6, '0');
    std::string text;
    for (std::size_t at = 0; at < bits.size(); at += 6) {
        text += kAlphabet[Value(std::string_view(bits).substr(at, 6))];
    }
    text.resize((text.size() + 3) / 4 * 4, '=');
    return text;
}

/// Of a well-formed text without white space.
std::string PlainDecode(std::string_view text) {
    std::string bits;
    for (const char character : text.substr(0, text.find('='))) {
        bits += Bits(kAlphabet.find(character), 6);
    }
    std::string data;
    for (std::size_t at = 0; at + 8 <= bits.size(); at += 8) {
        data += static_cast<char>(Value(std::string_view(bits).substr(at, 8)));
    }
    return data;
}

struct Vector {
    const char* data;
    const char* text;
};

constexpr Vector kVectors[] = {
    {"", ""},
    {"f", "Zg=="},
    {"fo", "Zm8="},
    {"foo", "Zm9v"},
    {"foob", "Zm9vYg=="},
    {"fooba", "Zm9vYmE="},
    {"foobar", "Zm9vYmFy"},
};

TEST(Base64Encoder, EncodesAndDecodesTheVectorsOfRfc4648) {
    for (const Vector& vector : kVectors) {
        EXPECT_EQ(Encode(vector.data), vector.text);
        EXPECT_EQ(Decode(vector.text), vector.data);
    }
}

TEST(Base64Encoder, UsesTheWholeStandardAlphabet) {
    std::string bits;
    for (std::size_t value = 0; value < 64; ++value) {
        bits += Bits(value, 6);
    }
    std::string data;
    for (std::size_t at = 0; at < bits.size(); at += 8) {
        data += static_cast<char>(Value(std::string_view(bits).substr(at, 8)));
    }
    EXPECT_EQ(Encode(data), kAlphabet);
    EXPECT_EQ(Decode(kAlphabet), data);
}

TEST(Base64Encoder, AgreesWithAPlainCodecForEveryLength) {
    Random random(1);
    for (std::size_t length = 0; length <= 1024; ++length) {
        const std::string data = random.Bytes(length);
        const std::string text = PlainEncode(data);
        ASSERT_EQ(Encode(data), text);
        ASSERT_EQ(Decode(text), data);
    }
}

TEST(Base64Encoder, AgreesWithAPlainCodecForEveryPairOfBytes) {
    for (std::size_t pair = 0; pair < 65536; ++pair) {
        const std::string data = {static_cast<char>(pair >> 8), static_cast<char>(pair & 255)};
        const std::string text = PlainEncode(data);
        ASSERT_EQ(Encode(data), text);
        ASSERT_EQ(Decode(text), data);
        ASSERT_EQ(Decode(text.substr(1, 2) + text.substr(0, 2)),
                  PlainDecode(text.substr(1, 2) + text.substr(0, 2)));
    }
}

TEST(Base64EncoderGetLength, IsFourForEachThreeBytesBegun) {
    const long lengths[][2] = {{0, 0}, {1, 4}, {2, 4}, {3, 4},
                               {4, 8}, {5, 8}, {6, 8}, {1023, 1364}};
    for (const auto& [length, expected] : lengths) {
        EXPECT_EQ(Base64Encoder().EncodeGetLength(length, kMode), expected) << length;
    }
}

TEST(Base64EncoderGetLength, IsZeroForANegativeLength) {
    for (const long length : {-1L, -3L, -1000L, std::numeric_limits<long>::min()}) {
        EXPECT_EQ(Base64Encoder().EncodeGetLength(length, kMode), 0) << length;
    }
}

TEST(Base64EncoderGetLength, IsZeroWhereTheResultDoesNotFit) {
    constexpr long kMostGroups = kLongest / 4;
    const Base64Encoder encoder;
    EXPECT_EQ(encoder.EncodeGetLength(kMostGroups * 3, kMode), kMostGroups * 4);
    EXPECT_EQ(encoder.EncodeGetLength(kMostGroups * 3 - 2, kMode), kMostGroups * 4);
    EXPECT_EQ(encoder.EncodeGetLength(kMostGroups * 3 + 1, kMode), 0);
    EXPECT_EQ(encoder.EncodeGetLength(kLongest - 1, kMode), 0);
    EXPECT_EQ(encoder.EncodeGetLength(kLongest, kMode), 0);
}

TEST(Base64EncoderGetLength, IgnoresTheMode) {
    for (const long mode : {-1L, 0L, 1L, 2L, 76L, kLongest}) {
        EXPECT_EQ(Base64Encoder().EncodeGetLength(100, mode), 136) << mode;
    }
}

TEST(Base64EncoderEncode, NeedsTheStatedCapacityAndNoMore) {
    Random random(2);
    for (std::size_t size = 0; size <= 20; ++size) {
        const std::string data = random.Bytes(size);
        const long needed = Base64Encoder().EncodeGetLength(Size(data), kMode);
        long length = 0;
        EXPECT_EQ(EncodeInto(needed, data, &length), PlainEncode(data));
        EXPECT_EQ(length, needed);
        EXPECT_EQ(EncodeInto(needed + 5, data, &length), PlainEncode(data));
        EXPECT_EQ(length, needed);
        EXPECT_EQ(EncodeInto(needed - 1, data, &length), std::nullopt) << size;
        EXPECT_EQ(length, 0);
    }
}

TEST(Base64EncoderEncode, WritesNothingOnFailure) {
    std::string output(8, '#');
    long length = 7;
    EXPECT_EQ(Base64Encoder().Encode("foobar", 6, output.data(), &length, kMode), 0);
    EXPECT_EQ(length, 0);
    length = 8;
    EXPECT_EQ(Base64Encoder().Encode("foobar", -1, output.data(), &length, kMode), 0);
    EXPECT_EQ(length, 0);
    EXPECT_EQ(output, "########");
}

TEST(Base64EncoderEncode, RefusesALengthWhoseResultDoesNotFit) {
    char output = '#';
    long length = kLongest;
    EXPECT_EQ(Base64Encoder().Encode("x", kLongest, &output, &length, kMode), 0);
    EXPECT_EQ(length, 0);
    EXPECT_EQ(output, '#');
}

TEST(Base64EncoderEncode, AddsNoTerminatorAndIgnoresTheMode) {
    for (const long mode : {0L, 1L, 2L, 76L}) {
        std::string output(9, '#');
        long length = 9;
        EXPECT_NE(Base64Encoder().Encode("foobar", 6, output.data(), &length, mode), 0);
        EXPECT_EQ(output, "Zm9vYmFy#");
    }
}

TEST(Base64EncoderEncode, BreaksNoLines) {
    const std::string text = Encode(std::string(3000, 'x'));
    EXPECT_EQ(text.size(), 4000U);
    EXPECT_EQ(text.find_first_of("\r\n"), std::string::npos);
}

TEST(Base64EncoderDecode, NeedsTheCapacityOfTheBytesAndNoMore) {
    Random random(3);
    for (std::size_t size = 0; size <= 20; ++size) {
        const std::string data = random.Bytes(size);
        const std::string text = PlainEncode(data);
        long length = 0;
        EXPECT_EQ(DecodeInto(Size(data), text, &length), data);
        EXPECT_EQ(length, Size(data));
        EXPECT_EQ(DecodeInto(Size(data) - 1, text, &length), std::nullopt) << size;
        EXPECT_EQ(length, 0);
    }
}

TEST(Base64EncoderDecode, SkipsWhiteSpaceAnywhere) {
    for (const std::string text : {"Zm9vYg==", "Zm9vYmE=", "Zm9vYmFy"}) {
        for (const char blank : kWhiteSpace) {
            for (std::size_t at = 0; at <= text.size(); ++at) {
                std::string spaced = text;
                spaced.insert(at, 2, blank);
                EXPECT_EQ(Decode(spaced), PlainDecode(text)) << at;
            }
        }
    }
    EXPECT_EQ(Decode(kWhiteSpace), "");
}

TEST(Base64EncoderDecode, WhiteSpaceTakesNoCapacity) {
    long length = 0;
    EXPECT_EQ(DecodeInto(4, " Z m 9 v\r\nY g = = \n", &length), "foob");
    EXPECT_EQ(length, 4);
}

TEST(Base64EncoderDecode, IgnoresUnusedBitsOfTheLastCharacter) {
    for (std::size_t unused = 0; unused < 16; ++unused) {
        const std::string text = {'Z', kAlphabet[32 + unused], '=', '='};
        EXPECT_EQ(Decode(text), "f") << text;
    }
    for (std::size_t unused = 0; unused < 4; ++unused) {
        const std::string text = {'Z', 'm', kAlphabet[60 + unused], '='};
        EXPECT_EQ(Decode(text), "fo") << text;
    }
}

TEST(Base64EncoderDecode, RefusesMissingMisplacedAndSurplusPadding) {
    for (const char* const text : {"Z",        "Zg",      "Zg=",      "Zm8",   "Zm9vY", "Zm9vYg",
                                   "Zm9vYg=",  "Zm9vYmE", "=",        "==",    "===",   "====",
                                   "Z=",       "Z==",     "Z===",     "=Zm8",  "Z=g=",  "Zg=g",
                                   "Zm9v=",    "Zm9v==",  "Zm9v====", "Zg===", "Zm8==", "Zg====",
                                   "Zm9vZ===", "=Zm9v",   "Zg= ",     "Zm9v Z"}) {
        long length = 0;
        EXPECT_EQ(DecodeInto(64, text, &length), std::nullopt) << text;
        EXPECT_EQ(length, 0) << text;
    }
}

TEST(Base64EncoderDecode, RefusesDataBehindPadding) {
    for (const char* const text : {"Zg==Zg==", "Zm8=Zm9v", "Zg==Z", "Zg== Zg==", "Zg==="}) {
        EXPECT_EQ(Decode(text), std::nullopt) << text;
    }
}

/// All places of a group, so that no place has a table of its own with a hole.
TEST(Base64EncoderDecode, RefusesEveryForeignByteAtEveryPlace) {
    for (int byte = 0; byte < 256; ++byte) {
        const char character = static_cast<char>(static_cast<unsigned char>(byte));
        const bool isData = kAlphabet.find(character) != std::string_view::npos;
        const bool isBlank = kWhiteSpace.find(character) != std::string_view::npos;
        for (std::size_t at = 0; at < 8; ++at) {
            std::string text = "Zm9vYmFy";
            text[at] = character;
            if (isData || (character == '=' && at == 7)) {
                EXPECT_EQ(Decode(text), PlainDecode(text)) << byte << " at " << at;
            } else {
                EXPECT_EQ(Decode(text), std::nullopt) << byte << " at " << at;
            }
            text = "Zm9vYmFy";
            text.insert(at, 1, character);
            if (isBlank) {
                EXPECT_EQ(Decode(text), "foobar") << byte << " at " << at;
            } else {
                EXPECT_EQ(Decode(text), std::nullopt) << byte << " at " << at;
            }
        }
    }
}

TEST(Base64EncoderDecode, RefusesANegativeLength) {
    for (const long length : {-1L, -4L, std::numeric_limits<long>::min()}) {
        char output = '#';
        long capacity = 1;
        EXPECT_EQ(Base64Encoder().Decode("Zg==", length, &output, &capacity), 0);
        EXPECT_EQ(capacity, 0);
    }
}

TEST(Base64EncoderDecode, RefusesANegativeCapacity) {
    long length = 0;
    EXPECT_EQ(DecodeInto(-1, "", &length), std::nullopt);
    EXPECT_EQ(length, 0);
    EXPECT_EQ(DecodeInto(-1, "Zg==", &length), std::nullopt);
    EXPECT_EQ(length, 0);
}

TEST(Base64EncoderDecode, ReadsNoMoreThanTheStatedLength) {
    long length = 3;
    char output[3];
    ASSERT_NE(Base64Encoder().Decode("Zm9v????", 4, output, &length), 0);
    EXPECT_EQ(std::string(output, 3), "foo");
}

TEST(Base64EncoderDecode, NeverWritesBeyondTheCapacity) {
    Random random(4);
    for (int round = 0; round < 2000; ++round) {
        const std::string text = PlainEncode(random.Bytes(random.Below(12)));
        const std::size_t capacity = random.Below(12);
        std::string output(16, '#');
        long length = static_cast<long>(capacity);
        Base64Encoder().Decode(text.data(), Size(text), output.data(), &length);
        ASSERT_EQ(output.substr(capacity), std::string(16 - capacity, '#')) << text;
    }
}

/// Texts of a few characters that matter, all of them, against the definition: blanks dropped,
/// whole groups of four, padding only at the end and at most two.
TEST(Base64EncoderDecode, AgreesWithTheDefinitionForAllShortTexts) {
    constexpr std::string_view kCharacters = "Ag/= !";
    const auto isWellFormed = [](std::string_view text) {
        const std::size_t data = std::min(text.find('='), text.size());
        return text.size() % 4 == 0 && text.size() - data <= 2 &&
               text.find_first_not_of('=', data) == std::string_view::npos &&
               text.find('!') == std::string_view::npos;
    };
    std::size_t count = 1;
    for (std::size_t length = 0; length <= 7; ++length, count *= kCharacters.size()) {
        for (std::size_t number = 0; number < count; ++number) {
            std::string text;
            for (std::size_t rest = number; text.size() < length; rest /= kCharacters.size()) {
                text += kCharacters[rest % kCharacters.size()];
            }
            std::string dense = text;
            dense.erase(std::remove(dense.begin(), dense.end(), ' '), dense.end());
            ASSERT_EQ(Decode(text),
                      isWellFormed(dense) ? std::optional(PlainDecode(dense)) : std::nullopt)
                << '"' << text << '"';
        }
    }
}

}  // namespace
