#include "records/DataLibraryModificationResult.h"

#include "records/Fields.h"
#include "soap/QuaveraStub.h"

DataLibraryModificationResult::DataLibraryModificationResult() = default;

void DataLibraryModificationResult::ToXML(ZQXML::INode* node,
                                          Quavera::Quavera2__LibraryModificationResult* soap) {
    ElementWriter out(node);
    out.Number("SubCount", CountOf(soap->values));
    out.Each("Value", soap->values);
    out.Unsigned("LibraryLastDateModified", soap->libraryLastDateModified);
}

zq::auto_com<ZQXML::INode> DataLibraryModificationResult::ToXML(
    Quavera::Quavera2__LibraryModificationResult* soap) {
    return NewElementWith<DataLibraryModificationResult>("LibraryModification", soap);
}

void DataLibraryModificationResult::FromXML(ZQXML::INode* node) {
    for (ChildReader child(node); child.Next();) {
        child.EachDecoded("Value", ids);
        child.Unsigned("LibraryLastDateModified", libraryLastDateModified);
    }
}

void AddLines(const DataLibraryModificationResult& result, TextLines& lines) {
    lines.Unsigned("libraryLastDateModified", result.libraryLastDateModified);
    lines.Each("id", result.ids);
}
