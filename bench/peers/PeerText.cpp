#include "bench/peers/PeerText.h"

#include <openssl/evp.h>

#include <cstdlib>

#include "bench/shared/Iconv.h"

namespace bench {
namespace {

unsigned char* Bytes(std::vector<char>& buffer) {
    return reinterpret_cast<unsigned char*>(buffer.data());
}

const unsigned char* Bytes(std::string_view text) {
    return reinterpret_cast<const unsigned char*>(text.data());
}

template <class Unit>
void Provide(std::vector<Unit>& buffer, std::size_t size) {
    if (buffer.size() < size) {
        buffer.resize(size);
    }
}

}  // namespace

PeerText::PeerText() : converter_(OpenUtf8ToWide()) {}

PeerText::~PeerText() {
    iconv_close(converter_);
}

std::string_view PeerText::Encode(const std::string& text) {
    Provide(bytes_, (text.size() + 2) / 3 * 4 + 1);
    const int size = EVP_EncodeBlock(Bytes(bytes_), Bytes(text), static_cast<int>(text.size()));
    return {bytes_.data(), static_cast<std::size_t>(size)};
}

std::wstring_view PeerText::DecodeToWide(std::string_view text) {
    Provide(bytes_, text.size());
    const int decoded = EVP_DecodeBlock(Bytes(bytes_), Bytes(text), static_cast<int>(text.size()));
    if (decoded < 0) {
        std::abort();
    }
    // Padding counts as zero bytes there.
    auto size = static_cast<std::size_t>(decoded);
    for (; !text.empty() && text.back() == '='; text.remove_suffix(1)) {
        --size;
    }
    return ToWide({bytes_.data(), size});
}

std::wstring_view PeerText::ToWide(std::string_view text) {
    Provide(characters_, text.size());
    return {characters_.data(), Widen(converter_, text, characters_.data())};
}

}  // namespace bench
