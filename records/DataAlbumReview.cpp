#include "records/DataAlbumReview.h"

#include "records/Fields.h"
#include "soap/QuaveraStub.h"

// Part of the library's binary interface, though nothing here reads or writes them. No header
// declares them, so that they do not get in the way of a program's own names.
QUAVERA_API std::string author;
QUAVERA_API std::string blurb;
QUAVERA_API int blurbSize = 0;
QUAVERA_API std::string detail;
QUAVERA_API int detailSize = 0;
QUAVERA_API int publishDate = 0;
QUAVERA_API std::wstring title;

DataAlbumReview::DataAlbumReview() = default;

void DataAlbumReview::ToXML(ZQXML::INode* node, Quavera::Quavera2__AlbumReviewMetadata* soap) {
    ElementWriter out(node);
    out.Display("Author", soap->author);
    out.Display("Blurb", soap->blurb);
    out.Number("BlurbSize", soap->blurbSize);
    out.Display("Detail", soap->detail);
    out.Number("DetailSize", soap->detailSize);
    out.Unsigned("PublishDate", soap->publishDate);
    out.Display("Title", soap->title);
}

zq::auto_com<ZQXML::INode> DataAlbumReview::ToXML(Quavera::Quavera2__AlbumReviewMetadata* soap) {
    return NewElementWith<DataAlbumReview>("AlbumReview", soap);
}

void DataAlbumReview::FromXML(ZQXML::INode* node) {
    for (ChildReader review(node); review.Next("AlbumReview");) {
        for (ChildReader child(review.Child()); child.Next();) {
            child.Display("Author", author);
            child.Display("Blurb", blurb);
            child.Number("BlurbSize", blurbSize);
            child.Display("Detail", detail);
            child.Number("DetailSize", detailSize);
            child.Plain("PublishDate", publishDate);
            child.Display("Title", title);
        }
    }
}

void AddLines(const DataAlbumReview& review, TextLines& lines) {
    lines.DisplayAfter("Author= ", review.author);  // log readers know it without the blank
    lines.Display("Blurb", review.blurb);
    lines.Number("BlurbSize", review.blurbSize);
    lines.Display("Detail", review.detail);
    lines.Number("DetailSize", review.detailSize);
    lines.Plain("PublishDate", review.publishDate);
    lines.Display("Title", review.title);
}
