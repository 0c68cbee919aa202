#ifndef QUAVERA_BENCH_SHARED_NEW_TRACK_H_
#define QUAVERA_BENCH_SHARED_NEW_TRACK_H_

#include <memory>
#include <vector>

#include "records/DataTrackInfo.h"

namespace bench {

/// Appends a track without the room that its constructor reserves, six allocations.
inline DataTrackInfo& AppendUnreserved(std::vector<DataTrackInfo>& tracks) {
    // A copy has no more room than its texts need.
    static const DataTrackInfo prototype = *std::make_unique<DataTrackInfo>();
    return tracks.emplace_back(prototype);
}

}  // namespace bench

#endif  // QUAVERA_BENCH_SHARED_NEW_TRACK_H_
