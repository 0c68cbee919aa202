#ifndef QUAVERA_BENCH_FLOOR_UTF8_H_
#define QUAVERA_BENCH_FLOOR_UTF8_H_

#include <cstddef>
#include <cstdint>
#include <string>

#include "bench/floor/Base64.h"
#include "bench/floor/Buffers.h"

namespace bench::floor {

/// The six bits of a trail byte; of any other, more.
inline std::uint32_t TrailBits(char byte) {
    return Code(byte) ^ 0x80;
}

/// Strict UTF-8 from `decoded` into `wide`; the number of characters.
inline std::size_t Widen(std::size_t size) {
    const char* from = decoded;
    const char* const end = from + size;
    wchar_t* to = wide;
    decoded[size] = decoded[size + 1] = decoded[size + 2] = 0;  // ends a sequence that is cut
    while (from < end) {
        const std::uint32_t first = Code(*from);
        std::uint32_t code = first;
        if (first < 0x80) {
            from += 1;
        } else if (first >= 0xC2 && first < 0xE0) {
            const std::uint32_t second = TrailBits(from[1]);
            code = (first & 0x1F) << 6 | second;
            if (second > 0x3F) {
                Fail();
            }
            from += 2;
        } else if (first >= 0xE0 && first < 0xF0) {
            const std::uint32_t second = TrailBits(from[1]);
            const std::uint32_t third = TrailBits(from[2]);
            code = (first & 0xF) << 12 | second << 6 | third;
            if ((second | third) > 0x3F || code < 0x800 || (code >= 0xD800 && code <= 0xDFFF)) {
                Fail();
            }
            from += 3;
        } else if (first >= 0xF0 && first < 0xF8) {
            const std::uint32_t second = TrailBits(from[1]);
            const std::uint32_t third = TrailBits(from[2]);
            const std::uint32_t fourth = TrailBits(from[3]);
            code = (first & 7) << 18 | second << 12 | third << 6 | fourth;
            if ((second | third | fourth) > 0x3F || code < 0x10000 || code > 0x10FFFF) {
                Fail();
            }
            from += 4;
        } else {
            Fail();
        }
        *to++ = static_cast<wchar_t>(code);
    }
    return static_cast<std::size_t>(to - wide);
}

/// The same of ASCII. Whole vectors at a time: the buffers have room for what is too much.
inline void WidenAscii(std::size_t size) {
    constexpr std::size_t kVector = 16;
    for (std::size_t at = 0; at < size; at += kVector) {
        for (std::size_t lane = 0; lane < kVector; ++lane) {
            wide[at + lane] = static_cast<wchar_t>(Code(decoded[at + lane]));
        }
    }
}

/// The wide string of what was decoded. To make one is cheaper than to assign to one.
inline std::wstring Wide(const Bytes& bytes) {
    std::size_t size = bytes.size;
    if (bytes.isAscii) {
        WidenAscii(size);
    } else {
        size = Widen(size);
    }
    return {wide, size};
}

}  // namespace bench::floor

#endif  // QUAVERA_BENCH_FLOOR_UTF8_H_
