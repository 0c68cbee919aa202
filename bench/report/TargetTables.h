#ifndef QUAVERA_BENCH_REPORT_TARGET_TABLES_H_
#define QUAVERA_BENCH_REPORT_TARGET_TABLES_H_

#include "bench/report/Target.h"

namespace bench {

/// Prints what everything costs on the target, with its heading.
void PrintTarget(const Target& target);

/// The round by the album's size.
void PrintGrowthOnTarget(const Target& target);

}  // namespace bench

#endif  // QUAVERA_BENCH_REPORT_TARGET_TABLES_H_
