#include "common/DirectText.h"

#include <cstdint>

#include "base/SmallText.h"
#include "base/Utf8.h"
#include "common/TextConversion.h"
#include "platform/zqshared.h"

namespace {

/// Whether a character is an ASCII character other than zero.
bool IsPlain(char32_t code) {
    return code - 1 < 0x7F;
}

char32_t Code(char byte) {
    return static_cast<unsigned char>(byte);
}

// Plain characters are converted in steps of 16, or 8 in a short text; the last step overlaps the
// one before it. The compiler makes a handful of vector instructions of each.

/// Whether the bytes of a step are ASCII characters other than zero. Words of them are looked at.
template <std::size_t kStep>
bool ArePlain(const char* text) {
    constexpr std::uint64_t kOnes = 0x0101010101010101;
    constexpr std::uint64_t kHighBits = 0x8080808080808080;
    std::uint64_t outside = 0;
    for (std::size_t at = 0; at < kStep; at += sizeof outside) {
        const auto bytes = zq::LoadWord<std::uint64_t>(text + at);
        outside |= bytes | (bytes - kOnes);  // without a high bit set, only a zero byte borrows one
    }
    return (outside & kHighBits) == 0;
}

/// Whether the characters of a step are ASCII characters, zeros included.
template <std::size_t kStep>
bool AreAscii(const wchar_t* text) {
    constexpr std::uint64_t kBeyondAscii = 0xFFFFFF80FFFFFF80;
    std::uint64_t all = 0;
    for (std::size_t at = 0; at < kStep; at += sizeof all / sizeof *text) {
        all |= zq::LoadWord<std::uint64_t>(text + at);
    }
    return (all & kBeyondAscii) == 0;
}

/// Converts a step if all of it is plain; tells whether it did.
template <std::size_t kStep>
bool ConvertStep(const char* __restrict from, wchar_t* __restrict to) {
    if (!ArePlain<kStep>(from)) {
        return false;
    }
    for (std::size_t at = 0; at < kStep; ++at) {
        to[at] = static_cast<unsigned char>(from[at]);
    }
    return true;
}

template <std::size_t kStep>
bool ConvertStep(const wchar_t* __restrict from, char* __restrict to) {
    if (!AreAscii<kStep>(from)) {
        return false;
    }
    for (std::size_t at = 0; at < kStep; ++at) {
        to[at] = static_cast<char>(from[at]);
    }
    return ArePlain<kStep>(to);  // zeros are found in fewer words
}

template <std::size_t kStep, class From, class To>
std::size_t ConvertSteps(std::basic_string_view<From> text, To* to) {
    const std::size_t last = text.size() - kStep;
    std::size_t at = 0;
    do {
        if (!ConvertStep<kStep>(&text[at], to + at)) {
            return at;
        }
        at += kStep;
    } while (at < last);
    // `at` may be beyond the end, and a text of one step be done: looking first costs all others.
    return ConvertStep<kStep>(&text[last], to + last) ? text.size() : last;
}

/// Converts the plain characters that a text begins with, or some of them; returns their number.
template <class From, class To>
std::size_t ConvertPlain(std::basic_string_view<From> text, To* to) {
    return text.size() >= 16  ? ConvertSteps<16>(text, to)
           : text.size() >= 8 ? ConvertSteps<8>(text, to)
                              : 0;
}

char Trail(char32_t code, unsigned shift) {
    return static_cast<char>(0x80 | ((code >> shift) & 0x3F));
}

/// Writes a character; the place behind it, or null for what is none, and for a zero.
char* PutCharacter(char32_t code, char* to) {
    if (code < 0x80) {
        *to++ = static_cast<char>(code);
        return code == 0 ? nullptr : to;
    }
    if (code < 0x800) {
        *to++ = static_cast<char>(0xC0 | (code >> 6));
    } else if (code < 0x10000) {
        if (zq::IsSurrogate(code)) {
            return nullptr;
        }
        *to++ = static_cast<char>(0xE0 | (code >> 12));
        *to++ = Trail(code, 6);
    } else {
        if (code > 0x10FFFF) {
            return nullptr;
        }
        *to++ = static_cast<char>(0xF0 | (code >> 18));
        *to++ = Trail(code, 12);
        *to++ = Trail(code, 6);
    }
    *to++ = Trail(code, 0);
    return to;
}

/// `WidenDirectly` of what is behind the plain beginning, whose characters are counted in. A
/// function of its own, so that plain texts do not pay for its registers.
[[gnu::noinline]] std::size_t WidenRest(std::string_view utf8, std::size_t start, wchar_t* wide) {
    wchar_t* to = wide + start;
    const char* const end = utf8.data() + utf8.size();
    for (const char* at = utf8.data() + start; at != end;) {
        if (IsPlain(Code(*at))) {
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

/// `NarrowDirectly` likewise.
[[gnu::noinline]] std::size_t NarrowRest(std::wstring_view wide, std::size_t start, char* utf8) {
    char* to = utf8 + start;
    for (const wchar_t character : wide.substr(start)) {
        to = PutCharacter(static_cast<char32_t>(character), to);
        if (to == nullptr) {
            return kUnusualText;
        }
    }
    return static_cast<std::size_t>(to - utf8);
}

}  // namespace

std::size_t WidenDirectly(std::string_view utf8, wchar_t* wide) {
    const std::size_t start = ConvertPlain(utf8, wide);
    return start == utf8.size() ? start : WidenRest(utf8, start, wide);
}

std::size_t NarrowDirectly(std::wstring_view wide, char* utf8) {
    const std::size_t start = ConvertPlain(wide, utf8);
    return start == wide.size() ? start : NarrowRest(wide, start, utf8);
}

void FinishWideText(std::string_view utf8, std::wstring (*convert)(std::string_view),
                    std::size_t size, std::wstring* wide) {
    if (size == kUnusualText) {
        *wide = convert(utf8);
    } else {
        wide->resize(size);
    }
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
    return WidenText(utf8, [](std::string_view unusual) {
        // As everywhere, decoded bytes end at the first zero.
        return convertFromUtf8(std::string(unusual.substr(0, unusual.find('\0'))));
    });
}
