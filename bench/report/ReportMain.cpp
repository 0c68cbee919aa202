// Runs all benchmarks and prints the table, as Markdown, on standard output. The programs that it
// runs stand beside it.

#include <cstdio>
#include <fstream>
#include <string>

#include "bench/report/Command.h"
#include "bench/report/Limits.h"
#include "bench/report/Measurements.h"
#include "bench/report/Tables.h"
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

void PrintMachine() {
    std::string valgrind = bench::OutputOf("valgrind --version");
    valgrind.pop_back();
    std::printf("Measured on %s, %s, with %s; to compare with: %s.\n\n", Processor().c_str(),
                QUAVERA_BENCH_BUILD, valgrind.c_str(), QUAVERA_BENCH_PEER_VERSIONS);
}

void Print(const bench::Measurements& measured) {
    PrintMachine();
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

}  // namespace

int main(int count, char** arguments) {
    if (count > 2) {
        std::fputs(
            "usage: quavera-bench-report [TARGET-HEAP]\n"
            "TARGET-HEAP: the command that runs the target's quavera-bench-heap\n",
            stderr);
        return 2;
    }
    const std::string self = arguments[0];
    const std::size_t slash = self.rfind('/');
    bench::Measurements measured(slash == std::string::npos ? "." : self.substr(0, slash));
    measured.Take(count == 2 ? arguments[1] : "");
    Print(measured);
    return 0;
}
