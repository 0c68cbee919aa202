// The main function of every test program. A program holds the tests of several sources;
// `--file=<name>Test.cpp` runs those of one.

#include <gtest/gtest.h>

#include <iostream>
#include <string>
#include <string_view>
#include <vector>

namespace {

using std::string_view_literals::operator""sv;

std::vector<const testing::TestInfo*> AllTests() {
    std::vector<const testing::TestInfo*> tests;
    const testing::UnitTest& all = *testing::UnitTest::GetInstance();
    for (int suiteAt = 0; suiteAt < all.total_test_suite_count(); ++suiteAt) {
        const testing::TestSuite& suite = *all.GetTestSuite(suiteAt);
        for (int at = 0; at < suite.total_test_count(); ++at) {
            tests.push_back(suite.GetTestInfo(at));
        }
    }
    return tests;
}

/// The name of the source that defines a test.
std::string_view FileOf(const testing::TestInfo& test) {
    const std::string_view path = test.file();
    return path.substr(path.rfind('/') + 1);
}

/// A source of another name is none that a run by file would reach.
bool IsTestFile(std::string_view name) {
    constexpr auto kEnd = "Test.cpp"sv;
    return name.size() > kEnd.size() && name.substr(name.size() - kEnd.size()) == kEnd;
}

/// The filter that selects the tests of one source.
std::string FilterOf(std::string_view file) {
    std::string filter;
    for (const testing::TestInfo* const test : AllTests()) {
        if (FileOf(*test) == file) {
            filter += std::string(test->test_suite_name()) + '.' + test->name() + ':';
        }
    }
    return filter;
}

int Fail(std::string_view what, std::string_view message) {
    std::cerr << what << ": " << message << '\n';
    return 1;
}

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    for (const testing::TestInfo* const test : AllTests()) {
        if (!IsTestFile(FileOf(*test))) {
            return Fail(test->file(), "has tests, but no source named *Test.cpp may have any");
        }
    }
    for (int at = 1; at < argc; ++at) {
        constexpr auto kOption = "--file="sv;
        const std::string_view argument = argv[at];
        if (argument.substr(0, kOption.size()) != kOption) {
            return Fail(argument, "not an option");
        }
        GTEST_FLAG_SET(filter, FilterOf(argument.substr(kOption.size())));
    }
    const int status = RUN_ALL_TESTS();
    if (testing::UnitTest::GetInstance()->test_to_run_count() == 0) {
        return Fail(argv[argc - 1], "selects no test");
    }
    return status;
}
