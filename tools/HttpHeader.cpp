#include "tools/HttpHeader.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace tool {
namespace {

constexpr std::size_t kLongestHeader = 8000;
constexpr std::string_view kBlanks = " \t";

/// Names say where the request goes, where it ends and what it holds: another value than the
/// tool's own would make it another request, or two.
constexpr std::string_view kOwnNames[] = {
    "connection", "content-encoding",    "content-length",   "content-type", "expect",
    "host",       "keep-alive",          "proxy-connection", "te",           "trailer",
    "upgrade",    "proxy-authorization", "transfer-encoding"};

/// In lower case. What is no ASCII letter stays.
std::string Lower(std::string text) {
    for (char& letter : text) {
        letter = letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    }
    return text;
}

bool IsName(std::string_view text) {
    constexpr std::string_view kLetters =
        "!#$%&'*+-.^_`|~0123456789abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
    return !text.empty() && text.find_first_not_of(kLetters) == std::string_view::npos;
}

bool IsValue(std::string_view text) {
    return std::none_of(text.begin(), text.end(), [](char character) {
        const auto code = static_cast<unsigned char>(character);
        return (code < 0x20 && character != '\t') || code == 0x7F;
    });
}

/// Whether a header would have a password on the command line, where this machine's other users
/// can read it.
bool IsPassword(const std::string& name, std::string_view value) {
    value.remove_prefix(std::min(value.size(), value.find_first_not_of(kBlanks)));
    constexpr std::string_view kScheme = "basic";
    return name == "authorization" &&
           Lower(std::string(value.substr(0, kScheme.size()))) == kScheme;
}

}  // namespace

std::string HeaderName(const std::string& header) {
    return Lower(header.substr(0, header.find(':')));
}

// Messages do not repeat the value, which may be a secret.
std::string CheckHeader(const std::string& text) {
    const std::string name = HeaderName(text);
    if (name.size() == text.size() || !IsName(name)) {
        return "a header is \"NAME: VALUE\", with no blank in NAME or behind it";
    }
    const std::string_view value = std::string_view(text).substr(name.size() + 1);
    const std::string named = "header \"" + text.substr(0, name.size()) + "\" ";
    if (text.size() > kLongestHeader) {
        return named + "is longer than " + std::to_string(kLongestHeader) + " bytes";
    }
    if (!IsValue(value)) {
        return named + "holds a line break or another control character";
    }
    if (std::find(std::begin(kOwnNames), std::end(kOwnNames), name) != std::end(kOwnNames)) {
        return named + "is the request's own, and not to be set";
    }
    return IsPassword(name, value) ? named + "would show a password; --user NAME asks for it" : "";
}

}  // namespace tool
