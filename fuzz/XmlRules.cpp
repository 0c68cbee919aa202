#include "fuzz/XmlRules.h"

#include <string>

#include "fuzz/Expect.h"
#include "fuzz/Input.h"
#include "fuzz/NaiveXml.h"
#include "tests/platform/ExpatOracle.h"
#include "tests/support/FakeNode.h"
#include "tests/support/TreeText.h"

namespace fuzz {
namespace {

using Tree = zq::auto_com<ZQXML::INode>;

std::string LowerCase(std::string text) {
    for (char& character : text) {
        character = character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a')
                                                         : character;
    }
    return text;
}

/// "1." and digits.
bool IsVersionOne(const std::string& version) {
    return version.size() > 2 && version.compare(0, 2, "1.") == 0 &&
           version.find_first_not_of("0123456789", 2) == std::string::npos;
}

/// Expat finds it out by itself, whatever it is told: a byte order mark, or a zero byte, which no
/// text in UTF-8 may hold.
bool IsUtf16(std::string_view text) {
    const std::string_view start = text.substr(0, 2);
    return start == "\xFE\xFF" || start == "\xFF\xFE" || text.find('\0') != std::string_view::npos;
}

/// Whether a text is refused even if it is well-formed.
bool IsExcluded(std::string_view text, const ExpatVerdict& verdict) {
    return verdict.hasDoctype || text.size() > ZQXML::kMaxXmlSize ||
           verdict.depth > ZQXML::kMaxXmlDepth ||
           (!verdict.encoding.empty() && LowerCase(verdict.encoding) != "utf-8") ||
           !IsVersionOne(verdict.version) || IsUtf16(text);
}

void CheckRefusal(std::string_view text, const ExpatVerdict& verdict, const std::string& error) {
    const bool isExcluded = IsExcluded(text, verdict);
    Expect(!verdict.isWellFormed || isExcluded, "what is well-formed is accepted", text);
    const std::string place = "line " + std::to_string(verdict.line) + ", column " +
                              std::to_string(verdict.column) + ": ";
    if (isExcluded) {
        Expect(error.compare(0, 5, "line ") == 0, "a refusal has a place", error);
    } else {
        ExpectSame(error.substr(0, place.size()), place, "a refusal has expat's place");
    }
}

void CheckWrittenAgain(ZQXML::INode* tree, const std::string& treeText, bool indent) {
    const std::string written = ZQXML::WriteXml(tree, indent);
    std::string error;
    const Tree again = ZQXML::ParseXml(Block(written).View(), &error);
    Expect(bool(again), "what is written is accepted", written);
    ExpectSame(TreeText(again.get()), treeText, "what was read is kept by writing and reading");
    ExpectSame(ZQXML::WriteXml(again.get(), indent), written, "writing again writes the same");
}

}  // namespace

void CheckXmlText(std::string_view text) {
    const ExpatVerdict verdict = ExpatOracle::Judge(text);
    std::string error = "none";
    const Tree tree = ZQXML::ParseXml(text, &error);
    if (!tree) {
        CheckRefusal(text, verdict, error);
        return;
    }
    ExpectSame<std::string>(error, "none", "no error without a refusal");
    Expect(verdict.isWellFormed && !IsExcluded(text, verdict), "what is accepted is well-formed",
           text);
    ExpectSame(TreeText(tree.get()), verdict.tree, "the tree is expat's");
    CheckWrittenAgain(tree.get(), verdict.tree, false);
    CheckWrittenAgain(tree.get(), verdict.tree, true);
}

void CheckWriting(ZQXML::INode* tree) {
    const std::string written = ZQXML::WriteXml(tree);
    CheckXmlText(Block(written).View());
    const Tree plain = ZQXML::ParseXml(written);
    Expect(bool(plain), "every tree is written well-formed", written);
    const Tree indented = ZQXML::ParseXml(ZQXML::WriteXml(tree, true));
    ExpectSame(TreeText(indented.get()), TreeText(plain.get()),
               "indentation changes nothing that is read");

    const auto foreign = FakeNode::Copy(tree);
    for (const bool indent : {false, true}) {
        ExpectSame(ZQXML::WriteXml(tree, indent), NaiveXml(tree, indent),
                   "a tree is written as a naive writer does");
        ExpectSame(ZQXML::WriteXml(foreign.get(), indent), NaiveXml(foreign.get(), indent),
                   "a foreign tree is written as a naive writer does");
    }
}

}  // namespace fuzz
