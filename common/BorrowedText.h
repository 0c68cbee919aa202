#ifndef QUAVERA_COMMON_BORROWED_TEXT_H_
#define QUAVERA_COMMON_BORROWED_TEXT_H_

#include <string>
#include <string_view>

#include "base/TextBuffer.h"

/// The conversions of common/TextConversion.h on text that is borrowed for the call. Results and
/// failures are as stated there; the public functions only pass their strings on.
namespace quavera {

/// `convertFromUtf8`.
std::wstring Widen(std::string_view utf8);
/// `convertFromUtf8` of what stands ahead of the first zero byte: decoded bytes end there.
std::wstring WidenUpToZero(std::string_view utf8);
/// `convertFromUtf8` by the C library's converter, whatever the text is.
std::wstring ConvertToWide(std::string_view utf8);
/// `DecodeAndConvertFromUtf8`.
std::wstring WidenBase64(std::string_view base64);

/// `convertToUtf8`.
std::string Narrow(std::wstring_view wide);
/// Appends `convertToUtf8`'s result.
void AppendNarrow(std::wstring_view wide, TextBuffer* out);

/// UTF-8, as the C library's converter names it.
constexpr char kUtf8[] = "UTF-8";

/// `convertToCodePage`.
std::string ConvertToCodePage(const char* codePage, std::wstring_view wide);

/// `base64EncodeString` and `base64DecodeString`.
std::string EncodeBase64(std::string_view data);
std::string DecodeBase64(std::string_view base64);

}  // namespace quavera

#endif  // QUAVERA_COMMON_BORROWED_TEXT_H_
