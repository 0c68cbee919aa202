#include "tools/Printing.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <string_view>
#include <utility>

namespace tool {
namespace {

Result<Records> RecordsOf(Result<Trees> trees, const RecordClass& record, bool isList) {
    return trees ? Result<Records>(Records{&record, isList, std::move(*trees), true})
                 : trees.failure();
}

/// The class whose SOAP record, or the list of such records, is called `element`.
Result<const RecordClass*> ClassOfSoap(const std::string& element, const RecordClass* chosen,
                                       const std::string& where) {
    const RecordClass* const ofList = FindClass(&RecordClass::answerElement, element);
    const bool isList = ofList != nullptr && ofList->AnswersWithList();
    if (isList && (chosen == nullptr || chosen == ofList)) {
        return ofList;
    }
    return ClassOfElement(&RecordClass::soapElement, element, chosen, where);
}

/// Records as their receivers have them.
Result<Records> ThroughText(const Records& records, const std::string& where) {
    Records received = {records.record, records.isList, {}, records.isSoap};
    for (const Tree& tree : records.trees) {
        Result<Tree> read = ParseTree(ZQXML::WriteXml(tree.get()), where);
        if (!read) {
            return read.failure();
        }
        received.trees.push_back(std::move(*read));
    }
    return received;
}

Result<std::string> PrintReceived(const Result<Records>& records, const std::string& where,
                                  Form form) {
    if (!records || form == Form::kTree || form == Form::kIndentedTree) {
        return records ? Result<std::string>(Printed(*records, form)) : records.failure();
    }
    const Result<Records> received = ThroughText(*records, where);
    return received ? Result<std::string>(Printed(*received, form)) : received.failure();
}

/// Whether a line begins with an element of that name.
bool IsStartOf(std::string_view name, std::string_view line) {
    const std::string_view behind = line.substr(std::min(line.size(), name.size() + 1));
    return line.substr(0, 1) == "<" && line.substr(1, name.size()) == name && !behind.empty() &&
           std::string_view(" \t\r\n/>").find(behind.front()) != std::string_view::npos;
}

/// The class of whose trees a text holds several, if it does: the one that its first tree is of.
const RecordClass* ClassOfList(std::string_view xml, const RecordClass* chosen) {
    const std::vector<RecordClass>& classes = RecordClasses();
    const auto found = std::find_if(classes.begin(), classes.end(), [&](const RecordClass& each) {
        return (chosen == nullptr || chosen == &each) && each.AnswersWithList() &&
               IsStartOf(each.treeElement, xml);
    });
    return found == classes.end() ? nullptr : &*found;
}

/// The trees of a text, each beginning with a line, as they are printed.
Result<Records> ReadList(const std::string& xml, const std::string& where,
                         const RecordClass& record) {
    Records records = {&record, true, {}, false};
    std::size_t lines = 0;  // ahead of the tree
    for (const std::string_view text : SplitAtRoots(xml, record.treeElement)) {
        Result<Tree> tree = ParseTree(std::string(text), where);
        if (!tree) {  // behind as many lines, so that its place is named right
            tree = ParseTree(std::string(lines, '\n') + std::string(text), where);
        }
        if (!tree) {
            return tree.failure();
        }
        records.trees.push_back(std::move(*tree));
        lines += static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
    }
    return records;
}

/// Whether a tree is one of that class, and says so by an element that such trees have.
bool IsTreeOf(const RecordClass& record, ZQXML::INode* tree) {
    ZQXML::INodeList* const children = tree->GetChildren();
    ZQXML::INode* child = tree->GetName() == record.treeElement ? children->First() : nullptr;
    while (child != nullptr && FindElement(ShapeOf(record.name), child->GetName()) == nullptr) {
        child = children->Next();
    }
    return child != nullptr;
}

}  // namespace

Result<Records> ReadSoapRecords(const std::string& soap, const std::string& where,
                                const RecordClass* chosen) {
    const Result<SoapDocument> document = SoapDocument::Open(soap, where);
    if (!document) {
        return document.failure();
    }
    const std::string& element = document->RecordElement();
    const Result<const RecordClass*> found = ClassOfSoap(element, chosen, where);
    if (!found) {
        return found.failure();
    }
    const RecordClass& record = **found;
    const bool isList = element != record.soapElement;
    return RecordsOf(isList ? record.answerToTrees(*document) : record.toTrees(*document), record,
                     isList);
}

Result<Records> ReadAnswer(const std::string& soap, const std::string& where,
                           const RecordClass& asked) {
    const Result<SoapDocument> document = SoapDocument::Open(soap, where);
    if (!document) {
        return document.failure();
    }
    const std::string_view expected = asked.answerElement;
    if (document->RecordElement() != expected) {
        return WrongElement(where, document->RecordElement(),
                            asked.AnswersWithList() ? "the list" : asked.name, expected);
    }
    return RecordsOf(asked.answerToTrees(*document), asked, asked.AnswersWithList());
}

Result<Records> ReadTrees(const std::string& xml, const std::string& where,
                          const RecordClass* chosen) {
    Result<Tree> tree = ParseTree(xml, where);
    if (!tree) {
        const RecordClass* const ofList = ClassOfList(xml, chosen);
        return ofList == nullptr ? tree.failure() : ReadList(xml, where, *ofList);
    }
    const Result<const RecordClass*> record =
        ClassOfElement(&RecordClass::treeElement, (*tree)->GetName(), chosen, where);
    if (!record) {
        return record.failure();
    }
    Records records = {*record, false, {}, false};
    records.trees.push_back(std::move(*tree));
    return records;
}

Result<Records> ReadDocument(const std::string& text, const std::string& where,
                             const RecordClass* chosen) {
    const Result<SoapDocument> document = SoapDocument::Open(text, where);
    if (!document) {
        Result<Records> list = ReadTrees(text, where, chosen);
        const bool isList = list || ClassOfList(text, chosen) != nullptr;
        return isList ? std::move(list) : Result<Records>(document.failure());
    }
    const std::string& element = document->RecordElement();
    if (!ClassOfSoap(element, nullptr, where)) {
        return ReadTrees(text, where, chosen);
    }
    // A record's SOAP element and its tree may be called the same: "MemberLibrary".
    if (const RecordClass* const sameName = FindClass(&RecordClass::treeElement, element)) {
        const Result<Tree> tree = ParseTree(text, where);
        if (!tree) {
            return tree.failure();
        }
        if (IsTreeOf(*sameName, tree->get())) {
            return ReadTrees(text, where, chosen);
        }
    }
    const Result<Records> records = ReadSoapRecords(text, where, chosen);
    return records ? ThroughText(*records, where) : records.failure();
}

std::vector<std::string_view> SplitAtRoots(std::string_view text, std::string_view name) {
    std::vector<std::string_view> texts;
    while (!text.empty()) {
        std::size_t end = 0;
        do {
            end = text.find('\n', end);
            end = end == std::string_view::npos ? text.size() : end + 1;
        } while (end < text.size() && !IsStartOf(name, text.substr(end)));
        texts.push_back(text.substr(0, end));
        text.remove_prefix(end);
    }
    return texts;
}

std::string Printed(const Records& records, Form form) {
    if (form == Form::kJson) {
        return JsonText(JsonOf(records)) + "\n";
    }
    std::string all;
    for (const Tree& tree : records.trees) {
        all += form == Form::kText
                   ? records.record->toText(tree.get())
                   : ZQXML::WriteXml(tree.get(), form == Form::kIndentedTree) + "\n";
    }
    return all;
}

Json JsonOf(const Records& records) {
    const RecordShape& shape = ShapeOf(records.record->name);
    if (!records.isList) {
        return ToJson(records.trees.front().get(), shape);
    }
    Json list = Json::array();
    for (const Tree& tree : records.trees) {
        list.push_back(ToJson(tree.get(), shape));
    }
    return list;
}

Result<std::string> PrintSoap(const std::string& soap, const std::string& where,
                              const RecordClass* chosen, Form form) {
    return PrintReceived(ReadSoapRecords(soap, where, chosen), where, form);
}

Result<std::string> PrintAnswer(const std::string& soap, const std::string& where,
                                const RecordClass& asked, Form form) {
    return PrintReceived(ReadAnswer(soap, where, asked), where, form);
}

Result<std::string> PrintText(const std::string& xml, const std::string& where,
                              const RecordClass* chosen, Form form) {
    const Result<Records> records = ReadTrees(xml, where, chosen);
    return records ? Result<std::string>(Printed(*records, form)) : records.failure();
}

}  // namespace tool
