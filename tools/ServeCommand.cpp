#include <pthread.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstring>
#include <ctime>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tools/Arguments.h"
#include "tools/CommandLine.h"
#include "tools/Files.h"
#include "tools/RequestLog.h"
#include "tools/StandIn.h"

namespace tool {
namespace {

struct ServeOptions {
    std::string host = "127.0.0.1";
    std::string port = "8080";
    std::string catalog;
    std::vector<std::string> tls;  // none, or the paths of the certificate and its key
    std::string delay = "0";
    std::string failed = "0";
    std::string cutShort = "0";
    bool isQuiet = false;
};

constexpr int kMostMilliseconds = 60000;
constexpr int kAllPercent = 100;

std::string CheckMilliseconds(const std::string& text) {
    const int milliseconds = ParseDecimal(text).value_or(-1);
    return milliseconds >= 0 && milliseconds <= kMostMilliseconds
               ? ""
               : "\"" + text + "\" is no number of milliseconds from 0 to " +
                     std::to_string(kMostMilliseconds);
}

/// The number that "25" and "25%" are; nothing if it is no share of a whole.
std::optional<int> ParsePercent(const std::string& text) {
    const bool hasSign = !text.empty() && text.back() == '%';
    const std::optional<int> percent =
        ParseDecimal(text.substr(0, text.size() - (hasSign ? 1 : 0)));
    return percent && *percent >= 0 && *percent <= kAllPercent ? percent : std::nullopt;
}

std::string CheckPercent(const std::string& text) {
    return ParsePercent(text) ? "" : "\"" + text + "\" is no share from 0 to 100%";
}

/// The signals that end a server.
sigset_t EndSignals() {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGINT);
    sigaddset(&signals, SIGTERM);
    return signals;
}

/// Lets no thread take the signals that end a server, which are waited for, nor the one of a pipe
/// whose reader has gone: that is a failed write.
void BlockSignals() {
    sigset_t signals = EndSignals();
    sigaddset(&signals, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
}

/// Ends this process soon, whatever the server's thread is at: a large answer, a slow disk.
void EndInTime() {
    const itimerval soon = {{0, 0}, {0, 500000}};
    std::signal(SIGALRM, [](int /*number*/) { _exit(0); });
    setitimer(ITIMER_REAL, &soon, nullptr);
}

/// Waits for one of the signals.
void ServeUntilTold(StandIn* service, std::chrono::milliseconds longestExchange) {
    const sigset_t signals = EndSignals();
    const timespec second = {1, 0};
    while (sigtimedwait(&signals, nullptr, &second) < 0) {
        service->server()->EndOldConnections(longestExchange);
    }
    EndInTime();
}

Result<Done> CheckFolder(const std::string& path) {
    struct stat status {};
    if (stat(path.c_str(), &status) != 0) {
        return Failure{path, std::strerror(errno)};
    }
    if (!S_ISDIR(status.st_mode)) {
        return Failure{path, std::strerror(ENOTDIR)};
    }
    return Done();
}

/// Reports what is wrong with a catalogue. False: something is.
bool IsFit(const Catalog& catalog) {
    const std::vector<Failure> findings = catalog.Check();
    for (const Failure& each : findings) {
        Report(each);
    }
    return findings.empty();
}

/// What the server is started with beside its address. It uses the log.
Result<HttpServerOptions> ServerOptions(const ServeOptions& options, RequestLog* log) {
    HttpServerOptions server;
    if (!options.tls.empty()) {
        Result<TlsIdentity> identity = ReadTlsIdentity(options.tls[0], options.tls[1]);
        if (!identity) {
            return identity.failure();
        }
        server.tls = std::move(*identity);
    }
    if (!options.isQuiet) {
        server.onExchange = [log](const HttpExchange& exchange) { log->Write(exchange); };
    }
    return server;
}

/// Serves from a catalogue until the process is told to end.
Result<Done> Serve(const ServeOptions& options, const Catalog& catalog) {
    RequestLog log;
    Result<HttpServerOptions> server = ServerOptions(options, &log);
    if (!server) {
        return server.failure();
    }
    const Mischief mischief = {std::chrono::milliseconds(*ParseDecimal(options.delay)),
                               *ParsePercent(options.failed), *ParsePercent(options.cutShort)};
    StandIn service(catalog, mischief);
    // Ahead of the line that is printed: whoever reads it may end this process at once.
    BlockSignals();
    const Result<Done> started =
        service.Start(options.host, *ParseDecimal(options.port), std::move(*server));
    Result<Done> announced =
        started ? WriteOutput("listening on " + service.server()->Endpoint() + "\n") : started;
    if (announced) {
        ServeUntilTold(&service, HttpServer::kLongestExchange + mischief.delay);
    }
    return announced;
}

/// Returns the tool's exit status.
int CheckAndServe(const ServeOptions& options) {
    const std::string& folder = options.catalog;
    const Result<Done> usable = folder.empty() ? Result<Done>(Done()) : CheckFolder(folder);
    if (!usable) {
        return StatusOf(usable);
    }
    const Catalog catalog = folder.empty() ? Catalog() : Catalog(folder);
    return IsFit(catalog) ? StatusOf(Serve(options, catalog)) : kFailed;
}

}  // namespace

Run DeclareServe(CLI::App* command) {
    const auto options = std::make_shared<ServeOptions>();
    command->add_option("--host", options->host, "Address to listen on")->capture_default_str();
    command->add_option("--port", options->port, "Port; 0 takes a free one")
        ->check(CheckPort)
        ->type_name("N")
        ->capture_default_str();
    command->add_option("--catalog", options->catalog, "Folder of SOAP responses, RECORD/ID.xml")
        ->type_name("DIR");
    command->add_option("--tls", options->tls, "Files with a certificate and its key: serve https")
        ->expected(2)
        ->type_name("CERT KEY");
    command->add_flag("--quiet", options->isQuiet, "No line for each request");
    command->add_option("--delay", options->delay, "Milliseconds that each answer comes later")
        ->check(CheckMilliseconds)
        ->type_name("MS");
    command->add_option("--fail", options->failed, "Share of requests answered with a fault, in %")
        ->check(CheckPercent)
        ->type_name("N");
    command->add_option("--truncate", options->cutShort, "Share of answers cut short, in %")
        ->check(CheckPercent)
        ->type_name("N");
    return [options] { return CheckAndServe(*options); };
}

}  // namespace tool
