// What the verbs do, on any platform.

#include "records/Fields.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <type_traits>
#include <vector>

#include "common/TextConversion.h"

namespace {

zq::auto_com<ZQXML::INode> NewNode() {
    auto node = ZQXML::CreateXmlNode();
    node->Initialize("Element", "");
    return node;
}

std::string NameOf(std::size_t index) {
    return "Child" + std::to_string(index);
}

// Both sides of what a walk looks at in one call.
constexpr std::size_t kCounts[] = {0, 1, 15, 16, 17, 32, 33};

static_assert(!std::is_copy_constructible_v<ChildWalk> && !std::is_copy_assignable_v<ChildWalk>);
static_assert(!std::is_copy_constructible_v<ChildReader>);

TEST(ChildWalk, ComesToEveryChildOnce) {
    for (const std::size_t count : kCounts) {
        const auto node = NewNode();
        std::string expected;
        for (std::size_t at = 0; at < count; ++at) {
            node->AddChild(NameOf(at), std::to_string(at * at));
            expected += NameOf(at) + '=' + std::to_string(at * at) + ' ';
        }
        std::string found;
        ChildWalk walk(node.get());
        while (walk.Next()) {
            found += walk.Node()->GetName() == walk.Name() ? walk.Node()->GetName() : "?";
            found += '=' + std::string(walk.Text()) + ' ';
        }
        EXPECT_EQ(found, expected) << count;
        EXPECT_FALSE(walk.Next()) << count;
    }
}

TEST(ChildWalk, NullElementHasNoChildren) {
    ChildWalk walk(nullptr);
    EXPECT_EQ(walk.CountHint(), 0U);
    EXPECT_FALSE(walk.Next());
    EXPECT_FALSE(walk.Next());
}

TEST(ChildWalk, ShowsTextsOfAllForms) {
    const auto node = NewNode();
    ElementWriter out(node.get());
    const std::string text = "Gr\xC3\xBC\xC3\x9F";
    out.Plain("Plain", &text);
    out.Display("Display", &text);
    node->AddChildEncoded("Encoded", "R3LDvMOf");
    const int number = 42;
    out.Number("Number", &number);
    std::string texts;
    std::wstring display;
    for (ChildWalk walk(node.get()); walk.Next();) {
        texts += std::string(walk.Text()) + ' ';
        if (walk.Name() == "Display" || walk.Name() == "Encoded") {
            display += walk.DisplayText() + L' ';
        }
    }
    EXPECT_EQ(texts, text + " R3LDvMOf R3LDvMOf 42 ");
    EXPECT_EQ(display, L"Gr\u00FC\u00DF Gr\u00FC\u00DF ");
}

TEST(ChildReader, RowsTakeAnyNumberOfChildren) {
    for (const std::size_t count : kCounts) {
        const auto node = NewNode();
        for (std::size_t at = 0; at < count; ++at) {
            node->AddChild(NameOf(at), std::to_string(at + 100));
        }
        // As many rows as the most children, in their order and against it.
        for (const bool isReversed : {false, true}) {
            std::vector<std::string> fields(33);
            for (ChildReader child(node.get()); child.Next();) {
                for (std::size_t row = 0; row < fields.size(); ++row) {
                    const std::size_t at = isReversed ? fields.size() - 1 - row : row;
                    child.Plain(NameOf(at), fields[at]);
                }
            }
            for (std::size_t at = 0; at < fields.size(); ++at) {
                EXPECT_EQ(fields[at], at < count ? std::to_string(at + 100) : "") << count;
            }
        }
    }
}

TEST(ChildReader, ListsTakeAnyNumberOfChildren) {
    for (const std::size_t count : kCounts) {
        const auto node = NewNode();
        const auto list = NewElement("List");
        std::vector<std::string> expected;
        for (std::size_t at = 0; at < count; ++at) {
            expected.push_back(std::to_string(at));
            list->AddChild(at % 2 == 0 ? "Value" : "Other", expected.back());
            node->AddChild("Each", expected.back());
        }
        node->AppendChild(list.get());
        std::vector<std::string> values;
        std::vector<std::string> each;
        for (ChildReader child(node.get()); child.Next();) {
            child.Each("Each", each);
            child.Values("List", values);
        }
        EXPECT_EQ(values, expected) << count;
        EXPECT_EQ(each, expected) << count;
    }
}

TEST(ChildReader, ChildrenComeInAnyOrder) {
    // Each order of four children, with one that no row knows.
    std::string order = "ABCX";
    do {
        const auto parent = NewNode();
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

TEST(ChildReader, LaterChildOfTheSameNameWins) {
    for (const char* const order : {"ABA", "AAB", "BAA"}) {
        const auto parent = NewNode();
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

TEST(ChildReader, NextOfANameSkipsTheOthers) {
    const auto parent = NewNode();
    for (const char* const name : {"X", "A", "X", "X", "A", "X"}) {
        parent->AddChild(name, name);
    }
    int found = 0;
    for (ChildReader child(parent.get()); child.Next("A");) {
        EXPECT_EQ(child.Child()->GetName(), "A");
        ++found;
    }
    EXPECT_EQ(found, 2);
}

TEST(ChildReader, EachVerbReadsItsForm) {
    const auto node = NewNode();
    node->AddChild("Number", "-7");
    node->AddChild("Unsigned", "4294967295");
    node->AddChild("Wide", "4294967295");
    node->AddChild("Letter", "41");
    node->AddChild("True", TRUE_STRING);
    node->AddChild("False", "false");
    node->AddChildEncoded("Decoded", "Zm9v");
    int number = 0;
    unsigned int unsignedNumber = 0;
    std::uint64_t wide = ~std::uint64_t{0};
    std::string letter = "before";
    bool isTrue = false;
    bool isKept = true;
    std::vector<std::string> decoded;
    for (ChildReader child(node.get()); child.Next();) {
        child.Number("Number", number);
        child.Unsigned("Unsigned", unsignedNumber);
        child.Unsigned("Wide", wide);
        child.HexLetter("Letter", letter);
        child.Flag("True", isTrue);
        child.Flag("False", isKept);
        child.EachDecoded("Decoded", decoded);
    }
    EXPECT_EQ(number, -7);
    EXPECT_EQ(unsignedNumber, 4294967295U);
    EXPECT_EQ(wide, 4294967295U);
    EXPECT_EQ(letter, "A");
    EXPECT_TRUE(isTrue);
    EXPECT_TRUE(isKept);
    EXPECT_EQ(decoded, std::vector<std::string>{"foo"});
}

/// An item of a list, as far as a log text is concerned.
struct LoggedItem {
    std::string text;
};

void AddLines(const LoggedItem& item, TextLines& lines) {
    lines.Unbroken("", {item.text});
}

TEST(TextLines, EachVerbWritesItsForm) {
    TextLines lines;
    lines.Plain("plain", "text");
    lines.Plain("empty", "");
    lines.Display("display", L"Gr\u00FC\u00DFe");
    lines.DisplayAfter("after: ", L"\u6F22");
    lines.Number("number", -5);
    lines.Unsigned("unsigned", 4294967295UL);
    lines.Flag("flag", true);
    lines.Each("each", {"a", "b"});
    lines.Unbroken("unbroken ", {"c", "d"});
    lines.Nested("nested", LoggedItem{"item"});
    lines.Of(LoggedItem{"of"});
    EXPECT_EQ(lines.Take(),
              "plain = text\r\nempty = \r\ndisplay = Grüße\r\nafter: 漢\r\nnumber = -5\r\n"
              "unsigned = 4294967295\r\nflag = true\r\neach = a\r\neach = b\r\n"
              "unbroken cunbroken dnested = item\r\nof");
}

TEST(TextLines, KeepTheBytesOfATextAsTheyAre) {
    const std::string text("a\0b\r\n\xFF", 6);
    TextLines lines;
    lines.Plain("text", text);
    EXPECT_EQ(lines.Take(), "text = " + text + "\r\n");
}

TEST(TextLines, UnusualDisplayTextIsWhatTheConverterMakesOfIt) {
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

TEST(TextLines, ItemsFollowTheirPrefixes) {
    const std::vector<LoggedItem> items = {{"one"}, {""}, {std::string(2000, 'x')}, {"four"}};
    TextLines lines;
    lines.Records("- ", items);
    EXPECT_EQ(lines.Take(), "- one- - " + items[2].text + "- four");
}

TEST(TextLines, OneLongItemTakesNoRoomForTheOthers) {
    std::vector<LoggedItem> items(1000, {"short"});
    items.front().text.assign(100000, 'x');
    TextLines lines;
    lines.Records("", items);
    const std::string text = lines.Take();
    EXPECT_EQ(text.size(), 100000U + 999U * 5U);
    EXPECT_LT(text.capacity(), text.size() + items.size() * 1000);
}

TEST(TextLines, NoRowsGiveAnEmptyText) {
    EXPECT_EQ(TextLines().Take(), "");
}

}  // namespace
