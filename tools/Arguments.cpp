#include "tools/Arguments.h"

#include <charconv>
#include <regex>
#include <system_error>

namespace tool {
namespace {

constexpr int kHighestPort = 65535;
constexpr int kMostSeconds = 24 * 60 * 60;
constexpr std::size_t kLongestAddress = 1000;

}  // namespace

// CLI11 itself reads numbers as C does: a leading zero means octal, and an empty text 0.
std::optional<int> ParseDecimal(const std::string& text) {
    int value = 0;
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, value);
    const bool isNumber = result.ec == std::errc() && result.ptr == end;
    return isNumber ? std::optional<int>(value) : std::nullopt;
}

std::string CheckCode(const std::string& text) {
    return ParseDecimal(text) ? "" : "\"" + text + "\" is no number";
}

std::string CheckSeconds(const std::string& text) {
    const int seconds = ParseDecimal(text).value_or(0);
    return seconds > 0 && seconds <= kMostSeconds
               ? ""
               : "\"" + text + "\" is no number of seconds from 1 to " +
                     std::to_string(kMostSeconds);
}

std::string CheckPort(const std::string& text) {
    const int port = ParseDecimal(text).value_or(-1);
    return port >= 0 && port <= kHighestPort ? "" : "\"" + text + "\" is no port";
}

// Ahead of any connection, as wrong usage.
std::string CheckHttpAddress(const std::string& text) {
    static const std::regex address(
        R"(https?://([^/?#@\s]*@)?(\[[0-9A-Fa-f:.]+\]|[^/?#@:\[\]\s]+)(:([0-9]{1,5}))?([/?#]\S*)?)");
    std::smatch parts;
    const bool isAddress = text.size() <= kLongestAddress &&
                           std::regex_match(text, parts, address) &&
                           (!parts[4].matched || std::stoi(parts[4]) <= kHighestPort);
    return isAddress ? "" : "\"" + text + "\" is no http:// or https:// address";
}

std::string CheckFileName(const std::string& text) {
    return text.empty() ? "\"\" is no name of a file or folder" : "";
}

}  // namespace tool
