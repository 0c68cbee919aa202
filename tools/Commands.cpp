#include "tools/Commands.h"

#include <pthread.h>
#include <sys/stat.h>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <ctime>
#include <utility>
#include <vector>

#include "tools/Files.h"
#include "tools/StandIn.h"

namespace tool {
namespace {

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

/// Records one after the other, as element trees or as log text by way of the trees' text form.
Result<std::string> PrintTrees(const Result<Trees>& trees, const RecordClass& record,
                               const std::string& where, Form form) {
    if (!trees) {
        return trees.failure();
    }
    std::string all;
    for (const Tree& tree : *trees) {
        const std::string xml = ZQXML::WriteXml(tree.get(), form == Form::kIndentedTree);
        const Result<std::string> one =
            form == Form::kText ? PrintText(xml, where, &record) : xml + "\n";
        if (!one) {
            return one.failure();
        }
        all += *one;
    }
    return all;
}

}  // namespace

Result<std::string> PrintSoap(const std::string& soap, const std::string& where,
                              const RecordClass* chosen, Form form) {
    const Result<SoapDocument> document = SoapDocument::Open(soap, where);
    if (!document) {
        return document.failure();
    }
    const Result<const RecordClass*> record =
        ClassOfElement(&RecordClass::soapElement, document->RecordElement(), chosen, where);
    return record ? PrintTrees((*record)->toTrees(*document), **record, where, form)
                  : record.failure();
}

Result<std::string> PrintText(const std::string& xml, const std::string& where,
                              const RecordClass* chosen) {
    Result<Tree> tree = ParseTree(xml, where);
    if (!tree) {
        return tree.failure();
    }
    const Result<const RecordClass*> record =
        ClassOfElement(&RecordClass::treeElement, (*tree)->GetName(), chosen, where);
    return record ? (*record)->toText(std::move(*tree)) : Result<std::string>(record.failure());
}

Result<std::string> Fetch(const Service& service, const RecordClass& record, const std::string& id,
                          Form form) {
    const std::string& endpoint = service.endpoint;
    const Result<std::string> answer = Ask(service, record, id);
    if (!answer) {
        return answer.failure();
    }
    const Result<SoapDocument> document = SoapDocument::Open(*answer, endpoint);
    if (!document) {
        return document.failure();
    }
    const std::string_view expected = record.answerElement;
    if (document->RecordElement() != expected) {
        const bool isList = expected != record.soapElement;
        return WrongElement(endpoint, document->RecordElement(), isList ? "the list" : record.name,
                            expected);
    }
    return PrintTrees(record.answerToTrees(*document), record, endpoint, form);
}

Result<Done> Serve(const std::string& host, int port, const std::string& folder) {
    const Result<Done> usable = folder.empty() ? Result<Done>(Done()) : CheckFolder(folder);
    if (!usable) {
        return usable.failure();
    }
    StandIn service(folder.empty() ? Catalog() : Catalog(folder));
    // Ahead of the line that is printed: whoever reads it may end this process at once.
    const sigset_t signals = EndSignals();
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    const Result<Done> started = service.Start(host, port);
    Result<Done> announced =
        started ? WriteOutput("listening on " + service.server()->Endpoint() + "\n") : started;
    if (announced) {
        ServeUntilTold(&service, signals);
    }
    return announced;
}

}  // namespace tool
