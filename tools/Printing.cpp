#include "tools/Printing.h"

#include <string_view>
#include <utility>

namespace tool {
namespace {

/// Records one after the other, as element trees or as log text by way of the trees' text form.
Result<std::string> PrintTrees(const Result<Trees>& trees, const RecordClass& record,
                               const std::string& where, Form form) {
    if (!trees) {
        return trees.failure();
    }
    std::string all;
    for (const Tree& tree : *trees) {
        const std::string xml = ZQXML::WriteXml(tree.get(), form == Form::kIndentedTree);
        const Result<std::string> one =
            form == Form::kText ? PrintText(xml, where, &record) : xml + "\n";
        if (!one) {
            return one.failure();
        }
        all += *one;
    }
    return all;
}

}  // namespace

Result<std::string> PrintSoap(const std::string& soap, const std::string& where,
                              const RecordClass* chosen, Form form) {
    const Result<SoapDocument> document = SoapDocument::Open(soap, where);
    if (!document) {
        return document.failure();
    }
    const Result<const RecordClass*> record =
        ClassOfElement(&RecordClass::soapElement, document->RecordElement(), chosen, where);
    return record ? PrintTrees((*record)->toTrees(*document), **record, where, form)
                  : record.failure();
}

Result<std::string> PrintAnswer(const std::string& soap, const std::string& where,
                                const RecordClass& asked, Form form) {
    const Result<SoapDocument> document = SoapDocument::Open(soap, where);
    if (!document) {
        return document.failure();
    }
    const std::string_view expected = asked.answerElement;
    if (document->RecordElement() != expected) {
        const bool isList = expected != asked.soapElement;
        return WrongElement(where, document->RecordElement(), isList ? "the list" : asked.name,
                            expected);
    }
    return PrintTrees(asked.answerToTrees(*document), asked, where, form);
}

Result<std::string> PrintText(const std::string& xml, const std::string& where,
                              const RecordClass* chosen) {
    Result<Tree> tree = ParseTree(xml, where);
    if (!tree) {
        return tree.failure();
    }
    const Result<const RecordClass*> record =
        ClassOfElement(&RecordClass::treeElement, (*tree)->GetName(), chosen, where);
    return record ? (*record)->toText(std::move(*tree)) : Result<std::string>(record.failure());
}

}  // namespace tool
