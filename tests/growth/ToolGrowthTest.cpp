// The tool takes no more than linear work, whatever it is that its input has much of.

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>

#include "tests/growth/Growth.h"
#include "tests/tools/Files.h"
#include "tools/Differences.h"
#include "tools/Json.h"
#include "tools/Printing.h"

namespace {

using growth::Element;
using growth::GrowthTest;
using growth::IsLinear;
using growth::Levels;
using growth::Numbered;
using growth::Repeated;
using growth::Work;
using tool::Form;
using tool::Json;
using tooltest::Envelope;
using tooltest::Track;

/// The members of a track, with many of something.
struct Members {
    const char* name;
    std::string (*text)(std::size_t count);
};

void PrintTo(const Members& members, std::ostream* out) {
    *out << members.name;
}

const std::string kMember = "<trackId>Tra.1</trackId>";

const Members kMembers[] = {
    {"UnknownElements", [](std::size_t n) { return Repeated(n, "<unknown>5</unknown>"); }},
    {"UnknownNames",
     [](std::size_t n) {  // a tree keeps up to a thousand of them only once
         return Numbered(4 * n, [](const auto& at) { return "<u" + at + "/>"; });
     }},
    {"KnownElements", [](std::size_t n) { return Repeated(n, "<albumId>Alb.1</albumId>"); }},
    {"Levels", [](std::size_t n) { return Levels(n, "unknown"); }},
    {"LengthOfAText", [](std::size_t n) { return Element("albumId", std::string(50 * n, 'x')); }},
    {"LengthOfADisplayText",
     [](std::size_t n) { return Element("name", Repeated(10 * n, "x\xC3\xA9")); }},
    {"References", [](std::size_t n) { return Element("albumId", Repeated(n, "&amp;&lt;")); }},
    {"NumericReferences",
     [](std::size_t n) { return Element("albumId", Repeated(n, "&#x1F600;")); }},
    {"Comments", [](std::size_t n) { return Repeated(n, "<!-- c -->"); }},
    {"Instructions", [](std::size_t n) { return Repeated(n, "<?a b?>"); }},
    {"Sections", [](std::size_t n) { return Element("albumId", Repeated(n, "<![CDATA[x]]>")); }},
    {"AttributesOfElements",
     [](std::size_t n) {
         return Numbered(n, [](const auto& at) { return "<u a" + at + "='1'/>"; });
     }},
};

/// A start tag with attributes.
std::string Tagged(const std::string& attributes) {
    return "<unknown" + attributes + "/>";
}

/// Attributes of one local name under many prefixes, for an element that declares them all.
std::string Prefixed(std::size_t count, const std::string& name) {
    return Tagged(Numbered(count, [&name](const auto& at) {
        return " xmlns:p" + at + "='urn:" + at + "' p" + at + ":" + name + "='0'";
    }));
}

const Members kAttributes[] = {
    {"Attributes",
     [](std::size_t n) {
         return Tagged(Numbered(n, [](const auto& at) { return " a" + at + "='1'"; }));
     }},
    {"LengthOfAnAttribute",
     [](std::size_t n) { return Tagged(" a='" + std::string(50 * n, 'x') + "'"); }},
    {"NilAttributes", [](std::size_t n) { return Prefixed(n, "nil"); }},
    {"TypeAttributes", [](std::size_t n) { return Prefixed(n, "type"); }},
    {"MustUnderstandAttributes", [](std::size_t n) { return Prefixed(n, "mustUnderstand"); }},
    {"Namespaces",
     [](std::size_t n) {
         return Tagged(Numbered(n, [](const auto& at) { return " xmlns:p" + at + "='urn:x'"; }));
     }},
    {"NamespacesOfElements",
     [](std::size_t n) {
         return Numbered(n, [](const auto& at) { return Tagged(" xmlns:p" + at + "='urn:x'"); });
     }},
    {"NilAttributesOfElements",
     [](std::size_t n) { return Repeated(n, Tagged(" xsi:nil='1' xsi:type='t'")); }},
    {"PrefixesOfElements",
     [](std::size_t n) {
         return Numbered(n, [](const auto& at) {
             return "<p" + at + ":u xmlns:p" + at + "='urn:" + at + "'/>";
         });
     }},
};

class ToolGrowth : public GrowthTest, public testing::WithParamInterface<Members> {};
INSTANTIATE_TEST_SUITE_P(Of, ToolGrowth, testing::ValuesIn(kMembers),
                         [](const auto& test) { return test.param.name; });
INSTANTIATE_TEST_SUITE_P(OfMany, ToolGrowth, testing::ValuesIn(kAttributes),
                         [](const auto& test) { return test.param.name; });

/// As `show`, `tree` and `fetch` do.
testing::AssertionResult IsLinearToPrint(std::string (*document)(std::size_t count), Form form) {
    return IsLinear([=](std::size_t count) -> Work {
        return [form, soap = document(count)] {
            const auto printed = tool::PrintSoap(soap, "there", nullptr, form);
            EXPECT_TRUE(printed) << printed.failure().what;
        };
    });
}

TEST_P(ToolGrowth, OfPrintingATreeIsLinear) {
    EXPECT_TRUE(IsLinearToPrint(
        [](std::size_t count) { return Envelope(Track(kMember + GetParam().text(count))); },
        Form::kTree));
}

TEST_P(ToolGrowth, OfPrintingATextIsLinear) {
    EXPECT_TRUE(IsLinearToPrint(
        [](std::size_t count) { return Envelope(Track(GetParam().text(count) + kMember)); },
        Form::kText));
}

/// What comes with the message itself is not the record's.
TEST_P(ToolGrowth, OfReadingAHeaderIsLinear) {
    EXPECT_TRUE(IsLinearToPrint(
        [](std::size_t count) {
            const std::string envelope = Envelope(Track(kMember));
            const std::string header =
                Element("s:Header", Element("unknown", GetParam().text(count)));
            return std::string(envelope).insert(envelope.find("<s:Body>"), header);
        },
        Form::kTree));
}

TEST_P(ToolGrowth, OfReadingATreeIsLinear) {
    EXPECT_TRUE(IsLinear([](std::size_t count) -> Work {
        const std::string content = GetParam().text(count);
        return [tree = "<Track xmlns:xsi='urn:xsi'>" + content + "</Track>"] {
            EXPECT_TRUE(tool::PrintText(tree, "there", nullptr));
        };
    }));
}

using ToolListGrowth = GrowthTest;

TEST_F(ToolListGrowth, OfItemsIsLinear) {
    const auto album = [](std::size_t count) {
        const std::string item = "<items><trackId>Tra.1</trackId><name>x</name></items>";
        return Envelope(Element("AlbumMetadata", Element("tracks", Repeated(count, item))));
    };
    EXPECT_TRUE(IsLinearToPrint(album, Form::kTree));
    EXPECT_TRUE(IsLinearToPrint(album, Form::kText));
}

// --- JSON and differences

/// The tree of an album with many tracks, from number `first` on, each with that many a disc.
std::string Tracks(std::size_t count, std::size_t first = 0, const std::string& disc = "1") {
    std::string items;
    for (std::size_t at = first; at < first + count; ++at) {
        items += "<Track><TrackId>Tra." + std::to_string(at) + "</TrackId><DiscIndex>" + disc +
                 "</DiscIndex><Name>YWI=</Name></Track>";
    }
    return "<Album><Tracks>" + items + "</Tracks></Album>";
}

std::string Values(std::size_t count) {
    return Element("Album", Repeated(count,
                                     "<NonDisplayableAlbumTypes>x"
                                     "</NonDisplayableAlbumTypes>"));
}

TEST_P(ToolGrowth, OfJsonIsLinear) {
    EXPECT_TRUE(IsLinear([](std::size_t count) -> Work {
        const std::string content = GetParam().text(count);
        return [tree = "<Track xmlns:xsi='urn:xsi'>" + content + "</Track>"] {
            EXPECT_TRUE(tool::PrintText(tree, "there", nullptr, Form::kJson));
        };
    }));
}

TEST_F(ToolListGrowth, OfJsonIsLinear) {
    const auto images = [](std::size_t count) { return Repeated(count + 1, "<Image/>\n"); };
    const auto tracks = [](std::size_t count) { return Tracks(count); };
    for (const std::function<std::string(std::size_t)>& document :
         {std::function<std::string(std::size_t)>(tracks), {Values}, {images}}) {
        EXPECT_TRUE(IsLinear([&document](std::size_t count) -> Work {
            return [tree = document(count)] {
                EXPECT_TRUE(tool::PrintText(tree, "there", nullptr, Form::kJson));
            };
        }));
    }
}

/// The work to tell what differs, in both forms, without that to read the documents.
testing::AssertionResult IsLinearToCompare(
    const std::function<std::pair<std::string, std::string>(std::size_t)>& documents) {
    return IsLinear([&](std::size_t count) -> Work {
        const auto [left, right] = documents(count);
        const auto records = std::make_shared<std::pair<Json, Json>>(
            tool::JsonOf(*tool::ReadDocument(left, "there", nullptr)),
            tool::JsonOf(*tool::ReadDocument(right, "there", nullptr)));
        return [records] {
            const auto& [before, after] = *records;
            tool::Differences(before, after, tool::ShapeOf("DataAlbum"));
            tool::Patch(before, after);
        };
    });
}

TEST_F(ToolListGrowth, OfDifferencesIsLinear) {
    const std::string none = "<Album><Tracks/></Album>";
    EXPECT_TRUE(IsLinearToCompare([](auto n) { return std::pair(Tracks(n), Tracks(n)); }));
    EXPECT_TRUE(IsLinearToCompare([](auto n) { return std::pair(Tracks(n), Tracks(n, 0, "2")); }));
    EXPECT_TRUE(IsLinearToCompare([](auto n) { return std::pair(Tracks(n), Tracks(n, 1)); }));
    EXPECT_TRUE(IsLinearToCompare([](auto n) { return std::pair(Tracks(n), Tracks(n, n)); }));
    EXPECT_TRUE(IsLinearToCompare([&](auto n) { return std::pair(Tracks(n), none); }));
    EXPECT_TRUE(IsLinearToCompare([&](auto n) { return std::pair(none, Tracks(n)); }));
    EXPECT_TRUE(IsLinearToCompare([](auto n) { return std::pair(Values(n), Values(1)); }));
    EXPECT_TRUE(IsLinearToCompare([](auto n) { return std::pair(Values(1), Values(n)); }));
}

TEST_F(ToolListGrowth, OfDifferencesOfMovedItemsIsLinear) {
    const auto turned = [](std::size_t count) {
        std::string items;
        for (std::size_t at = count; at > 0; --at) {
            items += "<Track><TrackId>Tra." + std::to_string(at - 1) + "</TrackId></Track>";
        }
        return "<Album><Tracks>" + items + "</Tracks></Album>";
    };
    EXPECT_TRUE(IsLinearToCompare([&](auto n) { return std::pair(Tracks(n), turned(n)); }));
}

TEST_F(ToolListGrowth, OfTextsIsLinear) {
    EXPECT_TRUE(IsLinearToPrint(
        [](std::size_t count) {
            return Envelope(Element("AlbumMetadata", Element("nonDisplayableAlbumTypes",
                                                             Repeated(count, "<items>x</items>"))));
        },
        Form::kText));
}

}  // namespace
