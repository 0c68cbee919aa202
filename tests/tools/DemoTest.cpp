#include <gtest/gtest.h>
#include <sys/resource.h>

#include <algorithm>
#include <regex>
#include <string>

#include "tests/tools/Files.h"
#include "tests/tools/Process.h"

namespace {

using tooltest::Outcome;
using tooltest::RunTool;

/// The two parts of what the demonstration prints: the tree with its line break, and the text.
struct Parts {
    std::string tree;
    std::string text;
};

Parts Split(const std::string& output) {
    const std::string root = output.substr(1, output.find_first_of(" />") - 1);
    const std::string end = "\n</" + root + ">\n";
    const std::size_t size = output.find(end) + end.size();
    return {output.substr(0, size), output.substr(std::min(size, output.size()))};
}

class Demo : public testing::Test {
 public:
    Demo() : outcome_(RunTool({"demo"})), parts_(Split(outcome_.output)) {}

 protected:
    const Outcome outcome_;
    const Parts parts_;
};

TEST_F(Demo, SaysInALineEachWhatItDoes) {
    EXPECT_EQ(outcome_.status, 0);
    const std::regex lines(
        "demo: a stand-in for the service listens on http://127\\.0\\.0\\.1:[0-9]+\n"
        "demo: a SOAP client has fetched the album Alb\\.40013100; its element tree:\n"
        "demo: a second process has read the record from that text; its log text:\n");
    EXPECT_TRUE(std::regex_match(outcome_.errors, lines)) << outcome_.errors;
}

TEST_F(Demo, PrintsTreeAndTextOfASample) {
    int matches = 0;
    for (const std::string& sample : tooltest::SampleDocuments()) {
        matches += RunTool({"tree", "--indent", sample}).output == parts_.tree &&
                           RunTool({"show", sample}).output == parts_.text
                       ? 1
                       : 0;
    }
    EXPECT_EQ(matches, 1) << outcome_.output;
}

TEST_F(Demo, TextIsWhatTextMakesOfTheTree) {
    EXPECT_TRUE(tooltest::Printed(RunTool({"text"}, parts_.tree), parts_.text));
}

TEST_F(Demo, TextIsReadableBeyondAscii) {
    EXPECT_TRUE(std::any_of(parts_.text.begin(), parts_.text.end(), [](char character) {
        return static_cast<unsigned char>(character) >= 0x80;
    })) << parts_.text;
}

/// As long as it lives, no process that this one starts writes files beyond a size.
class FileSizeLimit {
 public:
    explicit FileSizeLimit(std::size_t size) {
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit = {size, before_.rlim_max};
        EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;
    ~FileSizeLimit() { setrlimit(RLIMIT_FSIZE, &before_); }

 private:
    rlimit before_{};
};

// There is room for the tree, which the first process prints, and for nothing more.
TEST_F(Demo, FailsWhenTheSecondProcessDoes) {
    const tooltest::TempFolder folder;
    const std::string path = folder.Add("output", "");
    const FileSizeLimit limit(parts_.tree.size());
    const Outcome outcome = tooltest::RunToolInto(path, {"demo"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.errors.find("\nquavera: second process: it did not render the record\n"),
              std::string::npos)
        << outcome.errors;
    EXPECT_EQ(tooltest::Contents(path), parts_.tree);
}

}  // namespace
