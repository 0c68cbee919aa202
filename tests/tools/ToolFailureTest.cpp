// The tool's whole way, in this process, short of memory: each allocation on it fails in turn.

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <utility>

#include "tests/support/AllocationFailure.h"
#include "tests/tools/Files.h"
#include "tools/Printing.h"

namespace {

using tool::Form;
using tool::RecordClass;
using tool::Result;

/// Of a way: the tree, and the buffers of the input and of the result.
constexpr std::size_t kSites = 3;

class ToolFailure : public testing::TestWithParam<RecordClass> {
 protected:
    void SetUp() override { QUAVERA_SKIP_WITHOUT_ALLOCATION_FAILURE(); }

    static std::string Document(const char* suffix) {
        return tooltest::Contents(
            tooltest::DataPath(std::string(GetParam().name) + "/full" + suffix));
    }

    /// Sweeps over `print`, which has to give `expected`, to throw, or to fail for that reason.
    template <class Print>
    static void ExpectPrintsOrFails(const std::string& expected, Print print) {
        EXPECT_TRUE(allocation::Sweep(kSites, [&](allocation::Attempt& attempt) {
            Result<std::string> printed = std::string();
            const bool isComplete = attempt.RunTolerantly([&] { printed = print(); });
            if (!attempt.HasFailed()) {
                EXPECT_TRUE(isComplete);
            }
            if (isComplete && !printed) {
                EXPECT_EQ(printed.failure().where, "there");
                EXPECT_EQ(printed.failure().what, "out of memory");
            } else if (isComplete) {
                EXPECT_EQ(*printed, expected);
            }
            EXPECT_EQ(*print(), expected);
        }));
    }
};

TEST_P(ToolFailure, OfSoapToText) {
    const std::string soap = Document(".xml");
    ExpectPrintsOrFails(Document(".txt"),
                        [&] { return tool::PrintSoap(soap, "there", &GetParam(), Form::kText); });
}

TEST_P(ToolFailure, OfTreeToText) {
    const std::string tree = Document(".tree.xml");
    ExpectPrintsOrFails(Document(".txt"),
                        [&] { return tool::PrintText(tree, "there", &GetParam()); });
}

INSTANTIATE_TEST_SUITE_P(All, ToolFailure, testing::ValuesIn(tool::RecordClasses()),
                         [](const auto& test) { return std::string(test.param.name); });

}  // namespace
