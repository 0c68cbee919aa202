// The stand-in's log in this process, whose standard error is something else meanwhile.

#include "tools/RequestLog.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <optional>
#include <regex>
#include <string>
#include <utility>

#include "tests/tools/Process.h"

namespace {

using tool::HttpExchange;
using tool::RequestLog;
using tooltest::Descriptor;

/// Puts a descriptor in the place of standard error, as long as it lives.
class ErrorsTo {
 public:
    explicit ErrorsTo(int descriptor) : saved_(fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 3)) {
        if (descriptor < 0) {
            close(STDERR_FILENO);
        } else {
            dup2(descriptor, STDERR_FILENO);
        }
    }
    ErrorsTo(const ErrorsTo&) = delete;
    ErrorsTo& operator=(const ErrorsTo&) = delete;
    ~ErrorsTo() { dup2(saved_.get(), STDERR_FILENO); }

 private:
    Descriptor saved_;
};

HttpExchange Exchange(const std::string& operation, std::optional<std::string> id) {
    HttpExchange exchange;
    exchange.client = "127.0.0.1:40000";
    exchange.subject = {operation, std::move(id)};
    exchange.status = 200;
    exchange.bodySize = 1432;
    exchange.duration = std::chrono::milliseconds(7);
    return exchange;
}

std::string ReadSome(const Descriptor& from) {
    std::array<char, 65536> buffer;
    const ssize_t size = read(from.get(), buffer.data(), buffer.size());
    return {buffer.data(), static_cast<std::size_t>(size > 0 ? size : 0)};
}

/// What stands behind the time and the client's address.
std::string Logged(const HttpExchange& exchange) {
    const tooltest::Pipe pipe;
    {
        const ErrorsTo errors(pipe.writer.get());
        RequestLog().Write(exchange);
    }
    const std::string line = ReadSome(pipe.reader);
    static const std::regex begin(
        R"(^\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d[+-]\d\d:\d\d 127\.0\.0\.1:40000 )");
    std::smatch match;
    return std::regex_search(line, match, begin) ? match.suffix().str() : "no line: " + line;
}

TEST(RequestLog, LineHasItsPartsInOrder) {
    EXPECT_EQ(Logged(Exchange("getAlbum", "Alb.1")), "getAlbum Alb.1 200 1432 7\n");
}

TEST(RequestLog, WhatIsNotKnownIsADash) {
    HttpExchange exchange;
    exchange.client = "127.0.0.1:40000";
    EXPECT_EQ(Logged(exchange), "- - - - 0\n");
}

TEST(RequestLog, TextsOfClientsAreMadeOneHarmlessWord) {
    const std::string longest(100, 'x');
    std::string characters;
    while (characters.size() < 99) {
        characters += "\xC3\xA9";
    }
    const std::pair<std::string, std::string> cases[] = {
        {"Tra.1", "Tra.1"},
        {"", "\"\""},
        {"-", "\"-\""},
        {"--", "--"},
        {"a b", "\"a b\""},
        {" ", "\" \""},
        {"Grüße", "Grüße"},
        {"a\"b", R"("a\x22b")"},
        {"a\\b", R"("a\x5Cb")"},
        {"a\nb\r\t\x1B[1m\x7F", R"("a\x0Ab\x0D\x09\x1B[1m\x7F")"},
        {std::string("a\0b", 3), R"("a\x00b")"},
        {"\xC2\x9B", "\"\xC2\\x9B\""},
        {"\xC2\xA0", "\xC2\xA0"},
        {longest, longest},
        {longest + "y", longest + "..."},
        {"x" + characters, "x" + characters.substr(0, 98) + "..."},
    };
    for (const auto& [text, word] : cases) {
        EXPECT_EQ(Logged(Exchange("getAlbum", text)), "getAlbum " + word + " 200 1432 7\n");
        if (!text.empty()) {
            EXPECT_EQ(Logged(Exchange(text, "1")), word + " 1 200 1432 7\n");
        }
    }
}

TEST(RequestLog, NeverWaitsForAReaderAndTellsWhatItHasLost) {
    const tooltest::Pipe pipe;
    const ErrorsTo errors(pipe.writer.get());
    RequestLog log;
    constexpr int kLines = 5000;  // more than a pipe holds
    for (int line = 0; line < kLines; ++line) {
        log.Write(Exchange("getAlbum", "Alb.1"));
    }
    std::string taken = ReadSome(pipe.reader);
    const auto before = std::count(taken.begin(), taken.end(), '\n');
    EXPECT_GT(before, 0);
    EXPECT_LT(before, kLines);
    log.Write(Exchange("getAlbum", "Alb.2"));
    taken = ReadSome(pipe.reader);
    EXPECT_EQ(
        taken.rfind("quavera: " + std::to_string(kLines - before) + " lines of the log are lost\n",
                    0),
        0U)
        << taken;
    EXPECT_NE(taken.find(" getAlbum Alb.2 200 "), std::string::npos) << taken;
}

// Somebody else may write there, and rely on waiting.
TEST(RequestLog, LeavesTheModeOfStandardErrorAsItIs) {
    const tooltest::Pipe pipe;
    const ErrorsTo errors(pipe.writer.get());
    RequestLog().Write(Exchange("getAlbum", "Alb.1"));
    EXPECT_EQ(fcntl(STDERR_FILENO, F_GETFL) & O_NONBLOCK, 0);
}

TEST(RequestLog, ReaderThatHasGoneIsNoReasonToFail) {
    tooltest::Pipe pipe;
    const ErrorsTo errors(pipe.writer.get());
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);  // as the command does
    RequestLog log;
    pipe.reader.Close();
    log.Write(Exchange("getAlbum", "Alb.1"));
    log.Write(Exchange("getAlbum", "Alb.1"));
    const timespec none = {0, 0};
    sigtimedwait(&signals, nullptr, &none);
    pthread_sigmask(SIG_UNBLOCK, &signals, nullptr);
}

TEST(RequestLog, WithoutStandardErrorNothingIsWritten) {
    std::optional<RequestLog> log;
    {
        const ErrorsTo nowhere(-1);
        log.emplace();
    }
    // Whatever has the number now is not the log.
    const tooltest::Pipe pipe;
    const ErrorsTo errors(pipe.writer.get());
    log->Write(Exchange("getAlbum", "Alb.1"));
    fcntl(pipe.reader.get(), F_SETFL, O_NONBLOCK);
    EXPECT_EQ(ReadSome(pipe.reader), "");
}

TEST(RequestLog, WritesToASocketWithoutWaiting) {
    std::array<int, 2> ends = {-1, -1};
    ASSERT_EQ(socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()), 0);
    const Descriptor reader(ends[0]);
    const Descriptor writer(ends[1]);
    const ErrorsTo errors(writer.get());
    RequestLog log;
    for (int line = 0; line < 10000; ++line) {
        log.Write(Exchange("getAlbum", "Alb.1"));
    }
    EXPECT_NE(ReadSome(reader).find(" getAlbum Alb.1 200 1432 7\n"), std::string::npos);
}

// Two who have opened a file each on their own would write over each other.
TEST(RequestLog, AppendsToAFileThatOthersWriteTo) {
    const Descriptor file = tooltest::InputFile("before\n");
    lseek(file.get(), 0, SEEK_END);
    const ErrorsTo errors(file.get());
    RequestLog log;
    log.Write(Exchange("getAlbum", "Alb.1"));
    EXPECT_EQ(write(file.get(), "between\n", 8), 8);
    log.Write(Exchange("getAlbum", "Alb.2"));
    lseek(file.get(), 0, SEEK_SET);
    const std::string text = ReadSome(file);
    const std::size_t first = text.find("Alb.1 200 1432 7\n");
    const std::size_t between = text.find("between\n");
    EXPECT_EQ(text.rfind("before\n", 0), 0U) << text;
    EXPECT_LT(first, between) << text;
    EXPECT_LT(between, text.find("Alb.2 200 1432 7\n")) << text;
}

}  // namespace
