#include <gtest/gtest.h>

#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "platform/XmlText.h"
#include "tests/platform/ExpatOracle.h"
#include "tests/support/FakeNode.h"
#include "tests/support/Random.h"
#include "tests/support/TreeText.h"
#include "tests/support/Utf8Text.h"

// What is written is read back as it was, and whatever is damaged is refused or read as expat does.

namespace {

using Tree = zq::auto_com<ZQXML::INode>;

// What tries everything tries each fourth with a sanitizer, which takes as long.
constexpr int kEach = QUAVERA_TEST_SANITIZED != 0 ? 4 : 1;

Tree NewNode(const std::string& name, const std::string& text = {}) {
    Tree node = ZQXML::CreateXmlNode();
    node->Initialize(name, text);
    return node;
}

/// The text of an element after writing and reading.
std::string Returned(const std::string& text, bool indent = false) {
    const Tree tree = ZQXML::ParseXml(ZQXML::WriteXml(NewNode("n", text).get(), indent));
    return tree ? tree->GetValue() : "refused";
}

const std::vector<std::string>& DelicateTexts() {
    static const std::vector<std::string> texts = {
        "\r\n",
        "\r",
        "\n",
        "\r\r\n\n",
        "a\r\nb\r\n",
        " ",
        "   ",
        "\t",
        " a",
        "a ",
        " a ",
        "\n a \n",
        "\r\na\r\n",
        "]]>",
        "a]]>b",
        "]]",
        "]>",
        "<![CDATA[",
        "<!-- -->",
        "&amp;",
        "&#13;",
        "&",
        "<a/>",
        "</n>",
        "\"'",
        "\x7F",
        "\xC2\x85",
        "\xE2\x80\xA8",
        "\xEF\xBB\xBF",
        "\xEF\xBF\xBD",
        "\xC2\xA0",
        "true",
        "\xF4\x8F\xBF\xBF",
    };
    return texts;
}

TEST(RoundTrip, KeepsDelicateTexts) {
    for (const std::string& text : DelicateTexts()) {
        for (const bool indent : {false, true}) {
            EXPECT_EQ(Returned(text, indent), text) << Quoted(text);
        }
    }
}

TEST(RoundTrip, KeepsTextsAheadOfChildren) {
    for (const std::string& text : DelicateTexts()) {
        for (const bool indent : {false, true}) {
            const Tree node = NewNode("n", text);
            node->AddChild("c", text);
            node->AddChild("d", "");
            const Tree read = ZQXML::ParseXml(ZQXML::WriteXml(node.get(), indent));
            const bool isBlank = text.find_first_not_of(" \t\r\n") == std::string::npos;
            EXPECT_EQ(TreeText(read.get()), "\"n\"=" + Quoted(isBlank ? "" : text) +
                                                "(\"c\"=" + Quoted(text) + " \"d\"=\"\")");
        }
    }
}

TEST(RoundTrip, KeepsEveryCharacterThatXmlAllows) {
    std::string all;
    for (char32_t code = 1; code <= 0x10FFFF; ++code) {
        if (IsXmlChar(code)) {
            all += Utf8(code);
        }
    }
    EXPECT_TRUE(Returned(all) == all);
}

/// One document with one element for each character that stands at both ends of its text.
TEST(RoundTrip, KeepsEveryCharacterAtBothEnds) {
    constexpr char32_t kStep = 0x8000;
    for (char32_t first = 0; first <= 0x10FFFF; first += kStep) {
        const Tree node = NewNode("n");
        for (char32_t code = first; code < first + kStep; code += kEach) {
            if (IsXmlChar(code)) {
                node->AddChild("c", Utf8(code) + "x" + Utf8(code));
            }
        }
        const Tree read = ZQXML::ParseXml(ZQXML::WriteXml(node.get(), true));
        ASSERT_TRUE(read);
        ZQXML::INodeList* const originals = node->GetChildren();
        ZQXML::INodeList* const copies = read->GetChildren();
        ZQXML::INode* copy = copies->First();
        for (ZQXML::INode* original = originals->First(); original != nullptr;
             original = originals->Next(), copy = copies->Next()) {
            ASSERT_NE(copy, nullptr) << std::hex << first;
            ASSERT_EQ(copy->GetValue(), original->GetValue()) << std::hex << first;
        }
        EXPECT_EQ(copy, nullptr);
    }
}

const std::vector<std::string>& Names() {
    static const std::vector<std::string> names = {
        "a", "b", "Track", "x:y", ":", "_", "a.b-c_d1", "\xC3\xA9", "\xE4\xB8\x80", "A\xC2\xB7",
    };
    return names;
}

std::string AnyText(Random& random) {
    std::string text;
    for (std::size_t pieces = random.Below(5); pieces > 0; --pieces) {
        text += random.OneIn(3) ? random.Pick(DelicateTexts())
                                : Utf8(static_cast<char32_t>(0x20 + random.Below(0xD7E0)));
    }
    return text;
}

/// Fills `node` with random children; `depth` is what is left.
void Grow(Random& random, ZQXML::INode* node, int depth) {
    for (std::size_t count = random.Below(4); count > 0; --count) {
        const std::string& name = random.Pick(Names());
        switch (random.Below(depth > 0 ? 5 : 3)) {
            case 0:
                node->AddChildEncoded(name, AnyText(random));
                break;
            case 1:
            case 2:
                node->AddChild(name, AnyText(random));
                break;
            default: {
                const Tree child = random.OneIn(2) ? node->CreateNode("") : ZQXML::CreateXmlNode();
                child->Initialize(name, random.OneIn(3) ? AnyText(random) : "");
                Grow(random, child.get(), depth - 1);
                node->AppendChild(child.get());
            }
        }
    }
}

/// `TreeText` of what reading leaves: blank texts ahead of children go.
std::string ReadableTreeText(ZQXML::INode* node) {
    const std::string text = node->GetValue();
    const bool isLost = node->GetChildrenIfAny() != nullptr &&
                        text.find_first_not_of(" \t\n\r") == std::string::npos;
    std::string result = Quoted(node->GetName()) + '=' + Quoted(isLost ? "" : text);
    result += node->IsEncoded() ? "*" : "";
    ZQXML::INodeList* const children = node->GetChildren();
    std::string separator = "(";
    for (ZQXML::INode* child = children->First(); child != nullptr; child = children->Next()) {
        result += separator + ReadableTreeText(child);
        separator = " ";
    }
    return separator == " " ? result + ')' : result;
}

TEST(RoundTrip, KeepsRandomTrees) {
    Random random(8);
    for (int round = 0; round < 1500; ++round) {
        const Tree root = NewNode(random.Pick(Names()), AnyText(random));
        Grow(random, root.get(), 5);
        const std::string expected = ReadableTreeText(root.get());
        for (const bool indent : {false, true}) {
            const std::string text = ZQXML::WriteXml(root.get(), indent);
            std::string error;
            const Tree read = ZQXML::ParseXml(text, &error);
            ASSERT_TRUE(read) << error << '\n' << text;
            ASSERT_EQ(TreeText(read.get()), expected) << text;
        }
    }
}

/// Texts with a comment are not read in the same way as those that `WriteXml` writes.
TEST(ParseXml, ReadsTheSameWithACommentBehind) {
    Random random(11);
    for (int round = 0; round < 500; ++round) {
        const Tree root = NewNode(random.Pick(Names()), AnyText(random));
        Grow(random, root.get(), 4);
        const std::string text = ZQXML::WriteXml(root.get(), random.OneIn(2));
        const Tree plain = ZQXML::ParseXml(text);
        const Tree commented = ZQXML::ParseXml(text + "<!-- -->");
        ASSERT_TRUE(plain && commented) << text;
        ASSERT_EQ(TreeText(plain.get()), TreeText(commented.get())) << text;
    }
}

TEST(RoundTrip, KeepsTreesOfAnotherImplementation) {
    const zq::auto_com<FakeNode> root = FakeNode::Create("root", " \r\n&");
    const zq::auto_com<FakeNode> child = FakeNode::Create("child");
    child->AddChild("number", -5);
    child->AddChild("flag", true);
    root->AppendChild(child.get());
    root->AddChild("last", "]]>");
    for (const bool indent : {false, true}) {
        const Tree read = ZQXML::ParseXml(ZQXML::WriteXml(root.get(), indent));
        EXPECT_EQ(TreeText(read.get()), TreeText(root.get()));
    }
}

/// The tree with a number at each of three places.
std::string NumbersTreeText(int number) {
    const std::string text = Quoted(std::to_string(number));
    return R"("n"=""("a"=)" + text + R"( "b"=)" + text + R"(("c"=)" + text + "))";
}

TEST(RoundTrip, KeepsNumbers) {
    for (const int number : {0, 1, -1, 9, 10, -10, 2147483647, -2147483647 - 1}) {
        const Tree node = NewNode("n");
        node->AddNumber("a", number);
        node->AddChild("b", number);
        node->FindChild("b")->AddNumber("c", number);
        for (const bool indent : {false, true}) {
            const Tree read = ZQXML::ParseXml(ZQXML::WriteXml(node.get(), indent));
            ASSERT_TRUE(read) << number;
            EXPECT_EQ(TreeText(read.get()), NumbersTreeText(number));
            EXPECT_EQ(read->FindChild("a")->GetValueInt(), number);
        }
    }
}

TEST(RoundTrip, SecondOneChangesNothing) {
    Random random(9);
    for (int round = 0; round < 300; ++round) {
        const Tree root = NewNode(random.Bytes(5), random.Bytes(20));
        root->AddChild(random.Bytes(5), random.Bytes(20));
        const Tree once = ZQXML::ParseXml(ZQXML::WriteXml(root.get()));
        ASSERT_TRUE(once);
        const Tree twice = ZQXML::ParseXml(ZQXML::WriteXml(once.get()));
        ASSERT_TRUE(twice);
        ASSERT_EQ(TreeText(twice.get()), TreeText(once.get()));
    }
}

constexpr char kMark[] = " encoding=\"base64\"";

constexpr std::string_view kDocuments[] = {
    "<?xml version='1.0' encoding='UTF-8'?>\n<A><Id>7</Id><T encoding=\"base64\">Zm9v</T><B/></A>",
    "<a>x &amp; y &#13;\r\n<b c='1' d=\"2\">\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80</b> z</a>",
    "\xEF\xBB\xBF<!-- c --><a><![CDATA[<x>]]><?p i?><b/><b/></a><!-- d -->",
    "<!DOCTYPE a [<!ENTITY e 'v'>]><a>&e;<b/></a>",
    "<A><Id>7</Id><T encoding=\"base64\">Zm9v</T><B/><L>\n  <V>1</V>\n  <V>2</V></L></A>\n",
    "<a>&amp;&lt;b<c.d-e_1>\xC3\xA9\xE2\x82\xAC</c.d-e_1>&gt;<b>&#13;\xF0\x9F\x98\x80 </b></a>",
    "<a:b xmlns:a='u'>\n  <a:c> </a:c>\n  <a:c>&lt;&#x20AC;</a:c>\n</a:b>",
    // Names that begin like the ones that are expected, or differ from them at their end.
    "<L><Artist>a</Artist><ArtistId>1</ArtistId><Artist>b</Artist><ArtistId>2</ArtistId></L>",
    "<L><ArtistId>1</ArtistId><Artist><Id>2</Id></Artist><ArtistId/><Artist/><ArtistIds/></L>",
    "<L><Ab>1</Ab><Ac>2</Ac><Ab>3</Ab><Ac>4</Ac><TrackName1>5</TrackName1><TrackName2/></L>",
    // Encoded leaves of each length of their last group.
    R"(<A><T encoding="base64">Zm9vYg==</T><T encoding="base64">Zm9vYmE=</T><N>-7</N></A>)",
    R"(<A encoding="base64">Zm9v<T encoding="base64"/><T encoding="base64">Zm9vYmFy</T></A>)",
    R"(<A encoding="base64">Zm9vYg==</A>)",
    // Numbers, on several levels.
    "<a><b><c><d>2147483647</d><d>-2147483648</d></c><c/></b><b><c><d>0</d></c></b></a>",
};

/// Flips, inserts, removes, repeats: bytes that mean something to XML more often than others.
std::string Mutated(Random& random, std::string text) {
    static const std::string markup = "<>&;/='\"!?-[]# \n\r:xa10\xC3\xA9\xEF\xFF";
    for (std::size_t count = 1 + random.Below(3); count > 0 && !text.empty(); --count) {
        const std::size_t at = random.Below(text.size());
        const char byte = random.OneIn(3) ? random.Byte() : markup[random.Below(markup.size())];
        switch (random.Below(5)) {
            case 0:
                text[at] = byte;
                break;
            case 1:
                text[at] = static_cast<char>(text[at] ^ (1 << random.Below(7)));
                break;
            case 2:
                text.insert(at, 1, byte);
                break;
            case 3:
                text.erase(at, 1 + random.Below(3));
                break;
            default:
                text.insert(at, text.substr(random.Below(text.size()), 1 + random.Below(8)));
        }
    }
    return text;
}

bool IsUtf8Name(std::string name) {
    for (char& character : name) {
        character =
            character >= 'A' && character <= 'Z' ? static_cast<char>(character + 32) : character;
    }
    return name.empty() || name == "utf-8";
}

/// Counts what is accepted and refused, each as it should be.
struct Verdicts {
    int accepted = 0;
    int refused = 0;

    void Check(const std::string& text) {
        // In a block of just its size, so that a sanitizer sees a look behind its end.
        const std::vector<char> block(text.begin(), text.end());
        std::string error;
        const Tree tree = ZQXML::ParseXml({block.data(), block.size()}, &error);
        const ExpatVerdict verdict = ExpatOracle::Judge(text);
        if (!tree) {
            ++refused;
            ASSERT_EQ(error.substr(0, 5), "line ") << Quoted(text);
            // Refused although well-formed: only for what is documented.
            ASSERT_TRUE(!verdict.isWellFormed || verdict.hasDoctype ||
                        !IsUtf8Name(verdict.encoding) || error.find("version") != std::string::npos)
                << error << ' ' << Quoted(text);
            return;
        }
        ++accepted;
        ASSERT_TRUE(verdict.isWellFormed && !verdict.hasDoctype && IsUtf8Name(verdict.encoding))
            << Quoted(text);
        ASSERT_EQ(TreeText(tree.get()), verdict.tree) << Quoted(text);
        // What is kept in another form than the text has must not come out as another text.
        const Tree again = ZQXML::ParseXml(ZQXML::WriteXml(tree.get()));
        ASSERT_EQ(TreeText(again.get()), verdict.tree) << Quoted(text);
    }
};

TEST(ParseXml, AcceptsOfDamagedTextsWhatExpatAccepts) {
    Random random(10);
    Verdicts verdicts;
    for (int round = 0; round < 80000 / kEach && !testing::Test::HasFatalFailure(); ++round) {
        verdicts.Check(
            Mutated(random, std::string(kDocuments[random.Below(std::size(kDocuments))])));
    }
    EXPECT_GT(verdicts.accepted, 1000);
    EXPECT_GT(verdicts.refused, 1000);
}

TEST(ParseXml, AcceptsOfTextsThatAreCutWhatExpatAccepts) {
    Verdicts verdicts;
    for (const std::string_view document : kDocuments) {
        for (std::size_t size = 0; size < document.size(); ++size) {
            verdicts.Check(std::string(document.substr(0, size)));
            if (testing::Test::HasFatalFailure()) {
                return;
            }
        }
    }
    EXPECT_GT(verdicts.refused, 700);
}

/// Also where a damage at random hardly ever comes: the last byte of each name and tag.
TEST(ParseXml, AcceptsOfTextsWithAnotherByteWhatExpatAccepts) {
    constexpr std::string_view kBytes = "<>&;/=\"' \n\r1Aabcz_\x01\x80\xC3";
    Verdicts verdicts;
    for (const std::string_view document : kDocuments) {
        for (std::size_t at = 0; at < document.size(); ++at) {
            for (const char byte : kBytes) {
                std::string text(document);
                text[at] = byte;
                verdicts.Check(text);
                text.erase(at, 1);
                verdicts.Check(text);
                text.insert(at, std::string{document[at], byte});
                verdicts.Check(text);
                if (testing::Test::HasFatalFailure()) {
                    return;
                }
            }
        }
    }
    EXPECT_GT(verdicts.accepted, 1000);
    EXPECT_GT(verdicts.refused, 1000);
}

/// An element of the name `found` where `expected` is expected, in each form.
void CheckNames(Verdicts* verdicts, const std::string& expected, const std::string& found,
                const std::string& closed) {
    const std::string start = "<R><B/><" + expected + ">1</" + expected + "><B/><" + found;
    const std::string end = "</" + closed + "></R>";
    verdicts->Check(start + ">1" + end);
    verdicts->Check(start + "><C/>" + end);
    verdicts->Check(start + kMark + ">Zg==" + end);
    verdicts->Check(start + "/></R>");
    verdicts->Check(start + "\xC3\xA9/></R>");
    verdicts->Check(start);
}

TEST(ParseXml, TakesTheNameThatIsExpectedOnlyWhereItEnds) {
    const std::vector<std::string> names = {"A", "Ab", "Abc", "Abcdefgh", "Abcdefghi", "Abcdefgj"};
    Verdicts verdicts;
    for (const std::string& expected : names) {
        for (const std::string& found : names) {
            for (const std::string& closed : names) {
                CheckNames(&verdicts, expected, found, closed);
            }
        }
    }
    const int pairs = static_cast<int>(names.size() * names.size());
    const int triples = pairs * static_cast<int>(names.size());
    // Three forms where the end tag fits, two that have none.
    EXPECT_EQ(verdicts.accepted, 3 * pairs + 2 * triples);
}

// --- Elements with the mark ----------------------------------------------------------------------

struct Encoded {
    std::string bytes;
    std::string text;
};

/// Bytes with the texts that a writer makes of them: RFC 4648's, up to three groups, and the ends
/// of the alphabet.
const std::vector<Encoded>& EncodedTexts() {
    static const std::vector<Encoded> texts = {
        {"", ""},
        {"f", "Zg=="},
        {"fo", "Zm8="},
        {"foo", "Zm9v"},
        {"foob", "Zm9vYg=="},
        {"fooba", "Zm9vYmE="},
        {"foobar", "Zm9vYmFy"},
        {"foobarf", "Zm9vYmFyZg=="},
        {"foobarfo", "Zm9vYmFyZm8="},
        {"foobarfoo", "Zm9vYmFyZm9v"},
        {std::string(1, '\0'), "AA=="},
        {std::string(2, '\0'), "AAA="},
        {std::string(3, '\0'), "AAAA"},
        {"\xFF", "/w=="},
        {"\xFF\xFF", "//8="},
        {"\xFF\xFF\xFF", "////"},
        {"\xFB\xEF\xBE", "++++"},
    };
    return texts;
}

std::string MarkedElement(const std::string& content) {
    return std::string("<T") + kMark + (content.empty() ? "/>" : ">" + content + "</T>");
}

/// Among other elements.
std::string InDocument(const std::string& element) {
    return "<R>" + element + "<N>1</N>" + element + "</R>";
}

void CheckBytes(ZQXML::INode* node, const Encoded& encoded) {
    ASSERT_NE(node, nullptr);
    EXPECT_TRUE(node->IsEncoded());
    EXPECT_EQ(node->GetValue(), encoded.text);
    EXPECT_EQ(node->GetValueDecoded(), encoded.bytes);
    if (!encoded.text.empty()) {
        EXPECT_EQ(node->View().form, ZQXML::TextForm::kBytes) << encoded.text;
        EXPECT_EQ(node->View().Text(), encoded.bytes) << encoded.text;
    }
}

TEST(MarkedElements, OfWrittenFormAreReadAsTheBytes) {
    for (const Encoded& encoded : EncodedTexts()) {
        const std::string element = MarkedElement(encoded.text);
        const Tree root = ZQXML::ParseXml(element);
        CheckBytes(root.get(), encoded);
        EXPECT_EQ(ZQXML::WriteXml(root.get()), element);

        const std::string document = InDocument(element);
        const Tree tree = ZQXML::ParseXml(document);
        ASSERT_TRUE(tree) << document;
        CheckBytes(tree->FindChild("T"), encoded);
        EXPECT_EQ(ZQXML::WriteXml(tree.get()), document);
        EXPECT_EQ(ZQXML::WriteXml(tree->FindChild("T")), element);
    }
}

TEST(MarkedElements, MayBeWrittenWithAnEndTagThoughEmpty) {
    const Tree tree = ZQXML::ParseXml(std::string("<R><T") + kMark + "></T></R>");
    ASSERT_TRUE(tree);
    CheckBytes(tree->FindChild("T"), {"", ""});
    EXPECT_EQ(ZQXML::WriteXml(tree.get()), std::string("<R><T") + kMark + "/></R>");
}

/// As an element's text, there alone and among others, and as one ahead of a child.
void CheckMarked(Verdicts* verdicts, const std::string& content) {
    const std::string element = std::string("<T") + kMark + ">" + content + "</T>";
    verdicts->Check(element);
    verdicts->Check(InDocument(element));
    verdicts->Check(std::string("<R") + kMark + ">" + content + element + "</R>");
}

TEST(MarkedElements, HoldAnyByteAtAnyPlaceAsExpatReadsIt) {
    Verdicts verdicts;
    for (const Encoded& encoded : EncodedTexts()) {
        for (std::size_t at = 0; at <= encoded.text.size(); ++at) {
            for (int byte = static_cast<int>(at % kEach); byte < 256; byte += kEach) {
                std::string text = encoded.text;
                text.insert(at, 1, static_cast<char>(byte));
                CheckMarked(&verdicts, text);
                if (at < encoded.text.size()) {
                    text.erase(at + 1, 1);
                    CheckMarked(&verdicts, text);
                }
                if (testing::Test::HasFatalFailure()) {
                    return;
                }
            }
        }
    }
    EXPECT_GT(verdicts.accepted, 1000);
    EXPECT_GT(verdicts.refused, 1000);
}

TEST(MarkedElements, HoldAnyPieceAtAnyPlaceAsExpatReadsIt) {
    const std::vector<std::string> pieces = {
        "&#90;",        "&#61;",       "&amp;",
        "&gt;",         "&#13;",       "&",
        "]]>",          "<!-- -->",    "<![CDATA[Zg]]>",
        "<b/>",         "<b>Zg==</b>", std::string("<b") + kMark + ">Zg==</b>",
        "</b>",         "==",          "====",
        "\r\n",         "\n  ",        "\xC3\xA9",
        "\xEF\xBF\xBE", "Zg==",        "Zm9v"};
    Verdicts verdicts;
    for (const Encoded& encoded : EncodedTexts()) {
        for (const std::string& piece : pieces) {
            for (std::size_t at = 0; at <= encoded.text.size(); ++at) {
                CheckMarked(&verdicts, std::string(encoded.text).insert(at, piece));
            }
            if (testing::Test::HasFatalFailure()) {
                return;
            }
        }
    }
    EXPECT_GT(verdicts.accepted, 1000);
    EXPECT_GT(verdicts.refused, 1000);
}

TEST(MarkedElements, KeepTextsOfAnyOtherFormAsTheyStand) {
    for (const std::string text :
         {"Zh==", "Zm9=", "Zm/=", "Zg=", "Zg", "Z", "====", "=", "Zg==Zg==", "Zm9vZ", " Zm9v",
          "Zm9v ", "Zm\n9v", "Zm9v====", "Zm9-", "Zm9_", "Z===", "Zm=v", "\xC3\xA9"}) {
        const std::string document = "<R>" + MarkedElement(text) + "</R>";
        const Tree tree = ZQXML::ParseXml(document);
        ASSERT_TRUE(tree) << document;
        ZQXML::INode* const child = tree->FindChild("T");
        EXPECT_TRUE(child->IsEncoded());
        EXPECT_EQ(child->GetValue(), text);
        EXPECT_EQ(child->View().form, ZQXML::TextForm::kBase64) << text;
        EXPECT_EQ(child->View().Text(), text);
        EXPECT_EQ(ZQXML::WriteXml(tree.get()), document);
    }
}

/// What is read after it comes to lie beside it: long texts have memory of their own.
TEST(MarkedElements, KeepLongTextsOfAnyOtherFormAsTheyStand) {
    for (const std::size_t size : {100U, 4000U, 5000U, 20000U}) {
        std::string text(size, 'Z');
        text.insert(size / 2, " ");
        const std::string others = "<A>first</A><B>second</B>" + MarkedElement("Zm9v");
        const std::string document = "<R>" + MarkedElement(text) + others + "</R>";
        const Tree tree = ZQXML::ParseXml(document);
        ASSERT_TRUE(tree) << size;
        EXPECT_EQ(tree->FindChild("T")->GetValue(), text);
        EXPECT_EQ(ZQXML::WriteXml(tree.get()), document);
    }
}

// --- Single bytes in a plain text ----------------------------------------------------------------

/// Plain characters are read many at a time: any byte has to show at any place among them.
TEST(ParseXml, FindsAnyByteAtAnyPlaceOfAText) {
    const std::string plain = "a plain text, of two steps";
    Verdicts verdicts;
    for (int byte = 0; byte < 256 && !testing::Test::HasFatalFailure(); ++byte) {
        for (std::size_t at = 0; at <= plain.size(); ++at) {
            std::string text = plain;
            text.insert(at, 1, static_cast<char>(byte));
            verdicts.Check("<a>" + text + "</a>");
        }
    }
    // ASCII without the controls but three, the ampersand, and the bracket that opens.
    EXPECT_EQ(verdicts.accepted, static_cast<int>((0x60 + 3 - 2) * (plain.size() + 1)));
}

TEST(RoundTrip, KeepsAnyCharacterAtAnyPlaceOfAText) {
    const std::string plain = "a plain text, of two steps";
    const Tree node = NewNode("a");
    for (const char32_t code :
         {9U, 10U, 13U, 32U, 38U, 60U, 61U, 62U, 127U, 128U, 0x20ACU, 0x1F600U}) {
        for (std::size_t at = 0; at <= plain.size(); ++at) {
            node->Initialize("a", std::string(plain).insert(at, Utf8(code)));
            const Tree read = ZQXML::ParseXml(ZQXML::WriteXml(node.get()));
            ASSERT_TRUE(read) << code << ' ' << at;
            ASSERT_EQ(read->GetValue(), node->GetValue()) << code << ' ' << at;
        }
    }
}

}  // namespace
