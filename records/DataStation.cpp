#include "records/DataStation.h"

#include "records/Fields.h"
#include "soap/QuaveraStub.h"

DataStation::DataStation() = default;

zq::auto_com<ZQXML::INode> DataStation::ToXML(Quavera::Quavera2__StationMetadata* soap) {
    return DataStationLite::ToXML(soap);
}

void DataStation::FromXML(ZQXML::INode* node) {
    if (IsNamed(node, "Station")) {
        DataStationLite::FromXML(node);
        return;
    }
    for (ChildReader station(node); station.Next("Station");) {
        DataStationLite::FromXML(station.Child());
    }
}

void AddLines(const DataStation& station, TextLines& lines) {
    lines.Of<DataStationLite>(station);
}
