#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <utility>

#include "tools/CommandLine.h"
#include "tools/Files.h"
#include "tools/Printing.h"
#include "tools/Service.h"
#include "tools/StandIn.h"

namespace tool {
namespace {

constexpr char kKind[] = "album";
constexpr char kId[] = "Alb.40013100";
constexpr char kReceiver[] = "second process";  // in messages

/// Tells on standard error what comes next, so that the output is only what the library made.
void Say(const std::string& text) {
    std::fprintf(stderr, "demo: %s\n", text.c_str());
}

/// The second process: reads a tree as text, fills the record from it and prints its log text.
/// Returns its exit status.
int Receive(std::FILE* trees) {
    const Result<std::string> tree = ReadStream(trees, "pipe");
    if (tree && tree->empty()) {
        return EXIT_FAILURE;  // the sender has nothing to send, and says why
    }
    const Result<std::string> text = tree ? PrintText(*tree, "pipe", nullptr) : tree;
    if (text) {
        Say("a second process has read the record from that text; its log text:");
    }
    const Result<Done> written = text ? WriteOutput(*text) : text.failure();
    if (!written) {
        Report(written.failure());
    }
    return written ? EXIT_SUCCESS : EXIT_FAILURE;
}

/// The second process, as the first one sees it.
struct Receiver {
    pid_t process;
    Stream trees;  // the writing end of its pipe
};

/// Starts the second process. To be called while this process has a single thread, and nothing
/// that it has still to write.
Result<Receiver> StartReceiver() {
    std::array<int, 2> ends;
    if (pipe(ends.data()) != 0) {
        return Failure{kReceiver, std::strerror(errno)};
    }
    const pid_t process = fork();
    if (process == 0) {
        close(ends[1]);
        const Stream trees(fdopen(ends[0], "rb"));
        std::exit(trees == nullptr ? EXIT_FAILURE : Receive(trees.get()));
    }
    const int reason = errno;
    close(ends[0]);
    Stream trees(fdopen(ends[1], "wb"));
    if (process < 0) {
        return Failure{kReceiver, std::strerror(reason)};
    }
    return Receiver{process, std::move(trees)};
}

/// Asks a stand-in service, on a free port of this machine, for the demonstration's record.
Result<std::string> FetchTree() {
    StandIn service{Catalog()};
    const Result<Done> started = service.Start("127.0.0.1", 0);
    if (!started) {
        return started.failure();
    }
    Say("a stand-in for the service listens on " + service.server()->Endpoint());
    return Fetch({service.server()->Endpoint()}, *FindClass(&RecordClass::kind, kKind), kId,
                 Form::kIndentedTree);
}

/// Prints the record's tree and hands it to the second process.
Result<Done> Send(std::FILE* trees) {
    const Result<std::string> tree = FetchTree();
    if (tree) {
        Say(std::string("a SOAP client has fetched the ") + kKind + " " + kId +
            "; its element tree:");
    }
    const Result<Done> printed = tree ? WriteOutput(*tree) : tree.failure();
    return printed ? WriteStream(trees, kReceiver, *tree) : printed;
}

/// A record's whole way on this machine: a stand-in service, a SOAP client that fetches a record
/// and prints its tree, and a second process that is handed the tree as text, fills the record
/// from it and prints its log text.
Result<Done> Demo() {
    Result<Receiver> receiver = StartReceiver();
    if (!receiver) {
        return receiver.failure();
    }
    Result<Done> sent = Send(receiver->trees.get());
    receiver->trees.reset();
    int status = EXIT_FAILURE;
    waitpid(receiver->process, &status, 0);
    if (WIFSIGNALED(status) && WTERMSIG(status) == SIGPIPE) {
        std::raise(SIGPIPE);  // nobody reads the output any more: end like the second process
    }
    if (sent && status != EXIT_SUCCESS) {
        return Failure{kReceiver, "it did not render the record"};
    }
    return sent;
}

}  // namespace

Run DeclareDemo(CLI::App* /*command*/) {
    return [] { return StatusOf(Demo()); };
}

}  // namespace tool
