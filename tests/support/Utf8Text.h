#ifndef QUAVERA_TESTS_SUPPORT_UTF8_TEXT_H_
#define QUAVERA_TESTS_SUPPORT_UTF8_TEXT_H_

#include <cstddef>
#include <string>
#include <string_view>

/// UTF-8 in the plainest form, for tests only; it shares nothing with the code under test.

/// The UTF-8 form of a character up to 10FFFF.
inline std::string Utf8(char32_t code) {
    const auto byte = [](char32_t bits) {
        return static_cast<char>(static_cast<unsigned char>(bits));
    };
    if (code < 0x80) {
        return {byte(code)};
    }
    if (code < 0x800) {
        return {byte(0xC0 + code / 0x40), byte(0x80 + code % 0x40)};
    }
    if (code < 0x10000) {
        return {byte(0xE0 + code / 0x1000), byte(0x80 + code / 0x40 % 0x40),
                byte(0x80 + code % 0x40)};
    }
    return {byte(0xF0 + code / 0x40000), byte(0x80 + code / 0x1000 % 0x40),
            byte(0x80 + code / 0x40 % 0x40), byte(0x80 + code % 0x40)};
}

/// The number of bytes of the UTF-8 sequence that `text` begins with, 0 where there is none: the
/// table of RFC 3629, section 4.
inline std::size_t Utf8SequenceSize(std::string_view text) {
    struct Row {
        unsigned char first, firstLast, second, secondLast;
        std::size_t size;
    };
    constexpr Row kRows[] = {
        {0x00, 0x7F, 0x00, 0x00, 1}, {0xC2, 0xDF, 0x80, 0xBF, 2}, {0xE0, 0xE0, 0xA0, 0xBF, 3},
        {0xE1, 0xEC, 0x80, 0xBF, 3}, {0xED, 0xED, 0x80, 0x9F, 3}, {0xEE, 0xEF, 0x80, 0xBF, 3},
        {0xF0, 0xF0, 0x90, 0xBF, 4}, {0xF1, 0xF3, 0x80, 0xBF, 4}, {0xF4, 0xF4, 0x80, 0x8F, 4},
    };
    const auto isWithin = [text](std::size_t at, unsigned char first, unsigned char last) {
        const auto byte = static_cast<unsigned char>(text[at]);
        return byte >= first && byte <= last;
    };
    for (const Row& row : kRows) {
        if (text.size() < row.size || !isWithin(0, row.first, row.firstLast)) {
            continue;
        }
        bool fits = row.size == 1 || isWithin(1, row.second, row.secondLast);
        for (std::size_t at = 2; at < row.size; ++at) {
            fits = fits && isWithin(at, 0x80, 0xBF);
        }
        return fits ? row.size : 0;
    }
    return 0;
}

/// Whether XML 1.0 allows the character at all (production 2, Char).
inline bool IsXmlChar(char32_t code) {
    return code == 0x9 || code == 0xA || code == 0xD || (code >= 0x20 && code <= 0xD7FF) ||
           (code >= 0xE000 && code <= 0xFFFD) || (code >= 0x10000 && code <= 0x10FFFF);
}

#endif  // QUAVERA_TESTS_SUPPORT_UTF8_TEXT_H_
