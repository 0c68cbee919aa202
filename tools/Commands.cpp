#include "tools/Commands.h"

#include <sys/stat.h>
#include <csignal>

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <utility>
#include <vector>

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

/// One tree as an element tree, or as log text by way of the tree's text form.
Output PrintTree(const RecordClass& record, ZQXML::INode* tree, const std::string& where, Form form,
                 Failure* failure) {
    const std::string xml = ZQXML::WriteXml(tree, form == Form::kIndentedTree);
    return form == Form::kText ? PrintText(xml, where, &record, failure) : xml + "\n";
}

/// The records of a list answer, one after the other.
Output PrintList(const std::string& soap, const std::string& where, const RecordClass& record,
                 Form form, Failure* failure) {
    SoapDocument document;
    std::vector<Tree> trees;
    if (!document.Open(soap, where, failure)) {
        return std::nullopt;
    }
    if (document.RecordElement() != record.listElement) {
        *failure = WrongElement(where, document.RecordElement(), "the list", record.listElement);
        return std::nullopt;
    }
    if (!record.toTrees(document, &trees, failure)) {
        return std::nullopt;
    }
    std::string all;
    for (const Tree& tree : trees) {
        const Output one = PrintTree(record, tree.get(), where, form, failure);
        if (!one) {
            return std::nullopt;
        }
        all += *one;
    }
    return all;
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
    return tree ? PrintTree(*record, tree.get(), where, form, failure) : std::nullopt;
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
    const RecordClass& record = *FindRecordClass(operation.recordClass);
    return record.listElement.empty() ? PrintSoap(answer, endpoint, &record, form, failure)
                                      : PrintList(answer, endpoint, record, form, failure);
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
