#include "tests/tools/Process.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdlib>
#include <sstream>
#include <utility>

namespace tooltest {
namespace {

constexpr int kMillisecondsForOutput = 60000;
constexpr int kNoProgram = 127;

/// The command line with the emulator's ahead of it, if the program needs one.
std::vector<std::string> CommandLine(const Arguments& arguments) {
    std::istringstream emulator(QUAVERA_TEST_EMULATOR);
    std::vector<std::string> line;
    for (std::string word; emulator >> word;) {
        line.push_back(word);
    }
    line.emplace_back(QUAVERA_TEST_PROGRAM);
    line.insert(line.end(), arguments.begin(), arguments.end());
    return line;
}

/// Waits until one of both can be read, or is at its end. False after a minute of silence.
bool WaitForOutput(const Descriptor& first, const Descriptor& second) {
    std::array<pollfd, 2> polled = {{{first.get(), POLLIN, 0}, {second.get(), POLLIN, 0}}};
    return poll(polled.data(), polled.size(), kMillisecondsForOutput) > 0;
}

bool IsReadable(const Descriptor& source) {
    pollfd polled = {source.get(), POLLIN, 0};
    return source.IsOpen() && poll(&polled, 1, 0) > 0;
}

/// Whether a process ends within some seconds.
bool HasEnded(pid_t process) {
    constexpr int kTries = 10000;
    constexpr useconds_t kMicroseconds = 1000;
    int tries = 0;
    while (waitpid(process, nullptr, WNOHANG) == 0 && ++tries < kTries) {
        usleep(kMicroseconds);
    }
    return tries < kTries;
}

/// Takes what can be read, and closes the source at its end.
void Take(Descriptor* source, std::string* text) {
    if (!IsReadable(*source)) {
        return;
    }
    std::array<char, 65536> buffer;
    const ssize_t size = read(source->get(), buffer.data(), buffer.size());
    if (size > 0) {
        text->append(buffer.data(), static_cast<std::size_t>(size));
    } else {
        source->Close();
    }
}

std::string Show(const Outcome& outcome) {
    constexpr std::size_t kEnough = 2000;
    return "status " + std::to_string(outcome.status) +
           "\noutput: " + outcome.output.substr(0, kEnough) +
           "\nerrors: " + outcome.errors.substr(0, kEnough);
}

}  // namespace

Pipe::Pipe() {
    std::array<int, 2> ends = {-1, -1};
    EXPECT_EQ(pipe2(ends.data(), O_CLOEXEC), 0);
    reader = Descriptor(ends[0]);
    writer = Descriptor(ends[1]);
}

Descriptor InputFile(const std::string& contents) {
    std::string path = testing::TempDir() + "quavera-input-XXXXXX";
    Descriptor file(mkostemp(path.data(), O_CLOEXEC));
    unlink(path.c_str());
    EXPECT_EQ(write(file.get(), contents.data(), contents.size()),
              static_cast<ssize_t>(contents.size()));
    lseek(file.get(), 0, SEEK_SET);
    return file;
}

Process::Process(const Arguments& arguments, int input, int output) {
    std::vector<std::string> line = CommandLine(arguments);
    std::vector<char*> words;
    std::transform(line.begin(), line.end(), std::back_inserter(words),
                   [](std::string& word) { return word.data(); });
    words.push_back(nullptr);
    const Descriptor empty(open("/dev/null", O_RDONLY | O_CLOEXEC));
    Pipe outputs;
    Pipe errors;

    process_ = fork();
    if (process_ == 0) {
        // A test that is killed takes its servers along.
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        dup2(input < 0 ? empty.get() : input, STDIN_FILENO);
        dup2(output < 0 ? outputs.writer.get() : output, STDOUT_FILENO);
        dup2(errors.writer.get(), STDERR_FILENO);
        execvp(words.front(), words.data());
        _exit(kNoProgram);
    }
    EXPECT_GT(process_, 0);
    output_ = std::move(outputs.reader);
    errors_ = std::move(errors.reader);
}

// As a service manager does it: told first, a server ends as it is meant to, and what it counts
// where coverage is measured is written.
Process::~Process() {
    if (process_ > 0) {
        Signal(SIGTERM);
        if (!HasEnded(process_)) {
            Signal(SIGKILL);
            waitpid(process_, nullptr, 0);
        }
    }
}

std::string Process::ReadLine() {
    std::string& output = outcome_.output;
    while (output.find('\n') == std::string::npos && output_.IsOpen() &&
           WaitForOutput(output_, Descriptor())) {
        Take(&output_, &output);
    }
    const std::size_t size = std::min(output.size(), output.find('\n') + 1);
    std::string line = output.substr(0, size);
    output.erase(0, size);
    return line;
}

void Process::Signal(int number) const {
    kill(process_, number);
}

Outcome Process::Finish() {
    while (output_.IsOpen() || errors_.IsOpen()) {
        if (!WaitForOutput(output_, errors_)) {
            Signal(SIGKILL);
        }
        Take(&output_, &outcome_.output);
        Take(&errors_, &outcome_.errors);
    }
    int status = 0;
    rusage used{};
    wait4(std::exchange(process_, -1), &status, 0, &used);
    outcome_.mostMemory = used.ru_maxrss;
    outcome_.status = WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    return outcome_;
}

Outcome RunTool(const Arguments& arguments, const std::string& input) {
    const Descriptor file = InputFile(input);
    return Process(arguments, file.get()).Finish();
}

Outcome RunToolInto(const std::string& path, const Arguments& arguments, const std::string& input) {
    const Descriptor file = InputFile(input);
    const Descriptor output(open(path.c_str(), O_WRONLY | O_CLOEXEC));
    EXPECT_TRUE(output.IsOpen()) << path;
    return Process(arguments, file.get(), output.get()).Finish();
}

testing::AssertionResult Printed(const Outcome& outcome, const std::string& output) {
    if (outcome.status == 0 && outcome.output == output && outcome.errors.empty()) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure()
           << Show(outcome) << "\nexpected status 0, output: " << output;
}

testing::AssertionResult Refused(const Outcome& outcome, int status,
                                 const std::vector<std::string>& parts) {
    const std::string& line = outcome.errors;
    if (outcome.status != status || !outcome.output.empty()) {
        return testing::AssertionFailure() << Show(outcome) << "\nexpected status " << status;
    }
    if (line.rfind("quavera: ", 0) != 0 || line.find('\n') + 1 != line.size()) {
        return testing::AssertionFailure() << Show(outcome) << "\nexpected one line";
    }
    for (const std::string& part : parts) {
        if (line.find(part) == std::string::npos) {
            return testing::AssertionFailure() << Show(outcome) << "\nexpected: " << part;
        }
    }
    return testing::AssertionSuccess();
}

}  // namespace tooltest
