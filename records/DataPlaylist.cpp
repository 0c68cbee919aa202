#include "records/DataPlaylist.h"

#include "records/Fields.h"
#include "soap/QuaveraStub.h"

DataPlaylist::DataPlaylist() = default;

zq::auto_com<ZQXML::INode> DataPlaylist::ToXML(Quavera::Quavera2__PlaylistMetadata* soap) {
    auto node = DataPlaylistLite::ToXML(soap);
    ElementWriter out(node.get());
    out.Records<TrackElements>("Tracks", "Track", soap->tracks);
    return node;
}

void DataPlaylist::FromXML(ZQXML::INode* node) {
    DataPlaylistLite::FromXML(node);
    for (ChildReader child(node); child.Next();) {
        child.Records("Tracks", tracks);
    }
}

void AddLines(const DataPlaylist& playlist, TextLines& lines) {
    lines.Records("Track ", playlist.tracks);
    lines.Of<DataPlaylistLite>(playlist);
}
