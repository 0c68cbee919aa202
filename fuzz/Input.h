#ifndef QUAVERA_FUZZ_INPUT_H_
#define QUAVERA_FUZZ_INPUT_H_

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace fuzz {

/// The bytes that an input consists of, as text.
inline std::string_view AsText(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

/// Decisions, numbers and texts, taken from the front of an input. Behind its end there are zeros
/// only, and empty texts.
class Input {
 public:
    Input(const std::uint8_t* data, std::size_t size) : rest_(AsText(data, size)) {}

    bool IsAtEnd() const { return rest_.empty(); }

    unsigned int Byte() {
        if (rest_.empty()) {
            return 0;
        }
        const auto byte = static_cast<unsigned char>(rest_.front());
        rest_.remove_prefix(1);
        return byte;
    }
    bool Flag() { return Byte() % 2 == 1; }
    /// 0 to `count - 1`, for up to 256.
    std::size_t Below(std::size_t count) { return Byte() % count; }
    std::uint32_t Number() {
        std::uint32_t number = 0;
        for (int byte = 0; byte < 4; ++byte) {
            number = number << 8 | Byte();
        }
        return number;
    }
    /// Mostly small; larger ones stand behind a byte of their own.
    int Integer() {
        const unsigned int byte = Byte();
        return byte == 0xFF ? static_cast<int>(Number()) : static_cast<int>(byte) - 20;
    }
    std::string_view Take(std::size_t size) {
        const std::string_view taken = rest_.substr(0, size);
        rest_.remove_prefix(taken.size());
        return taken;
    }
    /// Behind its length, of up to 255 bytes.
    std::string Text() { return std::string(Take(Byte())); }
    std::string_view Rest() { return Take(rest_.size()); }

    template <class Item>
    const Item& Pick(const std::vector<Item>& items) {
        return items[Below(items.size())];
    }

 private:
    std::string_view rest_;
};

/// A copy in a heap block of its exact size, so that a sanitizer sees each byte that is read or
/// written outside of it.
class Block {
 public:
    explicit Block(std::size_t size) : size_(size), bytes_(std::make_unique<char[]>(size)) {}
    explicit Block(std::string_view bytes) : Block(bytes.size()) {
        std::copy(bytes.begin(), bytes.end(), bytes_.get());
    }

    char* Data() { return bytes_.get(); }
    std::size_t Size() const { return size_; }
    std::string_view View() const { return {bytes_.get(), size_}; }

 private:
    std::size_t size_;
    std::unique_ptr<char[]> bytes_;
};

}  // namespace fuzz

#endif  // QUAVERA_FUZZ_INPUT_H_
