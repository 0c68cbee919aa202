#include <pthread.h>
#include <sys/stat.h>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <ctime>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "tools/Arguments.h"
#include "tools/CommandLine.h"
#include "tools/Files.h"
#include "tools/StandIn.h"

namespace tool {
namespace {

struct ServeOptions {
    std::string host = "127.0.0.1";
    std::string port = "8080";
    std::string catalog;
    std::vector<std::string> tls;  // none, or the paths of the certificate and its key
};

/// The signals that end a server.
sigset_t EndSignals() {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGINT);
    sigaddset(&signals, SIGTERM);
    return signals;
}

/// Waits for one of them, which this thread and those that it has started do not take otherwise.
void ServeUntilTold(StandIn* service, const sigset_t& signals) {
    const timespec second = {1, 0};
    while (sigtimedwait(&signals, nullptr, &second) < 0) {
        service->server()->EndOldConnections();
    }
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

/// What the server is started with beside its address.
Result<HttpServerOptions> ServerOptions(const ServeOptions& options) {
    HttpServerOptions server;
    if (!options.tls.empty()) {
        Result<TlsIdentity> identity = ReadTlsIdentity(options.tls[0], options.tls[1]);
        if (!identity) {
            return identity.failure();
        }
        server.tls = std::move(*identity);
    }
    return server;
}

/// Serves from a catalogue until the process is told to end.
Result<Done> Serve(const ServeOptions& options) {
    const std::string& folder = options.catalog;
    const Result<Done> usable = folder.empty() ? Result<Done>(Done()) : CheckFolder(folder);
    if (!usable) {
        return usable.failure();
    }
    Result<HttpServerOptions> server = ServerOptions(options);
    if (!server) {
        return server.failure();
    }
    StandIn service(folder.empty() ? Catalog() : Catalog(folder));
    // Ahead of the line that is printed: whoever reads it may end this process at once.
    const sigset_t signals = EndSignals();
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    const Result<Done> started =
        service.Start(options.host, *ParseDecimal(options.port), std::move(*server));
    Result<Done> announced =
        started ? WriteOutput("listening on " + service.server()->Endpoint() + "\n") : started;
    if (announced) {
        ServeUntilTold(&service, signals);
    }
    return announced;
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
    return [options] { return StatusOf(Serve(*options)); };
}

}  // namespace tool
