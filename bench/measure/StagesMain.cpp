// Does what a client does with an answer of the service: the SOAP bytes are decoded, the steps of
// the library are done, the SOAP record is freed. Each is a function of its own, whose instructions
// a profiler counts; the difference between two runs holds the repeats alone.

#include <cstdio>
#include <cstdlib>
#include <string>

#include "bench/measure/StagesSoap.h"
#include "bench/shared/Steps.h"

namespace {

[[gnu::noinline]] bench::SoapAlbum* StepDecode(bench::SoapReader* reader,
                                               const std::string& answer) {
    return reader->Read(answer);
}

[[gnu::noinline]] void StepEnd(bench::SoapReader* reader) {
    reader->Free();
}

int Usage() {
    std::fputs(
        "usage: quavera-bench-stages OPTIONS STEPS TRACKS REPEATS\n"
        "       quavera-bench-stages check TRACKS\n"
        "       quavera-bench-stages list\n"
        "STEPS: those of quavera-bench-run between decoding and freeing the SOAP record, - for "
        "none\n",
        stderr);
    return 2;
}

int List() {
    for (const bench::SoapOptions& options : bench::SoapOptionsCompared()) {
        std::puts(options.name);
    }
    return 0;
}

/// The record that the library makes of a SOAP record, all its fields.
std::string RecordOf(bench::SoapAlbum* album) {
    const auto ours = bench::MakeContender("ours");
    bench::DoSteps("WSFPR", album, ours.get());
    return ours->Text() + ours->Unprinted();
}

/// Whether all options give the record that is made of the album itself.
bool Check(int trackCount) {
    bench::Album album(trackCount, bench::Members::kAll);
    const std::string answer = bench::SoapAnswer(album.soap());
    const std::string expected = RecordOf(album.soap());
    bool agrees = true;
    for (const bench::SoapOptions& options : bench::SoapOptionsCompared()) {
        bench::SoapReader reader(options);
        for (const char* const time : {"first", "second"}) {
            if (RecordOf(StepDecode(&reader, answer)) != expected) {
                std::fprintf(stderr, "%s: the %s record differs\n", options.name, time);
                agrees = false;
            }
            StepEnd(&reader);
        }
    }
    return agrees;
}

void Run(const bench::SoapOptions& options, const std::string& steps, int trackCount, int repeats) {
    bench::Album album(trackCount, bench::Members::kAll);
    const std::string answer = bench::SoapAnswer(album.soap());
    bench::SoapReader reader(options);
    const auto ours = bench::MakeContender("ours");
    for (int at = 0; at < repeats; ++at) {
        bench::SoapAlbum* const soap = StepDecode(&reader, answer);
        bench::DoSteps(steps, soap, ours.get());
        StepEnd(&reader);
    }
}

}  // namespace

int main(int count, char** arguments) {
    const std::string first = count > 1 ? arguments[1] : "";
    if (count == 2 && first == "list") {
        return List();
    }
    if (count == 3 && first == "check") {
        return Check(std::atoi(arguments[2])) ? 0 : 1;
    }
    const bench::SoapOptions* const options = count == 5 ? bench::FindSoapOptions(first) : nullptr;
    const std::string steps = count == 5 && std::string(arguments[2]) != "-" ? arguments[2] : "";
    if (options == nullptr || steps.find_first_not_of("WSPRTFD") != std::string::npos) {
        return Usage();
    }
    Run(*options, steps, std::atoi(arguments[3]), std::atoi(arguments[4]));
    return 0;
}
