#include "records/DataIndex.h"

#include "common/TextConversion.h"
#include "records/Fields.h"
#include "soap/QuaveraStub.h"

DataIndex::DataIndex() = default;
DataIndex::~DataIndex() = default;

void DataIndex::ToXML(ZQXML::INode* node, Quavera::Quavera2__AlphaIndexPosition* soap) {
    ElementWriter out(node);
    if (soap->letter != nullptr) {
        // An empty text counts as its terminating zero.
        const std::string code = CharToHexString(soap->letter->c_str()[0]);
        out.String("Letter", &code);
    }
    if (soap->start != nullptr) {
        const std::string position = zq::ToString(*soap->start);
        out.String("Start", &position);
    }
}

zq::auto_com<ZQXML::INode> DataIndex::ToXML(Quavera::Quavera2__AlphaIndexPosition* soap) {
    return ElementWriter::Filled<DataIndex>("Index", soap);
}

void DataIndex::FromXML(ZQXML::INode* node) {
    for (ChildReader child(node); child.Next();) {
        if (child.Takes("Letter")) {
            letter.assign(1, HexStringToChar(child.Child()->GetValue()));
        }
        child.Number("Start", start);
    }
}

std::string DataIndex::ToString() {
    TextLines lines;
    lines.Plain("letter", letter);
    lines.Number("start", start);
    return lines.Take();
}
