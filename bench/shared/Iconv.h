#ifndef QUAVERA_BENCH_SHARED_ICONV_H_
#define QUAVERA_BENCH_SHARED_ICONV_H_

#include <iconv.h>

#include <cstddef>
#include <cstdlib>
#include <string_view>

namespace bench {

inline iconv_t OpenUtf8ToWide() {
    return iconv_open("WCHAR_T", "UTF-8");
}

/// Converts UTF-8 to `to`, which has room for as many characters as `text` has bytes; the number of
/// characters.
inline std::size_t Widen(iconv_t converter, std::string_view text, wchar_t* to) {
    // iconv does not write to its input; its declaration is older than const.
    char* from = const_cast<char*>(text.data());
    std::size_t fromSize = text.size();
    char* bytes = reinterpret_cast<char*>(to);
    std::size_t room = text.size() * sizeof(wchar_t);
    if (iconv(converter, &from, &fromSize, &bytes, &room) == static_cast<std::size_t>(-1)) {
        std::abort();
    }
    return text.size() - room / sizeof(wchar_t);
}

}  // namespace bench

#endif  // QUAVERA_BENCH_SHARED_ICONV_H_
