// The conversions by the C library's converter, which decides what becomes of every text, valid or
// not. It is opened and closed for each text.

#include <iconv.h>

#include <cstddef>

#include "common/BorrowedText.h"

namespace quavera {

// The converter is told that the memory of a wide string is UCS-4LE.
static_assert(sizeof(wchar_t) == 4, "wide characters have 32 bits");
static_assert(__BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__,
              "wide strings are little-endian in memory");

namespace {

constexpr char kWide[] = "UCS-4LE";

constexpr std::size_t kRoomPerUnit = 4;

/// One character-set conversion by the C library.
class Converter {
 public:
    Converter(const char* target, const char* source) : descriptor_(iconv_open(target, source)) {}
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;
    ~Converter() {
        if (IsOpen()) {
            iconv_close(descriptor_);
        }
    }

    /// Converts in a single call and tells whether all of `from` was converted.
    bool Convert(const void* from, std::size_t fromSize, void* to, std::size_t toSize) {
        if (!IsOpen()) {
            return false;
        }
        // iconv does not write to its input; its declaration is older than const.
        char* input = const_cast<char*>(static_cast<const char*>(from));
        char* output = static_cast<char*>(to);
        return iconv(descriptor_, &input, &fromSize, &output, &toSize) !=
               static_cast<std::size_t>(-1);
    }

 private:
    bool IsOpen() const {
        // NOLINTNEXTLINE(performance-no-int-to-ptr): iconv's value for "not opened"
        return descriptor_ != reinterpret_cast<iconv_t>(-1);
    }

    iconv_t descriptor_;
};

template <class String>
void CutAtZero(String& text) {
    const std::size_t zero = text.find(typename String::value_type());
    if (zero != String::npos) {
        text.resize(zero);
    }
}

}  // namespace

std::wstring ConvertToWide(std::string_view utf8) {
    // The room offered is one character for each byte; the rest of the buffer stays zero.
    std::wstring result(utf8.size() * kRoomPerUnit, L'\0');
    Converter converter(kWide, kUtf8);
    if (converter.Convert(utf8.data(), utf8.size(), result.data(), utf8.size() * sizeof(wchar_t))) {
        CutAtZero(result);
    }
    return result;
}

std::string ConvertToCodePage(const char* codePage, std::wstring_view wide) {
    std::string result(wide.size() * kRoomPerUnit, '\0');
    Converter converter(codePage, kWide);
    if (converter.Convert(wide.data(), wide.size() * sizeof(wchar_t), result.data(),
                          result.size())) {
        CutAtZero(result);
    }
    return result;
}

}  // namespace quavera
