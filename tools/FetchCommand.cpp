#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "tools/Arguments.h"
#include "tools/Catalog.h"
#include "tools/CommandLine.h"
#include "tools/Files.h"
#include "tools/HttpHeader.h"
#include "tools/Password.h"
#include "tools/Printing.h"
#include "tools/Recording.h"
#include "tools/Service.h"
#include "tools/TlsIdentity.h"

namespace tool {
namespace {

struct FetchOptions {
    std::string endpoint;
    std::string timeout = "60";
    std::string connectTimeout = "10";
    std::string retries = "0";
    std::vector<std::string> headers;
    std::string user;
    std::string authorities;
    bool takesAnyCertificate = false;
    bool isVerbose = false;
    std::string kind;
    std::string id;
    bool tree = false;
    bool json = false;
    bool raw = false;
    std::string folder;  // to record to; empty: none
};

bool IsAuthorization(const std::string& header) {
    return HeaderName(header) == "authorization";
}

/// Why the options, each right by itself, are wrong together; empty if they are not.
std::string WrongTogether(const FetchOptions& options) {
    const bool hasCertificateOption = options.takesAnyCertificate || !options.authorities.empty();
    if (hasCertificateOption && options.endpoint.rfind("https:", 0) != 0) {
        return "--cacert and --insecure are for https:// addresses";
    }
    if (!options.user.empty() &&
        std::any_of(options.headers.begin(), options.headers.end(), IsAuthorization)) {
        return "--user and --header Authorization exclude each other";
    }
    if (!options.folder.empty() && !Catalog::FileNameOf(options.id)) {
        return "--record-to: no such identifier: \"" + options.id + "\" is no plain file name";
    }
    return "";
}

HttpWay WayOf(const FetchOptions& options) {
    HttpWay way;
    way.seconds = *ParseDecimal(options.timeout);
    way.secondsToConnect = *ParseDecimal(options.connectTimeout);
    way.headers = options.headers;
    way.user = options.user;
    way.authorities = options.authorities;
    way.takesAnyCertificate = options.takesAnyCertificate;
    return way;
}

/// How the service is to be asked. A password is asked for only now, when nothing else is wrong.
Result<Service> ServiceOf(const FetchOptions& options, WireTrace* trace) {
    Service service = {options.endpoint, WayOf(options), *ParseDecimal(options.retries)};
    service.way.trace = options.isVerbose ? trace : nullptr;
    if (!options.authorities.empty()) {
        const Result<Done> usable = CheckAuthorities(options.authorities);
        if (!usable) {
            return usable.failure();
        }
    }
    if (!options.user.empty()) {
        const Result<std::string> password = PasswordOf(options.user);
        if (!password) {
            return password.failure();
        }
        service.way.password = *password;
    }
    return service;
}

/// Prints an answer as it came, whatever it is, and then fails if `printed`, the same in another
/// form, has failed.
Result<Done> PrintRaw(const std::string& answer, const Result<std::string>& printed) {
    const Result<Done> written = WriteOutput(answer);
    return written && !printed ? printed.failure() : written;
}

Result<Done> PrintFetched(const FetchOptions& options, const Service& service) {
    const RecordClass& record = *FindClass(&RecordClass::kind, options.kind);
    const Result<std::string> answer = Ask(service, record, options.id);
    if (!answer) {
        return answer.failure();
    }
    const bool isRecorded = !options.folder.empty();
    if (options.raw && !isRecorded && !IsFault(*answer)) {
        return WriteOutput(*answer);
    }
    const Form form = options.tree ? Form::kTree : options.json ? Form::kJson : Form::kText;
    const Result<std::string> printed = PrintAnswer(*answer, service.endpoint, record, form);
    const Result<Done> recorded =
        printed && isRecorded ? RecordAnswer(options.folder, record.kind, options.id, *answer)
                              : Done();
    if (!recorded) {
        return recorded.failure();
    }
    return options.raw ? PrintRaw(*answer, printed) : Print(printed);
}

int RunFetch(const FetchOptions& options) {
    const std::string wrong = WrongTogether(options);
    if (!wrong.empty()) {
        Report({"arguments", wrong});
        return kWrongUsage;
    }
    WireTrace trace;
    const Result<Service> service = ServiceOf(options, &trace);
    return StatusOf(service ? PrintFetched(options, *service) : service.failure());
}

void DeclareWaiting(CLI::App* command, FetchOptions* options) {
    command->add_option("--timeout", options->timeout, "Seconds to wait for the whole answer")
        ->check(CheckSeconds)
        ->type_name("N")
        ->capture_default_str();
    command
        ->add_option("--connect-timeout", options->connectTimeout,
                     "Of these, seconds to wait for the connection")
        ->check(CheckSeconds)
        ->type_name("N")
        ->capture_default_str();
    command
        ->add_option("--retry", options->retries,
                     "Tries after one that failed in a way that may pass")
        ->check(CheckRetries)
        ->type_name("N")
        ->capture_default_str();
}

void DeclareRequest(CLI::App* command, FetchOptions* options) {
    command
        ->add_option("--header", options->headers, "A further header, \"NAME: VALUE\"; repeatable")
        ->check(CheckHeader)
        ->type_name("HEADER")
        ->allow_extra_args(false);
    command
        ->add_option("--user", options->user,
                     "Name for the service; the password is QUAVERA_PASSWORD, or asked for")
        ->check(CheckUser)
        ->type_name("NAME");
    CLI::Option* const authorities =
        command
            ->add_option("--cacert", options->authorities,
                         "Trusted certificates in place of the system's")
            ->check(CheckFileName)
            ->type_name("FILE");
    command->add_flag("--insecure", options->takesAnyCertificate, "Take any certificate")
        ->excludes(authorities);
}

void DeclareOutput(CLI::App* command, FetchOptions* options) {
    CLI::Option* const tree = command->add_flag("--tree", options->tree, "Print the element tree");
    CLI::Option* const text =
        command->add_flag("--text", "Print the record (default)")->excludes(tree);
    CLI::Option* const json =
        command->add_flag("--json", options->json, "Print the record as a line of JSON")
            ->excludes(tree)
            ->excludes(text);
    command->add_flag("--raw", options->raw, "Print the answer's body as it came")
        ->excludes(tree)
        ->excludes(text)
        ->excludes(json);
    command
        ->add_option("--record-to", options->folder,
                     "Folder to write the answer to, RECORD/ID.xml, as serve reads it")
        ->check(CheckFileName)
        ->type_name("DIR");
    command->add_flag("-v,--verbose", options->isVerbose,
                      "Show request and answer on standard error");
}

}  // namespace

Run DeclareFetch(CLI::App* command) {
    const auto options = std::make_shared<FetchOptions>();
    command->add_option("--endpoint", options->endpoint, "The service's address")
        ->type_name("URL")
        ->check(CheckHttpAddress)
        ->required();
    DeclareWaiting(command, options.get());
    DeclareRequest(command, options.get());
    command->add_option("record", options->kind, "What to ask for: " + Listed(RequestNames()))
        ->check(OneOf(RequestNames(), "record"))
        ->type_name("RECORD")
        ->required();
    command->add_option("id", options->id, "Its identifier")->type_name("ID");
    DeclareOutput(command, options.get());
    return [options] { return RunFetch(*options); };
}

}  // namespace tool
