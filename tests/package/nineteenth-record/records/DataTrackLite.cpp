#include "records/DataTrackLite.h"

#include "records/Fields.h"
#include "soap/QuaveraStub.h"

DataTrackLite::DataTrackLite() = default;

void DataTrackLite::ToXML(ZQXML::INode* node, Quavera::Quavera2__LiteTrackMetadata* soap) {
    ElementWriter out(node);
    out.Display("Name", soap->name);
    out.Plain("TrackId", soap->trackId);
    out.Number("TrackIndex", soap->trackIndex);
}

zq::auto_com<ZQXML::INode> DataTrackLite::ToXML(Quavera::Quavera2__LiteTrackMetadata* soap) {
    return NewElementWith<DataTrackLite>("TrackLite", soap);
}

void DataTrackLite::FromXML(ZQXML::INode* node) {
    for (ChildReader child(node); child.Next();) {
        child.Display("Name", name);
        child.Plain("TrackId", trackId);
        child.Number("TrackIndex", trackIndex);
    }
}

void AddLines(const DataTrackLite& track, TextLines& lines) {
    lines.Display("name", track.name);
    lines.Plain("trackId", track.trackId);
    lines.Number("trackIndex", track.trackIndex);
}
