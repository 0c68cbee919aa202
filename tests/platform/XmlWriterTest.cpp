#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/XmlText.h"
#include "tests/platform/ExpatOracle.h"
#include "tests/support/EmptyNode.h"
#include "tests/support/FakeNode.h"
#include "tests/support/Random.h"
#include "tests/support/StrictNode.h"
#include "tests/support/TreeText.h"
#include "tests/support/Utf8Text.h"

namespace {

using Tree = zq::auto_com<ZQXML::INode>;

constexpr char kReplacement[] = "\xEF\xBF\xBD";
constexpr char32_t kLastCode = 0x10FFFF;

Tree NewNode(const std::string& name, const std::string& text = {}) {
    Tree node = ZQXML::CreateXmlNode();
    node->Initialize(name, text);
    return node;
}

std::string WrittenText(const std::string& text) {
    return ZQXML::WriteXml(NewNode("n", text).get());
}

/// What stands between "<" and "/>" for an element of that name.
std::string WrittenName(const std::string& name) {
    const std::string text = ZQXML::WriteXml(NewNode(name).get());
    EXPECT_EQ(text.substr(0, 1) + text.substr(text.size() - 2), "</>") << Quoted(name);
    return text.substr(1, text.size() - 3);
}

bool IsSurrogate(char32_t code) {
    return code >= 0xD800 && code <= 0xDFFF;
}

/// The rules for texts once more, byte by byte.
std::string ExpectedText(std::string_view text) {
    std::string expected;
    while (!text.empty()) {
        const std::size_t size = Utf8SequenceSize(text);
        const std::string_view character = text.substr(0, std::max(size, std::size_t{1}));
        const auto byte = static_cast<unsigned char>(text[0]);
        const bool isControl = byte < 0x20 && byte != '\t' && byte != '\n' && byte != '\r';
        if (size == 0 || isControl || character == "\xEF\xBF\xBE" || character == "\xEF\xBF\xBF") {
            expected += kReplacement;
        } else if (character == "&") {
            expected += "&amp;";
        } else if (character == "<") {
            expected += "&lt;";
        } else if (character == ">") {
            expected += "&gt;";
        } else if (character == "\r") {
            expected += "&#13;";
        } else {
            expected += character;
        }
        text.remove_prefix(character.size());
    }
    return expected.empty() ? "<n/>" : "<n>" + expected + "</n>";
}

TEST(WriteXml, NullNodeYieldsNothing) {
    EXPECT_EQ(ZQXML::WriteXml(nullptr), "");
    EXPECT_EQ(ZQXML::WriteXml(nullptr, true), "");
}

TEST(WriteXml, EmptyElementIsOneTag) {
    EXPECT_EQ(ZQXML::WriteXml(NewNode("n").get()), "<n/>");
    EXPECT_EQ(ZQXML::WriteXml(NewNode("n").get(), true), "<n/>");
}

TEST(WriteXml, EscapesMarkupAndCarriageReturnInTexts) {
    EXPECT_EQ(WrittenText("a & b"), "<n>a &amp; b</n>");
    EXPECT_EQ(WrittenText("&amp;"), "<n>&amp;amp;</n>");
    EXPECT_EQ(WrittenText("<b>"), "<n>&lt;b&gt;</n>");
    EXPECT_EQ(WrittenText("]]>"), "<n>]]&gt;</n>");
    EXPECT_EQ(WrittenText("a\r\nb\rc"), "<n>a&#13;\nb&#13;c</n>");
    EXPECT_EQ(WrittenText("\"'"), "<n>\"'</n>");
    EXPECT_EQ(WrittenText(" \t\n "), "<n> \t\n </n>");
    EXPECT_EQ(WrittenText("\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80"),
              "<n>\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80</n>");
}

TEST(WriteXml, MarksEncodedElements) {
    const Tree node = NewNode("n");
    node->AddChildEncoded("a", "Zm9v");
    node->AddChildEncoded("b", "");
    node->AddChildEncoded("c", "x<");
    node->FindChild("c")->AddChild("d", "");
    EXPECT_EQ(ZQXML::WriteXml(node.get()),
              "<n><a encoding=\"base64\">Zm9v</a><b encoding=\"base64\"/>"
              "<c encoding=\"base64\">x&lt;<d/></c></n>");
}

/// A tree with every shape of element: text or none, children or none, blank text.
Tree Album() {
    Tree album = NewNode("Album");
    album->AddChild("Id", 7);
    album->AddChildEncoded("Title", "Zm9v");
    album->AddChild("Empty", "");
    album->AddChild("Tracks", "");
    ZQXML::INode* const tracks = album->FindChild("Tracks");
    tracks->AddChild("Track", "");
    tracks->FindChild("Track")->AddChild("Id", 1);
    tracks->AddChild("Track", "\n");
    album->AddChild("Mixed", "text");
    album->FindChild("Mixed")->AddChild("First", 1);
    album->FindChild("Mixed")->AddChild("Second", "");
    album->AddChild("Blank", " ");
    album->FindChild("Blank")->AddChild("Child", "");
    return album;
}

TEST(WriteXml, WritesElementsInOrderWithoutAnyAddition) {
    EXPECT_EQ(ZQXML::WriteXml(Album().get()),
              "<Album><Id>7</Id><Title encoding=\"base64\">Zm9v</Title><Empty/>"
              "<Tracks><Track><Id>1</Id></Track><Track>\n</Track></Tracks>"
              "<Mixed>text<First>1</First><Second/></Mixed><Blank> <Child/></Blank></Album>");
}

TEST(WriteXml, IndentPutsElementsOnLinesOfTheirOwn) {
    EXPECT_EQ(ZQXML::WriteXml(Album().get(), true),
              "<Album>\n"
              "  <Id>7</Id>\n"
              "  <Title encoding=\"base64\">Zm9v</Title>\n"
              "  <Empty/>\n"
              "  <Tracks>\n"
              "    <Track>\n"
              "      <Id>1</Id>\n"
              "    </Track>\n"
              "    <Track>\n"
              "</Track>\n"
              "  </Tracks>\n"
              "  <Mixed>text<First>1</First>\n"
              "    <Second/>\n"
              "  </Mixed>\n"
              "  <Blank> \n"
              "    <Child/>\n"
              "  </Blank>\n"
              "</Album>");
}

TEST(WriteXml, WritesTheSubtreeOfTheNodeAlone) {
    const Tree album = Album();
    EXPECT_EQ(ZQXML::WriteXml(album->FindChild("Tracks")),
              "<Tracks><Track><Id>1</Id></Track><Track>\n</Track></Tracks>");
}

/// A caller may keep many texts of small parts of a tree.
TEST(WriteXml, TakesMemoryForWhatItWritesOnly) {
    const Tree large = NewNode("large");
    large->AddChild("first", "x");
    large->AddChild("second", "");
    large->FindChild("second")->AddChild("inner", 1);
    for (int index = 0; index < 10000; ++index) {
        large->AddChild("more", std::string(100, 'x'));
    }
    for (const char* const name : {"first", "second", "more"}) {
        const std::string text = ZQXML::WriteXml(large->FindChild(name));
        EXPECT_LT(text.size(), 200U);
        EXPECT_LT(text.capacity(), 4096U) << name;
    }
    const std::string all = ZQXML::WriteXml(large.get());
    EXPECT_LT(all.capacity(), 2 * all.size());
}

TEST(WriteXml, WritesLeavesOfEachFormByThemselves) {
    const Tree node = NewNode("n");
    node->AddNumber("zero", 0);
    node->AddNumber("least", -2147483647 - 1);
    node->AddEncoded("bytes", "fooba");
    node->AddEncoded("none", "");
    node->AddChildEncoded("base64", "Zm9v ");
    const struct {
        const char* name;
        const char* written;
    } cases[] = {
        {"zero", "<zero>0</zero>"},
        {"least", "<least>-2147483648</least>"},
        {"bytes", "<bytes encoding=\"base64\">Zm9vYmE=</bytes>"},
        {"none", "<none encoding=\"base64\"/>"},
        {"base64", "<base64 encoding=\"base64\">Zm9v </base64>"},
    };
    for (const auto& [name, written] : cases) {
        for (const bool indent : {false, true}) {
            EXPECT_EQ(ZQXML::WriteXml(node->FindChild(name), indent), written);
        }
    }
}

/// They are no blank text, behind which a new line would change nothing.
TEST(WriteXml, IndentLeavesNumbersAndBytesAheadOfChildrenAsTheyAre) {
    const Tree node = NewNode("n");
    node->AddNumber("number", 0);
    node->FindChild("number")->AddChild("c", "");
    node->AddEncoded("bytes", " ");
    node->FindChild("bytes")->AddChild("c", "");
    EXPECT_EQ(ZQXML::WriteXml(node.get(), true),
              "<n>\n"
              "  <number>0<c/>\n"
              "  </number>\n"
              "  <bytes encoding=\"base64\">IA==<c/>\n"
              "  </bytes>\n"
              "</n>");
}

TEST(WriteXml, LeavesTheTreeAsItIs) {
    const Tree album = Album();
    const std::string before = TreeText(album.get());
    const std::string first = ZQXML::WriteXml(album.get());
    ZQXML::WriteXml(album.get(), true);
    EXPECT_EQ(TreeText(album.get()), before);
    EXPECT_EQ(ZQXML::WriteXml(album.get()), first);
}

TEST(WriteXml, WritesNodesOfAnotherImplementation) {
    const zq::auto_com<FakeNode> root = FakeNode::Create("root", "a<b");
    root->AddChild("flag", true);
    root->AddChildEncoded("unmarked", "Zm9v");
    const zq::auto_com<FakeNode> empty = FakeNode::Create("1", std::string(1, '\0'));
    root->AppendChild(empty.get());
    const Tree own = NewNode("own");
    own->AddChildEncoded("marked", "Zm9v");
    root->AppendChild(own.get());
    EXPECT_EQ(ZQXML::WriteXml(root.get()),
              std::string("<root>a&lt;b<flag>true</flag><unmarked>Zm9v</unmarked><_>") +
                  kReplacement + "</_><own><marked encoding=\"base64\">Zm9v</marked></own></root>");
    EXPECT_EQ(ZQXML::WriteXml(own->FindChild("marked")),
              "<marked encoding=\"base64\">Zm9v</marked>");
}

/// A node that shows nothing in place, but knows its mark.
class MarkedNode : public EmptyNode {
 public:
    std::string GetName() override { return "marked"; }
    std::string GetValue() override { return "Zm9v"; }
    bool IsEncoded() override { return true; }
};

TEST(WriteXml, MarksNodesOfAnotherImplementationThatKnowMarks) {
    MarkedNode node;
    EXPECT_EQ(ZQXML::WriteXml(&node), "<marked encoding=\"base64\">Zm9v</marked>");
}

TEST(WriteXml, WritesEveryCharacterAsXmlAllows) {
    std::string text;
    std::string expected;
    for (char32_t code = 1; code <= kLastCode; ++code) {
        if (IsSurrogate(code)) {
            continue;
        }
        text += Utf8(code);
        expected += code == '&'       ? "&amp;"
                    : code == '<'     ? "&lt;"
                    : code == '>'     ? "&gt;"
                    : code == '\r'    ? "&#13;"
                    : IsXmlChar(code) ? Utf8(code)
                                      : kReplacement;
    }
    // Not EXPECT_EQ: nobody wants to see four megabytes.
    EXPECT_TRUE(WrittenText(text) == "<n>" + expected + "</n>");
}

TEST(WriteXml, WritesCharactersThatXmlLacksAsReplacement) {
    for (const std::string& text : {std::string(1, '\0'), Utf8(0x1), Utf8(0x8), Utf8(0xB),
                                    Utf8(0xC), Utf8(0xE), Utf8(0x1F), Utf8(0xFFFE), Utf8(0xFFFF)}) {
        EXPECT_EQ(WrittenText(text), std::string("<n>") + kReplacement + "</n>") << Quoted(text);
    }
}

TEST(WriteXml, WritesAReplacementForEachByteThatIsNoUtf8) {
    const struct {
        const char* text;
        int replacements;
        const char* rest;
    } cases[] = {
        {"\x80", 1, ""},              // continuation alone
        {"\xBF", 1, ""},              //
        {"\xC0\x80", 2, ""},          // overlong
        {"\xC1\xBF", 2, ""},          //
        {"\xE0\x80\x80", 3, ""},      //
        {"\xE0\x9F\xBF", 3, ""},      //
        {"\xF0\x80\x80\x80", 4, ""},  //
        {"\xF0\x8F\xBF\xBF", 4, ""},  //
        {"\xED\xA0\x80", 3, ""},      // surrogates
        {"\xED\xBF\xBF", 3, ""},      //
        {"\xF4\x90\x80\x80", 4, ""},  // above 10FFFF
        {"\xF5\x80\x80\x80", 4, ""},  //
        {"\xF8\x88\x80\x80\x80", 5, ""},
        {"\xFE", 1, ""},
        {"\xFF", 1, ""},
        {"\xC3", 1, ""},          // cut
        {"\xE2\x82", 2, ""},      //
        {"\xF0\x9F\x98", 3, ""},  //
        {"\xC3"
         "A",
         1, "A"},  // cut by what follows
        {"\xE2\x82"
         "A",
         2, "A"},  //
        {"\xF0\x9F\x98&", 3, "&amp;"},
        {"\xE2\xC3\xA9", 1, "\xC3\xA9"},
    };
    for (const auto& [text, replacements, rest] : cases) {
        std::string expected = "<n>";
        for (int count = 0; count < replacements; ++count) {
            expected += kReplacement;
        }
        EXPECT_EQ(WrittenText(text), expected + rest + "</n>") << Quoted(text);
    }
}

TEST(WriteXml, AgreesWithTheTableOfRfc3629ForAllPairsOfBytes) {
    for (unsigned int first = 0; first < 256; ++first) {
        for (unsigned int second = 0; second < 256; ++second) {
            const std::string text = {static_cast<char>(first), static_cast<char>(second)};
            ASSERT_EQ(WrittenText(text), ExpectedText(text)) << Quoted(text);
        }
    }
}

TEST(WriteXml, AgreesWithTheTableOfRfc3629ForLongSequences) {
    const std::string borders = "A\x7F\x80\x90\xBF\xC3\xFF";
    for (unsigned int first = 0xE0; first < 256; ++first) {
        for (unsigned int second = 0; second < 256; ++second) {
            std::string text;
            for (const char third : borders) {
                for (const char fourth : borders) {
                    text +=
                        {static_cast<char>(first), static_cast<char>(second), third, fourth, '|'};
                }
            }
            ASSERT_EQ(WrittenText(text), ExpectedText(text)) << first << ' ' << second;
        }
    }
}

TEST(WriteXml, AgreesWithTheTableOfRfc3629ForRandomBytes) {
    Random random(6);
    for (int round = 0; round < 5000; ++round) {
        std::string text = random.Bytes(random.Below(20));
        if (random.OneIn(2)) {
            text += Utf8(static_cast<char32_t>(0x80 + random.Below(0xD000))) + random.Byte();
        }
        ASSERT_EQ(WrittenText(text), ExpectedText(text)) << Quoted(text);
    }
}

TEST(WriteXmlNames, EmptyNameIsUnderscore) {
    EXPECT_EQ(WrittenName(""), "_");
    EXPECT_EQ(ZQXML::WriteXml(NewNode("", "x").get()), "<_>x</_>");
}

TEST(WriteXmlNames, WhatCannotStandThereIsUnderscore) {
    const struct {
        std::string name;
        const char* written;
    } cases[] = {
        {"name", "name"},
        {"a:b", "a:b"},
        {":", ":"},
        {"_x-1.2", "_x-1.2"},
        {"\xC3\xA9t\xC3\xA9", "\xC3\xA9t\xC3\xA9"},
        {"1a", "_a"},
        {"-a", "_a"},
        {".a", "_a"},
        {"a b", "a_b"},
        {" a ", "_a_"},
        {"a\tb\nc\rd", "a_b_c_d"},
        {"<a>", "_a_"},
        {"a/", "a_"},
        {"a=\"b\"", "a__b_"},
        {"&amp;", "_amp_"},
        {"a\xC3", "a_"},
        {"a\xED\xA0\x80z", "a___z"},
        {"\xF0\x9F\x98\x80", "_"},
        {std::string("a\0b", 3), "a_b"},
    };
    for (const auto& [name, written] : cases) {
        EXPECT_EQ(WrittenName(name), written) << Quoted(name);
    }
}

TEST(WriteXmlNames, StartAndEndTagAreTheSame) {
    const Tree node = NewNode("a b<c", "x");
    node->AddChild("1", "y");
    EXPECT_EQ(ZQXML::WriteXml(node.get()), "<a_b_c>x<_>y</_></a_b_c>");
}

/// What is found out of a name counts for all elements of that name.
TEST(WriteXmlNames, ThatRepeatAreWrittenTheSameEachTime) {
    const Tree node = NewNode("a b", "x");
    for (int round = 0; round < 2; ++round) {
        node->AddChild("a b", "x");
        node->AddChild("", 1);
        node->AddChild("1", "");
        node->AddChild("fit", "x");
        node->FindChild("a b")->AddChild("a b", "");
    }
    const std::string child = "<a_b>x<a_b/><a_b/></a_b>";
    const std::string rest = "<_>1</_><_/><fit>x</fit>";
    const std::string expected = "<a_b>x" + child + rest + "<a_b>x</a_b>" + rest + "</a_b>";
    EXPECT_EQ(ZQXML::WriteXml(node.get()), expected);
    EXPECT_EQ(ZQXML::WriteXml(node.get()), expected);
}

/// An element of that name with a child of the same and one of another, which XML lacks.
void CheckLongName(const std::string& name) {
    const Tree node = NewNode(name, "x");
    node->AddChild(name, "");
    node->AddChild(name + '<', "y");
    const std::string unfit = name + "_>y</" + name + "_></";
    EXPECT_EQ(ZQXML::WriteXml(node.get()), "<" + name + ">x<" + name + "/><" + unfit + name + ">");
}

/// Names are copied in steps of some bytes.
TEST(WriteXmlNames, OfAnySizeAreWrittenWhole) {
    for (std::size_t size = 1; size <= 70; ++size) {
        CheckLongName(std::string(size, 'n'));
    }
}

/// Small texts leave the least of the room that is made for them.
TEST(WriteXmlNames, OfEncodedElementsOfAnySizeAreWrittenWhole) {
    for (std::size_t size = 1; size <= 300; ++size) {
        const std::string name(size, 'n');
        for (const std::string text : {"Zg==", "Zm8=", "Zm9v", "Zm9vYg=="}) {
            const Tree parent = NewNode("parent");
            parent->AddChildEncoded(name, text);
            std::string expected = "<" + name;
            expected.append(" encoding=\"base64\">").append(text).append("</").append(name) += '>';
            EXPECT_EQ(ZQXML::WriteXml(parent->FindChild(name)), expected);
        }
    }
}

/// Writes each character as the first and as the second of a name, and has expat say whether it
/// can stand there.
void CompareNameCharacters(char32_t first, char32_t last, char32_t step) {
    for (char32_t code = first; code <= last; code += step) {
        if (IsSurrogate(code)) {
            continue;
        }
        for (const std::string prefix : {"", "a"}) {
            const std::string name = prefix + Utf8(code);
            const ExpatVerdict verdict = ExpatOracle::Judge('<' + name + "/>");
            const bool canStand = verdict.isWellFormed && verdict.rootName == name;
            ASSERT_EQ(WrittenName(name), canStand ? name : prefix + '_') << std::hex << code;
        }
    }
}

/// Names that no arena holds: there is room for them all the same.
TEST(WriteXmlNames, OfAnotherImplementationAreWrittenWhole) {
    for (const std::size_t size : {1U, 20U, 500U, 5000U, 100000U}) {
        const std::string name(size, 'n');
        const zq::auto_com<FakeNode> root = FakeNode::Create(name, "text");
        root->AddChild(name, "");
        std::string expected = "<" + name;
        expected.append(">text<").append(name).append("/></").append(name).append(">");
        EXPECT_EQ(ZQXML::WriteXml(root.get()), expected);
    }
}

TEST(WriteXmlNames, HoldTheCharactersThatExpatKnows) {
    CompareNameCharacters(1, 0xFFFF, 1);
    for (char32_t plane = 0x10000; plane <= kLastCode; plane += 0x10000) {
        CompareNameCharacters(plane, plane + 0xFFFF, 97);
        CompareNameCharacters(plane + 0xFF00, plane + 0xFFFF, 1);
    }
}

TEST(WriteXml, IsWellFormedForAnyBytes) {
    Random random(7);
    for (int round = 0; round < 2000; ++round) {
        const Tree node = NewNode(random.Bytes(random.Below(8)), random.Bytes(random.Below(30)));
        node->AddChild(random.Bytes(random.Below(8)), random.Bytes(random.Below(30)));
        node->AddChildEncoded(random.Bytes(random.Below(8)), random.Bytes(random.Below(30)));
        for (const bool indent : {false, true}) {
            const std::string text = ZQXML::WriteXml(node.get(), indent);
            ASSERT_TRUE(ExpatOracle::Judge(text).isWellFormed) << Quoted(text);
        }
    }
}

// --- Nodes of other makers ---------------------------------------------------------------------

constexpr char kOriginal[] = "<A>1<B><C>2</C><C/></B><B>3</B><D><E><F>4</F></E></D></A>";

/// A copy of the original in nodes whose values anybody may ask for.
std::unique_ptr<StrictTree> StrictCopy(StrictTree::Lists lists) {
    auto tree = std::make_unique<StrictTree>(lists, ZQXML::ParseXml(kOriginal).get());
    for (const char* const path : {"*", "*/*", "*/*/*", "*/*/*/*"}) {
        tree->Allow(path, "GetValue");
    }
    return tree;
}

constexpr StrictTree::Lists kAllLists[] = {StrictTree::Lists::kSame, StrictTree::Lists::kNew,
                                           StrictTree::Lists::kReused};

/// Every list was asked for and walked once.
constexpr char kOneWalkEach[] = "A 1\nA/B 1\nA/B/C 1\nA/B/C 1\nA/B 1\nA/D 1\nA/D/E 1\nA/D/E/F 1\n";

TEST(WriteXml, WalksEachListOfAnotherMakerOnce) {
    for (const auto lists : kAllLists) {
        const auto tree = StrictCopy(lists);
        EXPECT_EQ(ZQXML::WriteXml(tree->Root()), kOriginal);
        EXPECT_EQ(tree->Violations(), "");
        EXPECT_EQ(tree->Walks(), kOneWalkEach);
    }
}

TEST(AppendChild, CopiesNodesOfAnotherMakerInOneWalk) {
    for (const auto lists : kAllLists) {
        const auto tree = StrictCopy(lists);
        const auto parent = NewNode("P");
        parent->AppendChild(tree->Root());
        EXPECT_EQ(ZQXML::WriteXml(parent.get()), std::string("<P>") + kOriginal + "</P>");
        EXPECT_EQ(tree->Violations(), "");
        EXPECT_EQ(tree->Walks(), kOneWalkEach);
    }
}

}  // namespace
