#ifndef QUAVERA_TESTS_COMMON_CONVERSION_FAILURES_H_
#define QUAVERA_TESTS_COMMON_CONVERSION_FAILURES_H_

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "common/QuaveraCommon.h"
#include "tests/common/ConversionReference.h"
#include "tests/support/AllocationFailure.h"

/// A conversion to be run short of memory.
template <class Result>
struct ConversionCase {
    const char* name;
    std::function<Result()> convert;
    Result converted;
    /// What it may give, beside throwing, for want of memory of its own or of the converter's.
    std::vector<Result> failures;
    /// How many allocations it has at least.
    std::size_t sites;
};

/// Lets every allocation of each conversion fail in turn: it has to throw or to give one of its
/// documented failures, to lose nothing, and to convert rightly whenever none has failed.
template <class Result>
void ExpectOrderlyFailures(const std::vector<ConversionCase<Result>>& cases) {
    for (const ConversionCase<Result>& conversion : cases) {
        SCOPED_TRACE(conversion.name);
        EXPECT_TRUE(allocation::Sweep(conversion.sites, [&](allocation::Attempt& attempt) {
            Result result;
            const bool isComplete = attempt.RunTolerantly([&] { result = conversion.convert(); });
            if (!attempt.HasFailed()) {
                EXPECT_TRUE(isComplete && result == conversion.converted) << Hex(result);
            } else if (isComplete) {
                EXPECT_NE(
                    std::count(conversion.failures.begin(), conversion.failures.end(), result), 0)
                    << Hex(result);
            }
        }));
    }
}

/// Texts too long to be kept inside a string object, so that each copy allocates.
inline const std::string kLongAscii(100, 'a');
inline const std::string kLongUtf8 = kLongAscii + "\xC3\xA9";
inline const std::wstring kLongWide = std::wstring(100, L'a') + L'\u00E9';
inline const std::string kLongBase64 = base64EncodeString(kLongUtf8);

#endif  // QUAVERA_TESTS_COMMON_CONVERSION_FAILURES_H_
