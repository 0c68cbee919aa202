#include "tools/Result.h"

namespace tool {

std::string Message(const Failure& failure) {
    std::string message = failure.where + ": " + failure.what;
    // Some of it comes from files and services: it may be long, and hold control characters, of
    // which UTF-8 has one-byte and two-byte ones.
    constexpr std::size_t kLongest = 2000;
    if (message.size() > kLongest) {
        std::size_t end = kLongest;
        while (end > 0 && (static_cast<unsigned char>(message[end]) & 0xC0U) == 0x80) {
            --end;
        }
        message.replace(end, std::string::npos, "...");
    }
    unsigned char before = 0;
    for (char& character : message) {
        const auto code = static_cast<unsigned char>(character);
        if (code < 0x20 || code == 0x7F) {
            character = ' ';
        } else if (before == 0xC2 && code < 0xA0) {
            character = static_cast<char>(0xA0);  // with the byte before: a blank
        }
        before = code;
    }
    return message;
}

}  // namespace tool
