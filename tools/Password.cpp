#include "tools/Password.h"

#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "tools/Files.h"

namespace tool {
namespace {

constexpr char kTerminal[] = "/dev/tty";
constexpr char kVariable[] = "QUAVERA_PASSWORD";
constexpr std::size_t kLongestPassword = 1000;

volatile std::sig_atomic_t takenSignal = 0;

void TakeSignal(int number) {
    takenSignal = number;
}

/// Holds back the signals that would end or stop the process, as long as the terminal is not as it
/// was. They end `Wait`, and have their effect afterwards.
class HeldSignals {
 public:
    HeldSignals() {
        takenSignal = 0;
        struct sigaction taken {};
        taken.sa_handler = TakeSignal;
        sigemptyset(&taken.sa_mask);
        sigset_t held;
        sigemptyset(&held);
        for (const int signal : kSignals) {
            sigaddset(&held, signal);
        }
        sigprocmask(SIG_BLOCK, &held, &maskBefore_);
        for (std::size_t at = 0; at < kSignals.size(); ++at) {
            sigaction(kSignals[at], &taken, &before_[at]);
        }
    }
    HeldSignals(const HeldSignals&) = delete;
    HeldSignals& operator=(const HeldSignals&) = delete;
    ~HeldSignals() {
        for (std::size_t at = 0; at < kSignals.size(); ++at) {
            sigaction(kSignals[at], &before_[at], nullptr);
        }
        sigprocmask(SIG_SETMASK, &maskBefore_, nullptr);
        if (takenSignal != 0) {
            raise(takenSignal);
        }
    }

    /// Waits until something can be read, or a signal has come: false, with errno.
    bool Wait(int source) const {
        pollfd polled = {source, POLLIN, 0};
        return ppoll(&polled, 1, nullptr, &maskBefore_) > 0;
    }

 private:
    static constexpr std::array<int, 5> kSignals = {SIGHUP, SIGINT, SIGQUIT, SIGTERM, SIGTSTP};
    std::array<struct sigaction, kSignals.size()> before_{};
    sigset_t maskBefore_{};
};

/// Has a terminal not show what is entered.
class HiddenEntry {
 public:
    explicit HiddenEntry(int terminal) : terminal_(terminal) {
        isHidden_ = tcgetattr(terminal_, &before_) == 0;
        if (isHidden_) {
            termios hidden = before_;
            hidden.c_lflag &= ~static_cast<tcflag_t>(ECHO | ECHONL);
            hidden.c_lflag |= ICANON | ISIG;
            isHidden_ = tcsetattr(terminal_, TCSAFLUSH, &hidden) == 0;
        }
    }
    HiddenEntry(const HiddenEntry&) = delete;
    HiddenEntry& operator=(const HiddenEntry&) = delete;
    ~HiddenEntry() {
        if (isHidden_) {
            tcsetattr(terminal_, TCSAFLUSH, &before_);
        }
    }

    bool isHidden() const { return isHidden_; }

 private:
    int terminal_;
    termios before_{};
    bool isHidden_ = false;
};

/// One line from a terminal, without its end.
Result<std::string> ReadEntry(int terminal, const HeldSignals& signals) {
    std::string entry;
    char next = 0;
    while (entry.size() <= kLongestPassword) {
        const ssize_t size = signals.Wait(terminal) ? read(terminal, &next, 1) : -1;
        if (size < 0) {
            return Failure{kTerminal, std::strerror(errno)};
        }
        if (size == 0) {
            return Failure{kTerminal, "no password was entered"};
        }
        if (next == '\n') {
            return entry;
        }
        entry += next;
    }
    return Failure{kTerminal, "the password is too long"};
}

void Show(int terminal, const std::string& text) {
    // Whoever does not see it can still answer.
    static_cast<void>(write(terminal, text.data(), text.size()) < 0);
}

Result<std::string> AskAt(int terminal, const std::string& user) {
    const HeldSignals signals;
    const HiddenEntry hidden(terminal);
    if (!hidden.isHidden()) {
        return Failure{kTerminal, std::strerror(errno)};
    }
    Show(terminal, "Password of " + user + ": ");
    Result<std::string> entry = ReadEntry(terminal, signals);
    Show(terminal, "\n");
    return entry;
}

}  // namespace

Result<std::string> PasswordOf(const std::string& user) {
    const char* const given = std::getenv(kVariable);
    if (given != nullptr) {
        return std::string(given);
    }
    const Stream terminal(std::fopen(kTerminal, "r+e"));
    if (terminal == nullptr) {
        return Failure{"--user " + user, std::string("no password: ") + kVariable +
                                             " is not set, and there is no terminal to ask at"};
    }
    return AskAt(fileno(terminal.get()), user);
}

}  // namespace tool
