#include "records/DataGenreLite.h"

#include "records/Fields.h"
#include "soap/QuaveraStub.h"

DataGenreLite::DataGenreLite() = default;
DataGenreLite::~DataGenreLite() = default;

zq::auto_com<ZQXML::INode> DataGenreLite::ToXML(Quavera::Quavera2__LiteGenreMetadata* soap) {
    return ElementWriter::Filled<DataGenreLite>("GenreLite", soap);
}

void DataGenreLite::ToXML(ZQXML::INode* node, Quavera::Quavera2__LiteGenreMetadata* soap) {
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

std::string DataGenreLite::ToString() {
    return TextLines::Of(*this);
}

void DataGenreLite::AddLines(TextLines& lines) {
    lines.Plain("genreId", genreId);
    lines.Display("name", name);
    lines.Number("subCount", subCount);
}
