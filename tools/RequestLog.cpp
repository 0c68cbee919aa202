#include "tools/RequestLog.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <ctime>
#include <string_view>

namespace tool {
namespace {

constexpr std::size_t kLongestWord = 100;

/// A descriptor for standard error's file. Where writes could wait, for a reader or a terminal, it
/// is one whose writes do not: that of others who write there stays as it is. A file is not opened
/// anew, as each opening has a place of its own in it.
int OpenErrors() {
    struct stat status {};
    if (fstat(STDERR_FILENO, &status) != 0) {
        return -1;
    }
    const bool mayWait = S_ISFIFO(status.st_mode) || S_ISCHR(status.st_mode);
    const int opened =
        mayWait ? open("/proc/self/fd/2", O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC) : -1;
    return opened >= 0 ? opened : fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
}

/// "2026-11-22T15:04:05+01:00"
std::string LocalTime() {
    const std::time_t now = std::time(nullptr);
    std::tm parts{};
    localtime_r(&now, &parts);
    std::array<char, 64> text{};
    std::string time(text.data(), std::strftime(text.data(), text.size(), "%FT%T%z", &parts));
    return time.insert(time.size() - 2, ":");
}

/// Whether a character is escaped: a quote, a backslash, a control character of one byte, or of
/// two ("before" is the byte before).
bool IsEscaped(unsigned char code, unsigned char before) {
    return code < 0x20 || code == 0x7F || code == '"' || code == '\\' ||
           (before == 0xC2 && code < 0xA0);
}

/// The beginning of a text, cut between characters where it is too long.
std::string_view Beginning(std::string_view text) {
    std::size_t end = std::min(text.size(), kLongestWord);
    while (end > 0 && end < text.size() &&
           (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80) {
        --end;
    }
    return text.substr(0, end);
}

/// A text from a client as one word: as it stands, or in quotes.
std::string Word(std::string_view text) {
    std::string word;
    unsigned char before = 0;
    for (const char character : Beginning(text)) {
        const auto code = static_cast<unsigned char>(character);
        if (IsEscaped(code, before)) {
            std::array<char, 8> escape{};
            std::snprintf(escape.data(), escape.size(), "\\x%02X", code);
            word += escape.data();
        } else {
            word += character;
        }
        before = code;
    }
    word += Beginning(text).size() < text.size() ? "..." : "";
    const bool isPlain = !text.empty() && text != "-" && word.find(' ') == std::string::npos &&
                         word.find('\\') == std::string::npos;
    return isPlain ? word : "\"" + word + "\"";
}

template <class Number>
std::string NumberOrNone(const std::optional<Number>& number) {
    return number ? std::to_string(*number) : "-";
}

std::string LineOf(const HttpExchange& exchange) {
    const HttpSubject& subject = exchange.subject;
    return LocalTime() + " " + exchange.client + " " +
           (subject.operation.empty() ? "-" : Word(subject.operation)) + " " +
           (subject.id ? Word(*subject.id) : "-") + " " + NumberOrNone(exchange.status) + " " +
           NumberOrNone(exchange.bodySize) + " " + std::to_string(exchange.duration.count()) + "\n";
}

}  // namespace

RequestLog::RequestLog() : descriptor_(OpenErrors()) {}

RequestLog::~RequestLog() {
    if (descriptor_ >= 0) {
        close(descriptor_);
    }
}

void RequestLog::Write(const HttpExchange& exchange) {
    if (lost_ > 0 &&
        WriteLine("quavera: " + std::to_string(lost_) + " lines of the log are lost\n")) {
        lost_ = 0;
    }
    if (lost_ > 0 || !WriteLine(LineOf(exchange))) {
        ++lost_;
    }
}

bool RequestLog::WriteLine(const std::string& line) const {
    pollfd polled = {descriptor_, POLLOUT, 0};
    if (poll(&polled, 1, 0) != 1 || (polled.revents & POLLOUT) == 0) {
        return false;
    }
    // Standard error may be a socket, which knows its own way not to wait.
    ssize_t written = send(descriptor_, line.data(), line.size(), MSG_DONTWAIT | MSG_NOSIGNAL);
    if (written < 0 && errno == ENOTSOCK) {
        written = write(descriptor_, line.data(), line.size());
    }
    return written == static_cast<ssize_t>(line.size());
}

}  // namespace tool
