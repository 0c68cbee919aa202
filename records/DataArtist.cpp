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

void AddLines(const DataArtist& artist, TextLines& lines) {
    lines.Nested("artistStation", artist.artistStation);
    lines.Records("Album ", artist.albums);
    lines.Display("bio", artist.bio);
    lines.Display("bioAuthor", artist.bioAuthor);
    lines.Display("blurb", artist.blurb);
    lines.Records("Genres ", artist.genres);
    lines.Of<DataArtistLite>(artist);
}
