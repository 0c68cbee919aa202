#ifndef QUAVERA_BENCH_FLOOR_BUFFERS_H_
#define QUAVERA_BENCH_FLOOR_BUFFERS_H_

#include <cstdint>
#include <cstdlib>

#include "bench/shared/Album.h"

namespace bench::floor {

// Warm buffers, with room for whole groups after the longest text.
inline char encoded[kLongestText * 2];
inline char decoded[kLongestText * 2];
inline wchar_t wide[kLongestText * 2];

[[noreturn]] inline void Fail() {
    std::abort();
}

inline std::uint32_t Code(char byte) {
    return static_cast<unsigned char>(byte);
}

}  // namespace bench::floor

#endif  // QUAVERA_BENCH_FLOOR_BUFFERS_H_
