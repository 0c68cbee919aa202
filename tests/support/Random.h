#ifndef QUAVERA_TESTS_SUPPORT_RANDOM_H_
#define QUAVERA_TESTS_SUPPORT_RANDOM_H_

#include <cstddef>
#include <random>
#include <string>
#include <vector>

/// A seeded source that yields the same sequence on every platform (the standard library's
/// distributions do not).
class Random {
 public:
    explicit Random(unsigned int seed) : engine_(seed) {}

    /// 0 to `count - 1`.
    std::size_t Below(std::size_t count) { return engine_() % count; }
    bool OneIn(std::size_t count) { return Below(count) == 0; }
    char Byte() { return static_cast<char>(static_cast<unsigned char>(Below(256))); }

    std::string Bytes(std::size_t count) {
        std::string bytes;
        while (bytes.size() < count) {
            bytes += Byte();
        }
        return bytes;
    }

    template <class Item>
    const Item& Pick(const std::vector<Item>& items) {
        return items[Below(items.size())];
    }

 private:
    std::mt19937 engine_;
};

#endif  // QUAVERA_TESTS_SUPPORT_RANDOM_H_
