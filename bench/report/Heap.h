#ifndef QUAVERA_BENCH_REPORT_HEAP_H_
#define QUAVERA_BENCH_REPORT_HEAP_H_

#include <map>
#include <string>

namespace bench {

/// What a row of `quavera-bench-heap` says, per track.
struct Heap {
    double allocations = 0;
    double requested = 0;
    double held = 0;
    double heldInHeap = 0;
};

using HeapBySteps = std::map<std::string, Heap>;

/// What `program`, the command that runs `quavera-bench-heap`, says of a contender.
HeapBySteps HeapOf(const std::string& program, const std::string& contender);

}  // namespace bench

#endif  // QUAVERA_BENCH_REPORT_HEAP_H_
