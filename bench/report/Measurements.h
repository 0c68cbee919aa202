#ifndef QUAVERA_BENCH_REPORT_MEASUREMENTS_H_
#define QUAVERA_BENCH_REPORT_MEASUREMENTS_H_

#include <map>
#include <string>
#include <vector>

#include "bench/report/Heap.h"
#include "bench/report/Instructions.h"
#include "bench/report/Profile.h"
#include "bench/report/Target.h"

namespace bench {

/// All that the tables need, measured by the programs in one folder, and on the target.
class Measurements {
 public:
    Measurements(const std::string& folder, Target target);

    /// Runs everything. Ends the program where one of the programs fails.
    void Take();

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

    const bench::Target& OnTarget() const { return target_; }

    /// Where the instructions of ours go.
    const std::vector<Share>& ProfileOfOurs(const std::string& steps) const {
        return profiles_.at(steps);
    }

 private:
    void Compare();
    void TakeHeap();
    void TakeInstructions();
    void TakeProfiles();
    void TakeTimes();

    std::string folder_;
    Target target_;
    Instructions instructions_;
    std::map<std::string, std::vector<Share>> profiles_;
    std::map<std::string, HeapBySteps> heap_;
    std::map<std::string, double> times_;
};

}  // namespace bench

#endif  // QUAVERA_BENCH_REPORT_MEASUREMENTS_H_
