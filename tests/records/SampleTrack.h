#ifndef QUAVERA_TESTS_RECORDS_SAMPLE_TRACK_H_
#define QUAVERA_TESTS_RECORDS_SAMPLE_TRACK_H_

#include "soap/QuaveraStub.h"
#include "tests/records/Values.h"

/// A track with every member present and no value twice.
struct SampleTrack {
    using Soap = Quavera::Quavera2__LiteTrackMetadata;

    static void Fill(Soap& soap, Values& values) {
        soap.albumId = values.Text("Alb.101");
        soap.artistId = values.Text("Art.202");
        soap.discIndex = values.Of(3);
        soap.displayAlbumName = values.Text("Über den Dächern");
        soap.displayArtistName = values.Text("Ансамбль «Заря»");
        soap.genreId = values.Text("g.404");
        soap.isrc = values.Text("QZ-A1B-05-00505");
        soap.name = values.Text("海の歌 🎵");
        soap.playbackSeconds = values.Of(606);
        soap.popularity = values.Of(70);
        soap.previewUrl = values.Text("http://media.example.com/8");
        soap.rightFlags = values.Of(909);
        soap.trackId = values.Text("Tra.1010");
        soap.trackIndex = values.Of(11);
    }

    /// The element that it gives.
    static constexpr char kTree[] =
        "<Track>"
        "<AlbumId>Alb.101</AlbumId>"
        "<ArtistId>Art.202</ArtistId>"
        "<DiscIndex>3</DiscIndex>"
        "<DisplayAlbumName encoding=\"base64\">w5xiZXIgZGVuIETDpGNoZXJu</DisplayAlbumName>"
        "<DisplayArtistName encoding=\"base64\">0JDQvdGB0LDQvNCx0LvRjCDCq9CX0LDRgNGPwrs="
        "</DisplayArtistName>"
        "<GenreId>g.404</GenreId>"
        "<Name encoding=\"base64\">5rW344Gu5q2MIPCfjrU=</Name>"
        "<PlaybackSeconds>606</PlaybackSeconds>"
        "<RightFlags>909</RightFlags>"
        "<TrackId>Tra.1010</TrackId>"
        "<TrackIndex>11</TrackIndex>"
        "</Track>";

    /// The log text of the record that this element fills.
    static constexpr char kText[] =
        "AlbumId = Alb.101\r\n"
        "AlbumId = Alb.101\r\n"
        "ArtistId = Art.202\r\n"
        "DiscIndex = 3\r\n"
        "DisplayAlbumName = Über den Dächern\r\n"
        "DisplayArtistName = Ансамбль «Заря»\r\n"
        "Name = 海の歌 🎵\r\n"
        "PlaybackSeconds = 606\r\n"
        "TrackId = Tra.1010\r\n"
        "TrackIndex = 11\r\n"
        "UserData = \r\n";
};

#endif  // QUAVERA_TESTS_RECORDS_SAMPLE_TRACK_H_
