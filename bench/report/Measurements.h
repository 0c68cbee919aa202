#ifndef QUAVERA_BENCH_REPORT_MEASUREMENTS_H_
#define QUAVERA_BENCH_REPORT_MEASUREMENTS_H_

#include <map>
#include <string>
#include <vector>

#include "bench/report/Instructions.h"
#include "bench/report/Profile.h"

namespace bench {

/// What a row of `quavera-bench-heap` says, per track.
struct Heap {
    double allocations = 0;
    double requested = 0;
    double held = 0;
    double heldInHeap = 0;
};

using HeapBySteps = std::map<std::string, Heap>;

/// All that the tables need, measured by the programs in one folder.
class Measurements {
 public:
    explicit Measurements(const std::string& folder);

    /// Runs everything. `targetHeap` is the command that runs the target's `quavera-bench-heap`,
    /// empty without one. Ends the program where one of the programs fails.
    void Take(const std::string& targetHeap);

    /// Instructions of one repeat of a contender's steps, or of one of these.
    double Count(const std::string& contender, const std::string& steps, int trackCount,
                 const std::string& step = {}) const;
    double Round(const std::string& contender, int trackCount) const;
    /// Instructions of one conversion, "ours" or "iconv".
    double Conversion(const std::string& way) const;

    /// Processor time of "round", "document" or "text", in microseconds.
    double Time(const std::string& what, const std::string& contender, int trackCount) const;
    double ConversionTime(const std::string& way) const;

    const HeapBySteps& HeapOf(const std::string& contender) const { return heap_.at(contender); }
    /// Empty where it was not measured.
    const HeapBySteps& TargetHeap() const { return targetHeap_; }

    /// Where the instructions of ours go.
    const std::vector<Share>& ProfileOfOurs(const std::string& steps) const {
        return profiles_.at(steps);
    }

 private:
    void Compare();
    void TakeHeap(const std::string& targetHeap);
    void TakeInstructions();
    void TakeProfiles();
    void TakeTimes();

    std::string folder_;
    Instructions instructions_;
    std::map<std::string, std::vector<Share>> profiles_;
    std::map<std::string, HeapBySteps> heap_;
    HeapBySteps targetHeap_;
    std::map<std::string, double> times_;
};

}  // namespace bench

#endif  // QUAVERA_BENCH_REPORT_MEASUREMENTS_H_
