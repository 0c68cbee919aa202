#ifndef QUAVERA_TOOLS_ARGUMENTS_H_
#define QUAVERA_TOOLS_ARGUMENTS_H_

#include <optional>
#include <string>

namespace tool {

/// The decimal number that an argument is; nothing if it is none.
std::optional<int> ParseDecimal(const std::string& text);

// What CLI11 calls for an argument: the reason why it is wrong, empty if it is right.
std::string CheckCode(const std::string& text);
std::string CheckSeconds(const std::string& text);
std::string CheckPort(const std::string& text);
std::string CheckHttpAddress(const std::string& text);
std::string CheckRetries(const std::string& text);
std::string CheckUser(const std::string& text);
std::string CheckFileName(const std::string& text);

}  // namespace tool

#endif  // QUAVERA_TOOLS_ARGUMENTS_H_
