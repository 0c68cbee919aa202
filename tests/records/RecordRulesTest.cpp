// The rules that hold for every record class, on nodes of every kind that a record may be given.

#include "tests/records/RecordRules.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <set>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "platform/zqshared.h"
#include "tests/records/RecordTesting.h"
#include "tests/support/AllocationFailure.h"
#include "tests/support/FakeNode.h"

namespace {

using Maker = std::pair<const char*, RuleCase (*)(const char* name)>;

std::vector<Maker>& Makers() {
    static std::vector<Maker> makers;
    return makers;
}

}  // namespace

void RegisterRuleCase(const char* name, RuleCase (*make)(const char* name)) {
    Makers().emplace_back(name, make);
}

const std::vector<RuleCase>& RuleCases() {
    static const std::vector<RuleCase> cases = [] {
        std::vector<RuleCase> made;
        for (const auto& [name, make] : Makers()) {
            made.push_back(make(name));
        }
        return made;
    }();
    return cases;
}

namespace {

// --- Nodes -------------------------------------------------------------------------------------

/// Nodes of one implementation, for a record to read and to write into.
struct NodeKind {
    const char* name;
    /// A tree of this kind that holds what the given one does.
    zq::auto_com<ZQXML::INode> (*copy)(ZQXML::INode* tree);
    /// The number of nodes of this kind that exist, where it is known.
    int (*liveCount)();
    /// Its nodes know which texts are encoded ones.
    bool keepsMarks;
};

zq::auto_com<ZQXML::INode> PlatformCopy(ZQXML::INode* tree) {
    return Parse(ZQXML::WriteXml(tree));
}

const NodeKind kNodeKinds[] = {
    {"PlatformNodes", PlatformCopy, [] { return 0; }, true},
    {"FakeNodes", FakeNode::Copy, FakeNode::LiveCount, false},
};

std::string WithoutMarks(std::string xml) {
    constexpr std::string_view kMark = " encoding=\"base64\"";
    for (auto at = xml.find(kMark); at != std::string::npos; at = xml.find(kMark)) {
        xml.erase(at, kMark.size());
    }
    return xml;
}

// --- Rules of a class --------------------------------------------------------------------------

std::vector<const RuleCase*> AllCases() {
    std::vector<const RuleCase*> cases;
    for (const RuleCase& each : RuleCases()) {
        cases.push_back(&each);
    }
    return cases;
}

class RecordTest : public testing::TestWithParam<const RuleCase*> {
 protected:
    static const RuleCase& Case() { return *GetParam(); }

    /// The XML text of the node that the class expects, for its whole element.
    static std::string Expected() {
        return Case().readsParent ? Wrapped("Parent", Case().tree) : Case().tree;
    }
};

INSTANTIATE_TEST_SUITE_P(All, RecordTest, testing::ValuesIn(AllCases()),
                         [](const auto& test) { return test.param->name; });

TEST_P(RecordTest, WritesNoElementForAnAbsentMember) {
    EXPECT_EQ(ZQXML::WriteXml(Case().emptySoap()->Write().get()), Case().emptyTree);
}

TEST_P(RecordTest, WritesEveryMemberInOrder) {
    EXPECT_EQ(ZQXML::WriteXml(Case().filledSoap()->Write().get()), Case().tree);
}

TEST_P(RecordTest, RendersADefaultRecord) {
    EXPECT_EQ(Case().textOf({}), Case().emptyText);
}

TEST_P(RecordTest, CopiesAndMovesKeepEveryField) {
    EXPECT_EQ(Case().textsOfCopies(Parse(Expected()).get()),
              std::vector<std::string>(5, Case().text));
}

TEST_P(RecordTest, GrowingVectorKeepsEveryField) {
    EXPECT_EQ(Case().textsOfVector(Parse(Expected()).get()),
              std::vector<std::string>(9, Case().text));
}

TEST_P(RecordTest, IsAValueWithAVirtualDestructor) {
    EXPECT_TRUE(Case().hasVirtualDestructor);
    EXPECT_TRUE(Case().isCopyable);
    EXPECT_TRUE(Case().movesWithoutThrowing);
}

TEST_P(RecordTest, ServesThroughItsBase) {
    if (Case().textThroughBase == nullptr) {
        GTEST_SKIP() << "its own root";
    }
    EXPECT_EQ(Case().textThroughBase(Parse(Expected()).get()), Case().text);
}

TEST_P(RecordTest, TreeGoesWithItsOnlyReference) {
    const auto soap = Case().filledSoap();
    const long before = allocation::LiveBlocks();
    {
        const auto node = soap->Write();
        EXPECT_GT(allocation::LiveBlocks(), before);
    }
    EXPECT_EQ(allocation::LiveBlocks(), before);
}

// The base64 functions turn a failed allocation into an empty text, so that an operation may end
// normally in spite of one.
TEST_P(RecordTest, FailedAllocationInWritingLosesNothing) {
    const auto soap = Case().filledSoap();
    EXPECT_TRUE(allocation::Sweep(1, [&soap](allocation::Attempt& attempt) {
        attempt.RunTolerantly([&soap] { soap->Write(); });
    }));
}

// --- Rules of a class and a kind of nodes ------------------------------------------------------

class RecordNodeTest : public testing::TestWithParam<std::tuple<const RuleCase*, NodeKind>> {
 protected:
    void SetUp() override { liveBefore_ = Kind().liveCount(); }
    void TearDown() override { EXPECT_EQ(Kind().liveCount(), liveBefore_); }

    static const RuleCase& Case() { return *std::get<0>(GetParam()); }
    static const NodeKind& Kind() { return std::get<1>(GetParam()); }

    static std::string ElementName() { return Parse(Case().tree)->GetName(); }

    /// The tree of an XML text, in nodes of the kind.
    static zq::auto_com<ZQXML::INode> Tree(const std::string& xml) {
        return Kind().copy(Parse(xml).get());
    }
    /// The node that the class expects, where `xml` is its element.
    static zq::auto_com<ZQXML::INode> Expected(const std::string& xml) {
        return Tree(Case().readsParent ? Wrapped("Parent", xml) : xml);
    }

    /// The log text of a new record that has read this element, and of one that has read both.
    static std::string TextOfElement(const std::string& xml) {
        return Case().textOf({Expected(xml).get()});
    }
    static std::string TextOfElements(const std::string& first, const std::string& second) {
        const auto firstNode = Expected(first);
        const auto secondNode = Expected(second);
        return Case().textOf({firstNode.get(), secondNode.get()});
    }
    /// The log text of a new record that has read an element with this content.
    static std::string TextOf(const std::string& content) {
        return TextOfElement(Wrapped(ElementName(), content));
    }

    /// The whole tree's elements, each changed by `change`, one after the other.
    template <class Change>
    static std::string Changed(Change change) {
        std::string content;
        for (const Element& element : ElementsOf(Case().tree)) {
            content += change(element);
        }
        return content;
    }
    static std::string Content() {
        return Changed([](const Element& element) { return element.xml; });
    }

 private:
    int liveBefore_ = 0;
};

INSTANTIATE_TEST_SUITE_P(All, RecordNodeTest,
                         testing::Combine(testing::ValuesIn(AllCases()),
                                          testing::ValuesIn(kNodeKinds)),
                         [](const auto& test) {
                             return std::get<0>(test.param)->name + '_' +
                                    std::get<1>(test.param).name;
                         });

/// The two-argument writer adds its elements, in order, after those of any node.
TEST_P(RecordNodeTest, WritesIntoAnyNode) {
    if (!Case().writesIntoGivenNode) {
        GTEST_SKIP() << "no such writer";
    }
    const auto node = Tree("<Other><First>1</First></Other>");
    Case().filledSoap()->WriteInto(node.get());
    const std::string written = Wrapped("Other", "<First>1</First>" + Content());
    EXPECT_EQ(ZQXML::WriteXml(node.get()), Kind().keepsMarks ? written : WithoutMarks(written));
}

TEST_P(RecordNodeTest, ReadsAndRendersEveryField) {
    EXPECT_EQ(TextOfElement(Case().tree), Case().text);
}

TEST_P(RecordNodeTest, AbsentElementsLeaveFieldsAsTheyAre) {
    EXPECT_EQ(TextOfElements(Case().tree, Wrapped(ElementName(), "")), Case().text);
}

TEST_P(RecordNodeTest, NullNodeCountsAsEmpty) {
    const auto node = Expected(Case().tree);
    EXPECT_EQ(Case().textOf({node.get(), nullptr}), Case().text);
}

TEST_P(RecordNodeTest, ReadingTwiceDoublesListsOnly) {
    EXPECT_EQ(TextOfElements(Case().tree, Case().tree), Case().textReadTwice);
}

TEST_P(RecordNodeTest, IgnoresUnknownElements) {
    const std::string content = Changed([](const Element& element) {
        return "<Unknown>1</Unknown>" + element.xml + "<Other><Unknown/></Other><_/>";
    });
    EXPECT_EQ(TextOf(content), Case().text);
}

TEST_P(RecordNodeTest, IgnoresElementsFurtherDown) {
    EXPECT_EQ(TextOf(Wrapped("Other", Content())), Case().emptyText);
}

TEST_P(RecordNodeTest, MatchesNamesExactly) {
    const std::vector<std::string (*)(std::string)> misspellings = {
        [](std::string name) {
            std::transform(name.begin(), name.end(), name.begin(), [](char character) {
                return static_cast<char>(std::toupper(static_cast<unsigned char>(character)));
            });
            return name;
        },
        [](std::string name) {
            const auto first = static_cast<unsigned char>(name[0]);
            name[0] = static_cast<char>(std::isupper(first) != 0 ? std::tolower(first)
                                                                 : std::toupper(first));
            return name;
        },
        [](std::string name) { return name + "s"; },
        [](std::string name) { return "X" + name; },
        [](std::string name) { return name.substr(0, name.size() - 1); },
    };
    for (const auto misspell : misspellings) {
        const std::string content = Changed(
            [misspell](const Element& element) { return element.Renamed(misspell(element.name)); });
        EXPECT_EQ(TextOf(content), Case().emptyText) << content;
    }
}

TEST_P(RecordNodeTest, LastOfRepeatedElementsCounts) {
    const std::set<std::string>& addingUp = Case().repeatedElements;
    const std::string content = Changed([&addingUp](const Element& element) {
        const bool isReplaced = !element.isNested && addingUp.count(element.name) == 0;
        // A text, a number and a base64 text in one.
        return (isReplaced ? Wrapped(element.name, "1234") : "") + element.xml;
    });
    EXPECT_EQ(TextOf(content), Case().text);
}

TEST_P(RecordNodeTest, OrderOfElementsDoesNotMatter) {
    std::string content;
    for (const Element& element : ElementsOf(Case().tree)) {
        const bool addsUp = Case().repeatedElements.count(element.name) > 0;
        content.insert(addsUp ? content.size() : 0, element.xml);
    }
    EXPECT_EQ(TextOf(content), Case().text);
}

TEST_P(RecordNodeTest, OwnElementIsTakenByNameOnlyBelowAParent) {
    const bool isTakenByName = Case().readsParent || Case().goesByName;
    EXPECT_EQ(TextOfElement(Wrapped("Other", Content())),
              isTakenByName ? Case().emptyText : Case().text);
}

TEST_P(RecordNodeTest, FailedAllocationInReadingLosesNothing) {
    const auto node = Expected(Case().tree);
    const std::vector<ZQXML::INode*> nodes = {node.get()};
    EXPECT_TRUE(allocation::Sweep(1, [&nodes](allocation::Attempt& attempt) {
        attempt.RunTolerantly([&nodes] { Case().textOf(nodes); });
    }));
}

// --- The records that there are ----------------------------------------------------------------

struct RecordRow {
    std::string recordClass;
    std::string element;
    bool readsParent;
};

const std::vector<RecordRow> kRecordRows = {
#define QUAVERA_RECORD(recordClass, soap, element, node, answer) \
    {#recordClass, element, std::string_view(#node) == "kParent"},
#include "records/Records.def"
#undef QUAVERA_RECORD
};

TEST(RecordRules, HoldForEveryRecord) {
    for (const RecordRow& row : kRecordRows) {
        const auto found =
            std::find_if(RuleCases().begin(), RuleCases().end(),
                         [&row](const RuleCase& each) { return each.name == row.recordClass; });
        ASSERT_NE(found, RuleCases().end()) << row.recordClass;
        EXPECT_EQ(Parse(found->tree)->GetName(), row.element) << row.recordClass;
        EXPECT_EQ(found->readsParent, row.readsParent) << row.recordClass;
    }
}

}  // namespace
