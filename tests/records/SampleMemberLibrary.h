#ifndef QUAVERA_TESTS_RECORDS_SAMPLE_MEMBER_LIBRARY_H_
#define QUAVERA_TESTS_RECORDS_SAMPLE_MEMBER_LIBRARY_H_

#include <string>

#include "soap/QuaveraStub.h"
#include "tests/records/SampleMemberLibraryLite.h"
#include "tests/records/SamplePlaylistLite.h"
#include "tests/records/SampleShortTrack.h"
#include "tests/records/SampleStationLite.h"
#include "tests/records/SampleTrack.h"
#include "tests/records/Values.h"

/// A member's library with every member present, two items in each list, and no value twice.
struct SampleMemberLibrary {
    using Soap = Quavera::Quavera2__MemberLibrary;

    static void Fill(Soap& soap, Values& values) {
        SampleMemberLibraryLite::Fill(soap, values);
        auto* const playlist = values.Of(Quavera::Quavera2__LitePlaylistMetadata());
        playlist->playlistId = values.Text("Pll.4402");
        soap.playlists = values.List<Quavera::Quavera2__ArrayOfLitePlaylistMetadata>(
            {values.Filled<SamplePlaylistLite>(), playlist});
        auto* const station = values.Of(Quavera::Quavera2__LiteStationMetadata());
        station->stationId = values.Text("Sta.4403");
        soap.stations = values.List<Quavera::Quavera2__ArrayOfLiteStationMetadata>(
            {values.Filled<SampleStationLite>(), station});
        soap.tracks = values.List<Quavera::Quavera2__ArrayOfLiteTrackMetadata>(
            {values.Filled<SampleTrack>(), values.Filled<SampleShortTrack>()});
    }

    /// The element that it gives.
    inline static const std::string kTree =
        std::string("<MemberLibrary>") + SampleMemberLibraryLite::kElements + "<Tracks>" +
        SampleTrack::kTree + SampleShortTrack::kTree + "</Tracks>" + "<Playlists>" +
        SamplePlaylistLite::kTree +
        "<Playlist><PlaylistId>Pll.4402</PlaylistId></Playlist></Playlists>" + "<Stations>" +
        SampleStationLite::kTree + "<Station><StationId>Sta.4403</StationId></Station></Stations>" +
        "</MemberLibrary>";

    inline static const std::string kTracksText =
        std::string("Track ") + SampleTrack::kText + "Track " + SampleShortTrack::kText;
    inline static const std::string kPlaylistsText = std::string("Playlist ") +
                                                     SamplePlaylistLite::kText +
                                                     "Playlist createdDate = \r\n"
                                                     "lastModifiedDate = \r\n"
                                                     "name = \r\n"
                                                     "playlistId = Pll.4402\r\n"
                                                     "type = \r\n";
    inline static const std::string kStationsText = std::string("Station ") +
                                                    SampleStationLite::kText +
                                                    "Station name = \r\n"
                                                    "stationId = Sta.4403\r\n"
                                                    "type = \r\n"
                                                    "freeStation = false\r\n";

    /// The log text of the record that this element fills.
    inline static const std::string kText =
        kTracksText + kPlaylistsText + kStationsText + SampleMemberLibraryLite::kText;
};

#endif  // QUAVERA_TESTS_RECORDS_SAMPLE_MEMBER_LIBRARY_H_
