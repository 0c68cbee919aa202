#include "records/DataAlbumLite.h"

#include "records/Fields.h"
#include "soap/QuaveraStub.h"

namespace {

/// Takes over a SOAP record's member where it is present.
template <class Field>
void Assign(Field& field, const Field* member) {
    if (member != nullptr) {
        field = *member;
    }
}

}  // namespace

// reserved64 is left as it is found.
DataAlbumLite::DataAlbumLite() = default;

DataAlbumLite::DataAlbumLite(Quavera::Quavera2__LiteAlbumMetadata* soap) {
    Assign(albumArt162x162Url, soap->albumArt162x162Url);
    Assign(albumId, soap->albumId);
    Assign(albumType, soap->albumType);
    Assign(compilation, soap->compilation);
    Assign(displayNameUtf8, soap->displayName);
    Assign(nameUtf8, soap->name);
    Assign(parentalAuthority, soap->parentalAuthority);
    Assign(primaryArtistDisplayNameUtf8, soap->primaryArtistDisplayName);
    Assign(primaryArtistId, soap->primaryArtistId);
    Assign(primaryStyle, soap->primaryStyle);
    Assign(releaseYear, soap->releaseYear);
    Assign(shortcut, soap->shortcut);
    if (const int count = CountItems(soap->displayableAlbumTypes); count > 0) {
        const std::string* const types = soap->displayableAlbumTypes->items;
        displayableAlbumTypes.assign(types, types + count);
    }
}

bool operator==(const DataAlbumLite& left, const DataAlbumLite& right) {
    return left.releaseYear == right.releaseYear;
}

bool operator<(const DataAlbumLite& left, const DataAlbumLite& right) {
    return left.releaseYear > right.releaseYear;
}

void DataAlbumLite::ToXML(ZQXML::INode* node, Quavera::Quavera2__LiteAlbumMetadata* soap) {
    ElementWriter out(node);
    out.Plain("AlbumArt162x162Url", soap->albumArt162x162Url);
    out.Plain("AlbumId", soap->albumId);
    out.Number("AlbumType", soap->albumType);
    out.Flag("Compilation", soap->compilation);
    out.Display("DisplayName", soap->displayName);
    out.Display("Name", soap->name);
    out.Flag("ParentalAuthority", soap->parentalAuthority);
    out.Display("PrimaryArtistDisplayName", soap->primaryArtistDisplayName);
    out.Plain("PrimaryArtistId", soap->primaryArtistId);
    out.Plain("PrimaryStyle", soap->primaryStyle);
    out.Number("ReleaseYear", soap->releaseYear);
    out.Plain("Shortcut", soap->shortcut);
    out.Values("DisplayableAlbumTypes", soap->displayableAlbumTypes);
}

zq::auto_com<ZQXML::INode> DataAlbumLite::ToXML(Quavera::Quavera2__LiteAlbumMetadata* soap) {
    return NewElementWith<DataAlbumLite>("Album", soap);
}

zq::auto_com<ZQXML::INode> DataAlbumLite::ToXML() {
    auto node = NewElement("Album");
    ElementWriter out(node.get());
    out.String("AlbumArt162x162Url", &albumArt162x162Url);
    out.String("AlbumId", &albumId);
    out.Number("AlbumType", &albumType);
    out.Flag("Compilation", &compilation);
    out.Display("DisplayName", &displayNameUtf8);
    out.Display("Name", &nameUtf8);
    out.Flag("ParentalAuthority", &parentalAuthority);
    out.Display("PrimaryArtistDisplayName", &primaryArtistDisplayNameUtf8);
    out.String("PrimaryArtistId", &primaryArtistId);
    out.String("PrimaryStyle", &primaryStyle);
    out.Number("ReleaseYear", &releaseYear);
    out.String("Shortcut", &shortcut);
    out.ValuesUnlessEmpty("DisplayableAlbumTypes", displayableAlbumTypes);
    return node;
}

void DataAlbumLite::FromXML(ZQXML::INode* node) {
    for (ChildReader child(node); child.Next();) {
        child.Plain("AlbumArt162x162Url", albumArt162x162Url);
        child.Plain("AlbumId", albumId);
        child.Number("AlbumType", albumType);
        child.Flag("Compilation", compilation);
        child.Display("DisplayName", displayName);
        child.Display("Name", name);
        child.Flag("ParentalAuthority", parentalAuthority);
        child.Display("PrimaryArtistDisplayName", primaryArtistDisplayName);
        child.Plain("PrimaryArtistId", primaryArtistId);
        child.Plain("PrimaryStyle", primaryStyle);
        child.Number("ReleaseYear", releaseYear);
        child.Plain("Shortcut", shortcut);
        child.Values("DisplayableAlbumTypes", displayableAlbumTypes);
    }
}

void AddLines(const DataAlbumLite& album, TextLines& lines) {
    lines.Plain("albumArt162x162Url", album.albumArt162x162Url);
    lines.Plain("albumId", album.albumId);
    lines.Number("albumType", album.albumType);
    lines.Flag("compilation", album.compilation);
    lines.Display("displayName", album.displayName);
    lines.Display("name", album.name);
    lines.Flag("parentalAuthority", album.parentalAuthority);
    lines.Display("primaryArtistDisplayName", album.primaryArtistDisplayName);
    lines.Plain("primaryArtistId", album.primaryArtistId);
    lines.Plain("primaryStyle", album.primaryStyle);
    lines.Number("releaseYear", album.releaseYear);
    lines.Plain("shortcut", album.shortcut);
    lines.Each("  types", album.displayableAlbumTypes);
}
