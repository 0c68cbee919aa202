#ifndef QUAVERA_TESTS_COMMON_CONVERSION_REFERENCE_H_
#define QUAVERA_TESTS_COMMON_CONVERSION_REFERENCE_H_

#include <iconv.h>

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

/// A wide string of any 32-bit values, also those that no literal can hold.
inline std::wstring Wide(std::initializer_list<std::uint32_t> codes) {
    std::wstring text;
    for (const std::uint32_t code : codes) {
        text += static_cast<wchar_t>(code);
    }
    return text;
}

/// The values of the units of a text in hexadecimal, for messages.
template <class Unit>
std::string Hex(std::basic_string_view<Unit> text) {
    constexpr unsigned kDigits = 2 * sizeof(Unit);
    std::string hex = std::to_string(text.size()) + " units:";
    for (const Unit unit : text) {
        hex += ' ';
        for (unsigned digit = kDigits; digit > 0; --digit) {
            const auto value = static_cast<std::uint32_t>(unit) >> (4 * (digit - 1)) & 0xFU;
            hex += "0123456789ABCDEF"[value];
        }
    }
    return hex;
}

inline std::string Hex(const std::string& text) {
    return Hex(std::string_view(text));
}
inline std::string Hex(const std::wstring& text) {
    return Hex(std::wstring_view(text));
}

/// What a conversion has to give for any input: one call of the C library's converter into a
/// zero-filled buffer of four units for each unit of the input. The result is the whole buffer
/// where the call fails or there is no such converter, and its text up to the first zero otherwise.
///
/// Opening a converter costs most of a conversion, so it is opened once and reset for each text.
class ConversionReference {
 public:
    ConversionReference(const char* target, const char* source)
        : descriptor_(iconv_open(target, source)) {}
    ConversionReference(const ConversionReference&) = delete;
    ConversionReference& operator=(const ConversionReference&) = delete;
    ~ConversionReference() {
        if (IsOpen()) {
            iconv_close(descriptor_);
        }
    }

    bool IsOpen() const { return reinterpret_cast<std::intptr_t>(descriptor_) != -1; }

    /// The result for `text`; `roomPerUnit` bytes are offered for each of its units.
    template <class Result, class Text>
    Result Convert(const Text& text, std::size_t roomPerUnit) {
        Result result(text.size() * 4, typename Result::value_type());
        if (!IsOpen()) {
            return result;
        }
        iconv(descriptor_, nullptr, nullptr, nullptr, nullptr);
        Text copy = text;
        auto* input = reinterpret_cast<char*>(copy.data());
        auto* output = reinterpret_cast<char*>(result.data());
        std::size_t inputLeft = copy.size() * sizeof(typename Text::value_type);
        std::size_t outputLeft = copy.size() * roomPerUnit;
        const auto failure = static_cast<std::size_t>(-1);
        if (iconv(descriptor_, &input, &inputLeft, &output, &outputLeft) == failure) {
            return result;
        }
        return result.substr(0, result.find(typename Result::value_type()));
    }

 private:
    iconv_t descriptor_;
};

/// `convertFromUtf8`: there is room for one character for each byte.
class FromUtf8Reference {
 public:
    std::wstring operator()(const std::string& text) {
        return converter_.Convert<std::wstring>(text, sizeof(wchar_t));
    }

 private:
    ConversionReference converter_{"UCS-4LE", "UTF-8"};
};

/// `convertToCodePage`: there is room for four bytes for each character.
class ToCodePageReference {
 public:
    explicit ToCodePageReference(const std::string& codePage)
        : converter_(codePage.c_str(), "UCS-4LE") {}

    bool IsKnown() const { return converter_.IsOpen(); }
    std::string operator()(const std::wstring& text) {
        return converter_.Convert<std::string>(text, 4);
    }

 private:
    ConversionReference converter_;
};

#endif  // QUAVERA_TESTS_COMMON_CONVERSION_REFERENCE_H_
