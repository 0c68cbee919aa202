#include "tools/Differences.h"

#include <algorithm>
#include <map>
#include <nlohmann/json.hpp>
#include <string_view>
#include <utility>

namespace tool {
namespace {

constexpr char kAbsent[] = "-";

/// The element that tells the items of a list apart: "GenreId" of "GenreLite".
std::string IdentifierOf(std::string_view item) {
    constexpr std::string_view kLite = "Lite";
    const bool isLite = item.size() > kLite.size() &&
                        item.compare(item.size() - kLite.size(), kLite.size(), kLite) == 0;
    return std::string(item.substr(0, item.size() - (isLite ? kLite.size() : 0))) + "Id";
}

/// What the items of a list are matched by: the identifier, and how many with it came before.
/// Without an identifier it is the number of those that have none either.
using Key = std::pair<std::string, std::size_t>;

std::vector<Key> KeysOf(const Json& list, const std::string& identifier) {
    std::map<std::string, std::size_t> counts;
    std::vector<Key> keys;
    for (const Json& item : list) {
        const bool isNamed = item.is_object() && item.contains(identifier);
        const std::string name = isNamed ? JsonText(item[identifier]) : std::string();
        keys.emplace_back(name, counts[name]++);
    }
    return keys;
}

/// The longest run of numbers that ascend: whether each of them is in it.
std::vector<bool> InAscendingRun(const std::vector<std::size_t>& numbers) {
    std::vector<std::size_t> ends;  // of the run of each length: the place with the least number
    std::vector<std::size_t> before(numbers.size());
    for (std::size_t at = 0; at < numbers.size(); ++at) {
        const auto end = std::lower_bound(
            ends.begin(), ends.end(), numbers[at],
            [&](std::size_t place, std::size_t number) { return numbers[place] < number; });
        before[at] = end == ends.begin() ? at : *(end - 1);
        if (end == ends.end()) {
            ends.push_back(at);
        } else {
            *end = at;
        }
    }
    std::vector<bool> isIn(numbers.size(), false);
    for (std::size_t left = ends.size(), at = ends.empty() ? 0 : ends.back(); left > 0; --left) {
        isIn[at] = true;
        at = before[at];
    }
    return isIn;
}

std::string At(const std::string& path, std::size_t place) {
    return path + "[" + std::to_string(place) + "]";
}

std::string MemberOf(const std::string& path, const std::string& name) {
    return path.empty() ? name : path + "." + name;
}

class Comparison {
 public:
    /// The shape has all members: it is what the objects are made by.
    void Records(const std::string& path, const Json& left, const Json& right,
                 const RecordShape& shape) {
        for (const auto& [name, value] : left.items()) {
            const auto other = right.find(name);
            const std::string member = MemberOf(path, name);
            if (other == right.end()) {
                Add(member, JsonText(value), kAbsent);
            } else {
                Values(member, value, *other, *FindElement(shape, name));
            }
        }
        for (const auto& [name, value] : right.items()) {
            if (!left.contains(name)) {
                Add(MemberOf(path, name), kAbsent, JsonText(value));
            }
        }
    }

    /// `identifier` is that of the items, which have that shape.
    void Lists(const std::string& path, const Json& left, const Json& right,
               const std::string& identifier, const RecordShape& shape) {
        const std::vector<Key> rightKeys = KeysOf(right, identifier);
        std::map<Key, std::size_t> places;
        for (std::size_t at = 0; at < rightKeys.size(); ++at) {
            places[rightKeys[at]] = at;
        }
        Matches matches;
        const std::vector<Key> leftKeys = KeysOf(left, identifier);
        for (std::size_t at = 0; at < leftKeys.size(); ++at) {
            const auto found = places.find(leftKeys[at]);
            if (found != places.end()) {
                matches.left.push_back(at);
                matches.right.push_back(found->second);
            }
        }
        Items(path, left, right, matches, shape);
    }

    std::vector<std::string> TakeLines() { return std::move(lines_); }

 private:
    /// The places of the items that belong together, in the order of the left ones.
    struct Matches {
        std::vector<std::size_t> left;
        std::vector<std::size_t> right;
    };

    void Items(const std::string& path, const Json& left, const Json& right, const Matches& matches,
               const RecordShape& shape) {
        const std::vector<bool> isInOrder = InAscendingRun(matches.right);
        std::vector<bool> isMatched(right.size(), false);
        std::size_t next = 0;
        for (std::size_t at = 0; at < left.size(); ++at) {
            if (next == matches.left.size() || matches.left[next] != at) {
                Add(At(path, at), JsonText(left[at]), kAbsent);
                continue;
            }
            const std::size_t other = matches.right[next];
            if (!isInOrder[next]) {
                Add(At(path, at), At("", at), At("", other));
            }
            Item(At(path, at), left[at], right[other], shape);
            isMatched[other] = true;
            ++next;
        }
        for (std::size_t at = 0; at < right.size(); ++at) {
            if (!isMatched[at]) {
                Add(At(path, at), kAbsent, JsonText(right[at]));
            }
        }
    }

    void Item(const std::string& path, const Json& left, const Json& right,
              const RecordShape& shape) {
        if (left.is_object() && right.is_object()) {
            Records(path, left, right, shape);
        } else {
            Scalars(path, left, right);
        }
    }

    void Values(const std::string& path, const Json& left, const Json& right,
                const ElementShape& shape) {
        if (left.is_array() && right.is_array()) {
            Lists(path, left, right, IdentifierOf(shape.item), shape.elements);
        } else {
            Item(path, left, right, shape.elements);
        }
    }

    void Scalars(const std::string& path, const Json& left, const Json& right) {
        if (left != right) {
            Add(path, JsonText(left), JsonText(right));
        }
    }

    void Add(const std::string& path, const std::string& before, const std::string& after) {
        lines_.push_back(path + ": " + before + " -> " + after);
    }

    std::vector<std::string> lines_;
};

/// A JSON pointer. Names of elements hold nothing that would have to be escaped in it.
std::string Below(const std::string& pointer, const std::string& part) {
    return pointer + "/" + part;
}

/// Takes off the ends of lists what `right` does not have, and notes that.
void Shorten(const std::string& path, const Json& right, Json* left, Json* patch) {
    if (left->is_object() && right.is_object()) {
        for (auto& [name, value] : left->items()) {
            if (const auto other = right.find(name); other != right.end()) {
                Shorten(Below(path, name), *other, &value, patch);
            }
        }
    } else if (left->is_array() && right.is_array()) {
        while (left->size() > right.size()) {
            left->erase(left->size() - 1);
            patch->push_back(
                {{"op", "remove"}, {"path", Below(path, std::to_string(left->size()))}});
        }
        for (std::size_t at = 0; at < left->size(); ++at) {
            Shorten(Below(path, std::to_string(at)), right[at], &(*left)[at], patch);
        }
    }
}

}  // namespace

std::vector<std::string> Differences(const Json& left, const Json& right,
                                     const RecordShape& shape) {
    Comparison comparison;
    if (left.is_array()) {
        // A list answer: what its items are called is known of lists within records only, and no
        // such item has an identifier.
        comparison.Lists("", left, right, "", shape);
    } else {
        comparison.Records("", left, right, shape);
    }
    return comparison.TakeLines();
}

// The JSON library would insert each removal from a list ahead of those that it has noted.
Json Patch(Json left, const Json& right) {
    Json patch = Json::array();
    Shorten("", right, &left, &patch);
    Json rest = Json::diff(left, right);
    for (Json& step : rest) {
        patch.push_back(std::move(step));
    }
    return patch;
}

}  // namespace tool
