#include "common/DirectText.h"

#include <algorithm>
#include <cstdint>

#include "base/SmallText.h"
#include "base/Utf8.h"
#include "common/TextConversion.h"
#include "platform/zqshared.h"

namespace {

/// Whether a byte is an ASCII character other than zero.
bool IsPlain(char byte) {
    return static_cast<unsigned char>(byte) - 1U < 0x7F;
}

/// Whether the eight bytes at `text` are ASCII characters other than zero.
bool AreEightPlain(const char* text) {
    constexpr std::uint64_t kOnes = 0x0101010101010101;
    constexpr std::uint64_t kHighBits = 0x8080808080808080;
    const auto bytes = zq::LoadWord<std::uint64_t>(text);
    // Without a high bit set, only a zero byte borrows one.
    return ((bytes | (bytes - kOnes)) & kHighBits) == 0;
}

/// Whether `text` consists of ASCII characters other than zero.
bool IsPlain(std::string_view text) {
    constexpr std::size_t kStep = 8;
    if (text.size() < kStep) {
        return std::all_of(text.begin(), text.end(), [](char byte) { return IsPlain(byte); });
    }
    const std::size_t last = text.size() - kStep;
    for (std::size_t at = 0; at < last; at += kStep) {
        if (!AreEightPlain(text.data() + at)) {
            return false;
        }
    }
    return AreEightPlain(text.data() + last);
}

/// One wide character for each byte: with nothing in the way, the compiler does it by vectors.
void WidenBytes(const char* __restrict bytes, std::size_t size, wchar_t* __restrict wide) {
    for (std::size_t at = 0; at < size; ++at) {
        wide[at] = static_cast<unsigned char>(bytes[at]);
    }
}

/// Whether `text` consists of ASCII characters other than zero. All are looked at: the compiler
/// does it by vectors.
bool IsPlain(std::wstring_view text) {
    std::uint32_t outside = 0;
    for (const wchar_t character : text) {
        outside |= static_cast<std::uint32_t>(character) - 1U;
        outside |= static_cast<std::uint32_t>(character);
    }
    return outside < 0x80;
}

/// One byte for each ASCII character.
void NarrowCharacters(const wchar_t* __restrict characters, std::size_t size,
                      char* __restrict bytes) {
    for (std::size_t at = 0; at < size; ++at) {
        bytes[at] = static_cast<char>(characters[at]);
    }
}

char Trail(char32_t code, unsigned shift) {
    return static_cast<char>(0x80 | ((code >> shift) & 0x3F));
}

/// Writes a character beyond ASCII; the place behind it.
char* PutManyBytes(char32_t code, char* to) {
    if (code < 0x800) {
        *to++ = static_cast<char>(0xC0 | (code >> 6));
    } else if (code < 0x10000) {
        *to++ = static_cast<char>(0xE0 | (code >> 12));
        *to++ = Trail(code, 6);
    } else {
        *to++ = static_cast<char>(0xF0 | (code >> 18));
        *to++ = Trail(code, 12);
        *to++ = Trail(code, 6);
    }
    *to++ = Trail(code, 0);
    return to;
}

}  // namespace

std::size_t WidenDirectly(std::string_view utf8, wchar_t* wide) {
    if (IsPlain(utf8)) {
        WidenBytes(utf8.data(), utf8.size(), wide);
        return utf8.size();
    }
    wchar_t* to = wide;
    for (const char *at = utf8.data(), *const end = at + utf8.size(); at != end;) {
        if (IsPlain(*at)) {
            *to++ = static_cast<wchar_t>(*at++);
            continue;
        }
        const zq::Utf8Character character =
            zq::FirstCharacter({at, static_cast<std::size_t>(end - at)});
        if (character.size < 2) {  // no UTF-8, or a zero byte
            return kUnusualText;
        }
        *to++ = static_cast<wchar_t>(character.code);
        at += character.size;
    }
    return static_cast<std::size_t>(to - wide);
}

std::size_t NarrowDirectly(std::wstring_view wide, char* utf8) {
    if (IsPlain(wide)) {
        NarrowCharacters(wide.data(), wide.size(), utf8);
        return wide.size();
    }
    char* to = utf8;
    for (const wchar_t character : wide) {
        const auto code = static_cast<char32_t>(character);
        if (code - 1 < 0x7F) {
            *to++ = static_cast<char>(code);
        } else if (code == 0 || code > 0x10FFFF || zq::IsSurrogate(code)) {
            return kUnusualText;
        } else {
            to = PutManyBytes(code, to);
        }
    }
    return static_cast<std::size_t>(to - utf8);
}

std::wstring WidenText(std::string_view utf8, bool* isUnusual) {
    std::wstring result(utf8.size(), L'\0');
    const std::size_t size = WidenDirectly(utf8, result.data());
    *isUnusual = size == kUnusualText;
    if (size < result.size()) {
        result.resize(size);
    }
    return result;
}

std::wstring DecodeDisplayText(std::string_view base64) {
    constexpr std::size_t kTypicalSize = 256;  // few are longer
    char utf8[kTypicalSize];
    long size = kTypicalSize;
    if (base64.size() <= kTypicalSize &&
        Base64Encoder().Decode(base64.data(), static_cast<long>(base64.size()), utf8, &size) != 0) {
        return WidenDisplayText({utf8, static_cast<std::size_t>(size)});
    }
    return DecodeAndConvertFromUtf8(std::string(base64));
}

std::wstring WidenDisplayText(std::string_view utf8) {
    bool isUnusual = false;
    std::wstring result = WidenText(utf8, &isUnusual);
    if (isUnusual) {
        // As everywhere, decoded bytes end at the first zero.
        result = convertFromUtf8(std::string(utf8.substr(0, utf8.find('\0'))));
    }
    return result;
}
