#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <thread>

#include "tools/Commands.h"
#include "tools/StandIn.h"

namespace tool {
namespace {

constexpr char kRecord[] = "album";
constexpr char kId[] = "Alb.40013100";

struct CloseStream {
    void operator()(std::FILE* stream) const { std::fclose(stream); }
};
using Stream = std::unique_ptr<std::FILE, CloseStream>;

bool Report(const Failure& failure) {
    std::fprintf(stderr, "quavera: %s\n", Message(failure).c_str());
    return false;
}

/// The second process: reads a tree as text, fills the record from it and prints its log text.
bool Receive(std::FILE* trees) {
    Failure failure;
    std::string tree;
    if (!ReadStream(trees, "pipe", &tree, &failure)) {
        return Report(failure);
    }
    if (tree.empty()) {
        return false;  // the sender has nothing to send, and says why
    }
    const Output text = PrintText(tree, "pipe", nullptr, &failure);
    return text && WriteOutput(*text, &failure) ? true : Report(failure);
}

/// Starts the second process and gives the writing end of its pipe. To be called while this
/// process has a single thread.
Stream StartReceiver(pid_t* process) {
    std::array<int, 2> ends;
    if (pipe(ends.data()) != 0) {
        return nullptr;
    }
    *process = fork();
    if (*process == 0) {
        close(ends[1]);
        const Stream trees(fdopen(ends[0], "rb"));
        _exit(trees != nullptr && Receive(trees.get()) ? EXIT_SUCCESS : EXIT_FAILURE);
    }
    close(ends[0]);
    Stream trees(fdopen(ends[1], "wb"));
    return *process < 0 ? nullptr : std::move(trees);
}

/// Lets a service serve for as long as the object lives.
class ServiceThread {
 public:
    explicit ServiceThread(StandIn* service)
        : thread_([this, service] { service->Serve(stop_); }) {}
    ServiceThread(const ServiceThread&) = delete;
    ServiceThread& operator=(const ServiceThread&) = delete;
    ~ServiceThread() {
        stop_ = true;
        thread_.join();
    }

 private:
    std::atomic<bool> stop_ = false;
    std::thread thread_;  // last: it uses the flag
};

/// Asks a stand-in service, on a free port of this machine, for the demonstration's record.
Output FetchTree(Failure* failure) {
    StandIn service{Catalog()};
    if (!service.Listen("127.0.0.1", 0, failure)) {
        return std::nullopt;
    }
    const ServiceThread thread(&service);
    return Fetch(*FindOperation(kRecord), service.Endpoint(), kId, Form::kIndentedTree, failure);
}

}  // namespace

bool Demo(Failure* failure) {
    pid_t process = -1;
    Stream trees = StartReceiver(&process);
    if (trees == nullptr) {
        *failure = {"second process", std::strerror(errno)};
        return false;
    }
    const Output tree = FetchTree(failure);
    const bool isFetched = tree && WriteOutput(*tree, failure);
    const bool isSent = isFetched && WriteStream(trees.get(), "second process", *tree, failure);
    trees.reset();
    int status = EXIT_FAILURE;
    waitpid(process, &status, 0);
    if (WIFSIGNALED(status) && WTERMSIG(status) == SIGPIPE) {
        std::raise(SIGPIPE);  // nobody reads the output any more: end like the second process
    }
    if (isSent && status != EXIT_SUCCESS) {
        *failure = {"second process", "it did not render the record"};
    }
    return isSent && status == EXIT_SUCCESS;
}

}  // namespace tool
