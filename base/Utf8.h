#ifndef QUAVERA_BASE_UTF8_H_
#define QUAVERA_BASE_UTF8_H_

#include <cstddef>
#include <string_view>

/// UTF-8 (RFC 3629), a character at a time, both ways.
namespace quavera {

/// A character of a UTF-8 text: its code and the number of bytes that it takes.
struct Utf8Character {
    char32_t code;
    std::size_t size;  // 0: the bytes are no UTF-8
};

constexpr bool IsSurrogate(char32_t code) {
    return code >= 0xD800 && code <= 0xDFFF;
}

/// The character that `text`, which must not be empty, begins with. Strict (RFC 3629): overlong
/// forms, surrogates, codes above 10FFFF and cut sequences are no UTF-8.
constexpr Utf8Character FirstCharacter(std::string_view text) {
    constexpr Utf8Character kNoUtf8 = {0, 0};
    const auto byte = [text](std::size_t at) {
        return char32_t{static_cast<unsigned char>(text[at])};
    };
    // The six bits of a trail byte; of any other byte, more than that.
    constexpr char32_t kBits = 0x3F;
    const auto trail = [&byte](std::size_t at) { return byte(at) ^ 0x80; };
    const char32_t first = byte(0);
    if (first < 0x80) {
        return {first, 1};
    }
    if (first < 0xE0) {
        if (first < 0xC2 || text.size() < 2) {
            return kNoUtf8;
        }
        const char32_t second = trail(1);
        return second <= kBits ? Utf8Character{(first & 0x1F) << 6 | second, 2} : kNoUtf8;
    }
    if (first < 0xF0) {
        if (text.size() < 3) {
            return kNoUtf8;
        }
        const char32_t second = trail(1);
        const char32_t third = trail(2);
        const char32_t code = (first & 0xF) << 12 | second << 6 | third;
        const bool isUtf8 = (second | third) <= kBits && code >= 0x800 && !IsSurrogate(code);
        return isUtf8 ? Utf8Character{code, 3} : kNoUtf8;
    }
    if (first >= 0xF8 || text.size() < 4) {
        return kNoUtf8;
    }
    const char32_t second = trail(1);
    const char32_t third = trail(2);
    const char32_t fourth = trail(3);
    const char32_t code = (first & 7) << 18 | second << 12 | third << 6 | fourth;
    const bool isUtf8 = (second | third | fourth) <= kBits && code >= 0x10000 && code <= 0x10FFFF;
    return isUtf8 ? Utf8Character{code, 4} : kNoUtf8;
}

/// The most bytes that a character takes.
inline constexpr std::size_t kLargestUtf8 = 4;

/// Writes the UTF-8 form of a character to `to`, which has room for `kLargestUtf8` bytes. Returns
/// the place after it, or null for what is no character: a surrogate, a code above 10FFFF.
constexpr char* PutCharacter(char32_t code, char* to) {
    const auto put = [&to](char32_t byte) { *to++ = static_cast<char>(byte); };
    const auto putTrail = [&put, code](unsigned shift) { put(0x80 | ((code >> shift) & 0x3F)); };
    if (code < 0x80) {
        put(code);
        return to;
    }
    if (code < 0x800) {
        put(0xC0 | (code >> 6));
    } else if (code < 0x10000) {
        if (IsSurrogate(code)) {
            return nullptr;
        }
        put(0xE0 | (code >> 12));
        putTrail(6);
    } else {
        if (code > 0x10FFFF) {
            return nullptr;
        }
        put(0xF0 | (code >> 18));
        putTrail(12);
        putTrail(6);
    }
    putTrail(0);
    return to;
}

}  // namespace quavera

#endif  // QUAVERA_BASE_UTF8_H_
