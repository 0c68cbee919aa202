#ifndef QUAVERA_TESTS_RECORDS_SAMPLE_ARTIST_H_
#define QUAVERA_TESTS_RECORDS_SAMPLE_ARTIST_H_

#include <string>

#include "soap/QuaveraStub.h"
#include "tests/records/SampleAlbumLite.h"
#include "tests/records/SampleArtistLite.h"
#include "tests/records/Values.h"

/// An artist with every member present and no value twice.
struct SampleArtist {
    using Soap = Quavera::Quavera2__ArtistMetadata;

    static void Fill(Soap& soap, Values& values) {
        SampleArtistLite::Fill(soap, values);
        auto* const secondAlbum = values.Of(SampleAlbumLite::Soap());
        secondAlbum->albumId = values.Text("Alb.6101");
        soap.albums = values.List<Quavera::Quavera2__ArrayOfLiteAlbumMetadata>(
            {values.Filled<SampleAlbumLite>(), secondAlbum});
        soap.artistStation = values.Of(Quavera::Quavera2__LiteStationMetadata());
        soap.artistStation->freeStation = true;
        soap.artistStation->name = values.Text("ラジオ・ソフィア");
        soap.artistStation->stationId = values.Text("Sta.6102");
        soap.artistStation->type = values.Text("ARTIST");
        soap.bio = values.Text("Η Σοφία τραγουδά.\r\nΔεύτερη γραμμή");
        soap.bioAuthor = values.Text("Ελένη Παππά");
        soap.blurb = values.Text("Kurz: 두 목소리");
        auto* const firstGenre = values.Of(Quavera::Quavera2__LiteGenreMetadata());
        firstGenre->genreId = values.Text("g.6103");
        firstGenre->name = values.Text("Λαϊκά");
        firstGenre->subCount = 6104;
        auto* const secondGenre = values.Of(Quavera::Quavera2__LiteGenreMetadata());
        secondGenre->genreId = values.Text("g.6105");
        soap.genres =
            values.List<Quavera::Quavera2__ArrayOfLiteGenreMetadata>({firstGenre, secondGenre});
    }

    /// The element that it gives.
    inline static const std::string kTree =
        "<Artist>" + SampleArtistLite::kContent + "<Albums>" + SampleAlbumLite::kTree +
        "<Album><AlbumId>Alb.6101</AlbumId></Album></Albums>"
        "<Station><Name encoding=\"base64\">44Op44K444Kq44O744K944OV44Kj44Ki</Name>"
        "<StationId>Sta.6102</StationId><Type>ARTIST</Type><FreeStation>true</FreeStation>"
        "</Station>"
        "<Bio encoding=\"base64\">zpcgzqPOv8+Gzq/OsSDPhM+BzrHOs86/z4XOtM6sLg0K"
        "zpTOtc+Nz4TOtc+BzrcgzrPPgc6xzrzOvM6u</Bio>"
        "<BioAuthor encoding=\"base64\">zpXOu86tzr3OtyDOoM6xz4DPgM6s</BioAuthor>"
        "<Blurb encoding=\"base64\">S3Vyejog65GQIOuqqeyGjOumrA==</Blurb>"
        "<Genres><GenreLite><GenreId>g.6103</GenreId>"
        "<Name encoding=\"base64\">zpvOsc+KzrrOrA==</Name><SubCount>6104</SubCount></GenreLite>"
        "<GenreLite><GenreId>g.6105</GenreId></GenreLite></Genres>"
        "</Artist>";

    /// The log text of the record that this element fills, as often as `times` says.
    static std::string Text(int times) {
        std::string text =
            "artistStation = name = ラジオ・ソフィア\r\nstationId = Sta.6102\r\ntype = ARTIST\r\n"
            "freeStation = true\r\n\r\n";
        for (int time = 0; time < times; ++time) {
            text += std::string("Album ") + SampleAlbumLite::kText + "Album " +
                    SampleAlbumLite::TextOfId("Alb.6101");
        }
        text +=
            "bio = Η Σοφία τραγουδά.\r\nΔεύτερη γραμμή\r\n"
            "bioAuthor = Ελένη Παππά\r\n"
            "blurb = Kurz: 두 목소리\r\n";
        for (int time = 0; time < times; ++time) {
            text +=
                "Genres genreId = g.6103\r\nname = Λαϊκά\r\nsubCount = 6104\r\n"
                "Genres genreId = g.6105\r\nname = \r\nsubCount = 0\r\n";
        }
        return text + SampleArtistLite::kText;
    }
    inline static const std::string kText = Text(1);
    inline static const std::string kTextReadTwice = Text(2);
};

#endif  // QUAVERA_TESTS_RECORDS_SAMPLE_ARTIST_H_
