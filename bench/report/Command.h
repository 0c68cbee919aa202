#ifndef QUAVERA_BENCH_REPORT_COMMAND_H_
#define QUAVERA_BENCH_REPORT_COMMAND_H_

#include <string>

namespace bench {

/// Runs a shell command and returns what it writes to standard output. Ends the program where the
/// command fails.
std::string OutputOf(const std::string& command);

}  // namespace bench

#endif  // QUAVERA_BENCH_REPORT_COMMAND_H_
