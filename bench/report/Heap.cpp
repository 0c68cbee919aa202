#include "bench/report/Heap.h"

#include <sstream>

#include "bench/report/Command.h"
#include "bench/shared/Cases.h"

namespace bench {

HeapBySteps HeapOf(const std::string& program, const std::string& contender) {
    HeapBySteps heap;
    std::istringstream rows(OutputOf(program + ' ' + contender + ' ' + std::to_string(kMany)));
    std::string step;
    Heap row;
    while (rows >> step >> row.allocations >> row.requested >> row.held >> row.heldInHeap) {
        heap[step] = row;
    }
    return heap;
}

}  // namespace bench
