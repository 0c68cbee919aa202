#include <gtest/gtest.h>
#include <sys/mman.h>

#include <cstddef>
#include <cstdio>
#include <cstring>
#include <ostream>
#include <string>
#include <string_view>

#include "platform/XmlText.h"
#include "tests/platform/ExpatOracle.h"
#include "tests/support/TreeText.h"

namespace {

using Tree = zq::auto_com<ZQXML::INode>;

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// The tree as text, or the error where there is none.
std::string Parsed(std::string_view text) {
    std::string error;
    const Tree tree = ZQXML::ParseXml(text, &error);
    return tree ? TreeText(tree.get()) : error;
}

/// The error of a text that must not be accepted.
std::string Error(std::string_view text) {
    std::string error;
    EXPECT_FALSE(ZQXML::ParseXml(text, &error)) << Quoted(std::string(text.substr(0, 100)));
    return error;
}

std::string Place(unsigned long line, unsigned long column) {
    return "line " + std::to_string(line) + ", column " + std::to_string(column) + ": ";
}

/// Whether an error names this place and gives a reason with `part` in it.
testing::AssertionResult IsError(const std::string& error, const std::string& place,
                                 const std::string& part = {}) {
    const bool isAsExpected = error.substr(0, place.size()) == place &&
                              error.size() > place.size() &&
                              error.find(part, place.size()) != std::string::npos;
    return (isAsExpected ? testing::AssertionSuccess() : testing::AssertionFailure())
           << '"' << error << "\" for " << place << part;
}

std::string Repeated(std::string_view text, std::size_t count) {
    std::string result;
    result.reserve(text.size() * count);
    while (count-- > 0) {
        result += text;
    }
    return result;
}

struct Document {
    const char* text;
    const char* tree;
};

void PrintTo(const Document& document, std::ostream* out) {
    *out << Quoted(document.text);
}

constexpr Document kElements[] = {
    {"<a/>", R"("a"="")"},
    {"<a></a>", R"("a"="")"},
    {"<a />", R"("a"="")"},
    {"<a\n></a\t>", R"("a"="")"},
    {"  \n<a/>\n  ", R"("a"="")"},
    {"<a>text</a>", R"("a"="text")"},
    {"<a><b/><c>1</c><b>2</b></a>", R"("a"=""("b"="" "c"="1" "b"="2"))"},
    {"<a><b><c><d>1</d></c></b></a>", R"("a"=""("b"=""("c"=""("d"="1"))))"},
    {"<a:b xmlns:a='u'><a:c/></a:b>", R"("a:b"=""("a:c"=""))"},
    {"<\xC3\xA9>x</\xC3\xA9>", R"("\xC3\xA9"="x")"},
};

constexpr Document kTexts[] = {
    {"<a>&amp;&lt;&gt;&quot;&apos;</a>", R"("a"="&<>\x22'")"},
    {"<a>&#65;&#x42;&#x20AC;&#128512;</a>", R"("a"="AB\xE2\x82\xAC\xF0\x9F\x98\x80")"},
    {"<a>&#13;&#10;&#9;&#32;</a>", R"("a"="\x0D\x0A\x09 ")"},
    {"<a>x\r\ny\rz\n</a>", R"("a"="x\x0Ay\x0Az\x0A")"},
    {"<a>></a>", R"("a"=">")"},
    {"<a>]]</a>", R"("a"="]]")"},
    {"<a> x </a>", R"("a"=" x ")"},
    {"<a>\xC3\xA9\xF0\x9F\x98\x80</a>", R"("a"="\xC3\xA9\xF0\x9F\x98\x80")"},
    {"<a>\xEF\xBB\xBF</a>", R"("a"="\xEF\xBB\xBF")"},
    // A text of blanks alone is a text, as long as there is no child.
    {"<a> \n\t</a>", R"("a"=" \x0A\x09")"},
    {"<a>&#32;</a>", R"("a"=" ")"},
    {"<a> <b/></a>", R"("a"=""("b"=""))"},
    {"<a>\n  <b> </b>\n</a>", R"("a"=""("b"=" "))"},
    {"<a>&#13;<b/></a>", R"("a"=""("b"=""))"},
    {"<a> x <b/></a>", R"("a"=" x "("b"=""))"},
    {"<a>\xC2\xA0<b/></a>", R"("a"="\xC2\xA0"("b"=""))"},
    // Behind a child there is no text.
    {"<a>x<b/>y</a>", R"("a"="x"("b"=""))"},
    {"<a><b/>y<c>z</c>w</a>", R"("a"=""("b"="" "c"="z"))"},
    {"<a><b>x</b><![CDATA[y]]></a>", R"("a"=""("b"="x"))"},
    {"<a><b><c/>x</b>y</a>", R"("a"=""("b"=""("c"="")))"},
    // CDATA, comments and processing instructions leave one text.
    {"<a><![CDATA[x<&]]]></a>", R"("a"="x<&]")"},
    {"<a>x<![CDATA[y]]>z</a>", R"("a"="xyz")"},
    {"<a><![CDATA[]]></a>", R"("a"="")"},
    {"<a><![CDATA[ ]]><b/></a>", R"("a"=""("b"=""))"},
    {"<a><![CDATA[]]]]><![CDATA[>]]></a>", R"("a"="]]>")"},
    {"<a>x<!-- c -->y<?p i?>z</a>", R"("a"="xyz")"},
    {"<a>x<!-- c --><b/><!-- d -->y</a>", R"("a"="x"("b"=""))"},
    {"<a><!-- c --></a>", R"("a"="")"},
    {"<!-- c --><?p i?><a/><!-- d --><?q?>", R"("a"="")"},
};

constexpr Document kMarks[] = {
    {"<a encoding=\"base64\">Zm9v</a>", R"("a"="Zm9v"*)"},
    {"<a encoding='base64'/>", R"("a"=""*)"},
    {"<a x='1' encoding='base64' y='2'/>", R"("a"=""*)"},
    {"<a encoding='base64'><b>1</b></a>", R"("a"=""*("b"="1"))"},
    {"<a><b encoding='base64'>Zm9v</b><b>Zm9v</b></a>", R"("a"=""("b"="Zm9v"* "b"="Zm9v"))"},
    {"<a encoding='b&#97;se64'/>", R"("a"=""*)"},
    {"<a encoding='BASE64'/>", R"("a"="")"},
    {"<a encoding=' base64'/>", R"("a"="")"},
    {"<a encoding=''/>", R"("a"="")"},
    {"<a Encoding='base64'/>", R"("a"="")"},
    {"<a x:encoding='base64'/>", R"("a"="")"},
    {"<a code='base64' xml:space='preserve' id='1'/>", R"("a"="")"},
};

constexpr Document kDeclarations[] = {
    {"<?xml version=\"1.0\"?><a/>", R"("a"="")"},
    {"<?xml version='1.0' encoding='UTF-8'?>\n<a/>\n", R"("a"="")"},
    {"<?xml version='1.0' encoding='utf-8' standalone='yes'?><a/>", R"("a"="")"},
    {"<?xml version='1.0' encoding='Utf-8' standalone='no'?><a/>", R"("a"="")"},
    {"<?xml version='1.0' standalone='yes'?><a/>", R"("a"="")"},
    // XML 1.0 reads the documents of its later versions as its own (production 26).
    {"<?xml version='1.1'?><a/>", R"("a"="")"},
};

class Accepted : public testing::TestWithParam<Document> {};

TEST_P(Accepted, YieldsTheTree) {
    EXPECT_EQ(Parsed(GetParam().text), GetParam().tree) << GetParam().text;
}

TEST_P(Accepted, IgnoresAByteOrderMark) {
    EXPECT_EQ(Parsed(std::string(kByteOrderMark) + GetParam().text), GetParam().tree);
}

/// The list's expectations, seen from the other side.
TEST_P(Accepted, IsWhatExpatReads) {
    const ExpatVerdict verdict = ExpatOracle::Judge(GetParam().text);
    EXPECT_TRUE(verdict.isWellFormed);
    EXPECT_EQ(verdict.tree, GetParam().tree);
}

INSTANTIATE_TEST_SUITE_P(Elements, Accepted, testing::ValuesIn(kElements));
INSTANTIATE_TEST_SUITE_P(Texts, Accepted, testing::ValuesIn(kTexts));
INSTANTIATE_TEST_SUITE_P(Marks, Accepted, testing::ValuesIn(kMarks));
INSTANTIATE_TEST_SUITE_P(Declarations, Accepted, testing::ValuesIn(kDeclarations));

/// A text that is not well-formed, and the place of the first character that cannot stand where it
/// does, or of the beginning of what is wrong as a whole.
struct Malformed {
    std::string text;
    unsigned long line;
    unsigned long column;
};

void PrintTo(const Malformed& malformed, std::ostream* out) {
    *out << Quoted(malformed.text);
}

const Malformed kNoDocument[] = {
    {"", 1, 1},     {"   ", 1, 4},         {" \n ", 2, 2},
    {"x", 1, 1},    {"&amp;<a/>", 1, 1},   {"<", 1, 1},
    {"</a>", 1, 2}, {"<!-- c -->", 1, 11}, {"<?xml version='1.0'?>", 1, 22},
};

const Malformed kAroundTheRoot[] = {
    {"x <a/>", 1, 1},
    {"<a/>x", 1, 5},
    {"<a/>\n\n x", 3, 2},
    {"<a/>&amp;", 1, 5},
    {"<a/><b/>", 1, 5},
    {"<a></a></a>", 1, 9},
    {"<a/><![CDATA[x]]>", 1, 5},
    {std::string("<a/>\0", 5), 1, 5},
    {" <?xml version='1.0'?><a/>", 1, 2},
    {"<a/><?xml version='1.0'?>", 1, 5},
    {"<a><?xml version='1.0'?></a>", 1, 4},
};

const Malformed kTags[] = {
    {"<a>", 1, 4},
    {"<a><b></b>", 1, 11},
    {"<a><b></a", 1, 7},
    {"<a b='1", 1, 1},
    {"<a></b>", 1, 6},
    {"<a></A>", 1, 6},
    {"<a><b></a></b>", 1, 9},
    {"<a>\n  <b>\n</a>", 3, 3},
    {"<1a/>", 1, 2},
    {"< a/>", 1, 2},
    {"<a / >", 1, 5},
    {"<a></ a>", 1, 6},
    {"<a></a b>", 1, 8},
    {"<a><></a>", 1, 5},
};

const Malformed kAttributes[] = {
    {"<a b='1' b='2'/>", 1, 10},
    {"<a b='1' c='2'\n b='1'/>", 2, 2},
    {"<a encoding='base64' encoding='base64'/>", 1, 22},
    {"<a b/>", 1, 5},
    {"<a b=c/>", 1, 6},
    {"<a b='1'c='2'/>", 1, 9},
    {"<a b='<'/>", 1, 7},
    {"<a b='&'/>", 1, 8},
    {"<a b='\x01'/>", 1, 7},
    {"<a b='\xFF'/>", 1, 7},
};

const Malformed kReferences[] = {
    {"<a>&</a>", 1, 5},        {"<a>& b</a>", 1, 5},
    {"<a>x &\n</a>", 1, 7},    {"<a>&amp</a>", 1, 8},
    {"<a>&foo;</a>", 1, 4},    {"<a>\n\n  &nbsp;</a>", 3, 3},
    {"<a>&Amp;</a>", 1, 4},    {"<a>&#0;</a>", 1, 4},
    {"<a>&#1;</a>", 1, 4},     {"<a>&#xD800;</a>", 1, 4},
    {"<a>&#xFFFE;</a>", 1, 4}, {"<a>&#x110000;</a>", 1, 4},
    {"<a>&#x;</a>", 1, 7},     {"<a>&#;</a>", 1, 6},
    {"<a>&#1a;</a>", 1, 7},    {"<?xml version='1.0' standalone='no'?><a>&foo;</a>", 1, 41},
};

const Malformed kCharacters[] = {
    {"<a>\x01</a>", 1, 4},
    {"<a>\x1F</a>", 1, 4},
    {std::string("<a>\0</a>", 8), 1, 4},
    {"<a>\x0B</a>", 1, 4},
    {"<a>]]></a>", 1, 6},
    {"<a>\xEF\xBF\xBE</a>", 1, 4},
    {"<a>\xEF\xBF\xBF</a>", 1, 4},
    {"<a>\xFF</a>", 1, 4},
    {"<a>\x80</a>", 1, 4},
    {"<a>\xC3</a>", 1, 4},
    {"<a>\xC3", 1, 4},
    {"<a>\xC0\x80</a>", 1, 4},
    {"<a>\xE0\x80\x80</a>", 1, 4},
    {"<a>\xED\xA0\x80</a>", 1, 4},
    {"<a>\xF4\x90\x80\x80</a>", 1, 4},
    {"<a>\xF0\x9F\x98</a>", 1, 4},
    {"<\xC3/>", 1, 2},
    {"<a><![CDATA[\x01]]></a>", 1, 13},
    {"<a><!-- \x01 --></a>", 1, 9},
};

const Malformed kSections[] = {
    {"<a><!-- -- --></a>", 1, 11}, {"<a><!-- ", 1, 4},     {"<a><![CDATA[x</a>", 1, 18},
    {"<a><?p </a>", 1, 4},         {"<a><! b></a>", 1, 6}, {"<a><!DOCTYPE a></a>", 1, 6},
    {"<a><? p?></a>", 1, 6},
};

/// Columns count characters, and every kind of line break ends a line.
const Malformed kPlaces[] = {
    {"<a>\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80&</a>", 1, 8},
    {"<\xC3\xA9></\xC3\xA8>", 1, 6},
    {"<a>\t&</a>", 1, 6},
    {"<a>\n\n&</a>", 3, 2},
    {"<a>\r\n\r\n&</a>", 3, 2},
    {"<a>\r\r&</a>", 3, 2},
    {"<a\nb='\n'\nb=''/>", 4, 1},
    {"<a><!--\n\n--> &</a>", 3, 6},
};

class Refused : public testing::TestWithParam<Malformed> {};

TEST_P(Refused, NamesTheLineAndTheColumn) {
    const Malformed& malformed = GetParam();
    EXPECT_TRUE(IsError(Error(malformed.text), Place(malformed.line, malformed.column)))
        << Quoted(malformed.text);
}

TEST_P(Refused, IsNotWellFormedToExpatEither) {
    const ExpatVerdict verdict = ExpatOracle::Judge(GetParam().text);
    EXPECT_FALSE(verdict.isWellFormed);
    EXPECT_EQ(Place(verdict.line, verdict.column), Place(GetParam().line, GetParam().column));
}

INSTANTIATE_TEST_SUITE_P(NoDocument, Refused, testing::ValuesIn(kNoDocument));
INSTANTIATE_TEST_SUITE_P(AroundTheRoot, Refused, testing::ValuesIn(kAroundTheRoot));
INSTANTIATE_TEST_SUITE_P(Tags, Refused, testing::ValuesIn(kTags));
INSTANTIATE_TEST_SUITE_P(Attributes, Refused, testing::ValuesIn(kAttributes));
INSTANTIATE_TEST_SUITE_P(References, Refused, testing::ValuesIn(kReferences));
INSTANTIATE_TEST_SUITE_P(Characters, Refused, testing::ValuesIn(kCharacters));
INSTANTIATE_TEST_SUITE_P(Sections, Refused, testing::ValuesIn(kSections));
INSTANTIATE_TEST_SUITE_P(Places, Refused, testing::ValuesIn(kPlaces));

TEST(ParseXml, NullErrorPointerIsAllowed) {
    EXPECT_FALSE(ZQXML::ParseXml("<a>"));
    EXPECT_FALSE(ZQXML::ParseXml("<!DOCTYPE a><a/>"));
    EXPECT_FALSE(ZQXML::ParseXml("\xFF\xFE"));
    EXPECT_TRUE(ZQXML::ParseXml("<a/>"));
}

TEST(ParseXml, DefaultTextViewIsAnEmptyText) {
    EXPECT_TRUE(IsError(Error(std::string_view()), Place(1, 1)));
}

TEST(ParseXml, ReadsNoMoreThanTheView) {
    EXPECT_EQ(Parsed(std::string_view("<a/><b/>").substr(0, 4)), R"("a"="")");
}

TEST(ParseXml, ErrorReplacesWhatTheStringHeld) {
    std::string error = "line 9, column 9: old";
    EXPECT_FALSE(ZQXML::ParseXml("<a></b>", &error));
    EXPECT_TRUE(IsError(error, Place(1, 6), "mismatched tag"));
    EXPECT_EQ(error.find("old"), std::string::npos);
}

TEST(ParseXml, TreeOwesNothingToTheText) {
    std::string text = "<name>text<child encoding=\"base64\">Zm9v</child></name>";
    const Tree tree = ZQXML::ParseXml(text);
    text.assign(text.size(), '#');
    ASSERT_TRUE(tree);
    EXPECT_EQ(TreeText(tree.get()), R"("name"="text"("child"="Zm9v"*))");
}

TEST(ParseXml, TreeCanBeChangedLikeAnyOther) {
    const Tree tree = ZQXML::ParseXml("<a><b/></a>");
    ASSERT_TRUE(tree);
    tree->AddChild("c", 1);
    tree->FindChild("b")->AddChild("d", 2);
    tree->AppendChild(ZQXML::ParseXml("<e>3</e>").get());
    EXPECT_EQ(TreeText(tree.get()), R"("a"=""("b"=""("d"="2") "c"="1" "e"="3"))");
}

TEST(ParseXml, RefusesOtherVersions) {
    for (const std::string version : {"2.0", "0.9", "1", "1.", "10.0", "1.x", "1.0a"}) {
        const std::string text = "<?xml version='" + version + "'?><a/>";
        EXPECT_TRUE(IsError(Error(text), "line 1, column ")) << text;
    }
}

/// The declaration is well-formed here: the reason is the version.
TEST(ParseXml, NamesTheVersionAsTheReason) {
    EXPECT_TRUE(
        IsError(Error("<?xml version='2.0'?><a/>"), Place(1, 1), "XML version other than 1.0"));
}

TEST(ParseXml, RefusesOtherDeclaredEncodings) {
    for (const std::string encoding :
         {"UTF-16", "UTF-16LE", "utf-16be", "UTF-32", "ISO-8859-1", "latin1", "US-ASCII",
          "windows-1252", "UTF8", "UTF-80", "UTF-", "utf_8", "x"}) {
        const std::string text = "<?xml version='1.0' encoding='" + encoding + "'?><a/>";
        EXPECT_TRUE(IsError(Error(text), Place(1, 1), "encoding")) << text;
    }
}

TEST(ParseXml, AcceptsDeclaredUtf8InAnyCase) {
    for (unsigned int upper = 0; upper < 8; ++upper) {
        std::string encoding = "utf-8";
        for (std::size_t at = 0; at < 3; ++at) {
            encoding[at] = (upper >> at & 1U) != 0 ? "UTF"[at] : "utf"[at];
        }
        EXPECT_EQ(Parsed("<?xml version='1.0' encoding='" + encoding + "'?><a/>"), R"("a"="")");
    }
}

/// "<a/>" in 16 bits, in both orders of bytes, with and without a declaration of its encoding.
TEST(ParseXml, RefusesUtf16WithAndWithoutByteOrderMark) {
    const auto wide = [](const std::string& text, bool isBigEndian) {
        std::string result;
        for (const char character : text) {
            result += isBigEndian ? std::string{'\0', character} : std::string{character, '\0'};
        }
        return result;
    };
    for (const std::string text : {"<a/>", "<?xml version='1.0' encoding='UTF-16'?><a/>",
                                   "<?xml version='1.0' encoding='UTF-8'?><a/>", " <a/>"}) {
        EXPECT_TRUE(IsError(Error("\xFE\xFF" + wide(text, true)), Place(1, 1)));
        EXPECT_TRUE(IsError(Error("\xFF\xFE" + wide(text, false)), Place(1, 1)));
        EXPECT_TRUE(IsError(Error(wide(text, true)), Place(1, 1)));
        EXPECT_TRUE(IsError(Error(wide(text, false)), Place(1, 1)));
    }
}

TEST(ParseXml, RefusesASecondByteOrderMark) {
    const std::string mark(kByteOrderMark);
    EXPECT_FALSE(ZQXML::ParseXml(mark + mark + "<a/>"));
    EXPECT_FALSE(ZQXML::ParseXml(' ' + mark + "<a/>"));
    EXPECT_FALSE(ZQXML::ParseXml(mark));
}

/// Whatever stands in it: no entity, no default attribute and no other file comes into play.
TEST(ParseXml, RefusesDocumentTypeDeclarations) {
    for (const std::string text : {
             "<!DOCTYPE a><a/>",
             "<!DOCTYPE a []><a/>",
             "<!DOCTYPE a [<!ENTITY x 'y'>]><a>&x;</a>",
             "<!DOCTYPE a [<!ENTITY x 'y'><!ENTITY z '&x;&x;'>]><a>&z;</a>",
             "<!DOCTYPE a [<!ENTITY x SYSTEM '/etc/hostname'>]><a>&x;</a>",
             "<!DOCTYPE a [<!ENTITY % p SYSTEM 'x'>%p;]><a/>",
             "<!DOCTYPE a [<!ATTLIST a encoding CDATA 'base64'>]><a/>",
             "<!DOCTYPE a SYSTEM 'a.dtd'><a/>",
             "<!DOCTYPE a PUBLIC 'p' 'a.dtd' [<!ELEMENT a ANY>]><a/>",
         }) {
        ASSERT_TRUE(ExpatOracle::Judge(text).isWellFormed) << text;
        const std::string error = Error(text);
        EXPECT_TRUE(IsError(error, "line 1, column ", "document type")) << text;
        // The place lies within the declaration.
        EXPECT_LE(std::stoul(error.substr(std::strlen("line 1, column "))), text.rfind('<'));
    }
    EXPECT_TRUE(IsError(Error("<?xml version='1.0'?>\n\n<!-- c -->\n<!DOCTYPE a><a/>"),
                        "line 4, column ", "document type"));
}

TEST(ParseXml, AcceptsTheGreatestDepth) {
    const std::string text =
        Repeated("<a>", ZQXML::kMaxXmlDepth) + "x" + Repeated("</a>", ZQXML::kMaxXmlDepth);
    const Tree tree = ZQXML::ParseXml(text);
    ASSERT_TRUE(tree);
    EXPECT_TRUE(ZQXML::WriteXml(tree.get()) == text);
    EXPECT_EQ(ZQXML::kMaxXmlDepth, 10000U);
}

TEST(ParseXml, RefusesAGreaterDepth) {
    const std::string start = Repeated("<a>", ZQXML::kMaxXmlDepth);
    const std::string end = Repeated("</a>", ZQXML::kMaxXmlDepth);
    const std::string place = Place(1, start.size() + 1);
    EXPECT_TRUE(IsError(Error(start + "<b/>" + end), place, "deep"));
    EXPECT_TRUE(IsError(Error(start + "<b>x</b>" + end), place, "deep"));
    EXPECT_TRUE(IsError(Error(Repeated("<a>", 5 * ZQXML::kMaxXmlDepth)), place, "deep"));
}

/// `content` below so many elements.
std::string Below(std::size_t depth, const std::string& content) {
    return Repeated("<a>", depth) + content + Repeated("</a>", depth);
}

TEST(ParseXml, LeavesOfEachFormAreALevel) {
    constexpr std::size_t kAbove = ZQXML::kMaxXmlDepth - 1;
    for (const std::string leaf :
         {"<b/>", "<b></b>", "<b>x</b>", "<b>&amp;</b>", R"(<b encoding="base64">Zm9v</b>)",
          R"(<b encoding="base64"/>)", R"(<b encoding="base64">x</b>)", "<b><!-- --></b>"}) {
        for (const std::string& leaves : {leaf, leaf + leaf, leaf + " x"}) {
            EXPECT_TRUE(ZQXML::ParseXml(Below(kAbove, leaves))) << leaves;
            EXPECT_TRUE(
                IsError(Error(Below(kAbove + 1, leaves)), Place(1, 3 * (kAbove + 1) + 1), "deep"))
                << leaves;
        }
    }
}

TEST(ParseXml, DepthIsThatOfOpenElements) {
    const std::string leaf = Repeated("<b><c/></b>", ZQXML::kMaxXmlDepth);
    EXPECT_TRUE(ZQXML::ParseXml("<a>" + leaf + "</a>"));
    const std::string leaves = Repeated("<c/>", ZQXML::kMaxXmlDepth);
    EXPECT_TRUE(ZQXML::ParseXml("<a><b><!-- left to expat -->" + leaves + "</b></a>"));
}

/// A text of `head` and then blanks, of any size, that takes hardly any memory: all of its pages
/// but the first are the same one.
class LongText {
 public:
    LongText(std::string_view head, std::size_t size) : size_(size) {
        constexpr std::size_t kPiece = std::size_t{1024} * 1024;
        std::FILE* const file = std::tmpfile();
        const std::string blanks(kPiece, ' ');
        std::string first = blanks;
        first.replace(0, head.size(), head);
        std::fwrite(first.data(), 1, kPiece, file);
        std::fwrite(blanks.data(), 1, kPiece, file);
        std::fflush(file);
        mapped_ = (size / kPiece + 1) * kPiece;
        void* const reserved =
            mmap(nullptr, mapped_, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
        bool isMapped = reserved != MAP_FAILED;
        memory_ = static_cast<char*>(reserved);
        for (std::size_t at = 0; isMapped && at < mapped_; at += kPiece) {
            const off_t offset = at == 0 ? 0 : static_cast<off_t>(kPiece);
            isMapped = mmap(memory_ + at, kPiece, PROT_READ, MAP_PRIVATE | MAP_FIXED, fileno(file),
                            offset) != MAP_FAILED;
        }
        std::fclose(file);
        if (!isMapped) {
            ADD_FAILURE() << "no room for the text";
            size_ = 0;
        }
    }
    LongText(const LongText&) = delete;
    LongText& operator=(const LongText&) = delete;
    ~LongText() { munmap(memory_, mapped_); }

    std::string_view View() const { return {memory_, size_}; }

 private:
    std::size_t size_;
    std::size_t mapped_ = 0;
    char* memory_ = nullptr;
};

TEST(ParseXml, RefusesMoreThanTheGreatestSize) {
    EXPECT_EQ(ZQXML::kMaxXmlSize, 268435456U);
    const LongText text("<a/>", ZQXML::kMaxXmlSize + 1);
    EXPECT_TRUE(IsError(Error(text.View()), "line 1, column 1: ", "long"));
}

/// A text that is refused for its first bytes shows where the size begins to matter, without any of
/// it being read.
TEST(ParseXml, GreatestSizeItselfIsNoReasonToRefuse) {
    const LongText text("\xFF\xFE", ZQXML::kMaxXmlSize + 1);
    const std::string encodingError = Error("\xFF\xFE");
    EXPECT_EQ(Error(text.View().substr(0, ZQXML::kMaxXmlSize)), encodingError);
    EXPECT_EQ(encodingError.find("long"), std::string::npos);
}

TEST(ParseXml, ReadsALongText) {
    constexpr std::size_t kSize = std::size_t{4} * 1024 * 1024;
    const LongText text("<a/>", kSize);
    EXPECT_EQ(Parsed(text.View()), R"("a"="")");
}

/// Character data comes in pieces; names and texts longer than any buffer stay whole.
TEST(ParseXml, ReadsLongNamesAndTexts) {
    const std::string name(100000, 'n');
    const std::string text = Repeated("line &\xC3\xA9\n", 20000);
    std::string written =
        "<" + name + ">" + Repeated("line &amp;\xC3\xA9\n", 20000) + "</" + name + ">";
    const Tree tree = ZQXML::ParseXml(written);
    ASSERT_TRUE(tree);
    EXPECT_TRUE(tree->GetName() == name);
    EXPECT_TRUE(tree->GetValue() == text);
}

}  // namespace
