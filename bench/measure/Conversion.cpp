#include "bench/measure/Conversion.h"

#include "bench/shared/Iconv.h"

namespace bench {

std::wstring ConvertByOpeningIconv(const std::string& text) {
    std::wstring result(text.size(), L'\0');
    const iconv_t converter = OpenUtf8ToWide();
    const std::size_t size = Widen(converter, text, result.data());
    iconv_close(converter);
    result.resize(size);
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
