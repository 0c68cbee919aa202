// Which calls the verbs make of a node, and that decimals are the platform's own: on a platform
// that records its use.

#include <gtest/gtest.h>

#include <string>

#include "common/TextConversion.h"
#include "records/Fields.h"
#include "tests/records/RecordingPlatform.h"

namespace {

class VerbCallsTest : public testing::Test {
 protected:
    VerbCallsTest() {
        node_->Initialize("Element", "");
        TakeCalls();
    }
    ~VerbCallsTest() override { TakeCalls(); }

    static std::string TakeCalls() { return RecordingPlatform::TakeCalls(); }

    ZQXML::INode* Node() const { return node_.get(); }

 private:
    zq::auto_com<ZQXML::INode> node_ = ZQXML::CreateXmlNode();
};

using ElementWriterTest = VerbCallsTest;
using ChildReaderTest = VerbCallsTest;
using TextLinesTest = VerbCallsTest;

TEST_F(ElementWriterTest, SkipsNullMembers) {
    ElementWriter out(Node());
    out.Plain("Plain", nullptr);
    out.Display("Display", nullptr);
    out.Number("Number", nullptr);
    EXPECT_EQ(TakeCalls(), "");
}

TEST_F(ElementWriterTest, EachVerbAddsInItsForm) {
    const std::string text = "Text";
    const int number = -12;
    const unsigned int unsignedNumber = 3000000000U;
    const unsigned long date = 4000000000UL;
    const bool flag = true;
    ElementWriter out(Node());
    out.Plain("Plain", &text);
    out.String("String", &text);
    out.Display("Display", &text);
    out.Number("Number", &number);
    out.NumberUnlessZero("Other", 7);
    out.NumberUnlessZero("Zero", 0);
    out.Unsigned("Unsigned", &date);
    out.Decimal("Decimal", &unsignedNumber);
    out.DecimalString("DecimalString", &number);
    out.HexLetter("HexLetter", &text);
    out.Flag("Flag", &flag);
    out.FlagIfTrue("FlagIfTrue", true);
    out.FlagIfTrue("False", false);
    out.ValuesUnlessEmpty("Values", {"a"});
    out.ValuesUnlessEmpty("Empty", {});
    EXPECT_EQ(TakeCalls(),
              "1.AddChild(\"Plain\", C-string \"Text\")\n"
              "1.AddChild(\"String\", string \"Text\")\n"
              "1.AddChildEncoded(\"Display\", \"VGV4dA==\")\n"
              "1.AddChild(\"Number\", int -12)\n"
              "1.AddChild(\"Other\", int 7)\n"
              "1.AddChild(\"Unsigned\", unsigned 4000000000)\n"
              "1.AddChild(\"Decimal\", C-string \"unsigned int 3000000000\")\n"
              "1.AddChild(\"DecimalString\", string \"int -12\")\n"
              "1.AddChild(\"HexLetter\", string \"54\")\n"
              "1.AddChild(\"Flag\", bool true)\n"
              "1.AddChild(\"FlagIfTrue\", bool true)\n"
              "13.CreateXmlNode()\n"
              "13.Initialize(\"Values\", \"\")\n"
              "13.AddChild(\"Value\", string \"a\")\n"
              "1.AppendChild(13)\n"
              "13.Release()\n");
}

TEST_F(ElementWriterTest, EncodedTextEndsAheadOfTheCodecsTerminator) {
    EXPECT_EQ(base64EncodeString("foo"), "Zm9v");
    EXPECT_EQ(base64EncodeString("foobar!"), "Zm9vYmFyIQ==");
    EXPECT_EQ(base64DecodeString("Zm9v"), "foo");
    EXPECT_EQ(DecodeAndConvertFromUtf8("Zm9v"), L"foo");
    EXPECT_EQ(DecodeAndConvertFromUtf8(base64EncodeString(std::string(300, 'x'))),
              std::wstring(300, L'x'));
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
    // The row after the one that took the child looks for the next one.
    EXPECT_EQ(TakeCalls(), "1.GetChildren()\n1.First()\n2.GetName()\n2.GetValue()\n1.Next()\n");
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
        child.Plain(std::string_view(name), field);
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

}  // namespace
