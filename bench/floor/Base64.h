#ifndef QUAVERA_BENCH_FLOOR_BASE64_H_
#define QUAVERA_BENCH_FLOOR_BASE64_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

#include "bench/floor/Buffers.h"

namespace bench::floor {

inline constexpr char kAlphabet[] =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
inline constexpr std::uint32_t kForeign = 0x01000000;   // a character outside the alphabet
inline constexpr std::uint32_t kHighBits = 0x00808080;  // of a group's three bytes: not ASCII

/// The two characters for each 12 bits.
constexpr std::array<std::uint16_t, 4096> MakePairs() {
    std::array<std::uint16_t, 4096> pairs{};
    for (std::size_t bits = 0; bits < pairs.size(); ++bits) {
        const auto first = static_cast<unsigned char>(kAlphabet[bits >> 6]);
        const auto second = static_cast<unsigned char>(kAlphabet[bits & 63]);
        pairs[bits] = static_cast<std::uint16_t>(first | second << 8);
    }
    return pairs;
}

using Meanings = std::array<std::uint32_t, 256>;

/// What a character at a place (0 to 3) of its group means: its share of the group's three bytes,
/// the first one lowest.
constexpr Meanings MakeMeanings(int place) {
    Meanings meanings{};
    for (std::uint32_t& meaning : meanings) {
        meaning = kForeign;
    }
    for (std::uint32_t value = 0; value < 64; ++value) {
        const std::uint32_t bits = value << (18 - 6 * place);
        meanings[static_cast<unsigned char>(kAlphabet[value])] =
            (bits >> 16) | (bits & 0xFF00) | (bits & 0xFF) << 16;
    }
    return meanings;
}

inline constexpr std::array<std::uint16_t, 4096> kPairs = MakePairs();
inline constexpr std::array<Meanings, 4> kMeanings = {MakeMeanings(0), MakeMeanings(1),
                                                      MakeMeanings(2), MakeMeanings(3)};

inline void PutPair(std::uint32_t bits, char* to) {
    std::memcpy(to, &kPairs[bits], 2);
}

/// Base64 of `text` from `to` on, with two characters more of room; where it ends.
inline char* Encode(const std::string& text, char* to) {
    if (text.size() > kLongestText) {
        Fail();
    }
    const char* from = text.data();
    std::size_t left = text.size();
    // A load of eight bytes for six of them.
    for (; left >= 8; left -= 6, from += 6, to += 8) {
        std::uint64_t bits = 0;
        std::memcpy(&bits, from, 8);
        bits = __builtin_bswap64(bits);
        PutPair(static_cast<std::uint32_t>(bits >> 52), to);
        PutPair(static_cast<std::uint32_t>(bits >> 40) & 0xFFF, to + 2);
        PutPair(static_cast<std::uint32_t>(bits >> 28) & 0xFFF, to + 4);
        PutPair(static_cast<std::uint32_t>(bits >> 16) & 0xFFF, to + 6);
    }
    for (; left >= 3; left -= 3, from += 3, to += 4) {
        const std::uint32_t bits = Code(from[0]) << 16 | Code(from[1]) << 8 | Code(from[2]);
        PutPair(bits >> 12, to);
        PutPair(bits & 0xFFF, to + 2);
    }
    if (left > 0) {
        const std::uint32_t bits = Code(from[0]) << 16 | (left == 2 ? Code(from[1]) << 8 : 0);
        PutPair(bits >> 12, to);
        PutPair(bits & 0xFFF, to + 2);
        to[3] = '=';
        if (left == 1) {
            to[2] = '=';
        }
        to += 4;
    }
    return to;
}

inline std::uint32_t Group(const char* from) {
    return kMeanings[0][Code(from[0])] | kMeanings[1][Code(from[1])] | kMeanings[2][Code(from[2])] |
           kMeanings[3][Code(from[3])];
}

/// What was decoded, in `decoded`.
struct Bytes {
    std::size_t size;
    bool isAscii;
    const char* end;  // of the base64 text
};

/// The bytes of the `size` characters of `encoded`, into `decoded`.
inline Bytes Decode(std::size_t size) {
    const char* from = encoded;
    const std::size_t pads = size == 0               ? 0
                             : from[size - 1] != '=' ? 0
                             : from[size - 2] != '=' ? 1
                                                     : 2;
    const char* const end = from + size - (pads > 0 ? 4 : 0);
    char* to = decoded;
    std::uint32_t all = 0;
    for (; from != end; from += 4, to += 3) {
        const std::uint32_t bits = Group(from);
        all |= bits;
        std::memcpy(to, &bits, 4);
    }
    if (pads > 0) {
        const char last[4] = {from[0], from[1], pads == 2 ? 'A' : from[2], 'A'};
        const std::uint32_t bits = Group(last);
        all |= bits;
        std::memcpy(to, &bits, 4);
        to += 3 - pads;
    }
    if ((all & kForeign) != 0) {
        Fail();
    }
    return {static_cast<std::size_t>(to - decoded), (all & kHighBits) == 0, encoded + size};
}

/// The bytes of the base64 text from `from` up to the next `<`, into `decoded`.
inline Bytes DecodeUpToEnd(const char* from) {
    const char* const longest = from + 2 * kLongestText;
    char* to = decoded;
    std::uint32_t all = 0;
    std::uint32_t bits = 0;
    for (; ((bits = Group(from)) & kForeign) == 0; from += 4, to += 3) {
        if (from >= longest) {
            Fail();
        }
        all |= bits;
        std::memcpy(to, &bits, 4);
    }
    if (*from != '<') {
        const std::size_t pads = from[2] == '=' ? 2 : 1;
        const char last[4] = {from[0], from[1], pads == 2 ? 'A' : from[2], 'A'};
        bits = Group(last);
        if (from[3] != '=' || from[4] != '<' || (bits & kForeign) != 0) {
            Fail();
        }
        all |= bits;
        std::memcpy(to, &bits, 4);
        to += 3 - pads;
        from += 4;
    }
    return {static_cast<std::size_t>(to - decoded), (all & kHighBits) == 0, from};
}

}  // namespace bench::floor

#endif  // QUAVERA_BENCH_FLOOR_BASE64_H_
