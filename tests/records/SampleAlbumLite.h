#ifndef QUAVERA_TESTS_RECORDS_SAMPLE_ALBUM_LITE_H_
#define QUAVERA_TESTS_RECORDS_SAMPLE_ALBUM_LITE_H_

#include <string>

#include "soap/QuaveraStub.h"
#include "tests/records/Values.h"

/// An album's summary with every member present and no value twice.
struct SampleAlbumLite {
    using Soap = Quavera::Quavera2__LiteAlbumMetadata;

    static void Fill(Soap& soap, Values& values) {
        soap.albumArt162x162Url = values.Text("http://art.example.com/162?id=41&x=1");
        soap.albumId = values.Text("Alb.4102");
        soap.albumType = values.Of(4103);
        soap.compilation = values.Of(true);
        soap.displayName = values.Text("Ночной экспресс (издание 2)");
        soap.displayableAlbumTypes =
            values.List<Quavera::Quavera2__ArrayOfString>({"ALBUM", "EP <2>"});
        soap.name = values.Text("Night Express – Édition Deux");
        soap.numberOfDiscs = values.Of(44);
        soap.numberOfTracks = values.Of(45);
        soap.parentalAuthority = values.Of(false);
        soap.primaryArtistDisplayName = values.Text("Ngọc và Bạn bè");
        soap.primaryArtistId = values.Text("Art.4106");
        soap.primaryStyle = values.Text("Jazz & Blues");
        soap.releaseDate = values.Of(1183248000UL);
        soap.releaseYear = values.Of(2007);
        soap.rightFlags = values.Of(4108);
        soap.shortcut = values.Text("night-express");
    }

    /// What is in the element that it gives.
    inline static const std::string kContent =
        "<AlbumArt162x162Url>http://art.example.com/162?id=41&amp;x=1</AlbumArt162x162Url>"
        "<AlbumId>Alb.4102</AlbumId>"
        "<AlbumType>4103</AlbumType>"
        "<Compilation>true</Compilation>"
        "<DisplayName encoding=\"base64\">"
        "0J3QvtGH0L3QvtC5INGN0LrRgdC/0YDQtdGB0YEgKNC40LfQtNCw0L3QuNC1IDIp</DisplayName>"
        "<Name encoding=\"base64\">TmlnaHQgRXhwcmVzcyDigJMgw4lkaXRpb24gRGV1eA==</Name>"
        "<ParentalAuthority>false</ParentalAuthority>"
        "<PrimaryArtistDisplayName encoding=\"base64\">Tmfhu41jIHbDoCBC4bqhbiBiw6g="
        "</PrimaryArtistDisplayName>"
        "<PrimaryArtistId>Art.4106</PrimaryArtistId>"
        "<PrimaryStyle>Jazz &amp; Blues</PrimaryStyle>"
        "<ReleaseYear>2007</ReleaseYear>"
        "<Shortcut>night-express</Shortcut>"
        "<DisplayableAlbumTypes><Value>ALBUM</Value><Value>EP &lt;2&gt;</Value>"
        "</DisplayableAlbumTypes>";
    inline static const std::string kTree = "<Album>" + kContent + "</Album>";

    /// The log text of the record that this element fills.
    static constexpr char kText[] =
        "albumArt162x162Url = http://art.example.com/162?id=41&x=1\r\n"
        "albumId = Alb.4102\r\n"
        "albumType = 4103\r\n"
        "compilation = true\r\n"
        "displayName = Ночной экспресс (издание 2)\r\n"
        "name = Night Express – Édition Deux\r\n"
        "parentalAuthority = false\r\n"
        "primaryArtistDisplayName = Ngọc và Bạn bè\r\n"
        "primaryArtistId = Art.4106\r\n"
        "primaryStyle = Jazz & Blues\r\n"
        "releaseYear = 2007\r\n"
        "shortcut = night-express\r\n"
        "  types = ALBUM\r\n"
        "  types = EP <2>\r\n";
    inline static const std::string kTextReadTwice =
        std::string(kText) + "  types = ALBUM\r\n  types = EP <2>\r\n";

    /// The log text of a record that holds nothing but an identifier.
    static std::string TextOfId(const std::string& albumId) {
        return "albumArt162x162Url = \r\nalbumId = " + albumId +
               "\r\nalbumType = 0\r\ncompilation = false\r\ndisplayName = \r\nname = \r\n"
               "parentalAuthority = false\r\nprimaryArtistDisplayName = \r\n"
               "primaryArtistId = \r\nprimaryStyle = \r\nreleaseYear = 0\r\nshortcut = \r\n";
    }
};

#endif  // QUAVERA_TESTS_RECORDS_SAMPLE_ALBUM_LITE_H_
