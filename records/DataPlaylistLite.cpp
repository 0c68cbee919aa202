#include "records/DataPlaylistLite.h"

#include "records/Fields.h"
#include "soap/QuaveraStub.h"

DataPlaylistLite::DataPlaylistLite() = default;
DataPlaylistLite::~DataPlaylistLite() = default;

void DataPlaylistLite::ToXML(ZQXML::INode* node, Quavera::Quavera2__LitePlaylistMetadata* soap) {
    ElementWriter out(node);
    out.Unsigned("CreatedDate", soap->createdDate);
    out.Unsigned("LastModifiedDate", soap->lastModifiedDate);
    out.Plain("Name", soap->name);
    out.Plain("PlaylistId", soap->playlistId);
    out.Plain("Type", soap->type);
}

zq::auto_com<ZQXML::INode> DataPlaylistLite::ToXML(Quavera::Quavera2__LitePlaylistMetadata* soap) {
    return ElementWriter::Filled<DataPlaylistLite>("Playlist", soap);
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

std::string DataPlaylistLite::ToString() {
    return TextLines::Of(*this);
}

void DataPlaylistLite::AddLines(TextLines& lines) {
    lines.Plain("createdDate", createdDate);
    lines.Plain("lastModifiedDate", lastModifiedDate);
    lines.Plain("name", name);
    lines.Plain("playlistId", playlistId);
    lines.Plain("type", type);
}
