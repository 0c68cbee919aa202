#ifndef QUAVERA_PLATFORM_BASE64_CODEC_H_
#define QUAVERA_PLATFORM_BASE64_CODEC_H_

#include <cstddef>
#include <string_view>

namespace zq {

/// The number of characters of the base64 form of `size` bytes.
constexpr std::size_t Base64Size(std::size_t size) {
    return (size + 2) / 3 * 4;
}

/// Writes the base64 form of `bytes` to `text`, which has room for `Base64Size` characters. Returns
/// the place behind it.
char* WriteBase64(std::string_view bytes, char* text);

/// The number of bytes that a text of the form that `WriteBase64` makes stands for; any number, up
/// to the size of the text, where it has another form.
inline std::size_t DecodedSize(std::string_view text) {
    const std::size_t size = text.size() / 4 * 3;
    const bool hasPad = size > 0 && text[text.size() - 1] == '=';
    const bool hasTwo = hasPad && text[text.size() - 2] == '=';
    return size - (hasPad ? 1 : 0) - (hasTwo ? 1 : 0);
}

/// Reads a text exactly as `WriteBase64` writes it: the bytes go to `bytes`, where there is room
/// for `DecodedSize` of them. False for any other text, and then what is written there is
/// undefined.
bool ReadBase64(std::string_view text, char* bytes);

}  // namespace zq

#endif  // QUAVERA_PLATFORM_BASE64_CODEC_H_
