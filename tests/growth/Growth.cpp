#include "tests/growth/Growth.h"

#include <valgrind/callgrind.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <sstream>

namespace growth {
namespace {

/// The sum in the latest of the tool's dumps, which is then deleted.
std::uint64_t TakeDumpedCount() {
    static unsigned int dumps = 0;
    const std::string path = QUAVERA_TEST_DUMPS "." + std::to_string(++dumps);
    std::ifstream dump(path);
    EXPECT_TRUE(dump) << path;
    const std::string label = "totals: ";
    std::uint64_t count = 0;
    for (std::string line; std::getline(dump, line);) {
        if (line.compare(0, label.size(), label) == 0) {
            count = std::stoull(line.substr(label.size()));
        }
    }
    std::remove(path.c_str());
    return count;
}

/// No more than 2.2-fold.
bool IsAboutDouble(std::uint64_t next, std::uint64_t count) {
    return next * 10 <= count * 22;
}

/// Notes, in the test's report, the largest growth at a step so far, in hundredths.
void NoteStep(std::uint64_t next, std::uint64_t count) {
    static const testing::TestInfo* latest = nullptr;
    static std::uint64_t largest = 0;
    const testing::TestInfo* const test = testing::UnitTest::GetInstance()->current_test_info();
    largest = std::max(test == latest ? largest : 0, next * 100 / count);
    latest = test;
    testing::Test::RecordProperty("largest_step", std::to_string(largest));
}

}  // namespace

std::uint64_t CountInstructions(const Work& work) {
    CALLGRIND_ZERO_STATS;
    CALLGRIND_TOGGLE_COLLECT;
    work();
    CALLGRIND_TOGGLE_COLLECT;
    CALLGRIND_DUMP_STATS;
    return TakeDumpedCount();
}

testing::AssertionResult IsLinear(const Preparation& prepare, std::size_t size) {
    const std::uint64_t none = CountInstructions(prepare(0));
    std::uint64_t counts[3] = {};
    std::ostringstream description;
    for (std::uint64_t& count : counts) {
        const std::size_t factor = std::size_t{1} << (&count - counts);
        const std::uint64_t all = CountInstructions(prepare(size * factor));
        count = all > none ? all - none : 0;
        description << count << " instructions for " << size * factor << "; ";
    }
    if (counts[0] < size) {
        return testing::AssertionFailure() << "hardly any work: " << description.str();
    }
    NoteStep(counts[1], counts[0]);
    NoteStep(counts[2], counts[1]);
    if (!IsAboutDouble(counts[1], counts[0]) || !IsAboutDouble(counts[2], counts[1])) {
        return testing::AssertionFailure() << "grows too fast: " << description.str();
    }
    return testing::AssertionSuccess() << description.str();
}

std::string Repeated(std::size_t count, const std::string& piece) {
    std::string all;
    for (std::size_t done = 0; done < count; ++done) {
        all += piece;
    }
    return all;
}

std::string Numbered(std::size_t count,
                     const std::function<std::string(const std::string& number)>& piece) {
    std::string all;
    for (std::size_t done = 0; done < count; ++done) {
        all += piece(std::to_string(done));
    }
    return all;
}

std::string Element(const std::string& name, const std::string& content) {
    return "<" + name + ">" + content + "</" + name + ">";
}

std::string Levels(std::size_t count, const std::string& name) {
    return Repeated(count, "<" + name + ">") + Repeated(count, "</" + name + ">");
}

void GrowthTest::SetUp() {
    if (RUNNING_ON_VALGRIND == 0) {
        GTEST_SKIP() << "nothing counts the instructions";
    }
}

}  // namespace growth
