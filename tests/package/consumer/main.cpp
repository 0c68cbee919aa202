// A track's way through the library, outside of its source tree.

#include <cstdio>
#include <string>

#include "common/QuaveraCommon.h"
#include "platform/zqshared.h"
#include "records/DataTrackInfo.h"
#include "soap/QuaveraStub.h"

namespace {

int failures = 0;

void Check(bool isTrue, const char* what) {
    if (!isTrue) {
        std::fprintf(stderr, "not true: %s\n", what);
        ++failures;
    }
}

/// The track's tree, as text.
std::string Send() {
    Quavera::Quavera2__LiteTrackMetadata soap;
    std::string name = "Straße 夜";
    std::string trackId = "Tra.1";
    int trackIndex = 7;
    soap.name = &name;
    soap.trackId = &trackId;
    soap.trackIndex = &trackIndex;
    return ZQXML::WriteXml(DataTrackInfo::ToXML(&soap).get());
}

}  // namespace

int main() {
    const std::string text = Send();
    Check(text ==
              "<Track><Name encoding=\"base64\">U3RyYcOfZSDlpJw=</Name>"
              "<TrackId>Tra.1</TrackId><TrackIndex>7</TrackIndex></Track>",
          "the tree is the track's");

    const auto tree = ZQXML::ParseXml(text);
    Check(static_cast<bool>(tree), "the tree can be read back");
    DataTrackInfo track;
    track.FromXML(tree.get());
    Check(track.name == L"Straße 夜", "the name arrives");
    Check(track.trackId == "Tra.1", "the identifier arrives");
    Check(track.trackIndex == 7, "the number arrives");
    Check(convertToUtf8(track.name) == "Straße 夜", "the name converts");
    Check(track.ToString().find("TrackIndex = 7\r\n") != std::string::npos, "the record prints");
    return failures;
}
