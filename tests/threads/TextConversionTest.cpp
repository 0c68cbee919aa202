// Functions without a state of their own, which share the C library's tables and locale.

#include <gtest/gtest.h>

#include "tests/threads/Conversions.h"
#include "tests/threads/Threads.h"

namespace {

TEST(TextConversion, HoldsInAllThreadsAtOnce) {
    InThreads([](int thread) {
        for (int trip = 0; trip < kTrips; ++trip) {
            // Each thread is at another one.
            const auto at = static_cast<std::size_t>(thread + trip) % Conversions().size();
            SCOPED_TRACE(Conversions()[at].name);
            Conversions()[at].expect();
        }
    });
}

}  // namespace
