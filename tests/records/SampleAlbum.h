#ifndef QUAVERA_TESTS_RECORDS_SAMPLE_ALBUM_H_
#define QUAVERA_TESTS_RECORDS_SAMPLE_ALBUM_H_

#include <string>

#include "soap/QuaveraStub.h"
#include "tests/records/SampleAlbumLite.h"
#include "tests/records/SampleArtistLite.h"
#include "tests/records/SampleTrack.h"
#include "tests/records/Values.h"

/// An album with every member present and no value twice.
struct SampleAlbum {
    using Soap = Quavera::Quavera2__AlbumMetadata;

    static void Fill(Soap& soap, Values& values) {
        SampleAlbumLite::Fill(soap, values);
        soap.albumArt70x70Url = values.Text("http://art.example.com/70?id=51");
        soap.copyright = values.Text("© 2007 Größe & Söhne");
        soap.label = values.Text("Südlicht <Records>");
        soap.nonDisplayableAlbumTypes =
            values.List<Quavera::Quavera2__ArrayOfString>({"SINGLE", "LIVE & MORE"});
        soap.originalReleaseYear = values.Of(1998);
        soap.playbackSeconds = values.Of(3605);
        soap.primaryArtist = values.Filled<SampleArtistLite>();
        auto* const secondTrack = values.Of(SampleTrack::Soap());
        secondTrack->trackId = values.Text("Tra.5206");
        soap.tracks = values.List<Quavera::Quavera2__ArrayOfLiteTrackMetadata>(
            {values.Filled<SampleTrack>(), secondTrack});
        soap.upccode = values.Text("0042228405207");
    }

    /// The element that it gives.
    inline static const std::string kTree =
        "<Album>" + SampleAlbumLite::kContent +
        "<AlbumArt70x70Url>http://art.example.com/70?id=51</AlbumArt70x70Url>"
        "<Copyright>© 2007 Größe &amp; Söhne</Copyright>"
        "<Label>Südlicht &lt;Records&gt;</Label>"
        "<NonDisplayableAlbumTypes>SINGLE</NonDisplayableAlbumTypes>"
        "<NonDisplayableAlbumTypes>LIVE &amp; MORE</NonDisplayableAlbumTypes>" +
        SampleArtistLite::kTree + "<Tracks>" + SampleTrack::kTree +
        "<Track><TrackId>Tra.5206</TrackId></Track></Tracks>"
        "<Upccode>0042228405207</Upccode>"
        "</Album>";

    /// The log text of the record that this element fills, as often as `times` says.
    static std::string Text(int times) {
        std::string text =
            "AlbumArt70x70Url = http://art.example.com/70?id=51\r\n"
            "copyright = © 2007 Größe & Söhne\r\n"
            "label = Südlicht <Records>\r\n";
        for (int time = 0; time < times; ++time) {
            text += "nonDisplayableAlbumTypes SINGLEnonDisplayableAlbumTypes LIVE & MORE";
        }
        text += std::string("primaryArtist = ") + SampleArtistLite::kText + "\r\n";
        for (int time = 0; time < times; ++time) {
            text += std::string("Track ") + SampleTrack::kText +
                    "Track AlbumId = \r\nAlbumId = \r\nArtistId = \r\nDiscIndex = 0\r\n"
                    "DisplayAlbumName = \r\nDisplayArtistName = \r\nName = \r\n"
                    "PlaybackSeconds = 0\r\nTrackId = Tra.5206\r\nTrackIndex = 0\r\n"
                    "UserData = \r\n";
        }
        text += "upccode = 0042228405207\r\n";
        return text + (times == 1 ? SampleAlbumLite::kText : SampleAlbumLite::kTextReadTwice);
    }
    inline static const std::string kText = Text(1);
    inline static const std::string kTextReadTwice = Text(2);
};

#endif  // QUAVERA_TESTS_RECORDS_SAMPLE_ALBUM_H_
