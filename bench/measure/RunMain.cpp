// Does some steps of a contender a number of times, for a profiler that counts instructions: the
// difference between two such runs holds the steps alone.

#include <cstdio>
#include <cstdlib>
#include <string>

#include "bench/measure/Conversion.h"
#include "bench/shared/Agreement.h"
#include "bench/shared/Steps.h"
#include "common/QuaveraCommon.h"

namespace {

int Usage() {
    std::fputs(
        "usage: quavera-bench-run CONTENDER STEPS TRACKS REPEATS\n"
        "       quavera-bench-run convert ours|iconv BYTES REPEATS\n"
        "       quavera-bench-run check TRACKS\n"
        "       quavera-bench-run list\n"
        "STEPS: W write, S save, P parse, R read, T log text, F free the tree, D drop the record\n",
        stderr);
    return 2;
}

int List() {
    for (const std::string& name : bench::ContenderNames()) {
        std::puts(name.c_str());
    }
    return 0;
}

int Convert(const std::string& way, int size, int repeats) {
    const std::string text = bench::AsciiText(static_cast<std::size_t>(size));
    const bool opensIconv = way == "iconv";
    for (int at = 0; at < repeats; ++at) {
        const std::wstring result =
            opensIconv ? bench::ConvertByOpeningIconv(text) : convertFromUtf8(text);
        if (result.size() != text.size()) {
            return 1;
        }
    }
    return 0;
}

int Run(const std::string& name, const std::string& steps, int trackCount, int repeats) {
    const auto contender = bench::MakeContender(name);
    if (contender == nullptr || steps.find_first_not_of("WSPRTFD") != std::string::npos) {
        return Usage();
    }
    bench::Album album(trackCount, contender->Wanted());
    bench::Prepare(steps, album.soap(), contender.get());
    bench::RepeatSteps(steps, album.soap(), contender.get(), repeats);
    return 0;
}

}  // namespace

int main(int count, char** arguments) {
    const std::string first = count > 1 ? arguments[1] : "";
    if (count == 2 && first == "list") {
        return List();
    }
    if (count == 3 && first == "check") {
        return bench::Agree(std::atoi(arguments[2])) ? 0 : 1;
    }
    if (count != 5) {
        return Usage();
    }
    const int size = std::atoi(arguments[3]);
    const int repeats = std::atoi(arguments[4]);
    return first == "convert" ? Convert(arguments[2], size, repeats)
                              : Run(first, arguments[2], size, repeats);
}
