// The tool with less and less memory: it prints all or says that it has failed, with the status
// that means so, and is never ended by a signal.

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <cstddef>
#include <string>
#include <vector>

#include "tests/tools/Files.h"
#include "tests/tools/Process.h"

namespace {

using tooltest::Arguments;
using tooltest::Outcome;
using tooltest::RunTool;

constexpr std::size_t kStep = std::size_t{256} * 1024;

/// As long as it lives, processes that this one starts have no more than so much address space.
class MemoryLimit {
 public:
    explicit MemoryLimit(std::size_t size) {
        getrlimit(RLIMIT_AS, &before_);
        const rlimit limit = {size, before_.rlim_max};
        EXPECT_EQ(setrlimit(RLIMIT_AS, &limit), 0);
    }
    MemoryLimit(const MemoryLimit&) = delete;
    MemoryLimit& operator=(const MemoryLimit&) = delete;
    ~MemoryLimit() { setrlimit(RLIMIT_AS, &before_); }

 private:
    rlimit before_{};
};

/// An album's tree with many tracks.
std::string Album(const std::string& prefix) {
    constexpr int kTracks = 5000;
    std::string tracks;
    for (int track = 0; track < kTracks; ++track) {
        tracks += "<Track><TrackId>" + prefix + std::to_string(track) +
                  "</TrackId><Name>YWI=</Name></Track>";
    }
    return "<Album><Tracks>" + tracks + "</Tracks></Album>";
}

/// Whether a run failed with that status and one line.
testing::AssertionResult IsFailure(const Outcome& outcome, int status) {
    return tooltest::Refused(outcome, status, {});
}

class MemoryLimits : public testing::Test {
 protected:
    /// Runs with more and more memory up to success, each run until then has to fail with `failed`.
    static void Run(const Arguments& arguments, int failed) {
        const Outcome expected = RunTool(arguments);
        std::size_t limit = LeastToStart();
        std::size_t failures = 0;
        for (;; limit += kStep, ++failures) {
            const Outcome outcome = RunLimited(arguments, limit);
            if (outcome.status == expected.status && outcome.output == expected.output) {
                break;
            }
            ASSERT_TRUE(IsFailure(outcome, failed)) << limit;
        }
        EXPECT_GT(failures, 5U);
    }

    const tooltest::TempFolder folder_;
    const std::string left_ = folder_.Add("left.xml", Album("a"));
    const std::string right_ = folder_.Add("right.xml", Album("b"));

 private:
    static Outcome RunLimited(const Arguments& arguments, std::size_t size) {
        const MemoryLimit limit(size);
        return RunTool(arguments);
    }

    /// What it takes to run at all.
    static std::size_t LeastToStart() {
        constexpr std::size_t kLeast = std::size_t{8} * 1024 * 1024;
        std::size_t limit = kLeast;
        while (RunLimited({"--version"}, limit).status != 0) {
            limit += 2 * kStep;
        }
        return limit;
    }
};

TEST_F(MemoryLimits, OfText) {
    Run({"text", left_}, 1);
}

TEST_F(MemoryLimits, OfJson) {
    Run({"text", "--json", left_}, 1);
}

TEST_F(MemoryLimits, OfDiff) {
    Run({"diff", left_, right_}, 2);
}

TEST_F(MemoryLimits, OfDiffAsAPatch) {
    Run({"diff", "--json", left_, right_}, 2);
}

}  // namespace
