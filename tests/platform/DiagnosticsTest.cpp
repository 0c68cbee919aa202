#include "platform/Diagnostics.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <utility>

namespace {

/// Puts the handler that was installed before back at the end of a test.
class HandlerGuard {
 public:
    explicit HandlerGuard(zq::AssertHandler handler) : previous_(zq::SetAssertHandler(handler)) {}
    HandlerGuard(const HandlerGuard&) = delete;
    HandlerGuard& operator=(const HandlerGuard&) = delete;
    ~HandlerGuard() { zq::SetAssertHandler(previous_); }

    zq::AssertHandler previous() const { return previous_; }

 private:
    zq::AssertHandler previous_;
};

/// What `work(descriptor)` writes to the descriptor that it is given. It has to fit a pipe's
/// buffer.
template <class Work>
std::string Written(Work work) {
    int ends[2];
    if (pipe(ends) != 0) {
        ADD_FAILURE() << "no pipe";
        return {};
    }
    work(ends[1]);
    close(ends[1]);
    std::string text;
    std::array<char, 4096> buffer{};
    for (ssize_t size = 0; (size = read(ends[0], buffer.data(), buffer.size())) > 0;) {
        text.append(buffer.data(), static_cast<std::size_t>(size));
    }
    close(ends[0]);
    return text;
}

/// What the default handler writes to standard error.
std::string DefaultReport(const char* path, int line, const zq::StackTrace& trace) {
    const HandlerGuard guard(nullptr);
    return Written([&](int descriptor) {
        const int saved = fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 0);
        dup2(descriptor, STDERR_FILENO);
        zq::AssertWrite(path, line, trace);
        dup2(saved, STDERR_FILENO);
        close(saved);
    });
}

std::size_t LineCount(const std::string& text) {
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

struct Report {
    int count = 0;
    std::string path;
    int line = 0;
    const zq::StackTrace* trace = nullptr;
};

Report lastReport;

void Record(const char* path, int line, const zq::StackTrace& trace) {
    lastReport = {lastReport.count + 1, path, line, &trace};
}

void Ignore(const char* /*path*/, int /*line*/, const zq::StackTrace& /*trace*/) {}

TEST(AssertWrite, HandsTheReportToTheHandlerAndReturns) {
    const HandlerGuard guard(Record);
    lastReport = {};
    const zq::StackTrace trace;
    zq::AssertWrite("common/Some.cpp", 123, trace);
    EXPECT_EQ(lastReport.count, 1);
    EXPECT_EQ(lastReport.path, "common/Some.cpp");
    EXPECT_EQ(lastReport.line, 123);
    EXPECT_EQ(lastReport.trace, &trace);
}

TEST(SetAssertHandler, ReturnsThePreviousHandler) {
    const HandlerGuard guard(Record);
    EXPECT_NE(guard.previous(), nullptr);
    EXPECT_EQ(zq::SetAssertHandler(Ignore), &Record);
    EXPECT_EQ(zq::SetAssertHandler(Record), &Ignore);
}

TEST(SetAssertHandler, ReplacedHandlerHearsNothing) {
    const HandlerGuard guard(Record);
    lastReport = {};
    zq::SetAssertHandler(Ignore);
    zq::AssertWrite("path", 1, zq::StackTrace());
    EXPECT_EQ(lastReport.count, 0);
}

TEST(SetAssertHandler, NullPutsTheDefaultBack) {
    const HandlerGuard guard(nullptr);
    const zq::AssertHandler standard = zq::SetAssertHandler(Record);
    EXPECT_EQ(zq::SetAssertHandler(nullptr), &Record);
    EXPECT_EQ(zq::SetAssertHandler(Ignore), standard);
}

TEST(DefaultAssertHandler, WritesPathLineAndTraceToStandardError) {
    const zq::StackTrace trace;
    const std::string text = DefaultReport("common/Some.cpp", 4711, trace);
    const std::string firstLine = text.substr(0, text.find('\n'));
    EXPECT_NE(firstLine.find("common/Some.cpp:4711"), std::string::npos) << text;
    EXPECT_EQ(LineCount(text), 1 + static_cast<std::size_t>(trace.depth())) << text;
}

TEST(DefaultAssertHandler, KeepsTheLineNumberBehindALongPath) {
    const std::string path(600, 'p');
    const std::string text = DefaultReport(path.c_str(), 4711, zq::StackTrace());
    EXPECT_NE(text.find(":4711\n"), std::string::npos) << text;
}

TEST(DefaultAssertHandler, ReturnsWhereNothingCanBeWritten) {
    const int full = open("/dev/full", O_WRONLY | O_CLOEXEC);
    ASSERT_GE(full, 0);
    const HandlerGuard guard(nullptr);
    const int saved = fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 0);
    dup2(full, STDERR_FILENO);
    zq::AssertWrite("common/Some.cpp", 4711, zq::StackTrace());
    const bool isFull = write(STDERR_FILENO, "", 1) < 0;
    dup2(saved, STDERR_FILENO);
    close(saved);
    close(full);
    EXPECT_TRUE(isFull);
}

TEST(StackTrace, WritesOneLineForEachAddress) {
    const zq::StackTrace trace;
    const std::string text = Written([&trace](int descriptor) { trace.Write(descriptor); });
    EXPECT_EQ(LineCount(text), static_cast<std::size_t>(trace.depth())) << text;
}

/// A return address without the bit that marks Thumb code on ARM.
std::uintptr_t CodeAddress(void* address) {
    return reinterpret_cast<std::uintptr_t>(address) & ~std::uintptr_t{1};
}

struct Moment {
    zq::StackTrace trace;
    void* caller;  // where the function that took the trace returns to
};

[[gnu::noinline]] Moment TakeTrace() {
    return {zq::StackTrace(), __builtin_return_address(0)};
}

bool HoldsCaller(const Moment& moment, int depth) {
    for (int index = 0; index < std::min(depth, moment.trace.depth()); ++index) {
        if (CodeAddress(moment.trace.address(index)) == CodeAddress(moment.caller)) {
            return true;
        }
    }
    return false;
}

TEST(StackTrace, BeginsWithTheInnermostFrames) {
    const Moment moment = TakeTrace();
    ASSERT_GT(moment.trace.depth(), 2);
    // Further in lie the function that took the trace, the constructor, and with a sanitizer its
    // replacement of the C library's function.
    EXPECT_TRUE(HoldsCaller(moment, 4));
}

TEST(StackTrace, CopyKeepsTheAddresses) {
    const zq::StackTrace trace;
    const zq::StackTrace copy = trace;  // NOLINT(performance-unnecessary-copy-initialization)
    ASSERT_EQ(copy.depth(), trace.depth());
    for (int index = 0; index < trace.depth(); ++index) {
        EXPECT_EQ(copy.address(index), trace.address(index));
    }
}

// Each call has something left to do afterwards, so that none becomes a jump.
[[gnu::noinline]] int DepthBehind(int calls) {
    const int depth = calls == 0 ? zq::StackTrace().depth() : DepthBehind(calls - 1);
    volatile int kept = depth;
    return kept;
}

TEST(StackTrace, GrowsWithTheStackUpToItsLimit) {
    EXPECT_EQ(DepthBehind(3) - DepthBehind(1), 2);
    EXPECT_EQ(DepthBehind(2 * zq::StackTrace::kMaxDepth), zq::StackTrace::kMaxDepth);
}

}  // namespace
