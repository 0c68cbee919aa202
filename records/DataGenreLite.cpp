#include "records/DataGenreLite.h"

#include "records/Fields.h"
#include "soap/QuaveraStub.h"

DataGenreLite::DataGenreLite() = default;

zq::auto_com<ZQXML::INode> DataGenreLite::ToXML(Quavera::Quavera2__LiteGenreMetadata* soap) {
    return NewElementWith<GenreLiteElements>("GenreLite", soap);
}

void GenreLiteElements::ToXML(ZQXML::INode* node, Quavera::Quavera2__LiteGenreMetadata* soap) {
    ElementWriter out(node);
    out.Plain("GenreId", soap->genreId);
    out.Display("Name", soap->name);
    out.NumberUnlessZero("SubCount", soap->subCount);
}

void DataGenreLite::FromXML(ZQXML::INode* node) {
    for (ChildReader child(node); child.Next();) {
        child.Plain("GenreId", genreId);
        child.Display("Name", name);
        child.Number("SubCount", subCount);
    }
}

void AddLines(const DataGenreLite& genre, TextLines& lines) {
    lines.Plain("genreId", genre.genreId);
    lines.Display("name", genre.name);
    lines.Number("subCount", genre.subCount);
}
