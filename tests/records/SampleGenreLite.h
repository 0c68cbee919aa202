#ifndef QUAVERA_TESTS_RECORDS_SAMPLE_GENRE_LITE_H_
#define QUAVERA_TESTS_RECORDS_SAMPLE_GENRE_LITE_H_

#include "soap/QuaveraStub.h"
#include "tests/records/Values.h"

/// A genre's summary with every member present and no value twice.
struct SampleGenreLite {
    using Soap = Quavera::Quavera2__LiteGenreMetadata;

    static void Fill(Soap& soap, Values& values) {
        soap.genreId = values.Text("g.101");
        soap.name = values.Text("Música latina");
        soap.shortcut = values.Text("sc.303");
        soap.subCount = 404;
    }

    /// The element that it gives.
    static constexpr char kTree[] =
        "<GenreLite>"
        "<GenreId>g.101</GenreId>"
        "<Name encoding=\"base64\">TcO6c2ljYSBsYXRpbmE=</Name>"
        "<SubCount>404</SubCount>"
        "</GenreLite>";

    /// The log text of the record that this element fills.
    static constexpr char kText[] =
        "genreId = g.101\r\n"
        "name = Música latina\r\n"
        "subCount = 404\r\n";
};

#endif  // QUAVERA_TESTS_RECORDS_SAMPLE_GENRE_LITE_H_
