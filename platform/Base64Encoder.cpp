#include "platform/Base64Encoder.h"

#include <array>
#include <cstdint>
#include <limits>

namespace {

constexpr char kAlphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr char kPadding = '=';

// What a character means to the decoder: 0 to 63 are values of the alphabet.
constexpr std::uint8_t kBlank = 64;
constexpr std::uint8_t kPad = 65;
constexpr std::uint8_t kForeign = 66;

constexpr std::array<std::uint8_t, 256> MakeMeanings() {
    std::array<std::uint8_t, 256> meanings{};
    for (std::uint8_t& meaning : meanings) {
        meaning = kForeign;
    }
    for (std::uint8_t value = 0; value < 64; ++value) {
        meanings[static_cast<unsigned char>(kAlphabet[value])] = value;
    }
    for (const char blank : {' ', '\t', '\n', '\v', '\f', '\r'}) {
        meanings[static_cast<unsigned char>(blank)] = kBlank;
    }
    meanings[static_cast<unsigned char>(kPadding)] = kPad;
    return meanings;
}

constexpr std::array<std::uint8_t, 256> kMeanings = MakeMeanings();

std::uint32_t Meaning(char character) {
    return kMeanings[static_cast<unsigned char>(character)];
}

char Character(std::uint32_t bits) {
    return kAlphabet[bits & 63];
}

char Byte(std::uint32_t bits) {
    return static_cast<char>(bits & 255);
}

}  // namespace

long Base64Encoder::EncodeGetLength(long length, long /*mode*/) const {
    if (length < 0 || length > std::numeric_limits<long>::max() / 4 * 3) {
        return 0;
    }
    return (length / 3 + (length % 3 == 0 ? 0 : 1)) * 4;
}

int Base64Encoder::Encode(const char* data, long length, char* text, long* textLength,
                          long mode) const {
    const long needed = EncodeGetLength(length, mode);
    const bool fits = needed <= *textLength && (needed > 0 || length == 0);
    *textLength = fits ? needed : 0;
    if (!fits) {
        return 0;
    }
    const auto* bytes = reinterpret_cast<const unsigned char*>(data);
    for (; length >= 3; length -= 3, bytes += 3, text += 4) {
        const std::uint32_t bits =
            (std::uint32_t{bytes[0]} << 16) | (std::uint32_t{bytes[1]} << 8) | bytes[2];
        text[0] = Character(bits >> 18);
        text[1] = Character(bits >> 12);
        text[2] = Character(bits >> 6);
        text[3] = Character(bits);
    }
    if (length > 0) {
        const std::uint32_t second = length == 2 ? bytes[1] : 0U;
        const std::uint32_t bits = (std::uint32_t{bytes[0]} << 16) | (second << 8);
        text[0] = Character(bits >> 18);
        text[1] = Character(bits >> 12);
        text[2] = length == 2 ? Character(bits >> 6) : kPadding;
        text[3] = kPadding;
    }
    return 1;
}

int Base64Encoder::Decode(const char* text, long length, char* data, long* dataLength) const {
    const long capacity = *dataLength;
    *dataLength = 0;
    long written = 0;
    std::uint32_t bits = 0;
    int values = 0;  // of the group of four that is being read
    int pads = 0;
    for (long at = 0; at < length; ++at) {
        const std::uint32_t meaning = Meaning(text[at]);
        if (meaning == kBlank) {
            continue;
        }
        if (meaning == kPad && values >= 2 && values + pads < 4) {
            ++pads;
            continue;
        }
        if (meaning >= 64 || pads > 0) {
            return 0;
        }
        bits = (bits << 6) | meaning;
        if (++values < 4) {
            continue;
        }
        if (capacity - written < 3) {
            return 0;
        }
        data[written] = Byte(bits >> 16);
        data[written + 1] = Byte(bits >> 8);
        data[written + 2] = Byte(bits);
        written += 3;
        values = 0;
    }
    const long rest = values == 0 ? 0 : values - 1;
    if (length < 0 || (values > 0 && values + pads != 4) || capacity - written < rest) {
        return 0;
    }
    bits <<= 6 * (4 - values);
    for (long at = 0; at < rest; ++at) {
        data[written + at] = Byte(bits >> (16 - 8 * at));
    }
    *dataLength = written + rest;
    return 1;
}
