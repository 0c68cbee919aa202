#ifndef QUAVERA_BENCH_REPORT_LIMITS_H_
#define QUAVERA_BENCH_REPORT_LIMITS_H_

#include "bench/report/Measurements.h"
#include "bench/report/Target.h"

namespace bench {

// Each prints the figures that are held to limits, with its heading.
void PrintLimits(const Target& target);
void PrintLimits(const Measurements& measured);

}  // namespace bench

#endif  // QUAVERA_BENCH_REPORT_LIMITS_H_
