// Reads a track's tree from its text.

#include <iostream>
#include <string>

#include "records/DataTrackInfo.h"
#include "records/RecordText.h"

int main() {
    DataTrackInfo track;
    std::string error;
    if (!quavera::ReadRecord("<Track><TrackId>Tra.1</TrackId></Track>", &track, &error)) {
        std::cerr << error << '\n';
        return 1;
    }
    return track.trackId == "Tra.1" ? 0 : 1;
}
