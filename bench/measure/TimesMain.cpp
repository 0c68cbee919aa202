// Times, by Google Benchmark: "round" is W, R, F and D, "document" has S and P in between, "text"
// is the log text alone.

#include <benchmark/benchmark.h>

#include <cstdio>
#include <string>

#include "bench/measure/Conversion.h"
#include "bench/shared/Agreement.h"
#include "bench/shared/Cases.h"
#include "bench/shared/Steps.h"
#include "common/QuaveraCommon.h"

namespace {

using bench::kFew;
using bench::kMany;

/// Registers steps of a contender on an album with so many tracks.
void Register(const std::string& what, const std::string& steps, const std::string& name,
              int trackCount) {
    const auto measure = [=](benchmark::State& state) {
        const auto contender = bench::MakeContender(name);
        bench::Album album(trackCount, contender->Wanted());
        bench::Prepare(steps, album.soap(), contender.get());
        for (auto _ : state) {
            bench::DoSteps(steps, album.soap(), contender.get());
        }
    };
    const std::string title = what + '/' + name + '/' + std::to_string(trackCount);
    benchmark::RegisterBenchmark(title.c_str(), measure)->Unit(benchmark::kMicrosecond);
}

template <class Convert>
void RegisterConversion(const char* title, Convert convert) {
    const auto measure = [=](benchmark::State& state) {
        const std::string text = bench::AsciiText(bench::kTextSize);
        for (auto _ : state) {
            benchmark::DoNotOptimize(convert(text));
        }
    };
    benchmark::RegisterBenchmark(title, measure)->Unit(benchmark::kMicrosecond);
}

/// The floors that have no XML text.
bool IsFloor(const std::string& name) {
    return name == "floor" || name == "floor-bare";
}

/// Whether the contender has the whole way only.
bool IsText(const std::string& name) {
    return name == "floor-text" || name.find("gsoap") != std::string::npos;
}

void RegisterAll() {
    for (const std::string& name : bench::ContenderNames()) {
        for (const int trackCount : {kMany, kFew}) {
            if (!IsText(name)) {
                Register("round", bench::kRound, name, trackCount);
            }
            if (!IsFloor(name)) {
                Register("document", bench::kDocument, name, trackCount);
            }
        }
        if (IsFloor(name) || name == "ours") {
            Register("text", bench::kText, name, kMany);
        }
    }
    for (const int trackCount : bench::kGrowth) {
        if (trackCount != kMany && trackCount != kFew) {
            Register("round", bench::kRound, "ours", trackCount);
        }
    }
    RegisterConversion("convert/ours", convertFromUtf8);
    RegisterConversion("convert/iconv", bench::ConvertByOpeningIconv);
}

}  // namespace

int main(int count, char** arguments) {
    benchmark::Initialize(&count, arguments);
    if (benchmark::ReportUnrecognizedArguments(count, arguments)) {
        return 2;
    }
    if (!bench::Agree(kFew) || !bench::Agree(kMany)) {
        return 1;
    }
    RegisterAll();
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
