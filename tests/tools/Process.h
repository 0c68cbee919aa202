#ifndef QUAVERA_TESTS_TOOLS_PROCESS_H_
#define QUAVERA_TESTS_TOOLS_PROCESS_H_

#include <gtest/gtest.h>
#include <sys/types.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "tests/tools/Descriptor.h"

namespace tooltest {

/// What a process left behind.
struct Outcome {
    int status = 0;  // exit status; negative: the signal that ended it
    std::string output;
    std::string errors;
    long mostMemory = 0;  // resident at its peak, in KiB
};

using Arguments = std::vector<std::string>;

/// The tool as a process of its own. One that takes a minute to finish is killed.
class Process {
 public:
    /// Starts it. Without an input it reads from an empty file; without an output, what it writes
    /// is collected.
    explicit Process(const Arguments& arguments, int input = -1, int output = -1);
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;
    ~Process();

    /// What it writes next, up to a line break.
    std::string ReadLine();

    pid_t Number() const { return process_; }

    void Signal(int number) const;

    /// Waits for its end.
    Outcome Finish();

 private:
    pid_t process_ = -1;
    Descriptor output_;
    Descriptor errors_;
    Outcome outcome_;
};

struct Pipe {
    Pipe();

    Descriptor reader;
    Descriptor writer;
};

/// An open file without a name that holds `contents`, to be read from its beginning.
Descriptor InputFile(const std::string& contents);

/// Runs the tool to its end, with `input` on its standard input.
Outcome RunTool(const Arguments& arguments, const std::string& input = {});

/// The same with a file in place of the collected output.
Outcome RunToolInto(const std::string& path, const Arguments& arguments,
                    const std::string& input = {});

/// Whether a run succeeded, wrote `output` and nothing else.
testing::AssertionResult Printed(const Outcome& outcome, const std::string& output);

/// Whether a run ended with `status`, wrote nothing to its output, and one line about itself to
/// its errors, which holds all of `parts`.
testing::AssertionResult Refused(const Outcome& outcome, int status,
                                 const std::vector<std::string>& parts);

}  // namespace tooltest

#endif  // QUAVERA_TESTS_TOOLS_PROCESS_H_
