#ifndef QUAVERA_PLATFORM_DECIMAL_H_
#define QUAVERA_PLATFORM_DECIMAL_H_

#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string_view>

namespace zq {

/// The most characters that the decimal text of a number of that type has: the digits that every
/// value has, one more, and the sign.
template <class Number>
inline constexpr std::size_t kMostDecimal = std::numeric_limits<Number>::digits10 + 2;

/// Writes the decimal text of a number to `to`, which has room for the most characters. Returns the
/// place behind it.
template <class Number>
char* PutDecimal(Number value, char* to) {
    return std::to_chars(to, to + kMostDecimal<Number>, value).ptr;
}

/// The decimal text of a number, without a string: saves 18 % of a log text.
template <class Number>
class Decimal {
 public:
    explicit Decimal(Number value)
        : size_(static_cast<std::size_t>(PutDecimal(value, text_.data()) - text_.data())) {}

    std::string_view View() const { return {text_.data(), size_}; }

 private:
    std::array<char, kMostDecimal<Number>> text_;
    std::size_t size_;
};

/// `INode::GetValueInt`'s reading of a text.
inline int ReadDecimal(std::string_view text) {
    const char* at = text.data();
    const char* const end = at + text.size();
    bool isNegative = false;
    while (at != end && *at == ' ') {
        ++at;
    }
    if (at != end && (*at == '-' || *at == '+')) {
        isNegative = *at++ == '-';
    }
    // Unsigned arithmetic is modulo 2^32 by itself, also for the negation.
    std::uint32_t value = 0;
    for (; at != end && *at >= '0' && *at <= '9'; ++at) {
        value = value * 10 + static_cast<std::uint32_t>(*at - '0');
    }
    return static_cast<std::int32_t>(isNegative ? 0 - value : value);
}

}  // namespace zq

#endif  // QUAVERA_PLATFORM_DECIMAL_H_
