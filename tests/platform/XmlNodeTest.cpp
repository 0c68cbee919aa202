#include "platform/XmlNode.h"

#include <gtest/gtest.h>
#include <sys/mman.h>

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <limits>
#include <new>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/NameHash.h"
#include "platform/ToString.h"
#include "platform/XmlText.h"
#include "tests/support/EmptyNode.h"
#include "tests/support/FakeNode.h"
#include "tests/support/Random.h"
#include "tests/support/TreeText.h"

// The single operations of an element. How elements make up a tree is in XmlTreeTest.cpp.

namespace {

using Tree = zq::auto_com<ZQXML::INode>;

Tree NewNode(const std::string& name, const std::string& text = {}) {
    Tree node = ZQXML::CreateXmlNode();
    node->Initialize(name, text);
    return node;
}

/// The direct children by the list's walk.
std::vector<ZQXML::INode*> Children(ZQXML::INode* node) {
    std::vector<ZQXML::INode*> children;
    ZQXML::INodeList* const list = node->GetChildren();
    for (ZQXML::INode* child = list->First(); child != nullptr; child = list->Next()) {
        children.push_back(child);
    }
    return children;
}

std::string ChildNames(ZQXML::INode* node) {
    std::string names;
    for (ZQXML::INode* const child : Children(node)) {
        names += child->GetName() + ' ';
    }
    return names;
}

int IntOf(const std::string& text) {
    return NewNode("n", text)->GetValueInt();
}

/// Texts and names that a careless store would damage.
std::vector<std::string> DifficultTexts() {
    std::vector<std::string> texts = {
        "",
        "a",
        std::string(1, '\0'),
        std::string("a\0b\0", 4),
        "\xFF\xFE",
        "\xC3\xA9",
        " ",
        "\r\n\t",
        "<&>\"'",
        "]]>",
        "\xEF\xBB\xBF",
        std::string(3, '\0'),
    };
    Random random(5);
    for (const std::size_t size :
         {255U, 256U, 257U, 4095U, 4096U, 4097U, 16383U, 16384U, 16385U, 100000U}) {
        texts.push_back(random.Bytes(size));
    }
    return texts;
}

TEST(CreateXmlNode, YieldsAnEmptyNode) {
    const Tree node = ZQXML::CreateXmlNode();
    ASSERT_TRUE(node);
    EXPECT_EQ(node->GetName(), "");
    EXPECT_EQ(node->GetValue(), "");
    EXPECT_EQ(node->GetValueInt(), 0);
    EXPECT_EQ(node->GetValueDecoded(), "");
    EXPECT_FALSE(node->IsEncoded());
    EXPECT_EQ(node->GetChildrenIfAny(), nullptr);
    EXPECT_EQ(node->FindChild(""), nullptr);
    EXPECT_EQ(node->GetChildren()->First(), nullptr);
}

TEST(Initialize, SetsNameAndTextOfAnyBytes) {
    for (const std::string& name : DifficultTexts()) {
        for (const std::string& text : DifficultTexts()) {
            const Tree node = NewNode(name, text);
            ASSERT_EQ(node->GetName(), name);
            ASSERT_EQ(node->GetValue(), text);
        }
    }
}

TEST(Initialize, ReplacesBothOnANodeInUseAndKeepsChildren) {
    const Tree node = NewNode("old", "old text");
    node->AddChild("child", "x");
    node->Initialize("new", "");
    EXPECT_EQ(TreeText(node.get()), R"("new"=""("child"="x"))");
    node->Initialize("", "text");
    EXPECT_EQ(TreeText(node.get()), R"(""="text"("child"="x"))");
}

TEST(Initialize, RemovesTheMarkOfEncodedText) {
    const Tree node = NewNode("parent");
    node->AddChildEncoded("child", "Zm9v");
    ZQXML::INode* const child = node->FindChild("child");
    child->Initialize("child", "Zm9v");
    EXPECT_FALSE(child->IsEncoded());
    EXPECT_EQ(child->GetValueDecoded(), "Zm9v");
}

TEST(AddChild, KeepsNamesAndTextsOfAnyBytesInOrder) {
    const Tree node = NewNode("parent");
    const std::vector<std::string> texts = DifficultTexts();
    for (const std::string& text : texts) {
        node->AddChild(text, text);
    }
    const std::vector<ZQXML::INode*> children = Children(node.get());
    ASSERT_EQ(children.size(), texts.size());
    for (std::size_t at = 0; at < texts.size(); ++at) {
        ASSERT_EQ(children[at]->GetName(), texts[at]) << at;
        ASSERT_EQ(children[at]->GetValue(), texts[at]) << at;
        ASSERT_EQ(children[at]->GetValueDecoded(), texts[at]) << at;
    }
}

TEST(AddChild, CStringFormEndsAtTheZeroByte) {
    const Tree node = NewNode("parent");
    node->AddChild("a", "text");
    node->AddChild("b", "te\0xt");
    node->AddChild("c", "");
    EXPECT_EQ(TreeText(node.get()), R"("parent"=""("a"="text" "b"="te" "c"=""))");
}

TEST(AddChild, NullCStringCountsAsEmpty) {
    const Tree node = NewNode("parent");
    node->AddChild("a", static_cast<const char*>(nullptr));
    EXPECT_EQ(TreeText(node.get()), R"("parent"=""("a"=""))");
}

TEST(AddChild, IntFormIsSignedDecimal) {
    const Tree node = NewNode("parent");
    for (const int value :
         {0, 1, -1, 1234567890, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        node->AddChild("n", value);
        EXPECT_EQ(Children(node.get()).back()->GetValue(), std::to_string(value));
        EXPECT_EQ(Children(node.get()).back()->GetValueInt(), value);
    }
}

TEST(AddChild, UnsignedFormIsUnsignedDecimal) {
    const Tree node = NewNode("parent");
    node->AddChild("a", 0UL);
    node->AddChild("b", 2147483648UL);
    node->AddChild("c", 4294967295UL);
    EXPECT_EQ(TreeText(node.get()), R"("parent"=""("a"="0" "b"="2147483648" "c"="4294967295"))");
    EXPECT_EQ(node->FindChild("b")->GetValueInt(), std::numeric_limits<int>::min());
    EXPECT_EQ(node->FindChild("c")->GetValueInt(), -1);
}

TEST(AddChild, UnsignedFormIsModulo32Bits) {
    if (std::numeric_limits<unsigned long>::digits == 32) {
        GTEST_SKIP() << "unsigned long has 32 bits";
    }
    const std::uint64_t values[][2] = {{0x100000000U, 0},
                                       {0x100000007U, 7},
                                       {0x8000000080000000U, 0x80000000U},
                                       {0xFFFFFFFFFFFFFFFFU, 0xFFFFFFFFU}};
    const Tree node = NewNode("parent");
    for (const auto& [value, expected] : values) {
        node->AddChild("n", static_cast<unsigned long>(value));
        EXPECT_EQ(Children(node.get()).back()->GetValue(), std::to_string(expected));
    }
}

TEST(AddChild, BoolFormIsTrueStringOrFalse) {
    const Tree node = NewNode("parent");
    node->AddChild("t", true);
    node->AddChild("f", false);
    EXPECT_EQ(node->FindChild("t")->GetValue(), TRUE_STRING);
    EXPECT_EQ(node->FindChild("f")->GetValue(), "false");
}

TEST(AddChild, TakesCopiesOfItsArguments) {
    const Tree node = NewNode("parent");
    std::string name = "name";
    std::string text = "text";
    node->AddChild(name, text);
    node->AddChild(name, text.c_str());
    name.assign("####");
    text.assign("####");
    EXPECT_EQ(TreeText(node.get()), R"("parent"=""("name"="text" "name"="text"))");
}

TEST(AddChild, NamesThatRepeatStayApartFromTheirTexts) {
    const Tree node = NewNode("n", "n");
    for (int index = 0; index < 3000; ++index) {
        node->AddChild(index % 3 == 0 ? "n" : "m", index);
    }
    const std::vector<ZQXML::INode*> children = Children(node.get());
    ASSERT_EQ(children.size(), 3000U);
    for (int index = 0; index < 3000; ++index) {
        ZQXML::INode* const child = children[static_cast<std::size_t>(index)];
        ASSERT_EQ(child->GetName(), index % 3 == 0 ? "n" : "m");
        ASSERT_EQ(child->GetValueInt(), index);
    }
}

TEST(AddChild, ManyDistinctNamesAreAllKept) {
    constexpr int kCount = 5000;
    const Tree node = NewNode("parent");
    const auto nameOf = [](int index) { return "name" + std::to_string(index); };
    for (int round = 0; round < 2; ++round) {
        for (int index = 0; index < kCount; ++index) {
            node->AddChild(nameOf(index), round * kCount + index);
        }
    }
    const std::vector<ZQXML::INode*> children = Children(node.get());
    ASSERT_EQ(children.size(), 2U * kCount);
    for (int index = 0; index < 2 * kCount; ++index) {
        ZQXML::INode* const child = children[static_cast<std::size_t>(index)];
        ASSERT_EQ(child->GetName(), nameOf(index % kCount));
        ASSERT_EQ(child->GetValueInt(), index);
    }
}

/// Two names that the table of names cannot tell apart by their hash, whatever that is.
std::pair<std::string, std::string> NamesOfEqualHash() {
    Random random(20250301);
    std::unordered_map<std::uint32_t, std::string> names;
    for (;;) {  // of random hashes of 32 bits, some 80,000 hold two equal ones
        const std::string name = random.Bytes(8);
        const auto [known, isNew] = names.emplace(ZQXML::HashName(name), name);
        if (!isNew && known->second != name) {
            return {known->second, name};
        }
    }
}

TEST(AddChild, NamesOfEqualHashStayApart) {
    const auto [first, second] = NamesOfEqualHash();
    const Tree node = NewNode("parent");
    for (const std::string& name : {first, second, first, first, second}) {
        node->AddChild(name, name);
    }
    EXPECT_EQ(ChildNames(node.get()),
              first + ' ' + second + ' ' + first + ' ' + first + ' ' + second + ' ');
    for (ZQXML::INode* const child : Children(node.get())) {
        EXPECT_EQ(child->GetName(), child->GetValue());
    }
}

#if SIZE_MAX > UINT32_MAX  // no 32-bit machine has such a text

/// One byte more than a name or a text may have, of memory that cannot be read.
class UnreadableText {
 public:
    UnreadableText()
        : place_(
              mmap(nullptr, kSize, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0)) {
        EXPECT_NE(place_, MAP_FAILED);
    }
    UnreadableText(const UnreadableText&) = delete;
    UnreadableText& operator=(const UnreadableText&) = delete;
    ~UnreadableText() { munmap(place_, kSize); }

    std::string_view View() const { return {static_cast<const char*>(place_), kSize}; }

 private:
    static constexpr std::size_t kSize = std::size_t{1} << 32;

    void* place_;
};

TEST(TooLargeText, ThrowsUnreadAndChangesNothing) {
    const UnreadableText large;
    const Tree node = NewNode("parent", "text");
    node->AddChild("child", 1);
    const std::string before = TreeText(node.get());
    EXPECT_THROW(node->AddText("n", large.View()), std::bad_alloc);
    EXPECT_THROW(node->AddText(large.View(), "t"), std::bad_alloc);
    EXPECT_THROW(node->AddEncoded("n", large.View()), std::bad_alloc);
    EXPECT_THROW(node->AddEncoded(large.View(), "t"), std::bad_alloc);
    EXPECT_THROW(node->AddNumber(large.View(), 1), std::bad_alloc);
    EXPECT_THROW(node->AddCString(large.View(), "t"), std::bad_alloc);
    EXPECT_THROW(node->CreateNode(large.View()), std::bad_alloc);
    EXPECT_EQ(TreeText(node.get()), before);
}

#endif

TEST(AddChildEncoded, KeepsTheTextAndMarksTheElement) {
    const Tree node = NewNode("parent");
    node->AddChildEncoded("a", "Zm9v");
    node->AddChildEncoded("b", "");
    node->AddChildEncoded("c", "no base64!");
    node->AddChild("d", "Zm9v");
    EXPECT_EQ(TreeText(node.get()),
              R"("parent"=""("a"="Zm9v"* "b"=""* "c"="no base64!"* "d"="Zm9v"))");
}

TEST(GetValueDecoded, DecodesMarkedElementsOnly) {
    const Tree node = NewNode("parent", "Zm9v");
    node->AddChildEncoded("a", "Zm9vYmE=");
    node->AddChildEncoded("b", "AP8A");
    node->AddChildEncoded("c", " Zm9v\r\nYg = = ");
    node->AddChildEncoded("d", "");
    node->AddChild("e", "Zm9v");
    node->AddChild("f", std::string("Zm9v"));
    const char* const names[] = {"a", "b", "c", "d", "e", "f"};
    const std::string decoded[] = {"fooba", std::string("\0\xFF\0", 3), "foob", "", "Zm9v", "Zm9v"};
    for (std::size_t at = 0; at < std::size(names); ++at) {
        EXPECT_EQ(node->FindChild(names[at])->GetValueDecoded(), decoded[at]) << names[at];
    }
    EXPECT_EQ(node->GetValueDecoded(), "Zm9v");
}

TEST(GetValueDecoded, MalformedTextYieldsNothing) {
    for (const char* const text : {"Zm9v!", "Zg", "Zg=", "====", "Zg==Zg==", "Zm9vZ", "\xC3\xA9"}) {
        const Tree node = NewNode("parent");
        node->AddChildEncoded("a", text);
        EXPECT_EQ(node->FindChild("a")->GetValueDecoded(), "") << text;
        EXPECT_EQ(node->FindChild("a")->GetValue(), text);
    }
}

struct Number {
    const char* text;
    int value;
};

constexpr int kMin = std::numeric_limits<int>::min();
constexpr int kMax = std::numeric_limits<int>::max();

const Number kNumbers[] = {
    {"0", 0},
    {"7", 7},
    {"007", 7},
    {"+7", 7},
    {"-7", -7},
    {"-0", 0},
    {"   12", 12},
    {"  -12", -12},
    {"  +12", 12},
    {"12x", 12},
    {"12 34", 12},
    {"12.9", 12},
    {"1e3", 1},
    {"0x10", 0},
    {"5-", 5},
    // No digit where one has to be.
    {"", 0},
    {" ", 0},
    {"x", 0},
    {"x12", 0},
    {"-", 0},
    {"+", 0},
    {"--5", 0},
    {"+-5", 0},
    {"-+5", 0},
    {"- 5", 0},
    {"+ 5", 0},
    {"true", 0},
    {"\xC2\xA0"
     "5",
     0},
    // Blanks are U+0020 alone.
    {"\t12", 0},
    {"\n12", 0},
    {" \t12", 0},
    {"\r12", 0},
    // Limits and wrapping.
    {"2147483647", kMax},
    {"-2147483648", kMin},
    {"2147483648", kMin},
    {"-2147483649", kMax},
    {"4294967295", -1},
    {"4294967296", 0},
    {"4294967303", 7},
    {"-4294967295", 1},
    {"-4294967303", -7},
    {"18446744073709551615", -1},
    {"18446744073709551617", 1},
    {"-18446744073709551617", -1},
    {"100000000000000000000000000000000000000005", 5 /* 10^41 = 2^41 * 5^41 */},
    {"00000000000000000000000000000000000000000012", 12},
};

TEST(GetValueInt, ReadsBlanksSignAndDigitsModulo32Bits) {
    for (const Number& number : kNumbers) {
        EXPECT_EQ(IntOf(number.text), number.value) << '"' << number.text << '"';
    }
}

TEST(GetValueInt, StopsAtAZeroByte) {
    EXPECT_EQ(IntOf(std::string("12\0"
                                "34",
                                5)),
              12);
    EXPECT_EQ(IntOf(std::string("\0"
                                "12",
                                3)),
              0);
}

TEST(FindChild, YieldsTheFirstOfExactlyThatName) {
    const Tree node = NewNode("parent");
    node->AddChild("a", 1);
    node->AddChild("b", 2);
    node->AddChild("a", 3);
    node->AddChild("", 4);
    node->AddChild("ab", 5);
    node->AddChild(std::string("a\0", 2), 6);
    EXPECT_EQ(node->FindChild("a")->GetValueInt(), 1);
    EXPECT_EQ(node->FindChild("b")->GetValueInt(), 2);
    EXPECT_EQ(node->FindChild("")->GetValueInt(), 4);
    EXPECT_EQ(node->FindChild("ab")->GetValueInt(), 5);
    EXPECT_EQ(node->FindChild(std::string("a\0", 2))->GetValueInt(), 6);
}

TEST(FindChild, YieldsNullForAnyOtherName) {
    const Tree node = NewNode("parent");
    node->AddChild("name", "x");
    node->FindChild("name")->AddChild("inner", "y");
    for (const std::string name :
         {"", "nam", "names", "Name", "NAME", " name", "name ", "parent", "inner", "x"}) {
        EXPECT_EQ(node->FindChild(name), nullptr) << name;
    }
    EXPECT_EQ(node->FindChild(std::string("name\0", 5)), nullptr);
}

TEST(FindChild, NamesAreTheChildrensPresentOnes) {
    const Tree node = NewNode("parent");
    node->AddChild("old", 1);
    node->FindChild("old")->Initialize("new", "2");
    EXPECT_EQ(node->FindChild("old"), nullptr);
    ASSERT_NE(node->FindChild("new"), nullptr);
    EXPECT_EQ(node->FindChild("new")->GetValueInt(), 2);
}

TEST(GetChildren, IsTheSameListAtEachCall) {
    const Tree node = NewNode("parent");
    ZQXML::INodeList* const list = node->GetChildren();
    ASSERT_NE(list, nullptr);
    node->AddChild("a", 1);
    EXPECT_EQ(node->GetChildren(), list);
}

TEST(GetChildren, ListObtainedBeforeChildrenFindsThem) {
    const Tree node = NewNode("parent");
    ZQXML::INodeList* const list = node->GetChildren();
    EXPECT_EQ(list->First(), nullptr);
    EXPECT_EQ(list->Next(), nullptr);
    node->AddChild("a", 1);
    const Tree appended = NewNode("b");
    node->AppendChild(appended.get());
    ASSERT_NE(list->First(), nullptr);
    EXPECT_EQ(list->First()->GetName(), "a");
    EXPECT_EQ(list->Next(), appended.get());
    EXPECT_EQ(list->Next(), nullptr);
}

TEST(GetChildren, WalkVisitsDirectChildrenOnly) {
    const Tree node = NewNode("parent");
    node->AddChild("a", 1);
    node->FindChild("a")->AddChild("inner", 2);
    node->AddChild("b", 3);
    EXPECT_EQ(ChildNames(node.get()), "a b ");
    EXPECT_EQ(ChildNames(node->FindChild("a")), "inner ");
    EXPECT_EQ(ChildNames(node->FindChild("b")), "");
}

TEST(GetChildren, WalkStaysAtItsEndAndStartsAnew) {
    const Tree node = NewNode("parent");
    node->AddChild("a", 1);
    ZQXML::INodeList* const list = node->GetChildren();
    ZQXML::INode* const child = list->First();
    EXPECT_EQ(list->Next(), nullptr);
    EXPECT_EQ(list->Next(), nullptr);
    EXPECT_EQ(list->First(), child);
    EXPECT_EQ(list->First(), child);
    EXPECT_EQ(list->Next(), nullptr);
}

TEST(GetChildren, WalkFollowsChildrenAddedOnTheWay) {
    const Tree node = NewNode("parent");
    node->AddChild("n", 0);
    ZQXML::INodeList* const list = node->GetChildren();
    int count = 0;
    for (ZQXML::INode* child = list->First(); child != nullptr; child = list->Next()) {
        EXPECT_EQ(child->GetValueInt(), count);
        if (++count < 100) {
            node->AddChild("n", count);
        }
    }
    EXPECT_EQ(count, 100);
}

TEST(GetChildren, WalksOverDifferentNodesAreIndependent) {
    const Tree node = NewNode("parent");
    for (const char* const name : {"a", "b", "c"}) {
        node->AddChild(name, "");
        for (int index = 0; index < 3; ++index) {
            node->FindChild(name)->AddChild(name, index);
        }
    }
    std::string visited;
    ZQXML::INodeList* const outer = node->GetChildren();
    for (ZQXML::INode* child = outer->First(); child != nullptr; child = outer->Next()) {
        visited += child->GetName() + ':';
        ZQXML::INodeList* const inner = child->GetChildren();
        for (ZQXML::INode* leaf = inner->First(); leaf != nullptr; leaf = inner->Next()) {
            visited += leaf->GetValue();
        }
        visited += ' ';
    }
    EXPECT_EQ(visited, "a:012 b:012 c:012 ");
}

TEST(GetChildrenIfAny, IsTheListFromTheFirstChildOn) {
    const Tree node = NewNode("parent", "text");
    EXPECT_EQ(node->GetChildrenIfAny(), nullptr);
    ZQXML::INodeList* const list = node->GetChildren();
    EXPECT_EQ(node->GetChildrenIfAny(), nullptr);
    node->AddChild("a", "");
    EXPECT_EQ(node->GetChildrenIfAny(), list);
    EXPECT_EQ(node->FindChild("a")->GetChildrenIfAny(), nullptr);
}

TEST(Views, EqualTheCopies) {
    for (const std::string& text : DifficultTexts()) {
        const Tree node = NewNode(text, text);
        const ZQXML::NodeView view = node->View();
        ASSERT_EQ(view.node, node.get());
        ASSERT_EQ(view.Name(), text);
        ASSERT_EQ(view.Text(), text);
        ASSERT_EQ(view.form, ZQXML::TextForm::kPlain);
    }
}

TEST(Views, StayValidWhileOthersAreAdded) {
    const Tree node = NewNode("parent", "parent's text");
    const ZQXML::NodeView view = node->View();
    for (int index = 0; index < 1000; ++index) {
        node->AddChild("name" + std::to_string(index), std::string(100, 'x'));
    }
    EXPECT_EQ(view.Name(), "parent");
    EXPECT_EQ(view.Text(), "parent's text");
}

TEST(Views, TellWhatTheTextIs) {
    const Tree node = NewNode("parent");
    node->AddChild("plain", "Zm9v");
    node->AddChildEncoded("base64", "Zm9v");
    node->AddEncoded("bytes", "foo");
    const auto viewOf = [&node](const char* name) { return node->FindChild(name)->View(); };
    EXPECT_EQ(viewOf("plain").form, ZQXML::TextForm::kPlain);
    EXPECT_EQ(viewOf("plain").Text(), "Zm9v");
    EXPECT_EQ(viewOf("base64").form, ZQXML::TextForm::kBase64);
    EXPECT_EQ(viewOf("base64").Text(), "Zm9v");
    EXPECT_EQ(viewOf("bytes").form, ZQXML::TextForm::kBytes);
    EXPECT_EQ(viewOf("bytes").Text(), "foo");
}

/// Numbers on both sides of each change of length and sign.
const std::vector<int>& Numbers() {
    static const std::vector<int> numbers = {0,
                                             1,
                                             -1,
                                             9,
                                             -9,
                                             10,
                                             -10,
                                             99,
                                             100,
                                             std::numeric_limits<int>::max(),
                                             100000,
                                             -99999,
                                             std::numeric_limits<int>::min()};
    return numbers;
}

/// A tree of one child, with that number.
std::string NumberTreeText(const std::string& name, int number) {
    return Quoted(name) + R"(=""("n"=)" + Quoted(std::to_string(number)) + ')';
}

TEST(NumberNodes, AreSeenAsNumbers) {
    for (const int number : Numbers()) {
        const Tree node = NewNode("parent");
        node->AddChild("n", number);
        node->AddNumber("m", number);
        for (const char* const name : {"n", "m"}) {
            const ZQXML::NodeView view = node->FindChild(name)->View();
            EXPECT_EQ(view.node, node->FindChild(name));
            EXPECT_EQ(view.Name(), name);
            EXPECT_EQ(view.form, ZQXML::TextForm::kNumber);
            EXPECT_EQ(view.Number(), number);
        }
    }
}

TEST(NumberNodes, AreTextsToAllWhoAskForOne) {
    for (const int number : Numbers()) {
        const Tree node = NewNode("parent");
        node->AddNumber("n", number);
        ZQXML::INode* const child = node->FindChild("n");
        ASSERT_NE(child, nullptr);
        EXPECT_EQ(child->GetValue(), std::to_string(number));
        EXPECT_EQ(child->GetValueDecoded(), std::to_string(number));
        EXPECT_EQ(child->GetValueInt(), number);
        EXPECT_FALSE(child->IsEncoded());
    }
}

TEST(NumberNodes, BecomeTextsWhenGivenOne) {
    for (const int number : Numbers()) {
        for (const std::string text : {"", "text", "77"}) {
            const Tree node = NewNode("parent");
            node->AddNumber("n", number);
            ZQXML::INode* const child = node->FindChild("n");
            child->Initialize("m", text);
            EXPECT_EQ(child->GetName(), "m");
            EXPECT_EQ(child->GetValue(), text);
            EXPECT_EQ(child->GetValueDecoded(), text);
            EXPECT_EQ(child->GetValueInt(), IntOf(text));
            EXPECT_EQ(child->View().form, ZQXML::TextForm::kPlain);
            EXPECT_EQ(child->View().Text(), text);
        }
    }
}

TEST(NumberNodes, StayNumbersInAnotherTree) {
    for (const int number : Numbers()) {
        Tree first = NewNode("first");
        first->AddNumber("n", number);
        ZQXML::INode* const child = first->FindChild("n");
        child->AddRef();
        const Tree kept(child);
        first = nullptr;
        const Tree second = NewNode("second");
        second->AppendChild(kept.get());
        ASSERT_EQ(second->FindChild("n"), child);
        EXPECT_EQ(child->View().Number(), number);
        EXPECT_EQ(child->GetValue(), std::to_string(number));
    }
}

TEST(NumberNodes, AreCopiedWithForeignNodesAsTheirTexts) {
    for (const int number : Numbers()) {
        const Tree own = NewNode("own");
        own->AddNumber("n", number);
        const zq::auto_com<FakeNode> foreign = FakeNode::Create("foreign");
        foreign->AppendChild(own.get());
        const Tree parent = NewNode("parent");
        parent->AppendChild(foreign.get());
        ZQXML::INode* const copied = parent->FindChild("foreign")->FindChild("own");
        ASSERT_NE(copied, nullptr);
        EXPECT_EQ(TreeText(copied), NumberTreeText("own", number));
        EXPECT_EQ(copied->FindChild("n")->GetValueInt(), number);
    }
}

TEST(NumberNodes, MayHaveChildren) {
    for (const int number : Numbers()) {
        const Tree parent = NewNode("parent");
        parent->AddNumber("n", number);
        ZQXML::INode* const node = parent->FindChild("n");
        node->AddNumber("c", number);
        EXPECT_EQ(node->GetValue(), std::to_string(number));
        EXPECT_EQ(node->View().Number(), number);
        EXPECT_EQ(node->FindChild("c")->GetValueInt(), number);
    }
}

/// A foreign node that knows its number.
class NumberNode : public EmptyNode {
 public:
    explicit NumberNode(int number) : number_(number) {}

    std::string GetName() override { return "n"; }
    std::string GetValue() override { return std::to_string(number_); }
    ZQXML::NodeView View() override {
        return {
            this, "n", 1, nullptr, static_cast<unsigned int>(number_), ZQXML::TextForm::kNumber};
    }

 private:
    int number_;
};

TEST(NumberNodes, OfAnotherMakerAreCopiedAndWritten) {
    for (const int number : Numbers()) {
        NumberNode foreign(number);
        const std::string text = std::to_string(number);
        const Tree parent = NewNode("parent");
        parent->AppendChild(&foreign);
        EXPECT_EQ(TreeText(parent.get()), NumberTreeText("parent", number));
        EXPECT_EQ(ZQXML::WriteXml(&foreign), "<n>" + text + "</n>");
    }
}

/// The names of the children of `node`, looked at in parts of that size.
std::string NamesInParts(ZQXML::INode* node, unsigned int room) {
    std::vector<ZQXML::NodeView> views(room);
    std::string names;
    ZQXML::INodeList* const list = node->GetChildren();
    for (unsigned int count = list->ViewFirst(views.data(), room); count > 0;
         count = list->ViewNext(views.data(), room)) {
        EXPECT_LE(count, room);
        for (unsigned int at = 0; at < count; ++at) {
            names += views[at].node->GetName() + ' ';
            if (views[at].form == ZQXML::TextForm::kUnseen) {
                EXPECT_EQ(count, 1U);
            } else {
                EXPECT_EQ(views[at].node->GetName(), views[at].Name());
                EXPECT_EQ(views[at].node->GetValue(), views[at].Text());
            }
        }
        names += "| ";
    }
    EXPECT_EQ(list->ViewNext(views.data(), room), 0U);
    return names;
}

TEST(ViewsOfAList, ShowAllInParts) {
    const Tree node = NewNode("parent");
    EXPECT_EQ(NamesInParts(node.get(), 2), "");
    for (const char* const name : {"a", "b", "c", "d", "e"}) {
        node->AddChild(name, std::string("text of ") + name);
    }
    EXPECT_EQ(NamesInParts(node.get(), 1), "a | b | c | d | e | ");
    EXPECT_EQ(NamesInParts(node.get(), 2), "a b | c d | e | ");
    EXPECT_EQ(NamesInParts(node.get(), 5), "a b c d e | ");
    EXPECT_EQ(NamesInParts(node.get(), 6), "a b c d e | ");
}

TEST(ViewsOfAList, FollowChildrenAddedOnTheWay) {
    const Tree node = NewNode("parent");
    ZQXML::INodeList* const list = node->GetChildren();
    node->AddChild("a", 1);
    ZQXML::NodeView view;
    ASSERT_EQ(list->ViewFirst(&view, 1), 1U);
    node->AddChild("b", 2);
    ASSERT_EQ(list->ViewNext(&view, 1), 1U);
    EXPECT_EQ(view.Name(), "b");
    EXPECT_EQ(list->ViewNext(&view, 1), 0U);
}

TEST(ViewsOfAList, StayAtTheirEndWhateverIsAdded) {
    const Tree node = NewNode("parent");
    node->AddChild("a", 1);
    ZQXML::INodeList* const list = node->GetChildren();
    ZQXML::NodeView view;
    ASSERT_EQ(list->ViewFirst(&view, 1), 1U);
    ASSERT_EQ(list->ViewNext(&view, 1), 0U);
    node->AddChild("b", 1);
    EXPECT_EQ(list->ViewNext(&view, 1), 0U);
    EXPECT_EQ(list->Next(), nullptr);
}

TEST(ViewsOfAList, ShareTheWalkWithFirstAndNext) {
    const Tree node = NewNode("parent");
    for (const char* const name : {"a", "b", "c", "d"}) {
        node->AddChild(name, name);
    }
    ZQXML::INodeList* const list = node->GetChildren();
    ZQXML::NodeView views[2];
    ASSERT_EQ(list->First()->GetName(), "a");
    ASSERT_EQ(list->ViewNext(views, 2), 2U);
    EXPECT_EQ(views[1].Name(), "c");
    ASSERT_EQ(list->Next()->GetName(), "d");
    EXPECT_EQ(list->ViewNext(views, 2), 0U);
    EXPECT_EQ(list->Next(), nullptr);
}

TEST(CountHint, IsTheNumberOfChildrenAndDisturbsNoWalk) {
    const Tree node = NewNode("parent");
    ZQXML::INodeList* const list = node->GetChildren();
    EXPECT_EQ(list->CountHint(), 0U);
    for (const char* const name : {"a", "b", "c"}) {
        node->AddChild(name, name);
    }
    list->First();
    EXPECT_EQ(list->CountHint(), 3U);
    EXPECT_EQ(list->Next()->GetName(), "b");
}

TEST(AddCString, EqualsAddChildOfACString) {
    const Tree node = NewNode("parent");
    node->AddCString("a", "text");
    node->AddCString("b", nullptr);
    node->AddCString("c", "cut\0here");
    EXPECT_EQ(TreeText(node.get()), R"("parent"=""("a"="text" "b"="" "c"="cut"))");
}

TEST(AddText, EqualsAddChild) {
    const Tree node = NewNode("parent");
    // Lengths on both sides of those that are copied and compared in another way.
    for (std::size_t size = 0; size < 40; ++size) {
        const std::string name(size, 'n');
        const std::string text(size, 't');
        node->AddText(name, text);
        node->AddChild(name, text);
        node->AddText(name, text + std::string("\0z", 2));
        node->AddChild(name, text + std::string("\0z", 2));
    }
    ZQXML::INodeList* const list = node->GetChildren();
    int pairs = 0;
    for (ZQXML::INode* child = list->First(); child != nullptr; child = list->Next(), ++pairs) {
        ZQXML::INode* const other = list->Next();
        ASSERT_NE(other, nullptr);
        EXPECT_EQ(child->GetName(), other->GetName());
        EXPECT_EQ(child->GetValue(), other->GetValue());
        EXPECT_FALSE(child->IsEncoded());
    }
    EXPECT_EQ(pairs, 80);
}

TEST(AddNumber, IsSignedDecimal) {
    const Tree node = NewNode("parent");
    node->AddNumber("a", 0);
    node->AddNumber("b", std::numeric_limits<int>::max());
    node->AddNumber("c", std::numeric_limits<int>::min());
    EXPECT_EQ(TreeText(node.get()), R"("parent"=""("a"="0" "b"="2147483647" "c"="-2147483648"))");
}

TEST(AddEncoded, EncodesAndMarks) {
    const Tree node = NewNode("parent");
    node->AddEncoded("a", "");
    node->AddEncoded("b", std::string_view("f\0o", 3));
    ASSERT_NE(node->FindChild("b"), nullptr);
    EXPECT_EQ(node->FindChild("a")->GetValue(), "");
    EXPECT_TRUE(node->FindChild("a")->IsEncoded());
    EXPECT_EQ(node->FindChild("b")->GetValue(), "ZgBv");
    EXPECT_TRUE(node->FindChild("b")->IsEncoded());
    EXPECT_EQ(node->FindChild("b")->GetValueDecoded(), std::string("f\0o", 3));
}

TEST(AddEncoded, EqualsAddChildEncoded) {
    const Tree node = NewNode("parent");
    // Of "MTIz" no digit comes first, of "100=" three do.
    for (const std::string& bytes : {std::string("123"), std::string("\xD7\x4D"), std::string()}) {
        node->AddEncoded("a", bytes);
        node->AddChildEncoded("a", zq::EncodeBase64(bytes));
    }
    EXPECT_EQ(node->FindChild("a")->GetValue(), "MTIz");
    ZQXML::INodeList* const list = node->GetChildren();
    for (ZQXML::INode* child = list->First(); child != nullptr; child = list->Next()) {
        ZQXML::INode* const other = list->Next();
        ASSERT_NE(other, nullptr);
        EXPECT_EQ(TreeText(child), TreeText(other));
        EXPECT_EQ(child->GetValueInt(), other->GetValueInt());
        EXPECT_EQ(child->GetValueDecoded(), other->GetValueDecoded());
        EXPECT_EQ(ZQXML::WriteXml(child), ZQXML::WriteXml(other));
    }
}

TEST(AddEncoded, IsForgottenByInitialize) {
    const Tree node = NewNode("parent");
    node->AddEncoded("a", "foo");
    ZQXML::INode* const child = node->FindChild("a");
    child->Initialize("b", "text");
    EXPECT_EQ(child->GetValue(), "text");
    EXPECT_EQ(child->GetValueDecoded(), "text");
    EXPECT_FALSE(child->IsEncoded());
}

TEST(CreateNode, YieldsANodeOfThatName) {
    const Tree node = NewNode("parent");
    const Tree created = node->CreateNode("name");
    EXPECT_EQ(TreeText(created.get()), R"("name"="")");
}

TEST(CreateNode, YieldsAnEmptyNodeOfItsOwn) {
    const Tree node = NewNode("parent", "text");
    node->AddChild("a", 1);
    const Tree created = node->CreateNode("");
    ASSERT_TRUE(created);
    EXPECT_EQ(TreeText(created.get()), R"(""="")");
    EXPECT_EQ(TreeText(node.get()), R"("parent"="text"("a"="1"))");
}

// What a class gets that implements the 15 operations alone.

TEST(DefaultBodies, KnowNoMarks) {
    const zq::auto_com<FakeNode> node = FakeNode::Create("n");
    node->AddChildEncoded("a", "Zm9v");
    ZQXML::INode* const child = node->FindChild("a");
    ASSERT_NE(child, nullptr);
    EXPECT_FALSE(child->IsEncoded());
}

TEST(DefaultBodies, ChildrenIfAnyAreTheList) {
    const zq::auto_com<FakeNode> node = FakeNode::Create("n");
    EXPECT_EQ(node->GetChildrenIfAny(), node->GetChildren());
}

TEST(DefaultBodies, NodeWithoutAListHasNoChildren) {
    EmptyNode node;
    ASSERT_EQ(node.GetChildren(), nullptr);
    const Tree parent = NewNode("parent");
    parent->AppendChild(&node);
    EXPECT_EQ(TreeText(parent.get()), R"("parent"=""(""=""))");
    EXPECT_EQ(ZQXML::WriteXml(&node), "<_/>");
}

TEST(DefaultBodies, ViewShowsNothing) {
    const zq::auto_com<FakeNode> node = FakeNode::Create("name", "text");
    const ZQXML::NodeView view = node->View();
    EXPECT_EQ(view.node, node.get());
    EXPECT_EQ(view.form, ZQXML::TextForm::kUnseen);
}

TEST(DefaultBodies, ViewsOfAListShowOneAtATime) {
    const zq::auto_com<FakeNode> node = FakeNode::Create("n");
    EXPECT_EQ(NamesInParts(node.get(), 4), "");
    node->AddChild("a", 1);
    node->AddChild("b", 2);
    EXPECT_EQ(NamesInParts(node.get(), 4), "a | b | ");
    EXPECT_EQ(node->GetChildren()->CountHint(), 0U);
}

/// Notes which of the operations that add a child it is given.
class NotingNode : public EmptyNode {
 public:
    void AddChild(const std::string& name, const char* text) override {
        calls += name + ": C-string " + text + "\n";
    }
    void AddChild(const std::string& name, const std::string& text) override {
        calls += name + ": string " + Quoted(text) + "\n";
    }
    void AddChild(const std::string& name, int value) override {
        calls += name + ": int " + std::to_string(value) + "\n";
    }
    void AddChild(const std::string& name, unsigned long value) override {
        calls += name + ": unsigned " + std::to_string(value) + "\n";
    }
    void AddChild(const std::string& name, bool value) override {
        calls += name + ": bool " + (value ? "1" : "0") + "\n";
    }
    void AddChildEncoded(const std::string& name, const std::string& text) override {
        calls += name + ": encoded " + text + "\n";
    }

    std::string calls;
};

TEST(DefaultBodies, AddInTheFormThatTheChildHas) {
    NotingNode node;
    node.AddCString("a", "text");
    node.AddText("b", std::string_view("te\0xt", 5));
    node.AddNumber("c", -7);
    node.AddEncoded("d", "foo");
    EXPECT_EQ(node.calls,
              "a: C-string text\nb: string \"te\\x00xt\"\nc: int -7\nd: encoded Zm9v\n");
}

TEST(DefaultBodies, AddRefTakesNoReference) {
    const int before = FakeNode::LiveCount();
    {
        const zq::auto_com<FakeNode> node = FakeNode::Create("n");
        node->AddRef();
        EXPECT_EQ(FakeNode::LiveCount(), before + 1);
    }
    EXPECT_EQ(FakeNode::LiveCount(), before);
}

TEST(DefaultBodies, CreateNodeYieldsAPlatformNode) {
    const zq::auto_com<FakeNode> node = FakeNode::Create("n");
    const Tree created = node->CreateNode("");
    ASSERT_TRUE(created);
    EXPECT_EQ(TreeText(created.get()), R"(""="")");
    created->AddChildEncoded("a", "Zm9v");
    EXPECT_TRUE(created->FindChild("a")->IsEncoded());
}

}  // namespace
