#ifndef QUAVERA_BENCH_REPORT_TARGET_H_
#define QUAVERA_BENCH_REPORT_TARGET_H_

#include <string>

#include "bench/report/Heap.h"
#include "bench/report/Instructions.h"

namespace bench {

/// What is measured of a build for the target, under emulation.
class Target {
 public:
    /// `sysroot` is the target's root folder, `build` the build's.
    Target(const std::string& sysroot, const std::string& build);

    /// Asks for the round by the album's size, too.
    void WantGrowth();
    /// Runs everything. Ends the program where one of the programs fails.
    void Take();

    /// Instructions of one repeat of a contender's steps.
    double Count(const std::string& contender, const std::string& steps, int trackCount) const {
        return instructions_.Of(contender, steps, trackCount);
    }
    /// Of ours.
    const HeapBySteps& HeapOfOurs() const { return heap_; }
    /// Bytes of a library's code.
    double CodeOfQuavera() const { return codeOfQuavera_; }
    double CodeOfZqshared() const { return codeOfZqshared_; }

 private:
    std::string emulator_;
    std::string build_;
    Instructions instructions_;
    HeapBySteps heap_;
    double codeOfQuavera_ = 0;
    double codeOfZqshared_ = 0;
};

}  // namespace bench

#endif  // QUAVERA_BENCH_REPORT_TARGET_H_
