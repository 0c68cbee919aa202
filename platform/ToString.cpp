#include "platform/ToString.h"

#include <array>
#include <charconv>
#include <limits>

namespace zq {
namespace {

template <class Number>
std::string Decimal(Number value) {
    // The digits that every value has, one more, and the sign.
    std::array<char, std::numeric_limits<Number>::digits10 + 2> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    return {digits.data(), end};
}

}  // namespace

std::string ToString(bool value) {
    return value ? TRUE_STRING : "false";
}

std::string ToString(int value) {
    return Decimal(value);
}

std::string ToString(unsigned int value) {
    return Decimal(value);
}

std::string ToString(unsigned long value) {
    return Decimal(value);
}

}  // namespace zq
