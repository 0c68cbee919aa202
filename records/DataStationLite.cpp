#include "records/DataStationLite.h"

#include "records/Fields.h"
#include "soap/QuaveraStub.h"

DataStationLite::DataStationLite() = default;

void DataStationLite::ToXML(ZQXML::INode* node, Quavera::Quavera2__LiteStationMetadata* soap) {
    ElementWriter out(node);
    out.Display("Name", soap->name);
    out.String("StationId", soap->stationId);
    out.String("Type", soap->type);
    out.FlagIfTrue("FreeStation", soap->freeStation);
}

zq::auto_com<ZQXML::INode> DataStationLite::ToXML(Quavera::Quavera2__LiteStationMetadata* soap) {
    return NewElementWith<DataStationLite>("Station", soap);
}

void DataStationLite::FromXML(ZQXML::INode* node) {
    for (ChildReader child(node); child.Next();) {
        child.Display("Name", name);
        child.Plain("StationId", stationId);
        child.Plain("Type", type);
        child.Flag("FreeStation", freeStation);
    }
}

void AddLines(const DataStationLite& station, TextLines& lines) {
    lines.Display("name", station.name);
    lines.Plain("stationId", station.stationId);
    lines.Plain("type", station.type);
    lines.Flag("freeStation", station.freeStation);
}
