#include "records/DataTrackLite.h"

#include <gtest/gtest.h>

#include <string>

#include "soap/QuaveraStub.h"
#include "tests/records/RecordTesting.h"
#include "tests/records/SampleTrack.h"

namespace {

struct TrackLiteCase : RecordCase {
    using Record = DataTrackLite;
    using Soap = SampleTrack::Soap;
    static void Fill(Soap& soap, Values& values) { SampleTrack::Fill(soap, values); }
    static constexpr char kTree[] =
        "<TrackLite>"
        "<Name encoding=\"base64\">5rW344Gu5q2MIPCfjrU=</Name>"
        "<TrackId>Tra.1010</TrackId>"
        "<TrackIndex>11</TrackIndex>"
        "</TrackLite>";
    static constexpr char kText[] =
        "name = 海の歌 🎵\r\n"
        "trackId = Tra.1010\r\n"
        "trackIndex = 11\r\n";
    static constexpr const char* kTextReadTwice = kText;
    static constexpr char kEmptyTree[] = "<TrackLite/>";
    static constexpr char kEmptyText[] = "name = \r\ntrackId = \r\ntrackIndex = 0\r\n";
};

const RulesFor<TrackLiteCase> kRules("DataTrackLite");

TEST(DataTrackLite, ReadsEachElementIntoItsField) {
    ExpectReadsDisplay("TrackLite", "Name", &DataTrackLite::name);
    ExpectReadsPlain("TrackLite", "TrackId", &DataTrackLite::trackId);
    ExpectReadsNumber("TrackLite", "TrackIndex", &DataTrackLite::trackIndex);
}

TEST(DataTrackLite, DocumentGivesItsTreeAndText) {
    ExpectDocument<TrackLiteCase>("DataTrackLite/full.xml", "Quavera2:LiteTrackMetadata",
                                  TestData("DataTrackLite/full.tree.xml"),
                                  TestData("DataTrackLite/full.txt"));
}

}  // namespace
