#ifndef QUAVERA_BENCH_FLOOR_PLAIN_TEXT_H_
#define QUAVERA_BENCH_FLOOR_PLAIN_TEXT_H_

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

namespace bench::floor {

/// As many characters of a text as are looked at in one go, the first one lowest.
using Word = std::size_t;

/// A word of that byte over and over.
constexpr Word All(unsigned char byte) {
    return ~Word{0} / 0xFF * byte;
}

inline Word Load(const char* from) {
    Word word = 0;
    std::memcpy(&word, from, sizeof word);
    return word;
}

/// The highest bit of each byte that no text of the album holds as it stands in XML: `&`, `<`, `>`,
/// what is below the space, what is beyond ASCII. Bytes behind the first such one may be marked,
/// too.
inline Word Marks(Word word) {
    const Word isNoReference = (word ^ All('&')) + All(0x7F);
    const Word isNoBracket = ((word & All(0xFD)) ^ All('<')) + All(0x7F);  // '<' and '>'
    const Word isFromSpaceOn = word + All(0x80 - ' ');
    return ~(isNoReference & isNoBracket & isFromSpaceOn & ~word) & All(0x80);
}

/// How many bytes stand ahead of the first marked one.
inline std::size_t CountAhead(Word marks) {
    if constexpr (sizeof(Word) == sizeof(unsigned)) {
        return static_cast<std::size_t>(__builtin_ctz(static_cast<unsigned>(marks))) / 8;
    } else {
        return static_cast<std::size_t>(__builtin_ctzll(marks)) / 8;
    }
}

template <class Part>
bool AreSame(const char* left, const char* right) {
    Part leftPart = 0;
    Part rightPart = 0;
    std::memcpy(&leftPart, left, sizeof leftPart);
    std::memcpy(&rightPart, right, sizeof rightPart);
    return leftPart == rightPart;
}

/// Whether two texts of so many characters, known to the compiler, are the same: by words, the last
/// of which overlaps. Compilers for the target call a function for this.
template <std::size_t Size>
bool AreSame(const char* left, const char* right) {
    static_assert(Size >= 4);
    constexpr std::size_t kStep = Size < sizeof(Word) ? 4 : sizeof(Word);
    using Part = std::conditional_t<kStep == 4, std::uint32_t, std::uint64_t>;
    for (std::size_t at = 0; at + kStep < Size; at += kStep) {
        if (!AreSame<Part>(left + at, right + at)) {
            return false;
        }
    }
    return AreSame<Part>(left + Size - kStep, right + Size - kStep);
}

}  // namespace bench::floor

#endif  // QUAVERA_BENCH_FLOOR_PLAIN_TEXT_H_
