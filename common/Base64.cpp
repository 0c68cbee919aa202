#include <algorithm>
#include <new>
#include <string>

#include "common/TextConversion.h"
#include "platform/zqshared.h"

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

}  // namespace

std::string base64EncodeString(std::string data) {
    if (data.empty()) {
        return {};
    }
    Base64Encoder encoder;
    const auto size = static_cast<long>(data.size());
    long length = encoder.EncodeGetLength(size, kMode);
    std::string text;
    // One more character than is encoded: an encoder may end its text with a zero byte.
    if (!Allocate(&text, static_cast<std::size_t>(length) + 1)) {
        return {};
    }
    encoder.Encode(data.data(), size, text.data(), &length, kMode);
    text.resize(static_cast<std::size_t>(length));
    return text;
}

std::string base64EncodeString(std::string* data) {
    return base64EncodeString(*data);
}

std::string base64DecodeString(std::string text) {
    if (text.empty()) {
        return {};
    }
    const auto size = static_cast<long>(text.size());
    std::string data;
    if (!Allocate(&data, text.size())) {
        return {};
    }
    long capacity = size;
    if (Base64Encoder().Decode(text.data(), size, data.data(), &capacity) == 0) {
        return {};
    }
    // The buffer counts as a zero-terminated string: the length produced is not what ends it.
    data.resize(std::min(data.find('\0'), data.size()));
    return data;
}
