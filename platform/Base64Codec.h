#ifndef QUAVERA_PLATFORM_BASE64_CODEC_H_
#define QUAVERA_PLATFORM_BASE64_CODEC_H_

#include <cstddef>
#include <string_view>

namespace zq {

/// The number of characters of the base64 form of `size` bytes.
constexpr std::size_t Base64Size(std::size_t size) {
    return (size / 3 + (size % 3 == 0 ? 0 : 1)) * 4;
}

/// Writes the base64 form of `bytes` to `text`, which has room for `Base64Size` characters.
void WriteBase64(std::string_view bytes, char* text);

}  // namespace zq

#endif  // QUAVERA_PLATFORM_BASE64_CODEC_H_
