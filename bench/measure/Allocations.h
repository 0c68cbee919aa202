#ifndef QUAVERA_BENCH_MEASURE_ALLOCATIONS_H_
#define QUAVERA_BENCH_MEASURE_ALLOCATIONS_H_

#include <cstddef>

namespace bench {

/// What the program has taken from the heap while counting was on. A program that links
/// Allocations.cpp has its own `malloc` and relatives, which count and hand on.
struct Allocations {
    std::size_t count = 0;      // calls that yielded a block
    std::size_t requested = 0;  // bytes that these calls asked for
    // What is still held: bytes asked for, and bytes that the blocks take in the heap, header and
    // rounding included.
    std::ptrdiff_t held = 0;
    std::ptrdiff_t heldInHeap = 0;
};

/// Sets all counts to zero and begins to count.
void StartCounting();
/// Stops counting and returns the counts.
Allocations StopCounting();

}  // namespace bench

#endif  // QUAVERA_BENCH_MEASURE_ALLOCATIONS_H_
