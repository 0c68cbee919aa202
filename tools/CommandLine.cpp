#include "tools/CommandLine.h"

#include "tools/Files.h"
#include "tools/RecordClasses.h"

namespace tool {

std::vector<std::string> RecordClassNames() {
    std::vector<std::string> names;
    for (const RecordClass& each : RecordClasses()) {
        names.emplace_back(each.name);
    }
    return names;
}

void DeclareRecordClass(CLI::App* command, std::string* recordClass) {
    command->add_option("--record", *recordClass, "Record class, \"DataAlbum\" for example")
        ->check(CLI::IsMember(RecordClassNames()))
        ->type_name("CLASS");
}

int StatusOf(const Result<Done>& done) {
    if (!done) {
        Report(done.failure());
    }
    return done ? 0 : kFailed;
}

Result<Done> Print(const Result<std::string>& output) {
    return output ? WriteOutput(*output) : output.failure();
}

}  // namespace tool
