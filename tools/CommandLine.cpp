#include "tools/CommandLine.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <utility>

#include "tools/Files.h"
#include "tools/NearestName.h"
#include "tools/RecordClasses.h"

namespace tool {
namespace {

int statusOutOfMemory = kFailed;

}  // namespace

std::vector<std::string> RecordClassNames() {
    std::vector<std::string> names;
    for (const RecordClass& each : RecordClasses()) {
        names.emplace_back(each.name);
    }
    return names;
}

std::vector<std::string> RequestNames() {
    std::vector<std::string> names;
    for (const RecordClass& each : RecordClasses()) {
        if (!each.kind.empty()) {
            names.emplace_back(each.kind);
        }
    }
    return names;
}

std::string Listed(const std::vector<std::string>& names) {
    std::string list;
    for (std::size_t at = 0; at < names.size(); ++at) {
        const char* const separator = at == 0 ? "" : at + 1 == names.size() ? " or " : ", ";
        list += separator + names[at];
    }
    return list;
}

CLI::Validator OneOf(std::vector<std::string> names, const std::string& what) {
    const auto check = [names = std::move(names), what](const std::string& name) {
        const bool isOne = std::find(names.begin(), names.end(), name) != names.end();
        return isOne ? std::string() : "\"" + name + "\" is no " + what + DidYouMean(name, names);
    };
    return {check, ""};
}

void DeclareRecordClass(CLI::App* command, std::string* recordClass) {
    command
        ->add_option("--record", *recordClass,
                     "The record class, which else is found by the name of the root; \"quavera "
                     "records\" lists them")
        ->check(OneOf(RecordClassNames(), "record class"))
        ->type_name("CLASS");
}

int StatusOf(const Result<Done>& done) {
    if (!done) {
        Report(done.failure());
    }
    return done ? 0 : kFailed;
}

void EndWithStatusOutOfMemory(int status) {
    statusOutOfMemory = status;
    std::set_terminate([] {
        std::fputs("quavera: out of memory\n", stderr);
        std::_Exit(statusOutOfMemory);
    });
}

Result<Done> Print(const Result<std::string>& output) {
    return output ? WriteOutput(*output) : output.failure();
}

}  // namespace tool
