// Prints what each step of a contender takes from the heap, per track: allocations, bytes asked
// for, and of what is held afterwards the bytes asked for and the bytes in the heap.

#include <cstdio>
#include <cstdlib>
#include <string>

#include "bench/measure/Allocations.h"
#include "bench/shared/Steps.h"

int main(int count, char** arguments) {
    const auto contender = count == 3 ? bench::MakeContender(arguments[1]) : nullptr;
    const int trackCount = count == 3 ? std::atoi(arguments[2]) : 0;
    if (contender == nullptr || trackCount < 1) {
        std::fputs("usage: quavera-bench-heap CONTENDER TRACKS\n", stderr);
        return 2;
    }
    bench::Album album(trackCount, contender->Wanted());
    // Once ahead: buffers that are used again count as there.
    bench::DoSteps("WSFPRTFD", album.soap(), contender.get());
    for (const std::string step : {"W", "R", "T", "F", "D"}) {
        bench::StartCounting();
        bench::DoSteps(step, album.soap(), contender.get());
        const bench::Allocations taken = bench::StopCounting();
        std::printf("%s %.4f %.1f %.1f %.1f\n", step.c_str(),
                    static_cast<double>(taken.count) / trackCount,
                    static_cast<double>(taken.requested) / trackCount,
                    static_cast<double>(taken.held) / trackCount,
                    static_cast<double>(taken.heldInHeap) / trackCount);
    }
    return 0;
}
