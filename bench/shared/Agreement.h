#ifndef QUAVERA_BENCH_SHARED_AGREEMENT_H_
#define QUAVERA_BENCH_SHARED_AGREEMENT_H_

namespace bench {

/// Whether all contenders make the same record of an album with so many tracks, and the trees the
/// same elements. What differs is told on standard error.
bool Agree(int trackCount);

}  // namespace bench

#endif  // QUAVERA_BENCH_SHARED_AGREEMENT_H_
