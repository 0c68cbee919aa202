#ifndef QUAVERA_TESTS_RECORDS_SAMPLE_PLAYLIST_H_
#define QUAVERA_TESTS_RECORDS_SAMPLE_PLAYLIST_H_

#include <string>

#include "soap/QuaveraStub.h"
#include "tests/records/SamplePlaylistLite.h"
#include "tests/records/SampleShortTrack.h"
#include "tests/records/SampleTrack.h"
#include "tests/records/Values.h"

/// A playlist with every member present, two tracks, and no value twice.
struct SamplePlaylist {
    using Soap = Quavera::Quavera2__PlaylistMetadata;

    static void Fill(Soap& soap, Values& values) {
        SamplePlaylistLite::Fill(soap, values);
        soap.tracks = values.List<Quavera::Quavera2__ArrayOfLiteTrackMetadata>(
            {values.Filled<SampleTrack>(), values.Filled<SampleShortTrack>()});
    }

    /// The element that it gives.
    inline static const std::string kTree =
        std::string("<Playlist>") + SamplePlaylistLite::kElements + "<Tracks>" +
        SampleTrack::kTree + SampleShortTrack::kTree + "</Tracks></Playlist>";

    /// What the tracks give to the log text.
    inline static const std::string kTracksText =
        std::string("Track ") + SampleTrack::kText + "Track " + SampleShortTrack::kText;

    /// The log text of the record that this element fills.
    inline static const std::string kText = kTracksText + SamplePlaylistLite::kText;
};

#endif  // QUAVERA_TESTS_RECORDS_SAMPLE_PLAYLIST_H_
