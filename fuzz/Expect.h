#ifndef QUAVERA_FUZZ_EXPECT_H_
#define QUAVERA_FUZZ_EXPECT_H_

#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>
#include <string_view>

#include "tests/support/TreeText.h"

/// What a target says of an input: rules that hold for every one of them. The first that does not
/// hold ends the process.
namespace fuzz {

inline std::string Shown(std::string_view text) {
    return Quoted(std::string(text));
}
inline std::string Shown(const std::string& text) {
    return Quoted(text);
}
inline std::string Shown(const std::wstring& text) {
    std::string shown = "wide";
    for (const wchar_t character : text) {
        shown += ' ' + std::to_string(static_cast<std::uint32_t>(character));
    }
    return shown;
}
template <class Number>
std::string Shown(Number number) {
    return std::to_string(number);
}

[[noreturn]] inline void Fail(const char* rule, const std::string& details) {
    std::cerr << "does not hold: " << rule << '\n' << details << std::endl;
    std::abort();
}

/// `subject` is what it was found of.
template <class Subject>
void Expect(bool holds, const char* rule, const Subject& subject) {
    if (!holds) {
        Fail(rule, "of " + Shown(subject));
    }
}

template <class Value>
void ExpectSame(const Value& actual, const Value& expected, const char* rule) {
    if (actual != expected) {
        Fail(rule, "is        " + Shown(actual) + "\nhas to be " + Shown(expected));
    }
}

}  // namespace fuzz

#endif  // QUAVERA_FUZZ_EXPECT_H_
