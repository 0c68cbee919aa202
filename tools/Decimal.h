#ifndef QUAVERA_TOOLS_DECIMAL_H_
#define QUAVERA_TOOLS_DECIMAL_H_

#include <charconv>
#include <optional>
#include <string_view>
#include <system_error>

namespace tool {

/// The decimal number that a whole text is, a minus sign ahead of it included; nothing if it is
/// none, or one that the type does not have.
template <class Integer>
std::optional<Integer> ParseWholeDecimal(std::string_view text) {
    Integer value = 0;
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, value);
    const bool isNumber = result.ec == std::errc() && result.ptr == end;
    return isNumber ? std::optional<Integer>(value) : std::nullopt;
}

}  // namespace tool

#endif  // QUAVERA_TOOLS_DECIMAL_H_
