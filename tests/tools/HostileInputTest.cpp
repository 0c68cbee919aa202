// Documents that are made to do harm: the tool comes to an end, and to a result.

#include <gtest/gtest.h>

#include <string>

#include "tests/tools/Files.h"
#include "tests/tools/Process.h"

namespace {

using tooltest::Envelope;
using tooltest::Outcome;
using tooltest::Printed;
using tooltest::Refused;
using tooltest::RunTool;
using tooltest::Track;

std::string Repeat(const std::string& text, int times) {
    std::string all;
    for (int done = 0; done < times; ++done) {
        all += text;
    }
    return all;
}

std::string Nested(const std::string& name, int levels) {
    return Repeat("<" + name + ">", levels) + Repeat("</" + name + ">", levels);
}

constexpr int kMany = 20000;
constexpr int kAllowed = 9000;  // levels; the tree's text form takes 10,000

TEST(HostileInput, TooDeepADocumentIsRefused) {
    for (const std::string& document :
         {Nested("a", kMany), Envelope(Track(Nested("a", kMany))), Envelope(Nested("a", kMany)),
          Nested("Track", kMany), Nested("LiteTrackMetadata", kMany)}) {
        for (const char* const command : {"tree", "show", "text"}) {
            EXPECT_TRUE(Refused(RunTool({command}, document), 1,
                                {"standard input: line 1, column", "deep"}));
        }
    }
}

TEST(HostileInput, DeepUnknownElementsAreIgnored) {
    const std::string unknown = Nested("unknown", kAllowed);
    const std::string track = Track(unknown + "<trackId>1</trackId>");
    EXPECT_TRUE(
        Printed(RunTool({"tree"}, Envelope(track)), "<Track><TrackId>1</TrackId></Track>\n"));
    const Outcome text = RunTool({"text"}, "<Track>" + unknown + "<TrackId>1</TrackId></Track>");
    EXPECT_EQ(text.status, 0) << text.errors;
    EXPECT_NE(text.output.find("TrackId = 1\r\n"), std::string::npos);
}

TEST(HostileInput, LargeTextPassesWhole) {
    const std::string large(5000000, 'x');
    EXPECT_TRUE(Printed(RunTool({"tree"}, Envelope(Track("<trackId>" + large + "</trackId>"))),
                        "<Track><TrackId>" + large + "</TrackId></Track>\n"));
    const Outcome text = RunTool({"text"}, "<Track><TrackId>" + large + "</TrackId></Track>");
    EXPECT_EQ(text.status, 0) << text.errors;
    EXPECT_NE(text.output.find("TrackId = " + large + "\r\n"), std::string::npos);
}

TEST(HostileInput, LargeNamesAreCutInMessages) {
    const std::string name(1000000, 'x');
    for (const char* const command : {"tree", "show", "text"}) {
        const Outcome outcome = RunTool({command}, "<" + name + "/>");
        EXPECT_TRUE(Refused(outcome, 1, {"standard input", "xxx"}));
        EXPECT_LT(outcome.errors.size(), 10000U);
    }
}

TEST(HostileInput, ManyUnknownElementsAreIgnored) {
    EXPECT_TRUE(Printed(RunTool({"tree"}, Envelope(Track(Repeat("<unknown>5</unknown>", 200000)))),
                        "<Track/>\n"));
}

// A document's links could pull a text in many times, lead in circles or out of the document.
TEST(HostileInput, LinksAreNotFollowed) {
    const std::string target = R"(<name id="b">linked</name>)";
    const std::string outside = R"(<include href="file:///etc/hostname"/>)";
    const std::string documents[] = {
        Envelope(Track(R"(<albumId href="#b"/>)" + target)),
        Envelope(Track(R"(<albumId ref="#b"/>)") + target),
        Envelope(R"(<q:LiteTrackMetadata href="#t"/><t id="t"><albumId>linked</albumId></t>)"),
        Envelope(R"(<q:LiteTrackMetadata id="t" href="#t"/>)"),
        Envelope(Track(R"(<albumId id="a" href="#b"/><trackId id="b" href="#a"/>)")),
        Envelope(Track("<albumId>" + outside + "</albumId>")),
        Envelope(Track(R"(<albumId href="cid:linked"/>)")),
    };
    for (const std::string& document : documents) {
        const Outcome outcome = RunTool({"tree"}, document);
        EXPECT_TRUE(outcome.status == 0 || outcome.status == 1) << document;
        EXPECT_EQ(outcome.output.find("<AlbumId>linked"), std::string::npos) << outcome.output;
    }
}

TEST(HostileInput, BytesThatAreNoTextAreRefused) {
    std::string bytes;
    for (int value = 0; value < 256; ++value) {
        bytes += static_cast<char>(value);
    }
    for (const std::string& document : {bytes, Repeat(bytes, 4000), "<a>" + bytes + "</a>",
                                        std::string(1, '\0'), std::string("\xEF\xBB\xBF")}) {
        for (const char* const command : {"tree", "show", "text"}) {
            EXPECT_TRUE(Refused(RunTool({command}, document), 1, {"standard input: line"}));
        }
    }
}

}  // namespace
