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

class ToolFailureOfLists : public testing::Test {
 protected:
    void SetUp() override { QUAVERA_SKIP_WITHOUT_ALLOCATION_FAILURE(); }

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

class ToolFailure : public ToolFailureOfLists, public testing::WithParamInterface<RecordClass> {
 protected:
    static std::string Document(const char* suffix) {
        return tooltest::Contents(
            tooltest::DataPath(std::string(GetParam().name) + "/full" + suffix));
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

/// What `diff` reads, as text.
Result<std::string> Read(const std::string& document, const RecordClass* chosen) {
    const Result<tool::Records> records = tool::ReadDocument(document, "there", chosen);
    return records ? Result<std::string>(tool::Printed(*records, Form::kText)) : records.failure();
}

TEST_P(ToolFailure, OfReadingEitherForm) {
    for (const char* const suffix : {".xml", ".tree.xml"}) {
        const std::string document = Document(suffix);
        ExpectPrintsOrFails(Document(".txt"), [&] { return Read(document, &GetParam()); });
    }
}

const std::string kImages = tooltest::Envelope(
    "<q:Images><images><items><title>a</title><url>1</url></items>"
    "<items><url>2</url></items></images></q:Images>");
const std::string kImageTrees =
    "<Image><Title encoding=\"base64\">YQ==</Title><Url>1</Url></Image>\n"
    "<Image><Url>2</Url></Image>\n";
const std::string kImageTexts =
    "copyright = \r\nheight = 0\r\nimageFormat = \r\nimageId = \r\ntitle = a\r\nurl = 1\r\n"
    "width = 0\r\n"
    "copyright = \r\nheight = 0\r\nimageFormat = \r\nimageId = \r\ntitle = \r\nurl = 2\r\n"
    "width = 0\r\n";

TEST_F(ToolFailureOfLists, OfSoapToTrees) {
    ExpectPrintsOrFails(kImageTrees,
                        [] { return tool::PrintSoap(kImages, "there", nullptr, Form::kTree); });
}

TEST_F(ToolFailureOfLists, OfTreesToText) {
    ExpectPrintsOrFails(kImageTexts, [] { return tool::PrintText(kImageTrees, "there", nullptr); });
}

TEST_F(ToolFailureOfLists, OfReadingEitherForm) {
    for (const std::string& document : {kImages, kImageTrees}) {
        ExpectPrintsOrFails(kImageTexts, [&] { return Read(document, nullptr); });
    }
}

INSTANTIATE_TEST_SUITE_P(All, ToolFailure, testing::ValuesIn(tool::RecordClasses()),
                         [](const auto& test) { return std::string(test.param.name); });

}  // namespace
