#include <algorithm>
#include <new>

#include "common/BorrowedText.h"
#include "platform/zqshared.h"

namespace quavera {
namespace {

constexpr long kMode = 2;  // the codec's only line format: none

/// Gives `buffer` zero bytes to be written to; false where there is no memory for them.
bool Allocate(std::string* buffer, std::size_t size) {
    try {
        buffer->resize(size);
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

/// Cuts a buffer that a codec has written to: it counts as a zero-terminated string.
void CutAtZero(std::string* buffer) {
    buffer->resize(std::min(buffer->find('\0'), buffer->size()));
}

}  // namespace

std::string EncodeBase64(std::string_view data) {
    if (data.empty()) {
        return {};
    }
    Base64Encoder encoder;
    const auto size = static_cast<long>(data.size());
    const long capacity = encoder.EncodeGetLength(size, kMode);
    std::string text;
    if (!Allocate(&text, static_cast<std::size_t>(capacity) + 1)) {
        return {};
    }
    long length = capacity;
    encoder.Encode(data.data(), size, text.data(), &length, kMode);
    text.resize(static_cast<std::size_t>(std::clamp(length, 0L, capacity)));
    CutAtZero(&text);  // an encoder may count a terminator of its own
    return text;
}

std::string DecodeBase64(std::string_view base64) {
    if (base64.empty()) {
        return {};
    }
    std::string data;
    if (!Allocate(&data, base64.size())) {
        return {};
    }
    auto size = static_cast<long>(base64.size());
    if (Base64Encoder().Decode(base64.data(), size, data.data(), &size) == 0) {
        return {};
    }
    CutAtZero(&data);  // the length produced is not what ends it
    return data;
}

std::wstring WidenBase64(std::string_view base64) {
    // Few are longer. Doing without a string saves 23 % of FromXML after ParseXml.
    constexpr std::size_t kTypicalSize = 256;
    if (base64.empty() || base64.size() > kTypicalSize) {
        return Widen(DecodeBase64(base64));
    }
    char bytes[kTypicalSize] = {};  // zeros: see DecodeBase64
    const auto capacity = static_cast<long>(base64.size());
    long size = capacity;
    if (Base64Encoder().Decode(base64.data(), capacity, bytes, &size) == 0) {
        return {};
    }
    return WidenUpToZero({bytes, static_cast<std::size_t>(std::clamp(size, 0L, capacity))});
}

}  // namespace quavera
