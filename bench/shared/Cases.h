#ifndef QUAVERA_BENCH_SHARED_CASES_H_
#define QUAVERA_BENCH_SHARED_CASES_H_

#include <cstddef>

// What the programs of measure/ measure and the report prints.

namespace bench {

// Tracks of an album.
inline constexpr int kMany = 1000;
inline constexpr int kFew = 12;
/// By which the round is followed as the album grows.
inline constexpr int kGrowth[] = {kFew, 100, kMany, 10000, 100000};

/// The bytes of the text that is converted.
inline constexpr std::size_t kTextSize = 20;

// Steps, by their letters.
inline constexpr char kRound[] = "WRFD";
inline constexpr char kDocument[] = "WSFPRFD";  // with the tree's text
inline constexpr char kText[] = "T";

}  // namespace bench

#endif  // QUAVERA_BENCH_SHARED_CASES_H_
