#ifndef QUAVERA_RECORDS_ROW_NAME_H_
#define QUAVERA_RECORDS_ROW_NAME_H_

#include <cstddef>
#include <string>
#include <string_view>

/// The name of an element, or the label of a line, as it stands at its row: a literal.
///
/// Where code is compiled for size, a view of a literal is made by a call, in memory, which makes
/// the compiler protect the stack of each function with rows. This is two constants: saves 2 % of
/// the library's code on the target.
class RowName {
 public:
    template <std::size_t kRoom>
    // NOLINTNEXTLINE(google-explicit-constructor): rows name elements by literals
    [[gnu::always_inline]] constexpr RowName(const char (&text)[kRoom])
        : data_(text), size_(kRoom - 1) {}
    // NOLINTNEXTLINE(google-explicit-constructor): where a literal is passed on
    [[gnu::always_inline]] constexpr RowName(std::string_view text)
        : data_(text.data()), size_(text.size()) {}
    // NOLINTNEXTLINE(google-explicit-constructor): names that are made, which tests have
    RowName(const std::string& text) : RowName(std::string_view(text)) {}

    [[gnu::always_inline]] constexpr std::size_t size() const { return size_; }
    // NOLINTNEXTLINE(google-explicit-constructor): it is what nodes take
    [[gnu::always_inline]] constexpr operator std::string_view() const { return {data_, size_}; }

 private:
    const char* data_;
    std::size_t size_;
};

#endif  // QUAVERA_RECORDS_ROW_NAME_H_
