#ifndef QUAVERA_BENCH_FLOOR_DIGITS_H_
#define QUAVERA_BENCH_FLOOR_DIGITS_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace bench::floor {

constexpr std::array<char, 200> MakeDigitPairs() {
    std::array<char, 200> digits{};
    for (std::size_t value = 0; value < 100; ++value) {
        digits[2 * value] = static_cast<char>('0' + value / 10);
        digits[2 * value + 1] = static_cast<char>('0' + value % 10);
    }
    return digits;
}

inline constexpr std::array<char, 200> kDigitPairs = MakeDigitPairs();

/// The number's digits, ending ahead of `end`; where they begin.
inline char* PutNumber(int value, char* end) {
    std::uint32_t rest =
        value < 0 ? 0U - static_cast<std::uint32_t>(value) : static_cast<std::uint32_t>(value);
    for (; rest >= 100; rest /= 100) {
        end -= 2;
        std::memcpy(end, &kDigitPairs[std::size_t{2} * (rest % 100)], 2);
    }
    if (rest >= 10) {
        end -= 2;
        std::memcpy(end, &kDigitPairs[std::size_t{2} * rest], 2);
    } else {
        *--end = static_cast<char>('0' + rest);
    }
    if (value < 0) {
        *--end = '-';
    }
    return end;
}

}  // namespace bench::floor

#endif  // QUAVERA_BENCH_FLOOR_DIGITS_H_
