#include "records/DataAlbum.h"

#include "records/Fields.h"
#include "soap/QuaveraStub.h"

DataAlbum::DataAlbum() = default;

zq::auto_com<ZQXML::INode> DataAlbum::ToXML(Quavera::Quavera2__AlbumMetadata* soap) {
    auto node = DataAlbumLite::ToXML(soap);
    ElementWriter out(node.get());
    out.Plain("AlbumArt70x70Url", soap->albumArt70x70Url);
    out.Plain("Copyright", soap->copyright);
    out.Plain("Label", soap->label);
    out.Each("NonDisplayableAlbumTypes", soap->nonDisplayableAlbumTypes);
    out.Nested<DataArtistLite>("Artist", soap->primaryArtist);
    out.Records<TrackElements>("Tracks", "Track", soap->tracks);
    out.Plain("Upccode", soap->upccode);
    return node;
}

void DataAlbum::FromXML(ZQXML::INode* node) {
    for (ChildReader album(node); album.Next("Album");) {
        DataAlbumLite::FromXML(album.Child());
        for (ChildReader child(album.Child()); child.Next();) {
            child.Plain("AlbumArt70x70Url", albumArt70x70Url);
            child.Plain("Copyright", copyright);
            child.Plain("Label", label);
            child.Each("NonDisplayableAlbumTypes", nonDisplayableAlbumTypes);
            child.Nested("Artist", primaryArtist);
            child.Records("Tracks", tracks);
            child.Plain("Upccode", upccode);
        }
    }
}

void AddLines(const DataAlbum& album, TextLines& lines) {
    lines.Plain("AlbumArt70x70Url", album.albumArt70x70Url);
    lines.Plain("copyright", album.copyright);
    lines.Plain("label", album.label);
    lines.Unbroken("nonDisplayableAlbumTypes ", album.nonDisplayableAlbumTypes);
    lines.Nested("primaryArtist", album.primaryArtist);
    lines.Records("Track ", album.tracks);
    lines.Plain("upccode", album.upccode);
    lines.Of<DataAlbumLite>(album);
}
