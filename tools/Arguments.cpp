#include "tools/Arguments.h"

#include <algorithm>
#include <regex>

#include "tools/Decimal.h"

namespace tool {
namespace {

constexpr int kHighestPort = 65535;
constexpr int kMostSeconds = 24 * 60 * 60;
constexpr int kMostRetries = 10;
constexpr std::size_t kLongestAddress = 1000;
constexpr std::size_t kLongestUser = 255;

bool HoldsControl(const std::string& text) {
    return std::any_of(text.begin(), text.end(), [](char character) {
        const auto code = static_cast<unsigned char>(character);
        return code < 0x20 || code == 0x7F;
    });
}

}  // namespace

// CLI11 itself reads numbers as C does: a leading zero means octal, and an empty text 0.
std::optional<int> ParseDecimal(const std::string& text) {
    return ParseWholeDecimal<int>(text);
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

// Ahead of any connection, as wrong usage. A user in it may have a password, which is not repeated.
std::string CheckHttpAddress(const std::string& text) {
    static const std::regex address(
        R"(https?://(\[[0-9A-Fa-f:.]+\]|[^/?#@:\[\]\s]+)(:([0-9]{1,5}))?([/?#]\S*)?)");
    std::smatch parts;
    if (text.size() <= kLongestAddress && std::regex_match(text, parts, address) &&
        (!parts[3].matched || std::stoi(parts[3]) <= kHighestPort)) {
        return "";
    }
    return text.find('@') == std::string::npos
               ? "\"" + text + "\" is no http:// or https:// address"
               : "an address names no user and no password; --user NAME does, and asks for the "
                 "password";
}

std::string CheckRetries(const std::string& text) {
    const int retries = ParseDecimal(text).value_or(-1);
    return retries >= 0 && retries <= kMostRetries
               ? ""
               : "\"" + text + "\" is no number from 0 to " + std::to_string(kMostRetries);
}

std::string CheckUser(const std::string& text) {
    if (text.find(':') != std::string::npos) {
        return "a user's name holds no \":\", and no password follows it: that is asked for, or "
               "taken from QUAVERA_PASSWORD";
    }
    const bool isName = !text.empty() && text.size() <= kLongestUser && !HoldsControl(text);
    return isName ? "" : "\"" + text + "\" is no name of a user";
}

std::string CheckFileName(const std::string& text) {
    return text.empty() ? "\"\" is no name of a file or folder" : "";
}

}  // namespace tool
