// Any text as a SOAP response, printed in each form, and as a record's tree.

#include <set>
#include <string>

#include "fuzz/Expect.h"
#include "fuzz/Input.h"
#include "fuzz/Target.h"
#include "platform/zqshared.h"
#include "tests/support/TreeText.h"
#include "tools/Printing.h"

namespace {

using fuzz::Expect;
using fuzz::ExpectSame;
using Text = tool::Result<std::string>;

Text Print(const std::string& soap, tool::Form form) {
    return tool::PrintSoap(soap, "input", nullptr, form);
}

void CheckFailure(const Text& failed) {
    const std::string message = tool::Message(failed.failure());
    Expect(message.find('\n') == std::string::npos, "a failure is told on one line", message);
}

/// The texts of all elements in a tree.
void AddTexts(ZQXML::INode* node, std::set<std::string>* texts) {
    texts->insert(node->GetValue());
    ZQXML::INodeList* const children = node->GetChildren();
    for (ZQXML::INode* child = children->First(); child != nullptr; child = children->Next()) {
        AddTexts(child, texts);
    }
}

/// Whether a text may be a number, a flag or a letter, which the tree has in another form.
bool IsRewritten(const std::string& text) {
    return text.find_first_not_of("-0123456789ABCDEF ") == std::string::npos || text == "true" ||
           text == "false";
}

/// A text stands in the tree as in the response. Where that has markup within a text, the text
/// holds the markup.
void CheckTexts(ZQXML::INode* node, const std::set<std::string>& texts) {
    const std::string text = node->GetValueDecoded();
    Expect(IsRewritten(text) || text.find('<') != std::string::npos || texts.count(text) > 0,
           "a text stands in the tree as in the response", text);
    ZQXML::INodeList* const children = node->GetChildren();
    for (ZQXML::INode* child = children->First(); child != nullptr; child = children->Next()) {
        CheckTexts(child, texts);
    }
}

/// Its records are printed one by one, and read as a list again.
void CheckList(const tool::Records& records, const std::string& text) {
    std::string trees;
    std::string texts;
    for (const tool::Tree& tree : records.trees) {
        trees += ZQXML::WriteXml(tree.get()) + "\n";
        texts += *tool::PrintText(ZQXML::WriteXml(tree.get()), "input", records.record);
    }
    ExpectSame(text, texts, "a list's text is that of its records");
    if (!records.trees.empty()) {
        ExpectSame(*tool::PrintText(trees, "input", nullptr), texts, "a list's trees are read");
    }
}

void CheckSoap(const std::string& soap) {
    const Text tree = Print(soap, tool::Form::kTree);
    const Text indented = Print(soap, tool::Form::kIndentedTree);
    const Text text = Print(soap, tool::Form::kText);
    ExpectSame(bool(tree), bool(indented), "both forms of a tree can be printed, or none");
    ExpectSame(bool(tree), bool(text), "tree and text can be printed, or neither");
    if (!tree) {
        CheckFailure(tree);
        return;
    }
    // A list answer may hold no record, or several, whose trees stand one after the other.
    const auto records = tool::ReadSoapRecords(soap, "input", nullptr);
    if (records->isList) {
        CheckList(*records, *text);
        return;
    }
    const auto parsed = ZQXML::ParseXml(*tree);
    Expect(bool(parsed), "a tree that is printed can be read", *tree);
    ExpectSame(ZQXML::WriteXml(parsed.get()) + "\n", *tree, "it is written as it was printed");
    ExpectSame(TreeText(ZQXML::ParseXml(*indented).get()), TreeText(parsed.get()),
               "indentation changes nothing that is read");
    std::set<std::string> texts;
    AddTexts(ZQXML::ParseXml(soap).get(), &texts);
    CheckTexts(parsed.get(), texts);
    // An element's name alone may stand for another class than the response's.
    Expect(bool(tool::PrintText(*tree, "input", nullptr)), "its text can be printed", *tree);
    Expect(!text->empty(), "a record's text is not empty", *tree);
}

void CheckTree(const std::string& xml) {
    const Text text = tool::PrintText(xml, "input", nullptr);
    if (!text) {
        CheckFailure(text);
        return;
    }
    const auto records = tool::ReadTrees(xml, "input", nullptr);
    Expect(bool(records), "what can be printed can be read", xml);
    if (records->isList) {
        CheckList(*records, *text);
        return;
    }
    const auto tree = ZQXML::ParseXml(xml);
    const Text again = tool::PrintText(ZQXML::WriteXml(tree.get(), true), "input", nullptr);
    Expect(bool(again), "what was written can be printed", xml);
    ExpectSame(*again, *text, "a tree's text is that of the tree written again");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(fuzz::AsText(data, size));
    CheckSoap(text);
    CheckTree(text);
    return 0;
}
