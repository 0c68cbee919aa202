// Every operation of every record class on its full document, with each of its allocations failing
// in turn.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "platform/zqshared.h"
#include "records/RecordHeaders.h"
#include "soap/QuaveraStub.h"
#include "tests/records/RecordRules.h"
#include "tests/soap/SoapDocument.h"
#include "tests/support/AllocationFailure.h"

namespace {

using allocation::Attempt;
using allocation::Sweep;
using Tree = zq::auto_com<ZQXML::INode>;

/// The number of elements of a tree whose text no string of either kind keeps in itself.
std::size_t CountLongTexts(ZQXML::INode* node) {
    constexpr std::size_t kLongestShort = 15;
    std::size_t count = node->GetValueDecoded().size() > kLongestShort ? 1 : 0;
    ZQXML::INodeList* const children = node->GetChildren();
    for (ZQXML::INode* child = children->First(); child != nullptr; child = children->Next()) {
        count += CountLongTexts(child);
    }
    return count;
}

enum class Node { kElement, kParent };

/// What the tests need of a record class, whose documents stand in a folder of its name.
class Documents {
 public:
    explicit Documents(std::string folder) : folder_(std::move(folder)) {}

    std::string Soap() const { return TestData(folder_ + "/full.xml"); }
    std::string Text() const { return TestData(folder_ + "/full.txt"); }
    std::string TreeText() const {
        const std::string text = TestData(folder_ + "/full.tree.xml");
        return text.substr(0, text.rfind('>') + 1);
    }

    /// The node that the class reads.
    Tree Readable(Node node) const {
        Tree tree = ZQXML::ParseXml(TreeText());
        EXPECT_TRUE(tree);
        if (node == Node::kElement) {
            return tree;
        }
        Tree parent = ZQXML::CreateXmlNode();
        parent->AppendChild(tree.get());
        return parent;
    }
    /// How many allocations reading them takes at least, and copying what has been read.
    std::size_t LongTexts() const { return CountLongTexts(ZQXML::ParseXml(TreeText()).get()); }

 private:
    std::string folder_;
};

/// The sweeps over the operations of one class.
template <class Record, class Soap, Node kNode>
struct Sweeps {
    static std::string SoapName(std::string className) {
        return className.replace(className.find("__"), 2, ":");
    }

    static void Writing(const Documents& documents, const std::string& soapClass) {
        SoapDocument<Soap> soap(documents.Soap(), SoapName(soapClass).c_str());
        const std::string expected = documents.TreeText();
        EXPECT_TRUE(Sweep(1, [&](Attempt& attempt) {
            Tree tree;
            const bool isComplete = attempt.Run([&] { tree = Record::ToXML(&*soap); });
            EXPECT_EQ(ZQXML::WriteXml(tree.get()), isComplete ? expected : "");
        }));
        if constexpr (WritesIntoGivenNode<Record, Soap>::value) {
            WritingIntoNode(&*soap);
        }
    }

    static void WritingIntoNode(Soap* soap) {
        const auto write = [soap](Tree* node) {
            *node = ZQXML::CreateXmlNode();
            Record::ToXML(node->get(), soap);
        };
        Tree expected;
        write(&expected);
        EXPECT_TRUE(Sweep(1, [&](Attempt& attempt) {
            Tree node;
            attempt.Run([&] { write(&node); });
            if (attempt.HasFailed()) {
                write(&node);
            }
            EXPECT_EQ(ZQXML::WriteXml(node.get()), ZQXML::WriteXml(expected.get()));
        }));
    }

    static Record Read(ZQXML::INode* node) {
        Record record;
        record.FromXML(node);
        return record;
    }

    static void Reading(const Documents& documents) {
        const Tree node = documents.Readable(kNode);
        const std::string expected = documents.Text();
        EXPECT_TRUE(Sweep(documents.LongTexts(), [&](Attempt& attempt) {
            Record record{};
            const bool isComplete = attempt.Run([&] { record.FromXML(node.get()); });
            const std::string text = record.ToString();
            EXPECT_TRUE(!isComplete || text == expected) << text;
            record = Record();
            record.FromXML(node.get());
            EXPECT_EQ(record.ToString(), expected);
        }));
    }

    static void Rendering(const Documents& documents) {
        Record record = Read(documents.Readable(kNode).get());
        const std::string expected = documents.Text();
        EXPECT_TRUE(Sweep(1, [&](Attempt& attempt) {
            std::string text;
            const bool isComplete = attempt.Run([&] { text = record.ToString(); });
            EXPECT_EQ(text, isComplete ? expected : "");
            EXPECT_EQ(record.ToString(), expected);
        }));
    }

    static void Constructing() {
        constexpr bool kMakesRoom = std::is_constructible_v<Record, QuavData::Unreserved>;
        EXPECT_TRUE(Sweep(kMakesRoom ? 1 : 0, [](Attempt& attempt) {
            std::optional<Record> record;
            const bool isComplete = attempt.Run([&] { record.emplace(); });
            EXPECT_EQ(record.has_value(), isComplete);
        }));
    }

    static void Copying(const Documents& documents) {
        Record original = Read(documents.Readable(kNode).get());
        const std::string expected = documents.Text();
        EXPECT_TRUE(Sweep(documents.LongTexts(), [&](Attempt& attempt) {
            std::optional<Record> copy;
            const bool isComplete = attempt.Run([&] { copy.emplace(original); });
            ASSERT_EQ(copy.has_value(), isComplete);
            EXPECT_EQ(isComplete ? copy->ToString() : original.ToString(), expected);
        }));
    }

    static void Assigning(const Documents& documents) {
        Record original = Read(documents.Readable(kNode).get());
        const std::string expected = documents.Text();
        EXPECT_TRUE(Sweep(documents.LongTexts(), [&](Attempt& attempt) {
            Record copy = MadeWithoutRoom();
            if (!attempt.Run([&] { copy = original; })) {
                copy.ToString();
                copy = original;
            }
            EXPECT_EQ(copy.ToString(), expected);
            EXPECT_EQ(original.ToString(), expected);
        }));
    }

    static Record MadeWithoutRoom() {
        if constexpr (std::is_constructible_v<Record, QuavData::Unreserved>) {
            return Record(QuavData::Unreserved());
        } else {
            return Record();
        }
    }

    static void Moving(const Documents& documents) {
        Record original = Read(documents.Readable(kNode).get());
        Record assigned = MadeWithoutRoom();
        EXPECT_EQ(allocation::CountAllocations([&] {
                      Record moved(std::move(original));
                      assigned = std::move(moved);
                  }),
                  0U);
        EXPECT_EQ(assigned.ToString(), documents.Text());
    }

    /// A vector that grows keeps what it has.
    static void Collecting(const Documents& documents) {
        constexpr std::size_t kCount = 9;
        const Record original = Read(documents.Readable(kNode).get());
        const std::string expected = documents.Text();
        EXPECT_TRUE(Sweep(kCount * documents.LongTexts() + 1, [&](Attempt& attempt) {
            std::vector<Record> records;
            std::size_t added = 0;
            attempt.Run([&] {
                for (; added < kCount; ++added) {
                    records.push_back(original);
                }
            });
            EXPECT_EQ(records.size(), added);
            for (Record& record : records) {
                EXPECT_EQ(record.ToString(), expected);
            }
        }));
    }
};

/// A record class as the tests see it.
struct Class {
    std::string name;
    std::string soapName;
    void (*writing)(const Documents& documents, const std::string& soapClass);
    void (*reading)(const Documents& documents);
    void (*rendering)(const Documents& documents);
    void (*constructing)();
    void (*copying)(const Documents& documents);
    void (*assigning)(const Documents& documents);
    void (*moving)(const Documents& documents);
    void (*collecting)(const Documents& documents);
};

void PrintTo(const Class& each, std::ostream* out) {
    *out << each.name;
}

template <class S>
Class ClassOf(const char* name, const char* soapName) {
    return {name,       soapName,     S::Writing, S::Reading,   S::Rendering, S::Constructing,
            S::Copying, S::Assigning, S::Moving,  S::Collecting};
}

std::vector<Class> Classes() {
    return {
#define QUAVERA_RECORD(Record, Soap, element, node, answer) \
    ClassOf<Sweeps<Record, Quavera::Soap, Node::node>>(#Record, #Soap),
#include "records/Records.def"
    };
}

class RecordFailure : public testing::TestWithParam<Class> {
 protected:
    void SetUp() override { QUAVERA_SKIP_WITHOUT_ALLOCATION_FAILURE(); }

    const Documents documents_{GetParam().name};
};

INSTANTIATE_TEST_SUITE_P(All, RecordFailure, testing::ValuesIn(Classes()),
                         [](const auto& test) { return test.param.name; });

TEST_P(RecordFailure, OfWritingIsOrderly) {
    GetParam().writing(documents_, GetParam().soapName);
}

TEST_P(RecordFailure, OfReadingIsOrderly) {
    GetParam().reading(documents_);
}

TEST_P(RecordFailure, OfRenderingIsOrderly) {
    GetParam().rendering(documents_);
}

TEST_P(RecordFailure, OfConstructingIsOrderly) {
    GetParam().constructing();
}

TEST_P(RecordFailure, OfCopyingIsOrderly) {
    GetParam().copying(documents_);
}

TEST_P(RecordFailure, OfAssigningIsOrderly) {
    GetParam().assigning(documents_);
}

TEST_P(RecordFailure, OfMovingCannotHappen) {
    GetParam().moving(documents_);
}

TEST_P(RecordFailure, OfAGrowingVectorIsOrderly) {
    GetParam().collecting(documents_);
}

}  // namespace
