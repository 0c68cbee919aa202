#include "records/DataGenre.h"

#include "records/Fields.h"
#include "soap/QuaveraStub.h"

DataGenre::DataGenre() = default;

zq::auto_com<ZQXML::INode> DataGenre::ToXML(Quavera::Quavera2__GenreMetadata* soap) {
    const auto* const primary = soap->primaryParentGenre;
    const int* const parents = CountOf(soap->parentGenres);
    // Depends on the primary parent, not only on the list: receivers know it so.
    const bool isCounted = primary != nullptr && parents != nullptr && *parents > 0;
    auto node = NewElement("Genre");
    ElementWriter out(node.get());
    out.Display("Abbreviation", soap->abbreviation);
    out.Display("DisplayName", soap->displayName);
    out.Plain("GenreId", soap->genreId);
    out.Display("Name", soap->name);
    out.NumberUnlessZero("SubGenreCount", soap->subGenreCount);
    out.RecordsAlways<GenreLiteElements>("ChildGenres", "GenreLite", soap->childGenres);
    out.Display("Description", soap->description);
    out.Plain("PrimaryParentGenreId", primary == nullptr ? nullptr : primary->genreId);
    out.DecimalString("ParentGenreCount", isCounted ? parents : nullptr);
    out.RecordsAlways<GenreLiteElements>("ParentGenres", "GenreLite", soap->parentGenres);
    return node;
}

void DataGenre::FromXML(ZQXML::INode* node) {
    for (ChildReader child(node); child.Next();) {
        child.Display("Abbreviation", abbreviation);
        child.Display("DisplayName", displayName);
        child.Display("Name", name);
        child.Display("Description", description);
        child.Plain("GenreId", genreId);
        child.Plain("PrimaryParentGenreId", primaryParentGenreId);
        child.Number("SubGenreCount", subGenreCount);
        child.RecordsNamed("ChildGenres", "GenreLite", childGenres);
        child.RecordsNamed("ParentGenres", "GenreLite", parentGenres);
    }
}

void AddLines(const DataGenre& genre, TextLines& lines) {
    lines.Display("abbreviation", genre.abbreviation);
    lines.Display("displayName", genre.displayName);
    lines.Plain("genreId", genre.genreId);
    lines.Display("name", genre.name);
    lines.Number("subGenreCount", genre.subGenreCount);
    lines.Number("parentGenreCount", genre.parentGenreCount);
    lines.Records("childGenres ", genre.childGenres);
    lines.Records("parentGenres ", genre.parentGenres);
    lines.Plain("primaryParentGenreId", genre.primaryParentGenreId);
}
