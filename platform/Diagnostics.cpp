#include "platform/Diagnostics.h"

#include <execinfo.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdio>

namespace zq {
namespace {

void WriteToStandardError(const char* path, int line, const StackTrace& trace) {
    std::array<char, 512> report;
    const int length =
        // A long path must not cost the line.
        std::snprintf(report.data(), report.size(), "assertion failed: %.400s:%d\n", path, line);
    const auto size = std::min(static_cast<std::size_t>(std::max(length, 0)), report.size() - 1);
    // Nothing can be done about a report that cannot be written.
    if (write(STDERR_FILENO, report.data(), size) >= 0) {
        trace.Write(STDERR_FILENO);
    }
}

std::atomic<AssertHandler> installedHandler = WriteToStandardError;

}  // namespace

StackTrace::StackTrace() : addresses_(), depth_(backtrace(addresses_.data(), kMaxDepth)) {}

void StackTrace::Write(int descriptor) const {
    backtrace_symbols_fd(addresses_.data(), depth_, descriptor);
}

AssertHandler SetAssertHandler(AssertHandler handler) {
    return installedHandler.exchange(handler == nullptr ? WriteToStandardError : handler);
}

void AssertWrite(const char* path, int line, const StackTrace& trace) {
    installedHandler.load()(path, line, trace);
}

}  // namespace zq
