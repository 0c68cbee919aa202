#include "bench/measure/Conversion.h"

#include <iconv.h>

#include <cstdlib>

namespace bench {

std::wstring ConvertByOpeningIconv(const std::string& text) {
    std::wstring result(text.size(), L'\0');
    // iconv does not write to its input; its declaration is older than const.
    char* from = const_cast<char*>(text.data());
    std::size_t fromSize = text.size();
    char* to = reinterpret_cast<char*>(result.data());
    std::size_t toSize = result.size() * sizeof(wchar_t);
    const iconv_t converter = iconv_open("WCHAR_T", "UTF-8");
    if (iconv(converter, &from, &fromSize, &to, &toSize) == static_cast<std::size_t>(-1)) {
        std::abort();
    }
    iconv_close(converter);
    result.resize(result.size() - toSize / sizeof(wchar_t));
    return result;
}

std::string AsciiText(std::size_t size) {
    std::string text;
    while (text.size() < size) {
        text += static_cast<char>('a' + text.size() % 26);
    }
    return text;
}

}  // namespace bench
