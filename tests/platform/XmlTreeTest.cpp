#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/XmlNode.h"
#include "platform/XmlText.h"
#include "tests/support/AllocationFailure.h"
#include "tests/support/FakeNode.h"
#include "tests/support/Random.h"
#include "tests/support/TreeText.h"

// How elements become a tree, and how long each of them lives.

namespace {

using Tree = zq::auto_com<ZQXML::INode>;

Tree NewNode(const std::string& name, const std::string& text = {}) {
    Tree node = ZQXML::CreateXmlNode();
    node->Initialize(name, text);
    return node;
}

/// A reference of its own on a borrowed node.
Tree Kept(ZQXML::INode* node) {
    node->AddRef();
    return Tree(node);
}

/// "a" with child "b" with child "c", each made alone and appended.
Tree Chain() {
    Tree a = NewNode("a");
    const Tree b = NewNode("b");
    const Tree c = NewNode("c");
    a->AppendChild(b.get());
    b->AppendChild(c.get());
    return a;
}

constexpr char kChain[] = R"("a"=""("b"=""("c"="")))";

class XmlTree : public testing::Test {
 protected:
    /// Everything that a test makes is gone at its end.
    void TearDown() override {
        if (!HasFailure()) {  // messages take blocks, too
            EXPECT_EQ(allocation::LiveBlocks(), blocksBefore_);
            EXPECT_EQ(FakeNode::LiveCount(), fakesBefore_);
        }
    }

 private:
    int fakesBefore_ = FakeNode::LiveCount();
    long blocksBefore_ = allocation::LiveBlocks();
};

using AppendChild = XmlTree;
using References = XmlTree;
using ForeignNodes = XmlTree;
using ParsedTrees = XmlTree;

TEST_F(AppendChild, AttachesTheNodeItselfAsLastChild) {
    const Tree parent = NewNode("parent");
    parent->AddChild("first", 1);
    const Tree child = NewNode("second", "2");
    child->AddChild("inner", 3);
    parent->AppendChild(child.get());
    parent->AddChild("third", 4);
    EXPECT_EQ(TreeText(parent.get()),
              R"("parent"=""("first"="1" "second"="2"("inner"="3") "third"="4"))");
    EXPECT_EQ(parent->FindChild("second"), child.get());
}

TEST_F(AppendChild, TreeTakesAReferenceOfItsOwn) {
    const Tree parent = NewNode("parent");
    {
        const Tree child = NewNode("child", "text");
        parent->AppendChild(child.get());
    }
    EXPECT_EQ(TreeText(parent.get()), R"("parent"=""("child"="text"))");
}

TEST_F(AppendChild, LaterChangesOfTheChildShowInTheTree) {
    const Tree parent = NewNode("parent");
    const Tree child = NewNode("child");
    parent->AppendChild(child.get());
    child->AddChild("late", 1);
    child->Initialize("renamed", "text");
    EXPECT_EQ(TreeText(parent.get()), R"("parent"=""("renamed"="text"("late"="1")))");
}

TEST_F(AppendChild, KeepsMarksInTheSubtree) {
    const Tree parent = NewNode("parent");
    const Tree child = NewNode("child");
    child->AddChildEncoded("inner", "Zm9v");
    parent->AppendChild(child.get());
    EXPECT_EQ(TreeText(parent.get()), R"("parent"=""("child"=""("inner"="Zm9v"*)))");
}

TEST_F(AppendChild, TakesNodesMadeForTheTreeAndOthersAlike) {
    const Tree parent = NewNode("parent");
    for (int index = 0; index < 4; ++index) {
        const Tree child = index % 2 == 0 ? parent->CreateNode("") : ZQXML::CreateXmlNode();
        child->Initialize("n", std::to_string(index));
        parent->AppendChild(child.get());
    }
    EXPECT_EQ(TreeText(parent.get()), R"("parent"=""("n"="0" "n"="1" "n"="2" "n"="3"))");
}

TEST_F(AppendChild, NullDoesNothing) {
    const Tree parent = NewNode("parent");
    parent->AppendChild(nullptr);
    EXPECT_EQ(TreeText(parent.get()), R"("parent"="")");
}

TEST_F(AppendChild, NodeItselfDoesNothing) {
    const Tree node = NewNode("node");
    node->AppendChild(node.get());
    EXPECT_EQ(TreeText(node.get()), R"("node"="")");
    const Tree parent = NewNode("parent");
    parent->AppendChild(node.get());
    EXPECT_EQ(TreeText(parent.get()), R"("parent"=""("node"=""))");
}

TEST_F(AppendChild, AncestorDoesNothing) {
    const Tree a = Chain();
    ZQXML::INode* const b = a->FindChild("b");
    b->AppendChild(a.get());
    b->FindChild("c")->AppendChild(a.get());
    b->FindChild("c")->AppendChild(b);
    EXPECT_EQ(TreeText(a.get()), kChain);
}

TEST_F(AppendChild, FarAncestorDoesNothing) {
    const Tree root = NewNode("0");
    ZQXML::INode* deepest = root.get();
    for (int depth = 1; depth <= 100; ++depth) {
        deepest->AddChild("other", depth);
        deepest->AddChild(std::to_string(depth), "");
        deepest = deepest->FindChild(std::to_string(depth));
    }
    const std::string before = TreeText(root.get());
    deepest->AppendChild(root.get());
    EXPECT_EQ(TreeText(root.get()), before);
}

TEST_F(AppendChild, DescendantDoesNothing) {
    const Tree a = Chain();
    ZQXML::INode* const b = a->FindChild("b");
    a->AppendChild(b);
    a->AppendChild(b->FindChild("c"));
    EXPECT_EQ(TreeText(a.get()), kChain);
}

TEST_F(AppendChild, SecondTimeDoesNothing) {
    const Tree parent = NewNode("parent");
    const Tree child = NewNode("child");
    parent->AppendChild(child.get());
    parent->AppendChild(child.get());
    EXPECT_EQ(TreeText(parent.get()), R"("parent"=""("child"=""))");
}

TEST_F(AppendChild, NodeWithAParentElsewhereDoesNothing) {
    const Tree first = NewNode("first");
    const Tree second = NewNode("second");
    const Tree child = NewNode("child");
    first->AppendChild(child.get());
    first->AddChild("added", "x");
    second->AppendChild(child.get());
    second->AppendChild(first->FindChild("added"));
    EXPECT_EQ(TreeText(first.get()), R"("first"=""("child"="" "added"="x"))");
    EXPECT_EQ(TreeText(second.get()), R"("second"="")");
}

TEST_F(AppendChild, NodeWhoseParentIsGoneCanBeAttachedAgain) {
    Tree former = NewNode("former");
    former->AddChild("added", "x");
    const Tree added = Kept(former->FindChild("added"));
    const Tree appended = NewNode("appended");
    former->AppendChild(appended.get());
    former = nullptr;
    const Tree parent = NewNode("parent");
    parent->AppendChild(added.get());
    parent->AppendChild(appended.get());
    added->AppendChild(parent.get());
    EXPECT_EQ(TreeText(parent.get()), R"("parent"=""("added"="x" "appended"=""))");
}

TEST_F(AppendChild, SiblingsOfAKeptNodeDoNotComeAlong) {
    Tree former = NewNode("former");
    for (const char* const name : {"a", "b", "c"}) {
        former->AddChild(name, "");
    }
    const Tree kept = Kept(former->FindChild("b"));
    former = nullptr;
    const Tree parent = NewNode("parent");
    parent->AppendChild(kept.get());
    EXPECT_EQ(TreeText(parent.get()), R"("parent"=""("b"=""))");
}

TEST_F(References, BorrowedChildKeptOutlivesItsRootWithItsSubtree) {
    Tree root = NewNode("root");
    root->AddChild("child", "text");
    root->FindChild("child")->AddChild("inner", 1);
    root->FindChild("child")->AddChildEncoded("encoded", "Zm9v");
    root->AddChild("other", 2);
    const Tree kept = Kept(root->FindChild("child"));
    root = nullptr;
    kept->AddChild("late", 3);
    EXPECT_EQ(TreeText(kept.get()), R"("child"="text"("inner"="1" "encoded"="Zm9v"* "late"="3"))");
}

TEST_F(References, SubtreeOfAKeptNodeMayComeFromManyTrees) {
    Tree root = NewNode("root");
    root->AddChild("child", "");
    {
        const Tree grandchild = Chain();
        root->FindChild("child")->AppendChild(grandchild.get());
        const Tree own = root->CreateNode("");
        own->Initialize("own", "");
        grandchild->AppendChild(own.get());
        const Tree other = NewNode("other");
        own->AppendChild(other.get());
    }
    const Tree kept = Kept(root->FindChild("child"));
    const Tree keptDeep = Kept(kept->FindChild("a")->FindChild("own"));
    root = nullptr;
    EXPECT_EQ(TreeText(kept.get()), R"("child"=""("a"=""("b"=""("c"="") "own"=""("other"=""))))");
}

TEST_F(References, KeptLeafKeepsNothingElse) {
    const long before = allocation::LiveBlocks();
    Tree kept = NewNode("small");
    const long blocksOfSmall = allocation::LiveBlocks() - before;
    Tree root = NewNode("root");
    {
        const Tree big = NewNode("big", std::string(50000, 'x'));
        const Tree small = NewNode("small");
        root->AppendChild(big.get());
        root->AppendChild(small.get());
        kept = Kept(small.get());
    }
    root = nullptr;
    EXPECT_EQ(TreeText(kept.get()), R"("small"="")");
    EXPECT_EQ(allocation::LiveBlocks() - before, blocksOfSmall);
}

TEST_F(References, ReleasingABorrowedChildIsHarmless) {
    const Tree root = Chain();
    root->AddChild("added", 1);
    root->FindChild("added")->Release();
    root->FindChild("b")->Release();
    root->FindChild("b")->FindChild("c")->Release();
    root->FindChild("added")->Release();
    EXPECT_EQ(TreeText(root.get()), R"("a"=""("b"=""("c"="") "added"="1"))");
}

TEST_F(References, EachOneCounts) {
    Tree root = NewNode("root", "text");
    const Tree second = Kept(root.get());
    const Tree third = Kept(second.get());
    root = nullptr;
    EXPECT_EQ(TreeText(third.get()), R"("root"="text")");
}

TEST_F(References, OneOnAChildCountsOnceMoreThanItsParent) {
    Tree root = NewNode("root");
    root->AddChild("child", "text");
    Tree first = Kept(root->FindChild("child"));
    const Tree second = Kept(root->FindChild("child"));
    first = nullptr;
    root = nullptr;
    EXPECT_EQ(TreeText(second.get()), R"("child"="text")");
}

TEST_F(References, NodeMadeForATreeMayOutliveItUnattached) {
    Tree root = NewNode("root");
    const Tree created = root->CreateNode("");
    root = nullptr;
    created->Initialize("created", "text");
    created->AddChild("child", 1);
    EXPECT_EQ(TreeText(created.get()), R"("created"="text"("child"="1"))");
}

TEST_F(References, TreesMayReachIntoEachOthersMemory) {
    // Each of two created nodes is the parent of a node that was made for the other.
    const Tree first = NewNode("first");
    Tree second = NewNode("second");
    {
        const Tree forSecond = second->CreateNode("");
        const Tree forFirst = first->CreateNode("");
        forSecond->Initialize("forSecond", "");
        forFirst->Initialize("forFirst", "");
        first->AppendChild(forSecond.get());
        second->AppendChild(forFirst.get());
    }
    second = nullptr;
    EXPECT_EQ(TreeText(first.get()), R"("first"=""("forSecond"=""))");
}

TEST_F(References, MemorySharedInACircleIsFreed) {
    const Tree first = NewNode("first");
    const Tree second = NewNode("second");
    const Tree madeForFirst = first->CreateNode("");
    first->AppendChild(second.get());
    second->AppendChild(madeForFirst.get());
    EXPECT_EQ(TreeText(first.get()), R"("first"=""("second"=""(""="")))");
}

/// Every set of kept nodes of one tree, released in several orders.
TEST_F(References, NodesMayBeKeptAndReleasedInAnyOrder) {
    constexpr std::size_t kCount = 6;
    for (std::size_t keptSet = 0; keptSet < (1U << kCount); ++keptSet) {
        for (std::size_t turn = 0; turn < kCount; ++turn) {
            Tree root = Chain();
            ZQXML::INode* const b = root->FindChild("b");
            root->AddChild("d", "4");
            root->FindChild("d")->AddChild("e", "5");
            b->FindChild("c")->AddChild("f", "6");
            ZQXML::INode* const nodes[kCount] = {
                root.get(),
                b,
                b->FindChild("c"),
                root->FindChild("d"),
                root->FindChild("d")->FindChild("e"),
                b->FindChild("c")->FindChild("f"),
            };
            const std::string texts[kCount] = {
                R"("a"=""("b"=""("c"=""("f"="6")) "d"="4"("e"="5")))",
                R"("b"=""("c"=""("f"="6")))",
                R"("c"=""("f"="6"))",
                R"("d"="4"("e"="5"))",
                R"("e"="5")",
                R"("f"="6")",
            };
            std::vector<Tree> kept(kCount);
            for (std::size_t at = 0; at < kCount; ++at) {
                if ((keptSet >> at & 1U) != 0) {
                    kept[at] = Kept(nodes[at]);
                }
            }
            root = nullptr;
            for (std::size_t step = 0; step < kCount; ++step) {
                for (std::size_t at = 0; at < kCount; ++at) {
                    if (kept[at]) {
                        ASSERT_EQ(TreeText(kept[at].get()), texts[at]);
                    }
                }
                kept[(turn + step * (turn % 2 == 0 ? 1 : 5)) % kCount] = nullptr;
            }
        }
    }
}

// Read in place, and by way of expat for the comment.
constexpr const char* kParsed[] = {
    R"(<R><C>c<D>1</D><E encoding="base64">Zm9v</E><F encoding="base64"> </F></C><G/></R>)",
    R"(<R><!-- --><C>c<D>1</D><E encoding="base64">Zm9v</E><F encoding="base64"> </F></C></R>)",
};
constexpr char kParsedChild[] = R"("C"="c"("D"="1" "E"="Zm9v"* "F"=" "*))";

TEST_F(ParsedTrees, HaveARootWithoutAParent) {
    for (const char* const text : kParsed) {
        const Tree root = ZQXML::ParseXml(text);
        const Tree parent = NewNode("parent");
        parent->AppendChild(root.get());
        EXPECT_EQ(parent->FindChild("R"), root.get());
    }
}

TEST_F(ParsedTrees, GoWithTheirLastReference) {
    for (const char* const text : kParsed) {
        const long before = allocation::LiveBlocks();
        Tree root = ZQXML::ParseXml(text);
        EXPECT_GT(allocation::LiveBlocks(), before);
        root = nullptr;
        EXPECT_EQ(allocation::LiveBlocks(), before);
    }
}

TEST_F(ParsedTrees, LeaveNothingOfWhatIsRefused) {
    const std::string text = kParsed[0];
    const long before = allocation::LiveBlocks();
    for (std::size_t size = 0; size < text.size(); ++size) {
        EXPECT_FALSE(ZQXML::ParseXml(std::string_view(text).substr(0, size)));
        EXPECT_EQ(allocation::LiveBlocks(), before) << size;
    }
}

TEST_F(ParsedTrees, GoButForAChildThatIsKept) {
    for (const char* const text : kParsed) {
        Tree root = ZQXML::ParseXml(text);
        const Tree child = Kept(root->FindChild("C"));
        const Tree leaf = Kept(child->FindChild("E"));
        root = nullptr;
        EXPECT_EQ(TreeText(child.get()), kParsedChild);
        EXPECT_EQ(ZQXML::WriteXml(leaf.get()), "<E encoding=\"base64\">Zm9v</E>");
        // Free of its old tree, it can become part of another.
        const Tree parent = NewNode("parent");
        parent->AppendChild(child.get());
        EXPECT_EQ(parent->FindChild("C"), child.get());
    }
}

TEST_F(ParsedTrees, StayWholeWhereARootIsKeptTwice) {
    for (const char* const text : kParsed) {
        Tree root = ZQXML::ParseXml(text);
        const Tree second = Kept(root.get());
        root = nullptr;
        EXPECT_EQ(TreeText(second->FindChild("C")), kParsedChild);
    }
}

zq::auto_com<FakeNode> ForeignTree() {
    zq::auto_com<FakeNode> root = FakeNode::Create("foreign", "text");
    root->AddChild("a", 1);
    const zq::auto_com<FakeNode> b = FakeNode::Create("b", std::string("zero\0", 5));
    const zq::auto_com<FakeNode> c = FakeNode::Create("c");
    c->AddChild("d", std::string(20000, 'x'));
    b->AppendChild(c.get());
    root->AppendChild(b.get());
    root->AddChild("a", true);
    return root;
}

TEST_F(ForeignNodes, AreCopiedWithTheirSubtree) {
    const Tree parent = NewNode("parent");
    parent->AddChild("first", "");
    std::string expected;
    {
        const zq::auto_com<FakeNode> foreign = ForeignTree();
        expected = TreeText(foreign.get());
        parent->AppendChild(foreign.get());
    }
    EXPECT_EQ(TreeText(parent.get()), R"("parent"=""("first"="" )" + expected + ")");
}

TEST_F(ForeignNodes, KeepNoTieToTheirCopy) {
    const Tree parent = NewNode("parent");
    const zq::auto_com<FakeNode> foreign = FakeNode::Create("foreign");
    parent->AppendChild(foreign.get());
    EXPECT_NE(parent->FindChild("foreign"), foreign.get());
    foreign->Initialize("changed", "x");
    parent->FindChild("foreign")->AddChild("own", 1);
    EXPECT_EQ(TreeText(parent.get()), R"("parent"=""("foreign"=""("own"="1")))");
    EXPECT_EQ(TreeText(foreign.get()), R"("changed"="x")");
}

TEST_F(ForeignNodes, MayBeAppendedAgain) {
    const Tree parent = NewNode("parent");
    const zq::auto_com<FakeNode> foreign = FakeNode::Create("f", "x");
    parent->AppendChild(foreign.get());
    parent->AppendChild(foreign.get());
    EXPECT_EQ(TreeText(parent.get()), R"("parent"=""("f"="x" "f"="x"))");
}

TEST_F(ForeignNodes, MayHoldPlatformNodesWhoseMarksAreKept) {
    const Tree parent = NewNode("parent");
    const zq::auto_com<FakeNode> foreign = FakeNode::Create("foreign");
    const Tree inner = NewNode("inner");
    inner->AddChildEncoded("encoded", "Zm9v");
    foreign->AppendChild(inner.get());
    parent->AppendChild(foreign.get());
    EXPECT_EQ(TreeText(parent.get()),
              R"("parent"=""("foreign"=""("inner"=""("encoded"="Zm9v"*))))");
}

TEST_F(ForeignNodes, ThatHoldTheParentAreCopiedAsTheyAre) {
    Tree parent = NewNode("parent");
    {
        const zq::auto_com<FakeNode> foreign = FakeNode::Create("foreign");
        foreign->AppendChild(parent.get());
        parent->AppendChild(foreign.get());
    }
    EXPECT_EQ(TreeText(parent.get()), R"("parent"=""("foreign"=""("parent"="")))");
}

// A model of nodes and their lives, in the plainest terms: a node is alive as long as it has a
// parent or somebody holds a reference.
class Model {
 public:
    explicit Model(unsigned int seed) : random_(seed) {}
    Model(const Model&) = delete;
    Model& operator=(const Model&) = delete;
    ~Model() {
        while (!nodes_.empty()) {
            const auto held = std::find_if(nodes_.begin(), nodes_.end(),
                                           [](const auto& node) { return node->references > 0; });
            Release(held->get());
        }
    }

    void Step() {
        if (nodes_.size() < 3) {
            Create();
        }
        switch (nodes_.size() < 400 ? random_.Below(10) : 6 + random_.Below(4)) {
            case 0:
                return Create();
            case 1:
                return AdoptNew(Any(), Any()->real->CreateNode(""));
            case 2:
            case 3:
                return AddChild(Any());
            case 4:
            case 5:
                return Append(Any(), Any());
            case 6:
                return Initialize(Any());
            case 7:
                return AddRef(Any());
            default:
                return Release(Any());
        }
    }

    /// Compares all nodes that nobody is the parent of, with their subtrees.
    testing::AssertionResult Check() const {
        for (const auto& node : nodes_) {
            if (node->parent == nullptr && TreeText(node->real) != Text(*node)) {
                return testing::AssertionFailure()
                       << TreeText(node->real) << " instead of " << Text(*node);
            }
        }
        return testing::AssertionSuccess();
    }

    std::size_t size() const { return nodes_.size(); }

 private:
    struct Node {
        ZQXML::INode* real = nullptr;
        int references = 0;
        Node* parent = nullptr;
        std::vector<Node*> children;
        std::string name;
        std::string text;
        bool isEncoded = false;
    };

    static std::string Text(const Node& node) {
        std::string text =
            Quoted(node.name) + '=' + Quoted(node.text) + (node.isEncoded ? "*" : "");
        for (const Node* const child : node.children) {
            text += (child == node.children.front() ? '(' : ' ') + Text(*child);
        }
        return node.children.empty() ? text : text + ')';
    }

    Node* Any() { return nodes_[random_.Below(nodes_.size())].get(); }

    std::string AnyName() {
        return random_.OneIn(4) ? random_.Bytes(random_.Below(40))
                                : "name" + std::to_string(random_.Below(30));
    }
    std::string AnyText() { return random_.Bytes(random_.Below(random_.OneIn(50) ? 6000 : 30)); }

    Node* NewNode(ZQXML::INode* real) {
        nodes_.push_back(std::make_unique<Node>());
        nodes_.back()->real = real;
        return nodes_.back().get();
    }

    Node* Adopt(Tree created) {
        Node* const node = NewNode(created.get());
        created->AddRef();  // in place of the one that `created` gives back
        node->references = 1;
        return node;
    }

    void Create() { Initialize(Adopt(ZQXML::CreateXmlNode())); }

    /// A node made for the tree of another one, appended somewhere or nowhere.
    void AdoptNew(Node* parent, Tree created) {
        Node* const node = Adopt(std::move(created));
        if (random_.OneIn(2)) {
            Append(parent, node);
        }
    }

    void AddChild(Node* parent) {
        const std::string name = AnyName();
        const std::string text = AnyText();
        const bool isEncoded = random_.OneIn(3);
        if (isEncoded) {
            parent->real->AddChildEncoded(name, text);
        } else {
            parent->real->AddChild(name, text);
        }
        ZQXML::INode* last = nullptr;
        ZQXML::INodeList* const list = parent->real->GetChildren();
        for (ZQXML::INode* child = list->First(); child != nullptr; child = list->Next()) {
            last = child;
        }
        Node* const node = NewNode(last);
        node->name = name;
        node->text = text;
        node->isEncoded = isEncoded;
        Attach(parent, node);
    }

    static void Attach(Node* parent, Node* child) {
        child->parent = parent;
        parent->children.push_back(child);
    }

    static void Append(Node* parent, Node* child) {
        parent->real->AppendChild(child->real);
        const Node* above = parent;
        while (above != nullptr && above != child) {
            above = above->parent;
        }
        if (child->parent == nullptr && above == nullptr) {
            Attach(parent, child);
        }
    }

    void Initialize(Node* node) {
        node->name = AnyName();
        node->text = AnyText();
        node->isEncoded = false;
        node->real->Initialize(node->name, node->text);
    }

    static void AddRef(Node* node) {
        node->real->AddRef();
        ++node->references;
    }

    void Release(Node* node) {
        node->real->Release();
        if (node->references == 0) {
            return;
        }
        --node->references;
        EndIfUnused(node);
    }

    void EndIfUnused(Node* node) {
        if (node->references > 0 || node->parent != nullptr) {
            return;
        }
        for (Node* const child : node->children) {
            child->parent = nullptr;
            EndIfUnused(child);
        }
        nodes_.erase(std::find_if(nodes_.begin(), nodes_.end(),
                                  [node](const auto& entry) { return entry.get() == node; }));
    }

    Random random_;
    std::vector<std::unique_ptr<Node>> nodes_;
};

TEST_F(XmlTree, BehavesLikeItsModelUnderRandomOperations) {
    constexpr int kSteps = 4000;
    for (unsigned int seed = 1; seed <= 5; ++seed) {
        Model model(seed);
        std::size_t largest = 0;
        for (int step = 0; step < kSteps; ++step) {
            model.Step();
            largest = std::max(largest, model.size());
            if (step % 50 == 0) {
                ASSERT_TRUE(model.Check()) << "seed " << seed << ", step " << step;
            }
        }
        EXPECT_GT(largest, 100U);
    }
}

}  // namespace
