// The JSON patches of `diff --json`, applied as RFC 6902 says: they make the second document's JSON
// of the first one's.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/Random.h"
#include "tests/tools/Files.h"
#include "tests/tools/Process.h"
#include "tools/Differences.h"
#include "tools/Json.h"
#include "tools/Printing.h"

namespace {

using tool::Json;
using tooltest::DataPath;
using tooltest::Outcome;
using tooltest::RunTool;

// --- An applier of its own. The JSON library has one, too, but it is what makes the patches.

/// The parts of a JSON pointer (RFC 6901).
std::vector<std::string> Parts(const std::string& pointer) {
    std::vector<std::string> parts;
    for (std::size_t at = 0; at < pointer.size(); ++at) {
        if (pointer[at] == '/') {
            parts.emplace_back();
        } else if (pointer[at] == '~') {
            parts.back() += pointer.at(++at) == '1' ? '/' : '~';
        } else {
            parts.back() += pointer[at];
        }
    }
    return parts;
}

/// The place that an array's part of a pointer names: below `limit`.
std::size_t Place(const std::string& part, std::size_t limit) {
    const bool isNumber = !part.empty() &&
                          part.find_first_not_of("0123456789") == std::string::npos &&
                          (part == "0" || part.front() != '0');
    EXPECT_TRUE(isNumber) << part;
    const std::size_t place = isNumber ? std::stoul(part) : 0;
    EXPECT_LT(place, limit) << part;
    return std::min(place, limit - 1);
}

/// The value that the first parts lead to, without the last `rest` ones. It has to be there.
Json* Target(Json* document, const std::vector<std::string>& parts, std::size_t rest) {
    Json* value = document;
    for (std::size_t at = 0; at + rest < parts.size(); ++at) {
        const bool isThere =
            value->is_array() || (value->is_object() && value->contains(parts[at]));
        EXPECT_TRUE(isThere) << parts[at];
        if (!isThere) {
            return document;
        }
        value =
            value->is_array() ? &(*value)[Place(parts[at], value->size())] : &(*value)[parts[at]];
    }
    return value;
}

void Add(Json* document, const std::vector<std::string>& parts, const Json& value) {
    if (parts.empty()) {
        *document = value;
        return;
    }
    Json* const parent = Target(document, parts, 1);
    const std::string& last = parts.back();
    if (!parent->is_array()) {
        ASSERT_TRUE(parent->is_object()) << last;
        (*parent)[last] = value;
    } else if (last == "-") {
        parent->push_back(value);
    } else {
        const auto place = static_cast<std::ptrdiff_t>(Place(last, parent->size() + 1));
        parent->insert(parent->begin() + place, value);
    }
}

void Remove(Json* document, const std::vector<std::string>& parts) {
    Target(document, parts, 0);  // has to be there
    Json* const parent = Target(document, parts, 1);
    if (parent->is_array()) {
        parent->erase(Place(parts.back(), parent->size()));
    } else {
        EXPECT_EQ(parent->erase(parts.back()), 1U);
    }
}

void Apply(const Json& step, Json* document) {
    const std::string operation = step.at("op");
    const std::vector<std::string> path = Parts(step.at("path"));
    if (operation == "add") {
        Add(document, path, step.at("value"));
    } else if (operation == "remove") {
        Remove(document, path);
    } else if (operation == "replace") {
        *Target(document, path, 0) = step.at("value");
    } else if (operation == "test") {
        EXPECT_EQ(*Target(document, path, 0), step.at("value"));
    } else if (operation == "move" || operation == "copy") {
        const std::vector<std::string> from = Parts(step.at("from"));
        const Json value = *Target(document, from, 0);
        if (operation == "move") {
            Remove(document, from);
        }
        Add(document, path, value);
    } else {
        ADD_FAILURE() << "no operation of a patch: " << operation;
    }
}

Json Applied(Json document, const Json& patch) {
    EXPECT_TRUE(patch.is_array());
    for (const Json& step : patch) {
        Apply(step, &document);
    }
    return document;
}

/// The same without an order of members, which JSON does not have.
nlohmann::json Unordered(const Json& json) {
    return nlohmann::json::parse(json.dump());
}

TEST(PatchApplier, DoesWhatTheStandardSays) {
    const Json document = Json::parse(R"({"a":[1,2,3],"b":{"c/d":1,"e~f":2}})");
    const Json patch = Json::parse(R"([{"op":"add","path":"/a/1","value":9},)"
                                   R"({"op":"remove","path":"/a/0"},)"
                                   R"({"op":"add","path":"/a/-","value":[7]},)"
                                   R"({"op":"replace","path":"/b/c~1d","value":5},)"
                                   R"({"op":"move","from":"/b/e~0f","path":"/g"},)"
                                   R"({"op":"copy","from":"/g","path":"/a/0"},)"
                                   R"({"op":"test","path":"/g","value":2}])");
    EXPECT_EQ(Unordered(Applied(document, patch)),
              nlohmann::json::parse(R"({"a":[2,9,2,3,[7]],"b":{"c/d":5},"g":2})"));
}

// --- Of files

/// What `command` makes of one or two files.
Json Printed(const Outcome& outcome, int status) {
    EXPECT_EQ(outcome.status, status) << outcome.errors;
    EXPECT_EQ(outcome.output.find('\n') + 1, outcome.output.size());
    return Json::parse(outcome.output);
}

void ExpectPatches(const std::string& left, const std::string& right) {
    const Json before = Printed(RunTool({"show", "--json", left}), 0);
    const Json after = Printed(RunTool({"show", "--json", right}), 0);
    const int status = before == after ? 0 : 1;
    const Json patch = Printed(RunTool({"diff", "--json", left, right}), status);
    EXPECT_EQ(Unordered(Applied(before, patch)), Unordered(after)) << patch;
    EXPECT_EQ(patch.empty(), status == 0) << patch;
}

TEST(Patch, OfFilesMakesOneOfTheOther) {
    const tooltest::TempFolder folder;
    const auto add = [&folder](const std::string& type, const std::string& members) {
        return folder.Add(type + ".xml",
                          tooltest::Envelope("<q:" + type + ">" + members + "</q:" + type + ">"));
    };
    const std::vector<std::pair<std::string, std::string>> pairs = {
        {DataPath("DataTrackInfo/full.xml"), DataPath("DataTrackInfo/special-characters.xml")},
        {DataPath("DataAlbum/full.xml"), add("AlbumMetadata", "")},
        {DataPath("DataAlbum/full.xml"), DataPath("DataAlbum/nil-items.xml")},
        {DataPath("DataAlbum/full.xml"), DataPath("DataAlbum/empty-lists.xml")},
        {DataPath("DataArtist/full.xml"), DataPath("DataArtist/nil-items.xml")},
        {DataPath("DataGenre/full.xml"), DataPath("DataGenre/missing-lists.xml")},
        {DataPath("DataMemberLibrary/full.xml"), DataPath("DataMemberLibrary/nil-items.xml")},
        {DataPath("DataLibraryModificationResult/full.xml"), add("LibraryModificationResult", "")},
        {QUAVERA_TEST_CATALOG "/images/Alb.40013100.xml",
         add("Images", "<images><items><title>x</title></items></images>")},
        {QUAVERA_TEST_CATALOG "/index/default.xml", add("AlphaIndex", "")},
    };
    for (const auto& [left, right] : pairs) {
        ExpectPatches(left, right);
        ExpectPatches(right, left);
        ExpectPatches(left, left);
    }
}

TEST(Patch, NamesTheMemberThatChanges) {
    const std::string track = DataPath("DataTrackInfo/full.tree.xml");
    std::string changed = tooltest::Contents(track);
    changed.replace(changed.find(">19<"), 4, ">-1<");
    EXPECT_EQ(Printed(RunTool({"diff", "--json", track, "-"}, changed), 1),
              Json::parse(R"([{"op":"replace","path":"/RightFlags","value":-1}])"));
}

// --- Of any documents

/// Trees of artists that differ in whatever can differ: members, records and lists in each other.
class Artists {
 public:
    std::string Next() {
        return Some("Bio") + Some("ArtistId") + Maybe("<Station>" + Some("Name") + "</Station>") +
               Maybe("<Albums>" + List([this] { return Album(); }) + "</Albums>") +
               Maybe("<Genres>" + List([this] { return Genre(); }) + "</Genres>");
    }

 private:
    std::string Maybe(const std::string& text) { return random_.Below(4) == 0 ? "" : text; }
    std::string Some(const std::string& name) {
        return Maybe("<" + name + ">" + std::to_string(random_.Below(3)) + "</" + name + ">");
    }
    template <class Item>
    std::string List(const Item& item) {
        std::string items;
        for (std::size_t left = random_.Below(5); left > 0; --left) {
            items += item();
        }
        return items;
    }
    std::string Genre() { return "<GenreLite>" + Some("GenreId") + "</GenreLite>"; }
    std::string Album() {
        return "<Album>" + Some("AlbumId") + Some("Label") +
               Maybe("<DisplayableAlbumTypes>" + List([this] { return Some("Value"); }) +
                     "</DisplayableAlbumTypes>") +
               "</Album>";
    }

    Random random_{1};
};

TEST(Patch, OfAnyDocumentsMakesOneOfTheOther) {
    Artists artists;
    const auto next = [&artists] {
        const auto records =
            tool::ReadTrees("<Artist>" + artists.Next() + "</Artist>", "there", nullptr);
        return tool::JsonOf(*records);
    };
    const tool::RecordShape& shape = tool::ShapeOf("DataArtist");
    Json before = next();
    for (int done = 0; done < 2000; ++done) {
        Json after = next();
        const Json patch = tool::Patch(before, after);
        EXPECT_EQ(Unordered(Applied(before, patch)), Unordered(after)) << before << after << patch;
        const bool isSame = Unordered(before) == Unordered(after);
        EXPECT_EQ(patch.empty(), isSame);
        EXPECT_EQ(tool::Differences(before, after, shape).empty(), isSame);
        before = std::move(after);
    }
}

}  // namespace
