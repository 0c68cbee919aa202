// Several files in one call of `tree`, `text` or `show`: each document behind its name, and one
// that is bad keeps none of the others back.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/tools/Files.h"
#include "tests/tools/Process.h"

namespace {

using tooltest::Arguments;
using tooltest::Contents;
using tooltest::DataPath;
using tooltest::Outcome;
using tooltest::Printed;
using tooltest::RunTool;

/// A command, and documents that it takes.
struct Case {
    const char* name;
    Arguments command;
    std::string ending;
};

void PrintTo(const Case& printed, std::ostream* out) {
    *out << printed.name;
}

class SeveralFiles : public testing::TestWithParam<Case> {
 protected:
    static std::string Path(const std::string& recordClass) {
        return DataPath(recordClass + "/full" + GetParam().ending);
    }
    static Outcome Run(const Arguments& files, const std::string& input = {}) {
        Arguments all = GetParam().command;
        all.insert(all.end(), files.begin(), files.end());
        return RunTool(all, input);
    }
    static std::string Alone(const std::string& path) { return Run({path}).output; }

    const std::string track_ = Path("DataTrackInfo");
    const std::string index_ = Path("DataIndex");
    const std::string missing_ = DataPath("missing.xml");
};

class SeveralFilesWithHeadings : public SeveralFiles {};

TEST_P(SeveralFilesWithHeadings, AreHeadedAsByHead) {
    EXPECT_TRUE(Printed(Run({track_, index_, track_}),
                        "==> " + track_ + " <==\n" + Alone(track_) + "\n==> " + index_ + " <==\n" +
                            Alone(index_) + "\n==> " + track_ + " <==\n" + Alone(track_)));
}

TEST_P(SeveralFilesWithHeadings, ContainStandardInputByItsName) {
    EXPECT_TRUE(Printed(
        Run({"-", index_}, Contents(track_)),
        "==> standard input <==\n" + Alone(track_) + "\n==> " + index_ + " <==\n" + Alone(index_)));
    EXPECT_TRUE(Printed(
        Run({index_, "-"}, Contents(track_)),
        "==> " + index_ + " <==\n" + Alone(index_) + "\n==> standard input <==\n" + Alone(track_)));
}

/// Whether a run failed with one line for each of `places`, and printed `output` all the same.
testing::AssertionResult PrintedOthers(const Outcome& outcome, const std::string& output,
                                       const std::vector<std::string>& places) {
    std::size_t at = 0;
    for (const std::string& place : places) {
        const std::string start = "quavera: " + place + ": ";
        if (outcome.errors.compare(at, start.size(), start) != 0) {
            return testing::AssertionFailure() << outcome.errors << "\nexpected " << place;
        }
        at = outcome.errors.find('\n', at) + 1;
    }
    if (outcome.status != 1 || at != outcome.errors.size() || outcome.output != output) {
        return testing::AssertionFailure() << "status " << outcome.status << "\n"
                                           << outcome.errors << outcome.output;
    }
    return testing::AssertionSuccess();
}

TEST_P(SeveralFilesWithHeadings, ArePrintedAroundABadOne) {
    EXPECT_TRUE(PrintedOthers(
        Run({track_, missing_, index_}),
        "==> " + track_ + " <==\n" + Alone(track_) + "\n==> " + index_ + " <==\n" + Alone(index_),
        {missing_}));
    EXPECT_TRUE(PrintedOthers(Run({"-", track_, missing_}, "<a>"),
                              "==> " + track_ + " <==\n" + Alone(track_),
                              {"standard input", missing_}));
    EXPECT_TRUE(PrintedOthers(Run({missing_, missing_}), "", {missing_, missing_}));
}

TEST_P(SeveralFilesWithHeadings, OfOneClassMayAllBeAsked) {
    EXPECT_TRUE(PrintedOthers(Run({track_, index_, "--record", "DataTrackInfo"}),
                              "==> " + track_ + " <==\n" + Alone(track_), {index_}));
}

TEST_P(SeveralFiles, OneAloneHasNoHeading) {
    EXPECT_EQ(Alone(track_).find("==>"), std::string::npos);
    EXPECT_TRUE(Printed(Run({"-"}, Contents(track_)), Alone(track_)));
}

TEST_P(SeveralFiles, NoOutputIsLostOnAFullDevice) {
    Arguments all = GetParam().command;
    all.insert(all.end(), {track_, index_});
    EXPECT_TRUE(tooltest::Refused(tooltest::RunToolInto("/dev/full", all), 1,
                                  {"standard output: No space left on device"}));
}

class SeveralFilesAsJson : public SeveralFiles {};

TEST_P(SeveralFilesAsJson, AreALineEach) {
    EXPECT_TRUE(Printed(Run({track_, "-", track_}, Contents(index_)),
                        Alone(track_) + R"({"Letter":"M","Start":1204})" + "\n" + Alone(track_)));
    EXPECT_TRUE(PrintedOthers(Run({missing_, track_, missing_, index_}),
                              Alone(track_) + Alone(index_), {missing_, missing_}));
}

const Case kTree = {"Tree", {"tree"}, ".xml"};
const Case kIndented = {"IndentedTree", {"tree", "--indent"}, ".xml"};
const Case kText = {"Text", {"text"}, ".tree.xml"};
const Case kShow = {"Show", {"show"}, ".xml"};
const Case kTextJson = {"TextAsJson", {"text", "--json"}, ".tree.xml"};
const Case kShowJson = {"ShowAsJson", {"show", "--json"}, ".xml"};

std::string TestName(const testing::TestParamInfo<Case>& info) {
    return info.param.name;
}

INSTANTIATE_TEST_SUITE_P(Of, SeveralFilesWithHeadings,
                         testing::Values(kTree, kIndented, kText, kShow), TestName);
INSTANTIATE_TEST_SUITE_P(Of, SeveralFilesAsJson, testing::Values(kTextJson, kShowJson), TestName);
INSTANTIATE_TEST_SUITE_P(Of, SeveralFiles,
                         testing::Values(kTree, kIndented, kText, kShow, kTextJson, kShowJson),
                         TestName);

}  // namespace
