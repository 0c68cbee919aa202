#ifndef QUAVERA_BENCH_REPORT_STAGES_H_
#define QUAVERA_BENCH_REPORT_STAGES_H_

#include <map>
#include <string>

// The way from the bytes that the service answers with to log text, stage by stage.

namespace bench {

/// Instructions of stages, by the names of their functions, for each number of tracks.
using StageCounts = std::map<int, std::map<std::string, double>>;

/// What `program`, the path of `quavera-bench-stages`, takes on this machine. These end the program
/// where a run fails.
StageCounts StagesHere(const std::string& program);
/// What that of a build for the target takes, whose root folder is `sysroot`.
StageCounts StagesOnTarget(const std::string& sysroot, const std::string& build);

/// Prints the table, with its heading.
void PrintStages(const StageCounts& here, const StageCounts& onTarget);

}  // namespace bench

#endif  // QUAVERA_BENCH_REPORT_STAGES_H_
