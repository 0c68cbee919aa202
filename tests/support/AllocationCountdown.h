#ifndef QUAVERA_TESTS_SUPPORT_ALLOCATION_COUNTDOWN_H_
#define QUAVERA_TESTS_SUPPORT_ALLOCATION_COUNTDOWN_H_

#include "tests/support/AllocationFailure.h"

/// The bookkeeping behind AllocationFailure.h, for the one source of a program that replaces its
/// allocation functions (the functions here are defined by including this header).
namespace allocation {

struct Countdown {
    bool isArmed;
    Mode mode;
    std::size_t failing;
    std::size_t tried;
    std::size_t failed;
    long live;
};

// Constant-initialised, in the program's own thread storage: reading it never allocates.
inline thread_local Countdown countdown = {false, Mode::kOnce, kNever, 0, 0, 0};

/// Counts one allocation; whether it is to fail.
inline bool IsToFail() {
    if (!countdown.isArmed) {
        return false;
    }
    const std::size_t index = countdown.tried++;
    const bool fails =
        countdown.mode == Mode::kOnce ? index == countdown.failing : index >= countdown.failing;
    countdown.failed += fails ? 1 : 0;
    return fails;
}

/// Notes a new block, if it is one, and passes it on.
inline void* Born(void* block) {
    countdown.live += block == nullptr ? 0 : 1;
    return block;
}

inline void Gone(const void* block) {
    countdown.live -= block == nullptr ? 0 : 1;
}

void Arm(std::size_t index, Mode mode) {
    countdown.mode = mode;
    countdown.failing = index;
    countdown.tried = 0;
    countdown.failed = 0;
    countdown.isArmed = true;
}

void Disarm() {
    countdown.isArmed = false;
}

std::size_t TriedCount() {
    return countdown.tried;
}

std::size_t FailedCount() {
    return countdown.failed;
}

long LiveBlocks() {
    return countdown.live;
}

void AddSites(std::size_t count) {
    static const testing::TestInfo* latest = nullptr;
    static std::size_t sum = 0;
    const testing::TestInfo* const test = testing::UnitTest::GetInstance()->current_test_info();
    sum = (test == latest ? sum : 0) + count;
    latest = test;
    testing::Test::RecordProperty("sites", std::to_string(sum));
}

}  // namespace allocation

#endif  // QUAVERA_TESTS_SUPPORT_ALLOCATION_COUNTDOWN_H_
