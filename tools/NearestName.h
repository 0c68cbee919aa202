#ifndef QUAVERA_TOOLS_NEAREST_NAME_H_
#define QUAVERA_TOOLS_NEAREST_NAME_H_

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tool {

/// How many letters have to be added, dropped or replaced to make one name of the other, whatever
/// their case. Of a long name only as much counts as names have.
std::size_t EditDistance(std::string_view left, std::string_view right);

/// The first of those that are least different from `name`; empty where there are none.
std::string NearestName(std::string_view name, const std::vector<std::string>& names);

/// For the end of a message about a name that is none of those: "; did you mean \"show\"?", or
/// nothing where none is near.
std::string DidYouMean(std::string_view name, const std::vector<std::string>& names);

}  // namespace tool

#endif  // QUAVERA_TOOLS_NEAREST_NAME_H_
