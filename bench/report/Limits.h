#ifndef QUAVERA_BENCH_REPORT_LIMITS_H_
#define QUAVERA_BENCH_REPORT_LIMITS_H_

#include "bench/report/Measurements.h"

namespace bench {

/// Prints the figures that are held to limits.
void PrintLimits(const Measurements& measured);

}  // namespace bench

#endif  // QUAVERA_BENCH_REPORT_LIMITS_H_
