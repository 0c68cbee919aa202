#include "records/DataIndex.h"

#include "records/Fields.h"
#include "soap/QuaveraStub.h"

DataIndex::DataIndex() = default;

void DataIndex::ToXML(ZQXML::INode* node, Quavera::Quavera2__AlphaIndexPosition* soap) {
    ElementWriter out(node);
    out.HexLetter("Letter", soap->letter);
    out.DecimalString("Start", soap->start);
}

zq::auto_com<ZQXML::INode> DataIndex::ToXML(Quavera::Quavera2__AlphaIndexPosition* soap) {
    return NewElementWith<DataIndex>("Index", soap);
}

void DataIndex::FromXML(ZQXML::INode* node) {
    for (ChildReader child(node); child.Next();) {
        child.HexLetter("Letter", letter);
        child.Number("Start", start);
    }
}

void AddLines(const DataIndex& index, TextLines& lines) {
    lines.Plain("letter", index.letter);
    lines.Number("start", index.start);
}
