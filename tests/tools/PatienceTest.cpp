// How long to wait ahead of another try: growing pauses, each and all together bounded.

#include "tools/Patience.h"

#include <gtest/gtest.h>

#include <optional>
#include <vector>

namespace {

/// The pauses that there are, where the other side asks for `asked` seconds each time.
std::vector<int> Pauses(int retries, long asked) {
    tool::Patience patience(retries);
    std::vector<int> pauses;
    for (std::optional<int> next = patience.Next(asked); next; next = patience.Next(asked)) {
        pauses.push_back(*next);
    }
    return pauses;
}

TEST(Patience, PausesGrowUpToHalfAMinute) {
    EXPECT_EQ(Pauses(0, 0), std::vector<int>());
    EXPECT_EQ(Pauses(3, 0), (std::vector<int>{1, 2, 4}));
    EXPECT_EQ(Pauses(8, 0), (std::vector<int>{1, 2, 4, 8, 16, 30, 30, 30}));
}

TEST(Patience, WhoAsksForMoreGetsItUpToAMinute) {
    EXPECT_EQ(Pauses(3, 3), (std::vector<int>{3, 3, 4}));
    EXPECT_EQ(Pauses(2, 60), (std::vector<int>{60, 60}));
    EXPECT_EQ(Pauses(2, 61), std::vector<int>());
    EXPECT_EQ(Pauses(2, 1000000), std::vector<int>());
}

TEST(Patience, AllPausesTakeFiveMinutesAtMost) {
    EXPECT_EQ(Pauses(10, 60), (std::vector<int>{60, 60, 60, 60, 60}));
    EXPECT_EQ(Pauses(10, 29), (std::vector<int>{29, 29, 29, 29, 29, 30, 30, 30, 30, 30}));
    EXPECT_EQ(Pauses(10, 45), (std::vector<int>{45, 45, 45, 45, 45, 45}));
}

}  // namespace
