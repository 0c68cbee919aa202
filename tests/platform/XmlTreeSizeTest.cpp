#include <gtest/gtest.h>
#include <pthread.h>

#include <cstddef>
#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/XmlNode.h"
#include "platform/XmlText.h"
#include "tests/support/EmptyNode.h"

// Trees of a million elements, deep and wide, and of large names and texts, on a stack that no
// recursion over them would fit.
// That none of this takes time that grows with the square of the size is held by the test's time
// limit.

namespace {

using Tree = zq::auto_com<ZQXML::INode>;

// With a sanitizer, a tenth takes as long as all of it without.
constexpr int kCount = QUAVERA_TEST_SANITIZED != 0 ? 100000 : 1000000;
constexpr std::size_t kStackSize = std::size_t{256} * 1024;

/// Runs `work` on a thread with a small stack.
void RunOnSmallStack(std::function<void()> work) {
    pthread_attr_t attributes;
    ASSERT_EQ(pthread_attr_init(&attributes), 0);
    ASSERT_EQ(pthread_attr_setstacksize(&attributes, kStackSize), 0);
    const auto run = [](void* argument) -> void* {
        (*static_cast<std::function<void()>*>(argument))();
        return nullptr;
    };
    pthread_t thread;
    ASSERT_EQ(pthread_create(&thread, &attributes, run, &work), 0);
    EXPECT_EQ(pthread_join(thread, nullptr), 0);
    pthread_attr_destroy(&attributes);
}

Tree NewNode(const std::string& name) {
    Tree node = ZQXML::CreateXmlNode();
    node->Initialize(name, "");
    return node;
}

/// "<n><n>...<n/>...</n></n>" for a chain of `count` nodes.
bool IsChainText(std::string_view text, std::size_t count) {
    constexpr std::string_view kStart = "<n>";
    constexpr std::string_view kInnermost = "<n/>";
    constexpr std::string_view kEnd = "</n>";
    const std::size_t startSize = kStart.size() * (count - 1);
    if (text.size() != startSize + kInnermost.size() + kEnd.size() * (count - 1)) {
        return false;
    }
    for (std::size_t at = 0; at < count - 1; ++at) {
        if (text.substr(at * kStart.size(), kStart.size()) != kStart ||
            text.substr(startSize + kInnermost.size() + at * kEnd.size(), kEnd.size()) != kEnd) {
            return false;
        }
    }
    return text.substr(startSize, kInnermost.size()) == kInnermost;
}

void BuildWriteAndReleaseChain(Tree (*build)()) {
    RunOnSmallStack([build] {
        Tree root = build();
        EXPECT_TRUE(IsChainText(ZQXML::WriteXml(root.get()), kCount));
        root = nullptr;
    });
}

TEST(DeepTree, OfAppendedNodesBuiltTopDown) {
    BuildWriteAndReleaseChain([] {
        Tree root = NewNode("n");
        ZQXML::INode* deepest = root.get();
        for (int depth = 1; depth < kCount; ++depth) {
            const Tree child = NewNode("n");
            deepest->AppendChild(child.get());
            deepest = child.get();
        }
        return root;
    });
}

TEST(DeepTree, OfAppendedNodesBuiltBottomUp) {
    BuildWriteAndReleaseChain([] {
        Tree root = NewNode("n");
        for (int depth = 1; depth < kCount; ++depth) {
            Tree parent = NewNode("n");
            parent->AppendChild(root.get());
            root = std::move(parent);
        }
        return root;
    });
}

TEST(DeepTree, OfNodesMadeForTheTree) {
    BuildWriteAndReleaseChain([] {
        Tree root = NewNode("n");
        ZQXML::INode* deepest = root.get();
        for (int depth = 1; depth < kCount; ++depth) {
            const Tree child = deepest->CreateNode("");
            child->Initialize("n", "");
            deepest->AppendChild(child.get());
            deepest = child.get();
        }
        return root;
    });
}

TEST(DeepTree, OfAddedChildren) {
    BuildWriteAndReleaseChain([] {
        Tree root = NewNode("n");
        ZQXML::INode* deepest = root.get();
        for (int depth = 1; depth < kCount; ++depth) {
            deepest->AddChild("n", "");
            deepest = deepest->FindChild("n");
        }
        return root;
    });
}

TEST(DeepTree, WhoseDeepestNodeIsKept) {
    RunOnSmallStack([] {
        Tree root = NewNode("n");
        ZQXML::INode* deepest = root.get();
        for (int depth = 1; depth < kCount; ++depth) {
            deepest->AddChild("n", "");
            deepest = deepest->FindChild("n");
        }
        deepest->Initialize("deepest", "text");
        deepest->AddRef();
        const Tree kept(deepest);
        root = nullptr;
        EXPECT_EQ(ZQXML::WriteXml(kept.get()), "<deepest>text</deepest>");
    });
}

/// Two deep trees are joined in the middle: a subtree of any size may be appended at any depth.
TEST(DeepTree, JoinedFromTwo) {
    RunOnSmallStack([] {
        constexpr int kHalf = kCount / 2;
        Tree lower = NewNode("n");
        for (int depth = 1; depth < kHalf; ++depth) {
            Tree parent = NewNode("n");
            parent->AppendChild(lower.get());
            lower = std::move(parent);
        }
        const Tree upper = NewNode("n");
        ZQXML::INode* deepest = upper.get();
        for (int depth = 1; depth < kHalf; ++depth) {
            deepest->AddChild("n", "");
            deepest = deepest->FindChild("n");
        }
        deepest->AppendChild(lower.get());
        lower->AppendChild(upper.get());
        EXPECT_TRUE(IsChainText(ZQXML::WriteXml(upper.get()), kCount));
    });
}

/// A node of another implementation that has one child at most; it never recurses itself.
class ChainNode final : public EmptyNode, public ZQXML::INodeList {
 public:
    void SetChild(ChainNode* child) { child_ = child; }

    std::string GetName() override { return "n"; }
    ZQXML::INodeList* GetChildren() override { return this; }

    ZQXML::INode* First() override { return child_; }
    ZQXML::INode* Next() override { return nullptr; }

 private:
    ChainNode* child_ = nullptr;
};

TEST(DeepTree, OfAnotherImplementationIsCopied) {
    RunOnSmallStack([] {
        std::deque<ChainNode> nodes;
        for (int depth = 0; depth < kCount; ++depth) {
            ChainNode& node = nodes.emplace_back();
            if (depth > 0) {
                nodes[static_cast<std::size_t>(depth) - 1].SetChild(&node);
            }
        }
        const Tree root = NewNode("n");
        root->AppendChild(&nodes.front());
        EXPECT_TRUE(IsChainText(ZQXML::WriteXml(root.get()), kCount + 1U));
    });
}

/// Writes a tree of `kCount` children and counts them by way of the list.
void WriteAndReleaseWide(Tree root) {
    int count = 0;
    ZQXML::INodeList* const list = root->GetChildren();
    for (ZQXML::INode* child = list->First(); child != nullptr; child = list->Next()) {
        ++count;
    }
    EXPECT_EQ(count, kCount);
    const std::string text = ZQXML::WriteXml(root.get());
    EXPECT_EQ(text.size(), std::string_view("<root></root>").size() +
                               kCount * std::string_view("<n>x</n>").size());
    EXPECT_EQ(text.substr(0, 22), "<root><n>x</n><n>x</n>");
    EXPECT_EQ(text.substr(text.size() - 15), "<n>x</n></root>");
}

TEST(WideTree, OfAddedChildren) {
    RunOnSmallStack([] {
        Tree root = NewNode("root");
        for (int index = 0; index < kCount; ++index) {
            root->AddChild("n", "x");
        }
        WriteAndReleaseWide(std::move(root));
    });
}

TEST(WideTree, OfAppendedNodes) {
    RunOnSmallStack([] {
        Tree root = NewNode("root");
        for (int index = 0; index < kCount; ++index) {
            const Tree child = ZQXML::CreateXmlNode();
            child->Initialize("n", "x");
            root->AppendChild(child.get());
        }
        WriteAndReleaseWide(std::move(root));
    });
}

/// Adds a child of each name that `nameOf` gives for a number, twice, and looks at them.
template <class NameOf>
void CheckDistinctNames(NameOf nameOf) {
    constexpr int kDistinct = kCount / 2;
    const Tree root = NewNode("root");
    for (int index = 0; index < kCount; ++index) {
        root->AddChild(nameOf(index % kDistinct), "");
    }
    int index = 0;
    ZQXML::INodeList* const list = root->GetChildren();
    for (ZQXML::INode* child = list->First(); child != nullptr; child = list->Next()) {
        ASSERT_EQ(child->GetName(), nameOf(index % kDistinct));
        ++index;
    }
    EXPECT_EQ(index, kCount);
}

TEST(WideTree, OfDistinctNames) {
    RunOnSmallStack(
        [] { CheckDistinctNames([](int index) { return 'n' + std::to_string(index); }); });
}

/// Names that are told apart late, if they are looked up by their size and ends.
TEST(WideTree, OfNamesThatDifferInTheMiddle) {
    RunOnSmallStack([] {
        CheckDistinctNames(
            [](int index) { return "Name" + std::to_string(1000000 + index) + "Name"; });
    });
}

/// A wide and a deep part: looking for a cycle must not visit the wide one each time.
TEST(WideTree, AppendedToWhileItGrows) {
    RunOnSmallStack([] {
        Tree root = NewNode("root");
        for (int index = 0; index < kCount; ++index) {
            root->AddChild("n", "x");
        }
        for (int depth = 0; depth < kCount / 2; ++depth) {
            Tree parent = NewNode("p");
            parent->AppendChild(root.get());
            root = std::move(parent);
        }
        EXPECT_EQ(root->GetName(), "p");
    });
}

// What takes as many bytes as it likes.

constexpr std::size_t kLargeName = 50000;
constexpr std::size_t kLargeText = 10 * std::size_t{kCount};

/// Adds a child of each form with a large name, and a large text where it takes one.
void AddLargeParts(ZQXML::INode* node, const std::string& text) {
    const std::string name(kLargeName, 'n');
    node->AddChild(name + 'a', text);
    node->AddChild(name + 'b', text.c_str());
    node->AddChild(name + 'c', -1);
    node->AddChildEncoded(name + 'd', text);
    node->AddEncoded(name + 'e', text);
    const Tree inner = node->CreateNode(name + 'f');
    inner->Initialize(name + 'f', text);
    node->AppendChild(inner.get());
}

void ExpectLargeParts(ZQXML::INode* node, const std::string& text) {
    const std::string name(kLargeName, 'n');
    for (const char last : {'a', 'b', 'd', 'f'}) {
        ZQXML::INode* const child = node->FindChild(name + last);
        ASSERT_NE(child, nullptr) << last;
        EXPECT_TRUE(child->GetName() == name + last) << last;
        EXPECT_TRUE(child->GetValue() == text) << last;
    }
    ASSERT_NE(node->FindChild(name + 'c'), nullptr);
    EXPECT_EQ(node->FindChild(name + 'c')->GetValueInt(), -1);
    ASSERT_NE(node->FindChild(name + 'e'), nullptr);
    EXPECT_TRUE(node->FindChild(name + 'e')->GetValueDecoded() == text);
    EXPECT_EQ(node->FindChild(name), nullptr);
}

TEST(LargeParts, AreKeptWrittenAndRead) {
    RunOnSmallStack([] {
        for (const char* const piece : {"x", "&", "\xC3\xA9"}) {
            std::string text;
            while (text.size() < kLargeText / 3) {
                text += piece;
            }
            const Tree root = NewNode("root");
            AddLargeParts(root.get(), text);
            ExpectLargeParts(root.get(), text);
            const Tree read = ZQXML::ParseXml(ZQXML::WriteXml(root.get(), true));
            ASSERT_TRUE(read);
            ExpectLargeParts(read.get(), text);
        }
    });
}

TEST(LargeParts, OfTenMillionBytesAreKeptWrittenAndRead) {
    RunOnSmallStack([] {
        const std::string text(kLargeText, 'x');
        const Tree root = NewNode("root");
        root->AddChild("plain", text);
        root->AddEncoded("encoded", text);
        const Tree read = ZQXML::ParseXml(ZQXML::WriteXml(root.get()));
        ASSERT_TRUE(read);
        EXPECT_TRUE(read->FindChild("plain")->GetValue() == text);
        EXPECT_TRUE(read->FindChild("encoded")->GetValueDecoded() == text);
    });
}

}  // namespace
