// Runs all benchmarks, or those of the target alone, and prints the tables, as Markdown, on
// standard output. This machine's programs stand beside it.

#include <cstdio>
#include <fstream>
#include <string>

#include "bench/report/Command.h"
#include "bench/report/Growth.h"
#include "bench/report/Limits.h"
#include "bench/report/Measurements.h"
#include "bench/report/Stages.h"
#include "bench/report/Tables.h"
#include "bench/report/Target.h"
#include "bench/report/TargetTables.h"
#include "bench/shared/Cases.h"

namespace {

std::string Processor() {
    std::ifstream info("/proc/cpuinfo");
    for (std::string line; std::getline(info, line);) {
        if (line.compare(0, 10, "model name") == 0) {
            return line.substr(line.find(':') + 2);
        }
    }
    return "unknown processor";
}

std::string FirstLineOf(const std::string& command) {
    const std::string output = bench::OutputOf(command);
    return output.substr(0, output.find('\n'));
}

void PrintMachine() {
    const std::string valgrind = FirstLineOf("valgrind --version");
    std::printf("Measured on %s, %s, with %s; to compare with: %s.\n\n", Processor().c_str(),
                QUAVERA_BENCH_BUILD, valgrind.c_str(), QUAVERA_BENCH_PEER_VERSIONS);
}

void PrintEmulation() {
    std::printf("The target's figures: GNU %s for ARM, MinSizeRel, under %s.\n\n",
                FirstLineOf("arm-linux-gnueabihf-g++ -dumpfullversion").c_str(),
                FirstLineOf("qemu-arm --version").c_str());
}

void Print(const bench::Target& target) {
    PrintLimits(target);
    PrintTarget(target);
}

void Print(const bench::Measurements& measured) {
    PrintMachine();
    PrintEmulation();
    Print(measured.OnTarget());
    PrintLimits(measured);
    PrintRounds(measured);
    PrintDocuments(measured);
    PrintTexts(measured);
    PrintHeap(measured);
    PrintGrowth(measured);
    PrintConversion(measured);
    PrintProfile(measured, "round", bench::kRound);
    PrintProfile(measured, "round with the tree's text", bench::kDocument);
    PrintProfile(measured, "log text", bench::kText);
}

std::string FolderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? "." : path.substr(0, slash);
}

int Usage() {
    std::fputs(
        "usage: quavera-bench-report target SYSROOT BUILD\n"
        "       quavera-bench-report all SYSROOT BUILD PICTURE\n"
        "SYSROOT: the target's root folder; BUILD: the folder of a build for it\n"
        "PICTURE: the file that the picture of the growth with the album is written to\n",
        stderr);
    return 2;
}

}  // namespace

int main(int count, char** arguments) {
    const std::string what = count > 1 ? arguments[1] : "";
    if (what == "target" && count == 4) {
        bench::Target target(arguments[2], arguments[3]);
        target.Take();
        Print(target);
        return 0;
    }
    if (what == "all" && count == 5) {
        bench::Measurements measured(FolderOf(arguments[0]), {arguments[2], arguments[3]});
        measured.Take();
        const bench::StageCounts here =
            bench::StagesHere(FolderOf(arguments[0]) + "/quavera-bench-stages");
        const bench::StageCounts onTarget = bench::StagesOnTarget(arguments[2], arguments[3]);
        Print(measured);
        bench::PrintStages(here, onTarget);
        return bench::WriteGrowthPicture(measured, arguments[4]) ? 0 : 1;
    }
    return Usage();
}
