#ifndef QUAVERA_BENCH_SHARED_CASES_H_
#define QUAVERA_BENCH_SHARED_CASES_H_

#include <cstddef>

// What the programs of measure/ measure and the report prints.

namespace bench {

// Tracks of an album.
inline constexpr int kMany = 1000;
inline constexpr int kFew = 12;
inline constexpr int kSome = 100;  // under emulation
/// By which the round is followed as the album grows.
inline constexpr int kGrowth[] = {kFew, 100, kMany, 10000, 100000};
inline constexpr int kGrowthOnTarget[] = {kFew, 50, kSome, 500, 2000};

/// The bytes of the text that is converted.
inline constexpr std::size_t kTextSize = 20;

// Steps, by their letters.
inline constexpr char kRound[] = "WRFD";
inline constexpr char kDocument[] = "WSFPRFD";  // with the tree's text
inline constexpr char kText[] = "T";
// Single ones. What is parsed has to be freed, too.
inline constexpr char kSave[] = "S";
inline constexpr char kParse[] = "PF";

}  // namespace bench

#endif  // QUAVERA_BENCH_SHARED_CASES_H_
