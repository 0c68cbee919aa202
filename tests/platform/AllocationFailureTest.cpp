#include "tests/support/AllocationFailure.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <new>
#include <string>
#include <vector>

#include "platform/zqshared.h"
#include "tests/support/FakeNode.h"
#include "tests/support/TreeText.h"

// What is left behind when C++ allocations fail.

namespace {

using allocation::Attempt;
using allocation::Mode;
using allocation::Sweep;
using Tree = zq::auto_com<ZQXML::INode>;

Tree NewNode(const std::string& name, const std::string& text = {}) {
    Tree node = ZQXML::CreateXmlNode();
    node->Initialize(name, text);
    return node;
}

// The means of these tests, first.

/// One allocation, which no compiler may leave out.
void TakeAndDrop() {
    void* volatile block = ::operator new(1);
    ::operator delete(block);
}

/// The same, for which a failure is no reason to complain.
void TryAndDrop() {
    void* volatile block = ::operator new(1, std::nothrow);
    ::operator delete(block);
}

TEST(AllocationFailure, CountsAllocationsOfTheWork) {
    EXPECT_EQ(allocation::CountAllocations([] {}), 0U);
    EXPECT_EQ(allocation::CountAllocations([] {
                  TakeAndDrop();
                  TryAndDrop();
                  void* volatile array = ::operator new[](1);
                  ::operator delete[](array);
                  void* volatile aligned = ::operator new (64, std::align_val_t{64});
                  ::operator delete (aligned, std::align_val_t{64});
              }),
              4U);
}

/// The indices, out of five allocations, that fail.
std::string FailingIndices(std::size_t index, Mode mode) {
    std::string failing;
    bool failed[5] = {};
    allocation::Arm(index, mode);
    for (bool& isFailed : failed) {
        void* const block = ::operator new(1, std::nothrow);
        isFailed = block == nullptr;
        ::operator delete(block);
    }
    allocation::Disarm();
    for (std::size_t at = 0; at < std::size(failed); ++at) {
        failing += failed[at] ? std::to_string(at) : "";
    }
    return failing;
}

TEST(AllocationFailure, FailsOnceOrFromThereOn) {
    EXPECT_EQ(FailingIndices(allocation::kNever, Mode::kOnce), "");
    EXPECT_EQ(FailingIndices(0, Mode::kOnce), "0");
    EXPECT_EQ(FailingIndices(3, Mode::kOnce), "3");
    EXPECT_EQ(FailingIndices(3, Mode::kFromThereOn), "34");
    EXPECT_EQ(FailingIndices(0, Mode::kFromThereOn), "01234");
    EXPECT_EQ(FailingIndices(5, Mode::kFromThereOn), "");
}

TEST(AllocationFailure, SweepFailsWhereThereIsTooLittleToFail) {
    const auto body = [](Attempt& attempt) { attempt.Run(TakeAndDrop); };
    EXPECT_TRUE(Sweep(1, body));
    EXPECT_FALSE(Sweep(2, body));
}

TEST(AllocationFailure, SweepSeesSwallowedFailures) {
    EXPECT_FALSE(Sweep(1, [](Attempt& attempt) { attempt.Run(TryAndDrop); }));
    EXPECT_TRUE(Sweep(1, [](Attempt& attempt) { attempt.RunTolerantly(TryAndDrop); }));
}

TEST(AllocationFailure, SweepSeesLostBlocks) {
    std::vector<void*> lost;
    lost.reserve(100);
    EXPECT_FALSE(Sweep(2, [&lost](Attempt& attempt) {
        attempt.Run([&lost] {
            lost.push_back(::operator new(1));
            TakeAndDrop();  // where this one fails, the other is lost
            ::operator delete(lost.back());
            lost.pop_back();
        });
    }));
    EXPECT_FALSE(lost.empty());
    for (void* const block : lost) {
        ::operator delete(block);
    }
}

// The platform library.

constexpr std::size_t kFillings = 48;
constexpr std::size_t kFillingStep = 16;

/// Nodes whose memory is used up to a different point each, so that for some of them any part of a
/// new element is the one that takes a new block.
std::vector<Tree> NodesFilledDifferently() {
    std::vector<Tree> nodes;
    for (std::size_t filling = 0; filling < kFillings; ++filling) {
        nodes.push_back(NewNode("node", std::string(filling * kFillingStep, 'x')));
    }
    return nodes;
}

/// Sweeps over `change(node)`, which has to change a node completely or, where it throws, not at
/// all, and to succeed when it is tried again.
template <class Change>
void SweepChange(std::size_t minimumSites, Change change) {
    EXPECT_TRUE(Sweep(minimumSites, [&change](Attempt& attempt) {
        const std::vector<Tree> nodes = NodesFilledDifferently();
        std::vector<std::string> before;
        before.reserve(nodes.size());
        for (const Tree& node : nodes) {
            before.push_back(TreeText(node.get()));
        }
        std::size_t done = 0;
        const bool isComplete = attempt.Run([&] {
            for (; done < nodes.size(); ++done) {
                change(nodes[done].get());
            }
        });
        for (std::size_t at = done; at < nodes.size(); ++at) {
            EXPECT_EQ(TreeText(nodes[at].get()), before[at]);
        }
        if (!isComplete) {
            change(nodes[done].get());
            EXPECT_NE(TreeText(nodes[done].get()), before[done]);
        }
    }));
}

TEST(AllocationFailureInTree, FailedAddChildChangesNothing) {
    const std::string name = "child";
    const std::string text(100, 't');
    SweepChange(kFillings / 4, [&](ZQXML::INode* node) { node->AddChild(name, text); });
    SweepChange(kFillings / 4, [&](ZQXML::INode* node) { node->AddChild(name, text.c_str()); });
    SweepChange(kFillings / 4, [&](ZQXML::INode* node) { node->AddChildEncoded(name, text); });
    // A number takes no room but its node's.
    SweepChange(kFillings / 12, [&](ZQXML::INode* node) { node->AddChild(name, -2147483647); });
    SweepChange(kFillings / 8, [&](ZQXML::INode* node) { node->AddChild(name, 4294967295UL); });
    SweepChange(kFillings / 8, [&](ZQXML::INode* node) { node->AddChild(name, true); });
}

TEST(AllocationFailureInTree, FailedAddChildOfLargePartsChangesNothing) {
    const std::string large(20000, 'l');
    SweepChange(kFillings, [&](ZQXML::INode* node) { node->AddChild(large, ""); });
    SweepChange(kFillings, [&](ZQXML::INode* node) { node->AddChild("n", large); });
    SweepChange(2 * kFillings, [&](ZQXML::INode* node) { node->AddChild(large, large); });
}

TEST(AllocationFailureInTree, FailedInitializeChangesNothing) {
    const std::string large(20000, 'l');
    SweepChange(2 * kFillings, [&](ZQXML::INode* node) { node->Initialize(large, large); });
}

TEST(AllocationFailureInTree, FailedAppendChildChangesNothing) {
    const std::string text(100, 't');
    SweepChange(kFillings, [&](ZQXML::INode* node) {
        const Tree child = ZQXML::CreateXmlNode();
        child->Initialize("child", text);
        node->AppendChild(child.get());
    });
    SweepChange(kFillings / 8, [&](ZQXML::INode* node) {
        const Tree child = node->CreateNode("");
        child->Initialize("child", text);
        node->AppendChild(child.get());
    });
}

TEST(AllocationFailureInTree, FailedAppendChildLeavesTheChildFree) {
    EXPECT_TRUE(Sweep(1, [](Attempt& attempt) {
        const std::vector<Tree> parents = NodesFilledDifferently();
        std::vector<Tree> children;
        for (std::size_t count = 0; count < parents.size(); ++count) {
            children.push_back(NewNode("child"));
        }
        std::size_t done = 0;
        attempt.Run([&] {
            for (; done < parents.size(); ++done) {
                parents[done]->AppendChild(children[done].get());
            }
        });
        if (done < parents.size()) {
            const Tree other = NewNode("other");
            other->AppendChild(children[done].get());
            EXPECT_NE(other->FindChild("child"), nullptr);
            EXPECT_EQ(parents[done]->FindChild("child"), nullptr);
        }
    }));
}

TEST(AllocationFailureInTree, FailedCopyOfAForeignNodeChangesNothing) {
    EXPECT_TRUE(Sweep(8, [](Attempt& attempt) {
        const zq::auto_com<FakeNode> foreign =
            FakeNode::Create(std::string(50, 'n'), std::string(100, 't'));
        foreign->AddChild("a", std::string(20000, 'x'));
        const zq::auto_com<FakeNode> inner = FakeNode::Create(std::string(20000, 'i'));
        inner->AddChild("b", std::string(100, 'y'));
        foreign->AppendChild(inner.get());
        const Tree parent = NewNode("parent", "text");
        parent->AddChild("first", 1);
        const std::string before = TreeText(parent.get());
        const std::string original = TreeText(foreign.get());
        if (!attempt.Run([&] { parent->AppendChild(foreign.get()); })) {
            EXPECT_EQ(TreeText(parent.get()), before);
            parent->AppendChild(foreign.get());
        }
        EXPECT_EQ(TreeText(parent.get()),
                  before.substr(0, before.size() - 1) + ' ' + original + ')');
    }));
}

TEST(AllocationFailureInTree, ManyNamesAreKeptOrNot) {
    constexpr int kCount = 3000;
    EXPECT_TRUE(Sweep(10, [](Attempt& attempt) {
        std::vector<std::string> names;
        names.reserve(kCount);
        for (int index = 0; index < kCount; ++index) {
            names.push_back("name" + std::to_string(index));
        }
        const Tree node = NewNode("node");
        std::size_t done = 0;
        attempt.Run([&] {
            for (; done < names.size(); ++done) {
                node->AddChild(names[done], "");
            }
        });
        std::size_t found = 0;
        ZQXML::INodeList* const list = node->GetChildren();
        for (ZQXML::INode* child = list->First(); child != nullptr; child = list->Next()) {
            EXPECT_EQ(child->GetName(), names[found]);
            ++found;
        }
        EXPECT_EQ(found, done);
    }));
}

TEST(AllocationFailureInTree, ReadingOperationsChangeNothing) {
    EXPECT_TRUE(Sweep(4, [](Attempt& attempt) {
        const Tree node = NewNode(std::string(50, 'n'), std::string(50, 't'));
        node->AddChildEncoded("e", std::string(100, 'A'));
        const std::string before = TreeText(node.get());
        ZQXML::INode* const encoded = node->FindChild("e");
        attempt.Run([&node, encoded] {
            node->GetName();
            node->GetValue();
            node->GetValueDecoded();
            encoded->GetValueDecoded();
        });
        EXPECT_EQ(TreeText(node.get()), before);
    }));
}

/// Adds many children of those names, in an order that is hard to foresee.
std::size_t CountAllocationsOfChildren(const std::vector<std::string>& names) {
    return allocation::CountAllocations([&names] {
        const Tree root = NewNode("root");
        std::uint32_t state = 1;
        for (int count = 0; count < 20000; ++count) {
            state = state * 1664525 + 1013904223;
            root->AddChild(names[(state >> 16) % names.size()], 1);
        }
    });
}

TEST(AllocationFailureInTree, NamesThatDifferAnywhereAreKeptOnce) {
    const std::string name = "ElementName";
    const std::size_t expected = CountAllocationsOfChildren({name});
    for (std::size_t at = 0; at < name.size(); ++at) {
        std::vector<std::string> names(26, name);
        for (std::size_t which = 0; which < names.size(); ++which) {
            names[which][at] = static_cast<char>('a' + which);
        }
        EXPECT_LE(CountAllocationsOfChildren(names), expected + 1) << at;
    }
}

TEST(AllocationFailureInTree, FindingWalkingAndReleasingNeedNoMemory) {
    const std::string name = "child";
    EXPECT_EQ(allocation::CountAllocations([&] {
                  Tree node = ZQXML::CreateXmlNode();
                  node = nullptr;
              }),
              1U);
    Tree node = NewNode("node");
    node->AddChild(name, std::string(30000, 'x'));
    const Tree appended = NewNode("appended");
    node->AppendChild(appended.get());
    ZQXML::INode* const child = node->FindChild(name);
    ZQXML::INodeList* const children = node->GetChildren();
    ZQXML::NodeView view;
    EXPECT_EQ(allocation::CountAllocations([&] {
                  node->FindChild(name);
                  node->GetChildren();
                  children->First();
                  children->Next();
                  node->View();
                  node->GetChildrenIfAny();
                  children->ViewFirst(&view, 1);
                  children->ViewNext(&view, 1);
                  children->CountHint();
                  child->GetValueInt();
                  child->AddRef();
                  node = nullptr;
                  child->Release();
              }),
              0U);
}

constexpr char kDocument[] =
    "<?xml version='1.0'?><Album><!-- c --><Id>a text that is longer than a small string's</Id>"
    "<Title encoding=\"base64\">Zm9vYmFyZm9vYmFyZm9vYmFyZm9vYmFy</Title>"
    "<a><b><c><d><e><f><g><h>deep</h></g></f></e></d></c></b></a></Album>";

/// As `WriteXml` writes it.
constexpr char kPlainDocument[] =
    "<Album><Id>a text that is longer than a small string's, &amp; with a reference</Id>"
    "<Title encoding=\"base64\">Zm9vYmFyZm9vYmFyZm9vYmFyZm9vYmFy</Title>"
    "<a><b><c><d><e><f><g><h>deep</h></g></f></e></d></c></b></a></Album>";

TEST(AllocationFailureInXml, ReadingIsCompleteOrThrows) {
    const struct {
        const char* document;
        std::size_t sites;  // at least: the blocks of the tree; those of the parser and a text
    } cases[] = {{kPlainDocument, 4}, {kDocument, 8}};
    for (const auto& [document, sites] : cases) {
        const std::string text = document + std::string(30000, ' ');
        const std::string expected = TreeText(ZQXML::ParseXml(text).get());
        ASSERT_NE(expected, "none");
        EXPECT_TRUE(Sweep(sites, [&](Attempt& attempt) {
            Tree tree;
            std::string error = "untouched";
            if (attempt.Run([&] { tree = ZQXML::ParseXml(text, &error); })) {
                EXPECT_EQ(TreeText(tree.get()), expected);
            } else {
                EXPECT_FALSE(tree);
            }
            EXPECT_EQ(error, "untouched");
        }));
    }
}

TEST(AllocationFailureInXml, RefusingThrowsOrExplains) {
    for (const std::string text : {"<Album><Id>1</Id><b>\n</c></Album>", "<!DOCTYPE a><a/>", "<a>",
                                   "<?xml version='2.0'?><a/>"}) {
        EXPECT_TRUE(Sweep(1, [&](Attempt& attempt) {
            Tree tree;
            std::string error;
            const bool isComplete = attempt.Run([&] { tree = ZQXML::ParseXml(text, &error); });
            EXPECT_FALSE(tree);
            EXPECT_EQ(!error.empty(), isComplete);
        }));
    }
}

/// Adds texts that the written text has to grow for, again and again: references take more than
/// what is expected of a text.
void AddLongTexts(ZQXML::INode* node) {
    for (const std::size_t size : {2000U, 8000U, 32000U}) {
        node->AddChild("long", std::string(size, '&'));
    }
}

TEST(AllocationFailureInXml, WritingIsCompleteOrThrows) {
    const Tree tree = ZQXML::ParseXml(kDocument);
    ASSERT_TRUE(tree);
    AddLongTexts(tree.get());
    const std::string before = TreeText(tree.get());
    for (const bool indent : {false, true}) {
        const std::string expected = ZQXML::WriteXml(tree.get(), indent);
        EXPECT_TRUE(Sweep(3, [&](Attempt& attempt) {
            std::string text;
            if (attempt.Run([&] { text = ZQXML::WriteXml(tree.get(), indent); })) {
                EXPECT_EQ(text, expected);
            } else {
                EXPECT_EQ(text, "");
            }
            EXPECT_EQ(TreeText(tree.get()), before);
        }));
    }
}

TEST(AllocationFailureInXml, WritingForeignNodesIsCompleteOrThrows) {
    const zq::auto_com<FakeNode> root =
        FakeNode::Create(std::string(40, 'n'), std::string(40, 't'));
    root->AddChild("child", std::string(40, 'c'));
    AddLongTexts(root.get());
    const std::string expected = ZQXML::WriteXml(root.get());
    EXPECT_TRUE(Sweep(6, [&](Attempt& attempt) {
        std::string text;
        attempt.Run([&] { text = ZQXML::WriteXml(root.get()); });
        EXPECT_EQ(text, attempt.HasFailed() ? "" : expected);
    }));
}

TEST(AllocationFailureElsewhere, Base64AndDiagnosticsNeedNoMemory) {
    const std::string data(1000, 'x');
    std::string text(2000, '\0');
    std::string decoded(2000, '\0');
    const zq::AssertHandler previous =
        zq::SetAssertHandler([](const char*, int, const zq::StackTrace&) {});
    EXPECT_EQ(allocation::CountAllocations([&] {
                  const Base64Encoder encoder;
                  long size = 2000;
                  encoder.Encode(data.data(), 1000, text.data(), &size, 2);
                  long decodedSize = 2000;
                  encoder.Decode(text.data(), size, decoded.data(), &decodedSize);
                  zq::AssertWrite("path", 1, zq::StackTrace());
              }),
              0U);
    zq::SetAssertHandler(previous);
    EXPECT_EQ(decoded.substr(0, 1000), data);
}

}  // namespace
