#include <string>

#include "common/TextConversion.h"

namespace {

constexpr char kDigits[] = "0123456789ABCDEF";
constexpr char kWhiteSpace[] = " \t\n\v\f\r";

/// The value of a hexadecimal digit, -1 for any other character.
int DigitValue(char character) {
    if (character >= '0' && character <= '9') {
        return character - '0';
    }
    if (character >= 'A' && character <= 'F') {
        return character - 'A' + 10;
    }
    if (character >= 'a' && character <= 'f') {
        return character - 'a' + 10;
    }
    return -1;
}

}  // namespace

std::string CharToHexString(char character) {
    // A `char` may be signed; its code is not.
    const auto code = static_cast<unsigned char>(character);
    return {code < 16 ? ' ' : kDigits[code / 16], kDigits[code % 16]};
}

char HexStringToChar(const std::string& text) {
    int value = 0;
    std::size_t at = text.find_first_not_of(kWhiteSpace);
    for (int digits = 0; digits < 2 && at < text.size(); ++digits, ++at) {
        const int digit = DigitValue(text[at]);
        if (digit < 0) {
            break;
        }
        value = value * 16 + digit;
    }
    return static_cast<char>(value);
}
