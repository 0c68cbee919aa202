#include "records/DataPlaylistLite.h"

#include "records/Fields.h"
#include "soap/QuaveraStub.h"

DataPlaylistLite::DataPlaylistLite() = default;

void DataPlaylistLite::ToXML(ZQXML::INode* node, Quavera::Quavera2__LitePlaylistMetadata* soap) {
    ElementWriter out(node);
    out.Unsigned("CreatedDate", soap->createdDate);
    out.Unsigned("LastModifiedDate", soap->lastModifiedDate);
    out.Plain("Name", soap->name);
    out.Plain("PlaylistId", soap->playlistId);
    out.Plain("Type", soap->type);
}

zq::auto_com<ZQXML::INode> DataPlaylistLite::ToXML(Quavera::Quavera2__LitePlaylistMetadata* soap) {
    return NewElementWith<DataPlaylistLite>("Playlist", soap);
}

void DataPlaylistLite::FromXML(ZQXML::INode* node) {
    for (ChildReader child(node); child.Next();) {
        child.Plain("CreatedDate", createdDate);
        child.Plain("LastModifiedDate", lastModifiedDate);
        child.Plain("Name", name);
        child.Plain("PlaylistId", playlistId);
        child.Plain("Type", type);
    }
}

void AddLines(const DataPlaylistLite& playlist, TextLines& lines) {
    lines.Plain("createdDate", playlist.createdDate);
    lines.Plain("lastModifiedDate", playlist.lastModifiedDate);
    lines.Plain("name", playlist.name);
    lines.Plain("playlistId", playlist.playlistId);
    lines.Plain("type", playlist.type);
}
