#ifndef QUAVERA_BENCH_REPORT_TABLES_H_
#define QUAVERA_BENCH_REPORT_TABLES_H_

#include <string>

#include "bench/report/Measurements.h"

// The tables that show where the limits' figures come from, each with its heading.

namespace bench {

void PrintRounds(const Measurements& measured);
void PrintDocuments(const Measurements& measured);
void PrintTexts(const Measurements& measured);
void PrintHeap(const Measurements& measured);
void PrintGrowth(const Measurements& measured);
void PrintConversion(const Measurements& measured);
void PrintProfile(const Measurements& measured, const char* what, const std::string& steps);

}  // namespace bench

#endif  // QUAVERA_BENCH_REPORT_TABLES_H_
