#ifndef QUAVERA_PLATFORM_UTF8_H_
#define QUAVERA_PLATFORM_UTF8_H_

#include <cstddef>
#include <string_view>

namespace zq {

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
    constexpr char32_t kSmallestOfSize[] = {0, 0, 0x80, 0x800, 0x10000};
    const auto first = static_cast<unsigned char>(text[0]);
    if (first < 0x80) {
        return {first, 1};
    }
    const std::size_t size = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    if (first < 0xC0 || first >= 0xF8 || text.size() < size) {
        return kNoUtf8;
    }
    char32_t code = first & (0x7FU >> size);
    for (std::size_t at = 1; at < size; ++at) {
        const auto byte = static_cast<unsigned char>(text[at]);
        if ((byte & 0xC0) != 0x80) {
            return kNoUtf8;
        }
        code = (code << 6) | (byte & 0x3FU);
    }
    const bool isValid = code >= kSmallestOfSize[size] && code <= 0x10FFFF && !IsSurrogate(code);
    return isValid ? Utf8Character{code, size} : kNoUtf8;
}

}  // namespace zq

#endif  // QUAVERA_PLATFORM_UTF8_H_
