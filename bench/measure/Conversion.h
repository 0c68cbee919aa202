#ifndef QUAVERA_BENCH_MEASURE_CONVERSION_H_
#define QUAVERA_BENCH_MEASURE_CONVERSION_H_

#include <string>

namespace bench {

/// The wide string of a UTF-8 text by a converter of the C library that is opened for this one
/// text: what `convertFromUtf8` is measured against.
std::wstring ConvertByOpeningIconv(const std::string& text);

/// A text of ASCII letters.
std::string AsciiText(std::size_t size);

}  // namespace bench

#endif  // QUAVERA_BENCH_MEASURE_CONVERSION_H_
