#ifndef QUAVERA_TESTS_RECORDS_SAMPLE_SHORT_TRACK_H_
#define QUAVERA_TESTS_RECORDS_SAMPLE_SHORT_TRACK_H_

#include "soap/QuaveraStub.h"
#include "tests/records/Values.h"

/// A second track for lists, with few members.
struct SampleShortTrack {
    using Soap = Quavera::Quavera2__LiteTrackMetadata;

    static void Fill(Soap& soap, Values& values) {
        soap.discIndex = values.Of(12);
        soap.name = values.Text("Ñandú");
        soap.trackId = values.Text("Tra.2020");
    }

    /// The element that it gives.
    static constexpr char kTree[] =
        "<Track><DiscIndex>12</DiscIndex><Name "
        "encoding=\"base64\">w5FhbmTDug==</Name><TrackId>Tra.2020</TrackId></Track>";

    /// The log text of the record that this element fills.
    static constexpr char kText[] =
        "AlbumId = \r\n"
        "AlbumId = \r\n"
        "ArtistId = \r\n"
        "DiscIndex = 12\r\n"
        "DisplayAlbumName = \r\n"
        "DisplayArtistName = \r\n"
        "Name = Ñandú\r\n"
        "PlaybackSeconds = 0\r\n"
        "TrackId = Tra.2020\r\n"
        "TrackIndex = 0\r\n"
        "UserData = \r\n";
};

#endif  // QUAVERA_TESTS_RECORDS_SAMPLE_SHORT_TRACK_H_
