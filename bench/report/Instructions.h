#ifndef QUAVERA_BENCH_REPORT_INSTRUCTIONS_H_
#define QUAVERA_BENCH_REPORT_INSTRUCTIONS_H_

#include <map>
#include <string>
#include <vector>

namespace bench {

/// What runs a program and prints how many instructions it has executed.
struct Counter {
    std::string command;  // ahead of the program's own
    std::string label;    // ahead of the count
};

/// Counts on this machine. It alone can count the instructions of single functions.
Counter Callgrind();

/// Instructions that runs of `quavera-bench-run` execute, counted as the difference of two runs
/// that differ in the number of repeats only. Starting, filling the album and warming up fall out
/// of it.
class Instructions {
 public:
    /// `program` is the path of `quavera-bench-run`.
    Instructions(std::string program, Counter counter)
        : program_(std::move(program)), counter_(std::move(counter)) {}

    /// Asks for the steps of a contender, or of these only `step`, a function's name.
    void Want(const std::string& contender, const std::string& steps, int trackCount,
              const std::string& step = {});
    /// Counts what was asked for, on all processors.
    void Count();
    /// The instructions of one repeat.
    double Of(const std::string& contender, const std::string& steps, int trackCount,
              const std::string& step = {}) const;

 private:
    struct Case {
        std::string command;  // up to the repeats
        int fewer;
        int more;
        double result;
    };

    static std::string Key(const std::string& contender, const std::string& steps, int trackCount,
                           const std::string& step);
    double Collected(const Case& wanted, int repeats) const;

    std::string program_;
    Counter counter_;
    std::map<std::string, Case> cases_;
};

}  // namespace bench

#endif  // QUAVERA_BENCH_REPORT_INSTRUCTIONS_H_
