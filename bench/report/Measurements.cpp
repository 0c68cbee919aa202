#include "bench/report/Measurements.h"

#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <utility>

#include "bench/report/Command.h"
#include "bench/report/Contenders.h"
#include "bench/shared/Cases.h"

namespace bench {
namespace {

void Say(const char* text) {
    std::fprintf(stderr, "quavera-bench-report: %s\n", text);
}

}  // namespace

Measurements::Measurements(const std::string& folder, Target target)
    : folder_(folder),
      target_(std::move(target)),
      instructions_(folder + "/quavera-bench-run", Callgrind()) {}

void Measurements::Take() {
    Compare();
    Say("emulating the target");
    target_.WantGrowth();
    target_.Take();
    TakeHeap();
    TakeInstructions();
    TakeProfiles();
    TakeTimes();
}

double Measurements::Count(const std::string& contender, const std::string& steps, int trackCount,
                           const std::string& step) const {
    return instructions_.Of(contender, steps, trackCount, step);
}

double Measurements::Round(const std::string& contender, int trackCount) const {
    return Count(contender, kRound, trackCount);
}

double Measurements::Conversion(const std::string& way) const {
    return Count("convert", way, kTextSize);
}

double Measurements::Time(const std::string& what, const std::string& contender,
                          int trackCount) const {
    return times_.at(what + '/' + contender + '/' + std::to_string(trackCount));
}

double Measurements::ConversionTime(const std::string& way) const {
    return times_.at("convert/" + way);
}

void Measurements::Compare() {
    Say("comparing what the contenders make");
    for (const int trackCount : {0, kFew, kMany}) {
        OutputOf(folder_ + "/quavera-bench-run check " + std::to_string(trackCount));
    }
}

void Measurements::TakeHeap() {
    Say("counting allocations");
    for (const std::string& name : kInHeap) {
        heap_[name] = bench::HeapOf(folder_ + "/quavera-bench-heap", name);
    }
}

void Measurements::TakeInstructions() {
    Say("counting instructions");
    for (const std::string& name : Both(kTrees, kFloors)) {
        instructions_.Want(name, kRound, kMany);
        instructions_.Want(name, kRound, kFew);
    }
    for (const std::string& name : kTrees) {
        for (const std::string& step : kRoundSteps) {
            instructions_.Want(name, kRound, kMany, step);
        }
    }
    for (const std::string& name : kWithSteps) {
        for (const std::string& step : kTextSteps) {
            instructions_.Want(name, kDocument, kMany, step);
        }
    }
    for (const std::string& name : kDocuments) {
        instructions_.Want(name, kDocument, kMany);
        instructions_.Want(name, kDocument, kFew);
    }
    for (const std::string& name : kWithText) {
        instructions_.Want(name, kText, kMany);
    }
    for (const std::string& name : kGrowing) {
        for (const int trackCount : kGrowth) {
            if (GrowsTo(trackCount, name)) {
                instructions_.Want(name, kRound, trackCount);
            }
        }
    }
    for (const std::string way : {"ours", "iconv"}) {
        instructions_.Want("convert", way, kTextSize);
    }
    instructions_.Count();
}

void Measurements::TakeProfiles() {
    Say("profiling");
    for (const std::string steps : {kRound, kDocument, kText}) {
        profiles_[steps] = ProfileOf(folder_ + "/quavera-bench-run", "ours", steps, kMany);
    }
}

void Measurements::TakeTimes() {
    Say("taking times");
    std::istringstream rows(
        OutputOf(folder_ +
                 "/quavera-bench --benchmark_enable_random_interleaving=true "
                 "--benchmark_repetitions=9 --benchmark_min_time=0.03 "
                 "--benchmark_report_aggregates_only=true --benchmark_format=csv 2>/dev/null"));
    const std::string mark = "_median\",";
    for (std::string row; std::getline(rows, row);) {
        const std::size_t end = row.find(mark);
        if (end == std::string::npos || row[0] != '"') {
            continue;
        }
        // Behind the name: iterations, real time, processor time.
        std::size_t at = row.find(',', end + mark.size());
        at = row.find(',', at + 1);
        times_[row.substr(1, end - 1)] = std::strtod(row.c_str() + at + 1, nullptr);
    }
}

}  // namespace bench
