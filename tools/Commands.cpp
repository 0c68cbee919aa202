#include "tools/Commands.h"

#include <sys/stat.h>
#include <csignal>

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <utility>

#include "tools/StandIn.h"

namespace tool {
namespace {

std::atomic<bool> stopServing = false;

bool IsFolder(const std::string& path, Failure* failure) {
    struct stat status {};
    if (stat(path.c_str(), &status) != 0) {
        *failure = {path, std::strerror(errno)};
        return false;
    }
    if (!S_ISDIR(status.st_mode)) {
        *failure = {path, std::strerror(ENOTDIR)};
        return false;
    }
    return true;
}

}  // namespace

Output PrintSoap(const std::string& soap, const std::string& where, const RecordClass* chosen,
                 Form form, Failure* failure) {
    SoapDocument document;
    if (!document.Open(soap, where, failure)) {
        return std::nullopt;
    }
    const RecordClass* const record =
        ClassOfSoapElement(document.RecordElement(), chosen, where, failure);
    const Tree tree = record == nullptr ? nullptr : record->toTree(document, failure);
    if (!tree) {
        return std::nullopt;
    }
    const std::string xml = ZQXML::WriteXml(tree.get(), form == Form::kIndentedTree);
    return form == Form::kText ? PrintText(xml, where, record, failure) : xml + "\n";
}

Output PrintText(const std::string& xml, const std::string& where, const RecordClass* chosen,
                 Failure* failure) {
    std::string error;
    Tree tree = ZQXML::ParseXml(xml, &error);
    if (!tree) {
        *failure = {where, error};
        return std::nullopt;
    }
    const RecordClass* const record = ClassOfTreeElement(tree->GetName(), chosen, where, failure);
    if (record == nullptr) {
        return std::nullopt;
    }
    return record->toText(std::move(tree));
}

Output Fetch(const Operation& operation, const std::string& endpoint, const std::string& id,
             Form form, Failure* failure) {
    std::string answer;
    if (!Ask(operation, endpoint, id, &answer, failure)) {
        return std::nullopt;
    }
    return PrintSoap(answer, endpoint, FindRecordClass(operation.recordClass), form, failure);
}

bool Serve(const std::string& host, int port, const std::string& folder, Failure* failure) {
    if (!folder.empty() && !IsFolder(folder, failure)) {
        return false;
    }
    StandIn service(folder.empty() ? Catalog() : Catalog(folder));
    // Ahead of the line below: whoever reads it may end this process at once.
    const auto stop = [](int /*signal*/) { stopServing = true; };
    std::signal(SIGINT, stop);
    std::signal(SIGTERM, stop);
    if (!service.Listen(host, port, failure) ||
        !WriteOutput("listening on " + service.Endpoint() + "\n", failure)) {
        return false;
    }
    service.Serve(stopServing);
    return true;
}

}  // namespace tool
