#include "records/DataArtistLite.h"

#include "records/Fields.h"
#include "soap/QuaveraStub.h"

DataArtistLite::DataArtistLite() = default;

void DataArtistLite::ToXML(ZQXML::INode* node, Quavera::Quavera2__LiteArtistMetadata* soap) {
    if (soap == nullptr) {
        return;
    }
    ElementWriter out(node);
    out.Plain("ArtistId", soap->artistId);
    out.Display("Name", soap->name);
    out.Plain("Shortcut", soap->shortcut);
}

zq::auto_com<ZQXML::INode> DataArtistLite::ToXML(Quavera::Quavera2__LiteArtistMetadata* soap) {
    return NewElementWith<DataArtistLite>("Artist", soap);
}

void DataArtistLite::FromXML(ZQXML::INode* node) {
    for (ChildReader child(node); child.Next();) {
        child.Plain("ArtistId", artistId);
        child.Display("Name", name);
        child.Plain("Shortcut", shortcut);
    }
}

void AddLines(const DataArtistLite& artist, TextLines& lines) {
    lines.Plain("artistId", artist.artistId);
    lines.Display("name", artist.name);
    lines.Plain("shortcut", artist.shortcut);
}
