#ifndef QUAVERA_PLATFORM_NAME_HASH_H_
#define QUAVERA_PLATFORM_NAME_HASH_H_

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "base/SmallText.h"

namespace ZQXML {

/// Of words of four bytes, the last of which overlaps the one before it. A product's upper bits
/// depend on all bits of its factor, so it is they that choose the slot. Against a hash of single
/// bytes, saves 3 % of a round of 12 tracks.
inline std::uint32_t HashName(std::string_view name) {
    constexpr std::size_t kStep = sizeof(std::uint32_t);
    constexpr std::uint32_t kFactor = 0x9E3779B1;  // a prime near the golden ratio of 2^32
    auto hash = static_cast<std::uint32_t>(name.size());
    if (name.size() < kStep) {
        for (const char byte : name) {
            hash = (hash ^ static_cast<unsigned char>(byte)) * kFactor;
        }
        return hash;
    }
    const std::size_t last = name.size() - kStep;
    for (std::size_t at = 0; at < last; at += kStep) {
        hash = (hash ^ quavera::LoadWord<std::uint32_t>(&name[at])) * kFactor;
    }
    return (hash ^ quavera::LoadWord<std::uint32_t>(&name[last])) * kFactor;
}

}  // namespace ZQXML

#endif  // QUAVERA_PLATFORM_NAME_HASH_H_
