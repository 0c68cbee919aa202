#include "tools/NearestName.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace tool {
namespace {

char Lower(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

}  // namespace

std::size_t EditDistance(std::string_view left, std::string_view right) {
    constexpr std::size_t kLongestName = 64;
    left = left.substr(0, kLongestName);
    right = right.substr(0, kLongestName);
    // One line of the table of distances between the beginnings of both.
    std::vector<std::size_t> distances(right.size() + 1);
    std::iota(distances.begin(), distances.end(), std::size_t{0});
    for (std::size_t row = 1; row <= left.size(); ++row) {
        std::size_t diagonal = std::exchange(distances[0], row);
        for (std::size_t at = 1; at <= right.size(); ++at) {
            const bool isSame = Lower(left[row - 1]) == Lower(right[at - 1]);
            const std::size_t replaced = diagonal + (isSame ? 0 : 1);
            diagonal = distances[at];
            distances[at] = std::min({replaced, distances[at] + 1, distances[at - 1] + 1});
        }
    }
    return distances.back();
}

std::string NearestName(std::string_view name, const std::vector<std::string>& names) {
    const auto nearest = std::min_element(
        names.begin(), names.end(), [name](const std::string& left, const std::string& right) {
            return EditDistance(left, name) < EditDistance(right, name);
        });
    return nearest == names.end() ? std::string() : *nearest;
}

std::string DidYouMean(std::string_view name, const std::vector<std::string>& names) {
    const std::string nearest = NearestName(name, names);
    // Half of the letters may be wrong in a short name, three in a long one.
    const std::size_t most = std::min<std::size_t>(3, name.size() / 2);
    return nearest.empty() || EditDistance(nearest, name) > most
               ? std::string()
               : "; did you mean \"" + nearest + "\"?";
}

}  // namespace tool
