#include "tools/CommandLine.h"

#include "tools/Files.h"

namespace tool {

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
