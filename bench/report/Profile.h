#ifndef QUAVERA_BENCH_REPORT_PROFILE_H_
#define QUAVERA_BENCH_REPORT_PROFILE_H_

#include <map>
#include <string>
#include <vector>

namespace bench {

/// A function's own instructions, those of what is inlined into it included, as a share of all.
struct Share {
    std::string function;  // without its parameters
    std::string library;   // file name of the library or program
    double percent;
};

/// Where `quavera-bench-run` (`program`) executes the instructions of a contender's steps, the
/// largest share first.
std::vector<Share> ProfileOf(const std::string& program, const std::string& contender,
                             const std::string& steps, int trackCount);

/// Instructions of a command's run within each function that is called, by the functions' own
/// names, those of what the functions call included.
std::map<std::string, double> CallsOf(const std::string& command);

}  // namespace bench

#endif  // QUAVERA_BENCH_REPORT_PROFILE_H_
