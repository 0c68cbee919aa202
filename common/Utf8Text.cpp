// UTF-8 and wide text. Nearly all text is strict UTF-8 up to 10FFFF without zero bytes, which is
// converted directly: saves 83 % of FromXML and 92 % of a log text, as opening the converter alone
// costs several times what that does. Text that is anything else is left to the converter.

#include <algorithm>
#include <cstdint>

#include "base/SmallText.h"
#include "base/Speed.h"
#include "base/Utf8.h"
#include "common/BorrowedText.h"
#include "common/TextConversion.h"

namespace quavera {
namespace {

// Plain characters, ASCII other than zero, are converted in steps of 16, or 8 in a short text; the
// last step overlaps the one before it. The compiler makes a handful of vector instructions of
// each. Saves 13 % of FromXML and 25 % of a log text: the steps of 16 alone 3 % and 7 %, those of 8
// 4 % and 6 %, the overlap 4 % and 7 %.

/// Whether the bytes of a step are ASCII characters other than zero. Looking at words of them saves
/// 12 % of FromXML and 30 % of a log text.
template <std::size_t kStep>
bool ArePlain(const char* text) {
    constexpr std::uint64_t kOnes = 0x0101010101010101;
    constexpr std::uint64_t kHighBits = 0x8080808080808080;
    std::uint64_t outside = 0;
    for (std::size_t at = 0; at < kStep; at += sizeof outside) {
        const auto bytes = LoadWord<std::uint64_t>(text + at);
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
        all |= LoadWord<std::uint64_t>(text + at);
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
    constexpr bool kHasVectors = sizeof(void*) > 4;  // most have none
    return kHasVectors && text.size() >= 16 ? ConvertSteps<16>(text, to)
           : text.size() >= 8               ? ConvertSteps<8>(text, to)
                                            : 0;
}

/// How far a direct conversion came: to the end, or up to a character that it leaves alone.
struct Progress {
    std::size_t read;
    std::size_t written;
};

/// Converts on after the plain beginning, whose characters are counted in.
Progress WidenRest(std::string_view utf8, std::size_t start, wchar_t* wide) {
    wchar_t* to = wide + start;
    const char* const end = utf8.data() + utf8.size();
    const char* at = utf8.data() + start;
    while (at != end) {
        const Utf8Character character = FirstCharacter({at, static_cast<std::size_t>(end - at)});
        if (character.size == 0 || character.code == 0) {
            break;
        }
        *to++ = static_cast<wchar_t>(character.code);
        at += character.size;
    }
    return {static_cast<std::size_t>(at - utf8.data()), static_cast<std::size_t>(to - wide)};
}

/// Writes the characters of `utf8` to `wide`, which has room for one for each byte. Inline, it
/// saves 2 % of a short `convertFromUtf8`.
QUAVERA_INLINE_FOR_SPEED inline Progress WidenDirectly(std::string_view utf8, wchar_t* wide) {
    const std::size_t plain = ConvertPlain(utf8, wide);
    return plain == utf8.size() ? Progress{plain, plain} : WidenRest(utf8, plain, wide);
}

/// Ends what is not one character for each byte: cuts `*wide` to what was written, or has the text
/// converted.
void FinishWide(std::string_view utf8, Progress progress, std::wstring* wide) {
    if (progress.read == utf8.size()) {
        wide->resize(progress.written);
    } else {
        *wide = ConvertToWide(utf8);
    }
}

/// The place after the UTF-8 form of `wide`, which goes to `to`; null for a text that only the
/// converter can tell the result of.
char* NarrowRest(std::wstring_view wide, char* to) {
    for (const wchar_t character : wide) {
        const auto code = static_cast<char32_t>(character);
        to = PutCharacter(code, to);
        if (to == nullptr || code == 0) {
            return nullptr;
        }
    }
    return to;
}

/// The same; there is room for `kLargestUtf8` bytes for each character.
char* NarrowDirectly(std::wstring_view wide, char* to) {
    const std::size_t plain = ConvertPlain(wide, to);
    return plain == wide.size() ? to + plain : NarrowRest(wide.substr(plain), to + plain);
}

/// What `Widen` does.
QUAVERA_INLINE_FOR_SPEED inline std::wstring WidenHere(std::string_view utf8) {
    std::wstring wide(utf8.size(), L'\0');
    const Progress progress = WidenDirectly(utf8, wide.data());
    if (progress.written != utf8.size()) {
        FinishWide(utf8, progress, &wide);
    }
    return wide;
}

}  // namespace

std::wstring Widen(std::string_view utf8) {
    return WidenHere(utf8);
}

/// Looking for a zero byte only where the conversion has stopped saves 4 % of FromXML.
std::wstring WidenUpToZero(std::string_view utf8) {
    std::wstring wide(utf8.size(), L'\0');
    const Progress progress = WidenDirectly(utf8, wide.data());
    if (progress.written != utf8.size()) {
        const std::size_t end = std::min(utf8.find('\0', progress.read), utf8.size());
        FinishWide(utf8.substr(0, end), progress, &wide);
    }
    return wide;
}

std::string Narrow(std::wstring_view wide) {
    TextBuffer utf8;
    AppendNarrow(wide, &utf8);
    return std::string(utf8.View());  // without the buffer's room
}

/// In place, without a string in between: saves 63 % of a log text.
void AppendNarrow(std::wstring_view wide, TextBuffer* out) {
    char* const end = NarrowDirectly(wide, out->Reserve(wide.size() * kLargestUtf8));
    if (end == nullptr) {
        out->Append(ConvertToCodePage(kUtf8, wide));
    } else {
        out->SetEnd(end);
    }
}

}  // namespace quavera

/// Here, and not beside the other conversions: inlined, it has no stack to guard. Saves 2 % of a
/// short text.
std::wstring convertFromUtf8(std::string text) {
    return quavera::WidenHere(text);
}
