// The nodes that watch their users notice each misuse, and complain of nothing else.

#include "tests/support/StrictNode.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/zqshared.h"

namespace {

using Lists = StrictTree::Lists;

constexpr Lists kAllLists[] = {Lists::kSame, Lists::kNew, Lists::kReused};

/// A tree of an XML text that is right.
struct Tree : StrictTree {
    Tree(Lists lists, const char* xml) : StrictTree(lists, ZQXML::ParseXml(xml).get()) {}
};

constexpr char kAlbum[] = "<Album><Name>a</Name><Year>7</Year><Types><V>b</V></Types></Album>";

/// The names of the children, asked for in the right way.
std::string Names(ZQXML::INode* node) {
    std::string names;
    ZQXML::INodeList* const children = node->GetChildren();
    for (ZQXML::INode* child = children->First(); child != nullptr; child = children->Next()) {
        names += child->GetName() + ' ';
    }
    return names;
}

TEST(StrictNode, ProperWalkIsNoViolation) {
    for (const Lists lists : kAllLists) {
        Tree tree(lists, kAlbum);
        EXPECT_EQ(Names(tree.Root()), "Name Year Types ");
        EXPECT_EQ(Names(tree.Root()->FindChild("Types")), "V ");
        EXPECT_EQ(Names(tree.Root()->FindChild("Name")), "");
        EXPECT_EQ(tree.Root()->FindChild("name"), nullptr);
        EXPECT_EQ(tree.Violations(), "");
        EXPECT_EQ(tree.Walks(), "Album 1\nAlbum/Name 1\nAlbum/Types 1\n");
        EXPECT_EQ(tree.Changes(), "");
    }
}

TEST(StrictNode, WalksAreCounted) {
    for (const Lists lists : kAllLists) {
        Tree tree(lists, kAlbum);
        Names(tree.Root());
        Names(tree.Root());
        tree.Root()->GetChildren()->First();
        EXPECT_EQ(tree.Walks(), "Album 3, 1 cut off\n");
    }
}

TEST(StrictNode, SameListIsPutBackByGetChildren) {
    for (const Lists lists : {Lists::kSame, Lists::kReused}) {
        Tree tree(lists, kAlbum);
        ZQXML::INodeList* const list = tree.Root()->GetChildren();
        list->First();
        list->Next();
        EXPECT_EQ(tree.Root()->GetChildren(), list);
        EXPECT_EQ(list->Next()->GetName(), "Name");
        EXPECT_EQ(tree.Violations(), "Album: Next ahead of First\n");
    }
}

TEST(StrictNode, NewListsHavePositionsOfTheirOwn) {
    Tree tree(Lists::kNew, kAlbum);
    ZQXML::INodeList* const first = tree.Root()->GetChildren();
    first->First();
    ZQXML::INodeList* const second = tree.Root()->GetChildren();
    EXPECT_NE(first, second);
    EXPECT_EQ(second->First()->GetName(), "Name");
    EXPECT_EQ(first->Next()->GetName(), "Year");
    EXPECT_EQ(second->Next()->GetName(), "Year");
    EXPECT_EQ(tree.Violations(), "");
}

TEST(StrictNode, ReusedNodeTurnsIntoTheNextChild) {
    Tree tree(Lists::kReused, kAlbum);
    ZQXML::INodeList* const list = tree.Root()->GetChildren();
    ZQXML::INode* const child = list->First();
    EXPECT_EQ(child->GetName(), "Name");
    EXPECT_EQ(list->Next(), child);
    EXPECT_EQ(child->GetName(), "Year");
    // The children of the child that it stands for come from another list.
    list->Next();
    EXPECT_EQ(Names(child), "V ");
    EXPECT_EQ(child->GetName(), "Types");
    EXPECT_EQ(tree.Violations(), "");
}

TEST(StrictNode, NextAheadOfFirstIsNoticed) {
    for (const Lists lists : kAllLists) {
        Tree tree(lists, kAlbum);
        tree.Root()->GetChildren()->Next();
        EXPECT_EQ(tree.Violations(), "Album: Next ahead of First\n");
    }
}

TEST(StrictNode, FirstTwiceIsNoticed) {
    for (const Lists lists : kAllLists) {
        Tree tree(lists, kAlbum);
        ZQXML::INodeList* const list = tree.Root()->GetChildren();
        list->First();
        list->First();
        EXPECT_EQ(tree.Violations(), "Album: First twice on a list\n");
    }
}

TEST(StrictNode, NextBehindTheEndIsNoticed) {
    for (const Lists lists : kAllLists) {
        Tree tree(lists, "<Album><Name/></Album>");
        ZQXML::INodeList* const list = tree.Root()->GetChildren();
        list->First();
        EXPECT_EQ(list->Next(), nullptr);
        EXPECT_EQ(tree.Violations(), "");
        EXPECT_EQ(list->Next(), nullptr);
        EXPECT_EQ(tree.Violations(), "Album: Next after the end\n");
    }
}

TEST(StrictNode, EmptyListEndsWithFirst) {
    for (const Lists lists : kAllLists) {
        Tree tree(lists, "<Album/>");
        ZQXML::INodeList* const list = tree.Root()->GetChildren();
        EXPECT_EQ(list->First(), nullptr);
        EXPECT_EQ(tree.Walks(), "Album 1\n");
        EXPECT_EQ(list->Next(), nullptr);
        EXPECT_EQ(tree.Violations(), "Album: Next after the end\n");
    }
}

// A walk that asks for the list ahead of each step never gets further than the first child.
TEST(StrictNode, WalkWithoutEndIsEnded) {
    for (const Lists lists : kAllLists) {
        Tree tree(lists, kAlbum);
        int steps = 0;
        while (tree.Root()->GetChildren()->Next() != nullptr && steps < 100000) {
            ++steps;
        }
        EXPECT_LT(steps, 100000);
        EXPECT_EQ(tree.Violations(), "Album: Next ahead of First\nAlbum: walks without end\n");
    }
}

TEST(StrictNode, ReleaseIsNoticed) {
    for (const Lists lists : kAllLists) {
        Tree tree(lists, kAlbum);
        tree.Root()->GetChildren()->First()->Release();
        tree.Root()->Release();
        EXPECT_EQ(tree.Violations(),
                  "Album/Name: Release of a borrowed node\nAlbum: Release of a borrowed node\n");
        EXPECT_EQ(tree.Root()->GetName(), "Album");
    }
}

TEST(StrictNode, ValuesAreForThoseThatAreAllowed) {
    for (const Lists lists : kAllLists) {
        Tree tree(lists, kAlbum);
        tree.Allow("Album/Name", "GetValue");
        tree.Allow("Album/Year", "GetValueInt");
        tree.Allow("Album/*/V", "GetValueDecoded");
        ZQXML::INode* const name = tree.Root()->FindChild("Name");
        ZQXML::INode* const year = tree.Root()->FindChild("Year");
        ZQXML::INode* const value = tree.Root()->FindChild("Types")->FindChild("V");
        EXPECT_EQ(name->GetValue(), "a");
        EXPECT_EQ(year->GetValueInt(), 7);
        EXPECT_EQ(value->GetValueDecoded(), "b");
        EXPECT_EQ(tree.Violations(), "");

        EXPECT_EQ(name->GetValueInt(), 0);
        EXPECT_EQ(year->GetValue(), "7");
        EXPECT_EQ(value->GetValue(), "b");
        tree.Root()->FindChild("Types")->GetValueDecoded();
        tree.Root()->GetValue();
        EXPECT_EQ(tree.Violations(),
                  "Album/Name: GetValueInt of a node that has no such value\n"
                  "Album/Year: GetValue of a node that has no such value\n"
                  "Album/Types/V: GetValue of a node that has no such value\n"
                  "Album/Types: GetValueDecoded of a node that has no such value\n"
                  "Album: GetValue of a node that has no such value\n");
    }
}

TEST(StrictNode, PathsAreMatchedAsAWhole) {
    Tree tree(Lists::kSame, "<A><B>1</B><C><B>2</B></C></A>");
    for (const char* const other : {"B", "A", "A/", "A/B/C", "A/BB", "*", "*/*/*/*", "C/B"}) {
        tree.Allow(other, "GetValue");
    }
    tree.Root()->FindChild("B")->GetValue();
    tree.Root()->FindChild("C")->FindChild("B")->GetValue();
    EXPECT_EQ(tree.Violations(),
              "A/B: GetValue of a node that has no such value\n"
              "A/C/B: GetValue of a node that has no such value\n");
}

TEST(StrictNode, NumbersHaveThirtyTwoBits) {
    Tree tree(Lists::kSame, "<A>4294967295</A>");
    EXPECT_EQ(tree.Root()->GetValueInt(), -1);
}

TEST(StrictNode, RepeatedViolationIsToldOnce) {
    Tree tree(Lists::kSame, kAlbum);
    tree.Root()->Release();
    tree.Root()->Release();
    EXPECT_EQ(tree.Violations(), "Album: Release of a borrowed node\n");
}

TEST(StrictNode, CallsOnNodesThatAreGoneAreNoticed) {
    for (const Lists lists : kAllLists) {
        Tree tree(lists, kAlbum);
        ZQXML::INodeList* const list = tree.Root()->GetChildren();
        ZQXML::INode* const child = list->First();
        tree.Allow("Album/Name", "GetValue");
        tree.Close();
        EXPECT_EQ(tree.Violations(), "");
        child->GetName();
        child->GetValue();
        child->FindChild("V");
        child->GetChildren();
        child->AddChild("V", 1);
        list->Next();
        EXPECT_EQ(tree.Violations(),
                  "Album/Name: GetName of a node that is gone\n"
                  "Album/Name: GetValue of a node that is gone\n"
                  "Album/Name: FindChild of a node that is gone\n"
                  "Album/Name: GetChildren of a node that is gone\n"
                  "Album/Name: AddChild(\"V\", int 1) of a node that is gone\n"
                  "Album: Next of a list that is gone\n");
    }
}

TEST(StrictNode, ChangesAreToldWithTheirForms) {
    StrictTree tree(Lists::kSame, "Album");
    ZQXML::INode* const node = tree.Root();
    const char* const none = nullptr;
    node->AddChild("A", "text");
    node->AddChild("B", std::string("text"));
    node->AddChild("C", -1);
    node->AddChild("D", 4294967295UL);
    node->AddChild("E", true);
    node->AddChild("F", false);
    node->AddChild("G", none);
    node->AddChildEncoded("H", "dGV4dA==");
    node->AppendChild(ZQXML::ParseXml("<I><J>x</J><K><L/></K></I>").get());
    node->FindChild("I")->AddChild("M", 2);
    node->Initialize("Record", "text");
    EXPECT_EQ(tree.Changes(),
              R"(AddChild("A", C-string "text")
AddChild("B", string "text")
AddChild("C", int -1)
AddChild("D", unsigned 4294967295)
AddChild("E", bool true)
AddChild("F", bool false)
AddChild("G", C-string null)
AddChildEncoded("H", "dGV4dA==")
AppendChild("I" ("J" "x") ("K" ("L")))
Album/I: AddChild("M", int 2)
Initialize("Record", "text")
)");
    EXPECT_EQ(tree.Violations(), "");
    EXPECT_EQ(Names(node), "A B C D E F G H I ");
    EXPECT_EQ(Names(node->FindChild("I")), "J K M ");
    EXPECT_EQ(node->GetName(), "Record");
}

}  // namespace
