#include "records/Fields.h"

#include <gtest/gtest.h>
#include <algorithm>

#include <string>
#include <vector>

#include "tests/records/RecordingPlatform.h"

namespace {

class FieldsTest : public testing::Test {
 protected:
    FieldsTest() {
        node_->Initialize("Element", "");
        TakeCalls();
    }
    ~FieldsTest() override { TakeCalls(); }

    static std::string TakeCalls() { return RecordingPlatform::TakeCalls(); }

    ZQXML::INode* Node() const { return node_.get(); }

 private:
    zq::auto_com<ZQXML::INode> node_ = ZQXML::CreateXmlNode();
};

using ElementWriterTest = FieldsTest;
using ChildReaderTest = FieldsTest;
using TextLinesTest = FieldsTest;

TEST_F(ElementWriterTest, SkipsNullMembers) {
    ElementWriter out(Node());
    out.Plain("Plain", nullptr);
    out.Display("Display", nullptr);
    out.Number("Number", nullptr);
    EXPECT_EQ(TakeCalls(), "");
}

TEST_F(ElementWriterTest, AddsOneChildForEachMember) {
    std::string text = "Text";
    const int number = -12;
    ElementWriter out(Node());
    out.Number("Number", &number);
    out.Plain("Plain", &text);
    out.Display("Display", &text);
    EXPECT_EQ(TakeCalls(),
              "1.AddChild(\"Number\", int -12)\n"
              "1.AddChild(\"Plain\", C-string \"Text\")\n"
              "1.AddChildEncoded(\"Display\", \"VGV4dA==\")\n");
}

TEST_F(ElementWriterTest, TakesANameThatIsPartOfALongerText) {
    const int number = 1;
    ElementWriter(Node()).Number(std::string_view("NumberAndMore").substr(0, 6), &number);
    EXPECT_EQ(TakeCalls(), "1.AddChild(\"Number\", int 1)\n");
}

TEST_F(ElementWriterTest, NewElementIsNamedAndWithoutText) {
    NewElement("Name");
    EXPECT_EQ(TakeCalls(), "2.CreateXmlNode()\n2.Initialize(\"Name\", \"\")\n2.Release()\n");
}

TEST_F(ChildReaderTest, NullElementHasNoChildren) {
    ChildReader child(nullptr);
    EXPECT_FALSE(child.Next());
    EXPECT_FALSE(child.Next());
    EXPECT_EQ(TakeCalls(), "");
}

TEST_F(ChildReaderTest, WalksFromFirstToTheEnd) {
    Node()->AddChild("A", "1");
    Node()->AddChild("B", "2");
    TakeCalls();
    ChildReader child(Node());
    EXPECT_TRUE(child.Next());
    EXPECT_TRUE(child.Next());
    EXPECT_FALSE(child.Next());
    EXPECT_EQ(TakeCalls(),
              "1.GetChildren()\n"
              "1.First()\n2.GetName()\n"
              "1.Next()\n3.GetName()\n"
              "1.Next()\n");
}

TEST_F(ChildReaderTest, FirstRowOfItsNameTakesAChild) {
    Node()->AddChild("Name", "7");
    TakeCalls();
    std::string first = "first";
    std::string second = "second";
    std::wstring display = L"display";
    int number = -1;
    ChildReader child(Node());
    ASSERT_TRUE(child.Next());
    child.Plain("Other", second);
    child.Plain("Name", first);
    child.Plain("Name", second);
    child.Display("Name", display);
    child.Number("Name", number);
    EXPECT_EQ(first, "7");
    EXPECT_EQ(second, "second");
    EXPECT_EQ(display, L"display");
    EXPECT_EQ(number, -1);
    // The row behind the one that took the child looks for the next one.
    EXPECT_EQ(TakeCalls(), "1.GetChildren()\n1.First()\n2.GetName()\n2.GetValue()\n1.Next()\n");
}

TEST_F(ChildReaderTest, ChildrenComeInAnyOrder) {
    // Each order of four children, with one that no row knows.
    std::string order = "ABCX";
    do {
        const auto parent = ZQXML::CreateXmlNode();
        for (const char name : order) {
            parent->AddChild(std::string(1, name), std::string(1, name));
        }
        std::string taken[3];
        for (ChildReader child(parent.get()); child.Next();) {
            child.Plain("A", taken[0]);
            child.Plain("B", taken[1]);
            child.Plain("C", taken[2]);
        }
        EXPECT_EQ(taken[0] + taken[1] + taken[2], "ABC") << order;
    } while (std::next_permutation(order.begin(), order.end()));
}

TEST_F(ChildReaderTest, LaterChildOfTheSameNameWins) {
    for (const char* const order : {"ABA", "AAB", "BAA"}) {
        const auto parent = ZQXML::CreateXmlNode();
        int number = 0;
        for (const char* name = order; *name != '\0'; ++name) {
            parent->AddChild(std::string(1, *name), ++number);
        }
        int first = 0;
        int second = 0;
        for (ChildReader child(parent.get()); child.Next();) {
            child.Number("A", first);
            child.Number("B", second);
        }
        EXPECT_EQ(first, static_cast<int>(std::string(order).rfind('A')) + 1) << order;
        EXPECT_EQ(second, static_cast<int>(std::string(order).rfind('B')) + 1) << order;
    }
}

TEST_F(ChildReaderTest, EveryChildIsOfferedToEveryRow) {
    Node()->AddChild("Plain", "1");
    Node()->AddChild("Number", "2");
    Node()->AddChild("Display", "Mw==");
    Node()->AddChild("Plain", "4");
    TakeCalls();
    std::string plain;
    std::wstring display;
    int number = 0;
    for (ChildReader child(Node()); child.Next();) {
        child.Plain("Plain", plain);
        child.Number("Number", number);
        child.Display("Display", display);
    }
    EXPECT_EQ(plain, "4");
    EXPECT_EQ(number, 2);
    EXPECT_EQ(display, L"3");
    EXPECT_EQ(TakeCalls(),
              "1.GetChildren()\n"
              "1.First()\n2.GetName()\n2.GetValue()\n"
              "1.Next()\n3.GetName()\n3.GetValueInt()\n"
              "1.Next()\n4.GetName()\n4.GetValue()\n"
              "1.Next()\n5.GetName()\n5.GetValue()\n"
              "1.Next()\n");
}

TEST_F(ChildReaderTest, RowsOfOtherNamesDoNotTouchTheChild) {
    Node()->AddChild("Name", "7");
    TakeCalls();
    std::string field = "kept";
    ChildReader child(Node());
    ASSERT_TRUE(child.Next());
    for (const char* name : {"name", "Nam", "Names", "", "NAME"}) {
        child.Plain(name, field);
    }
    EXPECT_EQ(field, "kept");
    EXPECT_EQ(TakeCalls(), "1.GetChildren()\n1.First()\n2.GetName()\n");
}

TEST_F(TextLinesTest, EachRowIsALine) {
    TextLines lines;
    lines.Plain("plain", "text");
    lines.Display("display", L"Gr\u00FC\u00DFe");
    lines.Number("number", -5);
    lines.Plain("empty", "");
    EXPECT_EQ(lines.Take(), "plain = text\r\ndisplay = Grüße\r\nnumber = int -5\r\nempty = \r\n");
    EXPECT_EQ(TakeCalls(), "");
}

TEST_F(TextLinesTest, KeepsTheBytesOfATextAsTheyAre) {
    const std::string text("a\0b\r\n\xFF", 6);
    TextLines lines;
    lines.Plain("text", text);
    EXPECT_EQ(lines.Take(), "text = " + text + "\r\n");
}

TEST_F(TextLinesTest, UnusualDisplayTextIsWhatTheConverterMakesOfIt) {
    for (const std::wstring& text :
         {std::wstring(L"cut\0here", 8), std::wstring(1, static_cast<wchar_t>(0xD800)),
          std::wstring(500, static_cast<wchar_t>(0xDFFF)),
          L"plain, then " + std::wstring(1, static_cast<wchar_t>(0x110000))}) {
        TextLines lines;
        lines.Display("first", text);
        lines.Display("second", L"usual");
        EXPECT_EQ(lines.Take(), "first = " + convertToUtf8(text) + "\r\nsecond = usual\r\n");
    }
}

/// An item of a list, as far as a log text is concerned.
struct LoggedItem {
    void AddLines(TextLines& lines) const { lines.Text(text); }

    std::string text;
};

TEST_F(TextLinesTest, ItemsFollowTheirPrefixes) {
    std::vector<LoggedItem> items = {{"one"}, {""}, {std::string(2000, 'x')}, {"four"}};
    TextLines lines;
    lines.Records("- ", items);
    EXPECT_EQ(lines.Take(), "- one- - " + items[2].text + "- four");
}

TEST_F(TextLinesTest, OneLongItemTakesNoRoomForTheOthers) {
    std::vector<LoggedItem> items(1000, {"short"});
    items.front().text.assign(100000, 'x');
    TextLines lines;
    lines.Records("", items);
    const std::string text = lines.Take();
    EXPECT_EQ(text.size(), 100000U + 999U * 5U);
    EXPECT_LT(text.capacity(), text.size() + items.size() * 1000);
}

TEST_F(TextLinesTest, NoRowsGiveAnEmptyText) {
    EXPECT_EQ(TextLines().Take(), "");
}

}  // namespace
