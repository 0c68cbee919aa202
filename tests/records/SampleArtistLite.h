#ifndef QUAVERA_TESTS_RECORDS_SAMPLE_ARTIST_LITE_H_
#define QUAVERA_TESTS_RECORDS_SAMPLE_ARTIST_LITE_H_

#include <string>

#include "soap/QuaveraStub.h"
#include "tests/records/Values.h"

/// An artist's summary with every member present and no value twice.
struct SampleArtistLite {
    using Soap = Quavera::Quavera2__LiteArtistMetadata;

    static void Fill(Soap& soap, Values& values) {
        soap.artistId = values.Text("Art.3101");
        soap.name = values.Text("Σοφία & Δάφνη");
        soap.rightFlags = values.Of(3102);
        soap.shortcut = values.Text("sofia-dafni");
    }

    /// What is in the element that it gives.
    inline static const std::string kContent =
        "<ArtistId>Art.3101</ArtistId>"
        "<Name encoding=\"base64\">zqPOv8+Gzq/OsSAmIM6UzqzPhs69zrc=</Name>"
        "<Shortcut>sofia-dafni</Shortcut>";
    inline static const std::string kTree = "<Artist>" + kContent + "</Artist>";

    /// The log text of the record that this element fills.
    static constexpr char kText[] =
        "artistId = Art.3101\r\n"
        "name = Σοφία & Δάφνη\r\n"
        "shortcut = sofia-dafni\r\n";
};

#endif  // QUAVERA_TESTS_RECORDS_SAMPLE_ARTIST_LITE_H_
