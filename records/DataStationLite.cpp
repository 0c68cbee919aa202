#include "records/DataStationLite.h"

#include "records/Fields.h"
#include "soap/QuaveraStub.h"

DataStationLite::DataStationLite() = default;
DataStationLite::~DataStationLite() = default;

void DataStationLite::ToXML(ZQXML::INode* node, Quavera::Quavera2__LiteStationMetadata* soap) {
    ElementWriter out(node);
    out.Display("Name", soap->name);
    out.String("StationId", soap->stationId);
    out.String("Type", soap->type);
    out.FlagIfTrue("FreeStation", soap->freeStation);
}

zq::auto_com<ZQXML::INode> DataStationLite::ToXML(Quavera::Quavera2__LiteStationMetadata* soap) {
    return ElementWriter::Filled<DataStationLite>("Station", soap);
}

void DataStationLite::FromXML(ZQXML::INode* node) {
    for (ChildReader child(node); child.Next();) {
        child.Display("Name", name);
        child.Plain("StationId", stationId);
        child.Plain("Type", type);
        child.Flag("FreeStation", freeStation);
    }
}

std::string DataStationLite::ToString() {
    return TextLines::Of(*this);
}

void DataStationLite::AddLines(TextLines& lines) {
    lines.Display("name", name);
    lines.Plain("stationId", stationId);
    lines.Plain("type", type);
    lines.Flag("freeStation", freeStation);
}
