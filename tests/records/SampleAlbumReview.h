#ifndef QUAVERA_TESTS_RECORDS_SAMPLE_ALBUM_REVIEW_H_
#define QUAVERA_TESTS_RECORDS_SAMPLE_ALBUM_REVIEW_H_

#include "soap/QuaveraStub.h"
#include "tests/records/Values.h"

/// An album's review with every member present and no value twice.
struct SampleAlbumReview {
    using Soap = Quavera::Quavera2__AlbumReviewMetadata;

    static void Fill(Soap& soap, Values& values) {
        soap.albumId = values.Text("Alb.1");
        soap.author = values.Text("Zoë Müller");
        soap.blurb = values.Text("Kurz & gut 👍");
        soap.blurbSize = values.Of(44);
        soap.detail = values.Text("Длинный отзыв\nв две строки");
        soap.detailSize = values.Of(-66);
        soap.publishDate = values.Of(2777777777UL);
        soap.source = values.Text("src.8");
        soap.title = values.Text("春の音");
    }

    /// The element that it gives.
    static constexpr char kTree[] =
        "<AlbumReview>"
        "<Author encoding=\"base64\">Wm/DqyBNw7xsbGVy</Author>"
        "<Blurb encoding=\"base64\">S3VyeiAmIGd1dCDwn5GN</Blurb>"
        "<BlurbSize>44</BlurbSize>"
        "<Detail "
        "encoding=\"base64\">0JTQu9C40L3QvdGL0Lkg0L7RgtC30YvQsgrQsiDQtNCy0LUg0YHRgtGA0L7QutC4"
        "</Detail>"
        "<DetailSize>-66</DetailSize>"
        "<PublishDate>2777777777</PublishDate>"
        "<Title encoding=\"base64\">5pil44Gu6Z+z</Title>"
        "</AlbumReview>";

    /// The log text of the record that this element fills.
    static constexpr char kText[] =
        "Author= Zoë Müller\r\n"
        "Blurb = Kurz & gut 👍\r\n"
        "BlurbSize = 44\r\n"
        "Detail = Длинный отзыв\nв две строки\r\n"
        "DetailSize = -66\r\n"
        "PublishDate = 2777777777\r\n"
        "Title = 春の音\r\n";
};

#endif  // QUAVERA_TESTS_RECORDS_SAMPLE_ALBUM_REVIEW_H_
