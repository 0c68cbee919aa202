#include "records/DataMemberLibrary.h"

#include "records/Fields.h"
#include "soap/QuaveraStub.h"

DataMemberLibrary::DataMemberLibrary() = default;

zq::auto_com<ZQXML::INode> DataMemberLibrary::ToXML(Quavera::Quavera2__MemberLibrary* soap) {
    auto node = NewElement("MemberLibrary");
    DataMemberLibraryLite::ToXML(node.get(), soap);
    ElementWriter out(node.get());
    out.Records<TrackElements>("Tracks", "Track", soap->tracks);
    out.Records<DataPlaylistLite>("Playlists", "Playlist", soap->playlists);
    out.Records<DataStationLite>("Stations", "Station", soap->stations);
    return node;
}

void DataMemberLibrary::FromXML(ZQXML::INode* node) {
    for (ChildReader library(node); library.Next("MemberLibrary");) {
        DataMemberLibraryLite::FromXML(library.Child());
        for (ChildReader child(library.Child()); child.Next();) {
            child.Records("Tracks", tracks);
            child.Records("Playlists", playlists);
            child.Records("Stations", stations);
        }
    }
}

void AddLines(const DataMemberLibrary& library, TextLines& lines) {
    lines.Records("Track ", library.tracks);
    lines.Records("Playlist ", library.playlists);
    lines.Records("Station ", library.stations);
    lines.Of<DataMemberLibraryLite>(library);
}
