#ifndef QUAVERA_FUZZ_NAIVE_CODECS_H_
#define QUAVERA_FUZZ_NAIVE_CODECS_H_

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>

/// Codecs in the plainest form, which share nothing with the code under test.
namespace fuzz {

inline constexpr std::string_view kBase64Alphabet =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

/// A character for each six bits.
inline std::string NaiveBase64(std::string_view bytes) {
    std::string text;
    unsigned int bits = 0;
    unsigned int count = 0;
    for (const char byte : bytes) {
        bits = bits << 8 | static_cast<unsigned char>(byte);
        for (count += 8; count >= 6; count -= 6) {
            text += kBase64Alphabet[bits >> (count - 6) & 63U];
        }
    }
    if (count > 0) {
        text += kBase64Alphabet[bits << (6 - count) & 63U];
    }
    return text.append((4 - text.size() % 4) % 4, '=');
}

/// The bytes that a text stands for; none where it is malformed. White space is skipped, and the
/// unused bits of the last character do not count.
inline std::optional<std::string> NaiveBase64Bytes(std::string_view text) {
    std::string characters;
    std::copy_if(text.begin(), text.end(), std::back_inserter(characters), [](char character) {
        return std::string_view(" \t\n\v\f\r").find(character) == std::string_view::npos;
    });
    if (characters.size() % 4 != 0) {
        return std::nullopt;
    }
    for (int padding = 0; padding < 2 && !characters.empty() && characters.back() == '=';
         ++padding) {
        characters.pop_back();
    }
    std::string bytes;
    unsigned int bits = 0;
    unsigned int count = 0;
    for (const char character : characters) {
        const std::size_t value = kBase64Alphabet.find(character);
        if (value == std::string_view::npos) {
            return std::nullopt;
        }
        bits = bits << 6 | static_cast<unsigned int>(value);
        count += 6;
        if (count >= 8) {
            count -= 8;
            bytes += static_cast<char>(static_cast<unsigned char>(bits >> count & 0xFFU));
        }
    }
    return bytes;
}

inline std::string CutAtZero(const std::string& text) {
    return text.substr(0, text.find('\0'));
}

/// The character whose code up to two hexadecimal digits are, behind white space.
inline char NaiveCharacter(std::string_view text) {
    unsigned int code = 0;
    std::size_t at = 0;
    while (at < text.size() &&
           std::string_view(" \t\n\v\f\r").find(text[at]) != std::string_view::npos) {
        ++at;
    }
    for (const char digit : text.substr(at, 2)) {
        const std::size_t value = std::string_view("0123456789abcdefABCDEF").find(digit);
        if (value == std::string_view::npos) {
            break;
        }
        code = code * 16 + static_cast<unsigned int>(value < 16 ? value : value - 6);
    }
    return static_cast<char>(static_cast<unsigned char>(code));
}

/// What a text's decimal form says of a number, modulo 2^32.
inline int NaiveNumber(const std::string& text) {
    const std::size_t start = std::min(text.find_first_not_of(' '), text.size());
    const bool isSigned = start < text.size() && (text[start] == '-' || text[start] == '+');
    std::int64_t value = 0;
    for (std::size_t at = start + (isSigned ? 1 : 0); at < text.size(); ++at) {
        const std::size_t digit = std::string_view("0123456789").find(text[at]);
        if (digit == std::string_view::npos) {
            break;
        }
        value = (value * 10 + static_cast<std::int64_t>(digit)) % 0x100000000;
    }
    if (isSigned && text[start] == '-') {
        value = (0x100000000 - value) % 0x100000000;
    }
    return static_cast<int>(value >= 0x80000000 ? value - 0x100000000 : value);
}

}  // namespace fuzz

#endif  // QUAVERA_FUZZ_NAIVE_CODECS_H_
