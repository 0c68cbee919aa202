#ifndef QUAVERA_TESTS_COMMON_CONVERSION_COMPARISON_H_
#define QUAVERA_TESTS_COMMON_CONVERSION_COMPARISON_H_

#include <gtest/gtest.h>

#include <cstddef>
#include <string>

#include "common/QuaveraCommon.h"
#include "tests/common/ConversionReference.h"

/// Compares a conversion with its reference, input by input.
template <class Reference>
class Comparison {
 public:
    template <class... Argument>
    explicit Comparison(const char* function, const Argument&... argument)
        : function_(function), reference_(argument...) {}
    Comparison(const Comparison&) = delete;
    Comparison& operator=(const Comparison&) = delete;
    ~Comparison() { EXPECT_EQ(wrong_, 0U) << function_ << ": of " << inputs_ << " inputs"; }

    template <class Text, class Result>
    void Check(const Text& text, const Result& actual) {
        const Result expected = reference_(text);
        ++inputs_;
        if (actual != expected && ++wrong_ <= kShown) {
            ADD_FAILURE() << function_ << " of " << Hex(text) << "\n  gives " << Hex(actual)
                          << "\n  not   " << Hex(expected);
        }
        untrimmed_ += !text.empty() && expected.size() == 4 * text.size() ? 1U : 0U;
    }

    std::size_t Inputs() const { return inputs_; }
    /// How many inputs failed to convert, that is, gave a result of full length.
    std::size_t Untrimmed() const { return untrimmed_; }

 private:
    static constexpr std::size_t kShown = 10;

    const char* function_;
    Reference reference_;
    std::size_t inputs_ = 0;
    std::size_t untrimmed_ = 0;
    std::size_t wrong_ = 0;
};

class FromUtf8Comparison : public Comparison<FromUtf8Reference> {
 public:
    FromUtf8Comparison() : Comparison("convertFromUtf8") {}
    void Check(const std::string& text) { Comparison::Check(text, convertFromUtf8(text)); }
};

class ToUtf8Comparison : public Comparison<ToCodePageReference> {
 public:
    ToUtf8Comparison() : Comparison("convertToUtf8", "UTF-8") {}
    void Check(const std::wstring& text) { Comparison::Check(text, convertToUtf8(text)); }
};

class ToCp850Comparison : public Comparison<ToCodePageReference> {
 public:
    ToCp850Comparison() : Comparison("convertToCP850", "CP850") {}
    void Check(const std::wstring& text) { Comparison::Check(text, convertToCP850(text)); }
};

class ToCodePageComparison : public Comparison<ToCodePageReference> {
 public:
    explicit ToCodePageComparison(const char* codePage)
        : Comparison(codePage, codePage), codePage_(codePage) {}
    void Check(const std::wstring& text) {
        Comparison::Check(text, convertToCodePage(codePage_, text));
    }

 private:
    const char* codePage_;
};

#endif  // QUAVERA_TESTS_COMMON_CONVERSION_COMPARISON_H_
