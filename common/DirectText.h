#ifndef QUAVERA_COMMON_DIRECT_TEXT_H_
#define QUAVERA_COMMON_DIRECT_TEXT_H_

#include <cstddef>
#include <string>
#include <string_view>

/// The conversions between UTF-8 and wide text for what nearly all text is: strict UTF-8 up to
/// 10FFFF without zero bytes. They take none of the C library's converter's cost of opening; what
/// is anything else is left to it.

/// What the functions below return for text that only the converter can tell the result of.
inline constexpr std::size_t kUnusualText = static_cast<std::size_t>(-1);

/// Writes the characters of `utf8` to `wide`, which has room for one for each byte; returns their
/// number.
std::size_t WidenDirectly(std::string_view utf8, wchar_t* wide);

/// Writes the UTF-8 form of `wide` to `utf8`, which has room for four bytes for each character;
/// returns the number of bytes.
std::size_t NarrowDirectly(std::wstring_view wide, char* utf8);

/// Ends what `WidenText` began where the text is not one character for each byte: cuts `*wide` to
/// `size`, or has unusual text converted.
void FinishWideText(std::string_view utf8, std::wstring (*convert)(std::string_view),
                    std::size_t size, std::wstring* wide);

/// The wide string of `utf8`, made by `convert` where the text is unusual.
inline std::wstring WidenText(std::string_view utf8, std::wstring (*convert)(std::string_view)) {
    std::wstring wide(utf8.size(), L'\0');
    const std::size_t size = WidenDirectly(utf8, wide.data());
    if (size != utf8.size()) {
        FinishWideText(utf8, convert, size, &wide);
    }
    return wide;
}

/// `DecodeAndConvertFromUtf8`, without a copy of the text.
std::wstring DecodeDisplayText(std::string_view base64);

/// The same of the bytes that the base64 text stands for.
std::wstring WidenDisplayText(std::string_view utf8);

#endif  // QUAVERA_COMMON_DIRECT_TEXT_H_
