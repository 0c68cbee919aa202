#ifndef QUAVERA_BENCH_REPORT_GROWTH_H_
#define QUAVERA_BENCH_REPORT_GROWTH_H_

#include <string>

#include "bench/report/Measurements.h"

namespace bench {

/// Writes the picture of what the round takes per track by the album's size, as SVG; whether that
/// succeeded.
bool WriteGrowthPicture(const Measurements& measured, const std::string& file);

}  // namespace bench

#endif  // QUAVERA_BENCH_REPORT_GROWTH_H_
