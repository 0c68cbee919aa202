#include "records/DataArtist.h"

#include "records/Fields.h"
#include "soap/QuaveraStub.h"

DataArtist::DataArtist() = default;

zq::auto_com<ZQXML::INode> DataArtist::ToXML(Quavera::Quavera2__ArtistMetadata* soap) {
    auto node = DataArtistLite::ToXML(soap);
    ElementWriter out(node.get());
    out.Records<DataAlbumLite>("Albums", "Album", soap->albums);
    out.Nested<DataStationLite>("Station", soap->artistStation);
    out.Display("Bio", soap->bio);
    out.Display("BioAuthor", soap->bioAuthor);
    out.Display("Blurb", soap->blurb);
    out.Records<GenreLiteElements>("Genres", "GenreLite", soap->genres);
    return node;
}

void DataArtist::FromXML(ZQXML::INode* node) {
    ZQXML::INode* const artist = IsNamed(node, "Artist") ? node : FindChild(node, "Artist");
    DataArtistLite::FromXML(artist);
    for (ChildReader child(artist); child.Next();) {
        child.Records("Albums", albums);
        child.Nested("Station", artistStation);
        child.Display("Bio", bio);
        child.Display("BioAuthor", bioAuthor);
        child.Display("Blurb", blurb);
        child.Records("Genres", genres);
    }
}

std::string DataArtist::ToString() {
    TextLines lines;
    lines.Nested("artistStation", artistStation);
    lines.Records("Album ", albums);
    lines.Display("bio", bio);
    lines.Display("bioAuthor", bioAuthor);
    lines.Display("blurb", blurb);
    lines.Records("Genres ", genres);
    lines.Of<DataArtistLite>(*this);
    return lines.Take();
}
