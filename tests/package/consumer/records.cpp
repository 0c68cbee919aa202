// A track that comes from another process: no SOAP, and nothing of gSOAP.

#include "platform/zqshared.h"
#include "records/DataTrackInfo.h"

#ifdef WITH_DOM
#error "gSOAP's definitions are handed on with the records"
#endif

int main() {
    const auto tree = ZQXML::ParseXml(
        "<Track><Name encoding=\"base64\">U3RyYcOfZQ==</Name><TrackIndex>7</TrackIndex></Track>");
    DataTrackInfo track;
    track.FromXML(tree.get());
    return track.name == L"Straße" && track.trackIndex == 7 ? 0 : 1;
}
