#ifndef QUAVERA_TESTS_RECORDS_SAMPLE_PLAYLIST_LITE_H_
#define QUAVERA_TESTS_RECORDS_SAMPLE_PLAYLIST_LITE_H_

#include <string>

#include "soap/QuaveraStub.h"
#include "tests/records/Values.h"

/// A playlist's summary with every member present and no value twice.
struct SamplePlaylistLite {
    using Soap = Quavera::Quavera2__LitePlaylistMetadata;

    static void Fill(Soap& soap, Values& values) {
        soap.author = values.Text("Jürgen");
        soap.collaborative = values.Of(true);
        soap.createdDate = values.Of(1199145600UL);
        soap.description = values.Text("Zum Einschlafen");
        soap.lastModifiedDate = values.Of(3000000007UL);
        soap.name = values.Text("Été & <Hiver> 冬");
        soap.playlistId = values.Text("Pll.4401");
        soap.trackCount = values.Of(58);
        soap.type = values.Text("MEMBER");
    }

    static constexpr char kElements[] =
        "<CreatedDate>1199145600</CreatedDate>"
        "<LastModifiedDate>3000000007</LastModifiedDate>"
        "<Name>Été &amp; &lt;Hiver&gt; 冬</Name>"
        "<PlaylistId>Pll.4401</PlaylistId>"
        "<Type>MEMBER</Type>";

    /// The element that it gives.
    inline static const std::string kTree = std::string("<Playlist>") + kElements + "</Playlist>";

    /// The log text of the record that this element fills.
    static constexpr char kText[] =
        "createdDate = 1199145600\r\n"
        "lastModifiedDate = 3000000007\r\n"
        "name = Été & <Hiver> 冬\r\n"
        "playlistId = Pll.4401\r\n"
        "type = MEMBER\r\n";

    /// The element of a summary without any member, and the log text of a new record.
    static constexpr char kEmptyTree[] = "<Playlist/>";
    static constexpr char kEmptyText[] =
        "createdDate = \r\n"
        "lastModifiedDate = \r\n"
        "name = \r\n"
        "playlistId = \r\n"
        "type = \r\n";
};

#endif  // QUAVERA_TESTS_RECORDS_SAMPLE_PLAYLIST_LITE_H_
