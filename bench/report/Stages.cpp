#include "bench/report/Stages.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <numeric>
#include <sstream>
#include <vector>

#include "bench/report/Command.h"
#include "bench/report/Markdown.h"
#include "bench/report/Profile.h"

namespace bench {
namespace {

constexpr int kTrackCounts[] = {12, 200, 5000};
constexpr int kInPercent = 200;

struct Stage {
    const char* function;
    const char* title;
};

constexpr Stage kStages[] = {
    {"StepDecode", "gSOAP: bytes to SOAP record"},
    {"StepWrite", "W"},
    {"StepSave", "S"},
    {"StepParse", "P"},
    {"StepRead", "R"},
    {"StepText", "T"},
    {"StepFree", "F, of both trees"},
    {"StepDrop", "drop"},
    {"StepEnd", "gSOAP: freeing"},
};

using Counts = std::map<std::string, double>;

/// By the difference of two runs of `program`, which `count` counts.
template <class Count>
StageCounts CountStages(const std::string& program, Count count) {
    StageCounts counts;
    for (const int trackCount : kTrackCounts) {
        const int repeats = std::clamp(4000 / trackCount, 4, 100);  // enough for an even count
        const std::string command =
            program + " recommended WSFPRTFD " + std::to_string(trackCount) + ' ';
        const Counts fewer = count(command + "1");
        const Counts more = count(command + std::to_string(1 + repeats));
        for (const Stage& stage : kStages) {
            counts[trackCount][stage.function] =
                (more.at(stage.function) - fewer.at(stage.function)) / repeats;
        }
    }
    return counts;
}

/// What the emulator's plugin says: "1234 of SYMBOL", with a name's length ahead of the name.
Counts CountLaps(const std::string& command) {
    Counts counts;
    std::istringstream lines(OutputOf(command + " 2>&1"));
    for (std::string line; std::getline(lines, line);) {
        for (const Stage& stage : kStages) {
            const std::string name = stage.function;
            if (line.find(std::to_string(name.size()) + name) != std::string::npos) {
                counts[name] += std::strtod(line.c_str(), nullptr);
            }
        }
    }
    return counts;
}

double SumOf(const Counts& counts) {
    return std::accumulate(counts.begin(), counts.end(), 0.0,
                           [](double sum, const auto& count) { return sum + count.second; });
}

/// Adds what `of` says of each album's stages, per track, and its share.
template <class Of>
void AddCells(const StageCounts& counts, Of of, std::vector<std::string>* row) {
    for (const int trackCount : kTrackCounts) {
        row->push_back(Whole(of(counts.at(trackCount)) / trackCount));
    }
    const Counts& shared = counts.at(kInPercent);
    row->push_back(Fixed(of(shared) / SumOf(shared) * 100, 1));
}

}  // namespace

StageCounts StagesHere(const std::string& program) {
    return CountStages(program, CallsOf);
}

StageCounts StagesOnTarget(const std::string& sysroot, const std::string& build) {
    const std::string folder = build + "/bench/";
    return CountStages("qemu-arm -L " + sysroot + " -plugin " + folder +
                           "libquavera-count.so,laps=Step -d plugin " + folder +
                           "quavera-bench-stages",
                       CountLaps);
}

void PrintStages(const StageCounts& here, const StageCounts& onTarget) {
    std::printf("\n### From SOAP bytes to log text\n\n");
    Table table({"", "12 tracks", "200", "5,000", "%", "on the target: 12", "200", "5,000", "%"});
    const auto addRow = [&](const std::string& title, auto of) {
        std::vector<std::string> row = {title};
        AddCells(here, of, &row);
        AddCells(onTarget, of, &row);
        table.Row(row);
    };
    for (const Stage& stage : kStages) {
        addRow(stage.title, [&](const Counts& counts) { return counts.at(stage.function); });
    }
    addRow("all", SumOf);
    std::printf("\nInstructions per track; the shares are those of 200 tracks.\n");
}

}  // namespace bench
