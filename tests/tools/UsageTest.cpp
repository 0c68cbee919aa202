// Arguments: wrong ones are named on one line, exit status 2; help and version are no errors.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/tools/Process.h"

namespace {

using tooltest::Arguments;
using tooltest::RunTool;

constexpr int kWrongUsage = 2;

struct Case {
    Arguments arguments;
    std::vector<std::string> message;
};

std::string Line(const Arguments& arguments) {
    std::string line;
    for (const std::string& argument : arguments) {
        line += " '" + argument + "'";
    }
    return line;
}

void ExpectWrongUsage(const std::vector<Case>& cases) {
    for (const Case& one : cases) {
        EXPECT_TRUE(tooltest::Refused(RunTool(one.arguments), kWrongUsage, one.message))
            << Line(one.arguments);
    }
}

const char kEndpoint[] = "http://127.0.0.1:1";

TEST(Usage, CommandIsRequiredAndKnown) {
    ExpectWrongUsage({
        {{}, {"command"}},
        {{""}, {"command"}},
        {{"frobnicate"}, {"frobnicate"}},
        {{"--frobnicate"}, {"--frobnicate"}},
        {{"Show"}, {"Show"}},
    });
}

TEST(Usage, RecordClassIsKnown) {
    for (const char* const command : {"tree", "text", "show"}) {
        ExpectWrongUsage({
            {{command, "--record", "DataConcert"}, {"--record", "DataConcert"}},
            {{command, "--record", "datatrackinfo"}, {"--record", "datatrackinfo"}},
            {{command, "--record", "LiteTrackMetadata"}, {"--record", "LiteTrackMetadata"}},
            {{command, "--record", ""}, {"--record"}},
            {{command, "--record"}, {"--record"}},
        });
    }
}

TEST(Usage, SurplusArgumentsAreNamed) {
    ExpectWrongUsage({
        {{"show", "--indent"}, {"--indent"}},
        {{"diff", "one.xml", "two.xml", "three.xml"}, {"three.xml"}},
        {{"records", "DataAlbum", "DataArtist"}, {"DataArtist"}},
        {{"fetch", "--endpoint", kEndpoint, "track", "Tra.1", "Tra.2"}, {"Tra.2"}},
        {{"serve", "--port", "0", "more"}, {"more"}},
        {{"demo", "more"}, {"more"}},
    });
}

TEST(Usage, FetchNeedsAnEndpointAndARecord) {
    ExpectWrongUsage({
        {{"fetch"}, {"--endpoint"}},
        {{"fetch", "track", "Tra.1"}, {"--endpoint"}},
        {{"fetch", "--endpoint"}, {"--endpoint"}},
        {{"fetch", "--endpoint", kEndpoint}, {"record"}},
        {{"fetch", "--endpoint", kEndpoint, "concert", "Con.1"}, {"concert"}},
        {{"fetch", "--endpoint", kEndpoint, "--timeout", "0", "track"}, {"--timeout", "\"0\""}},
        {{"fetch", "--endpoint", kEndpoint, "--timeout", "-1", "track"}, {"--timeout", "\"-1\""}},
        {{"fetch", "--endpoint", kEndpoint, "--timeout", "1.5", "track"}, {"--timeout", "\"1.5\""}},
        {{"fetch", "--endpoint", kEndpoint, "--timeout", "86401", "track"}, {"\"86401\""}},
        {{"fetch", "--endpoint", kEndpoint, "DataTrackInfo", "Tra.1"}, {"DataTrackInfo"}},
        {{"fetch", "--endpoint", kEndpoint, "track", "--tree", "--text"}, {"--tree", "--text"}},
    });
}

TEST(Usage, EndpointIsAnHttpAddress) {
    for (const char* const endpoint :
         {"", "127.0.0.1:80", "ftp://127.0.0.1/", "https://127.0.0.1/", "http:", "http://",
          "http:///service", "http://:80", "http://127.0.0.1:0x50", "http://127.0.0.1:service",
          "http://127.0.0.1:65536", "http://127.0.0.1:99999/service", "http://127.0.0.1:-1",
          "http://a host/"}) {
        ExpectWrongUsage(
            {{{"fetch", "--endpoint", endpoint, "track", "Tra.1"}, {"--endpoint", endpoint}}});
    }
}

TEST(Usage, PortIsANumberUpTo65535) {
    for (const char* const port :
         {"", "-1", "65536", "99999999999999999999", "http", "80x", "8 0", "8.0", "1e3", "0x50"}) {
        ExpectWrongUsage({{{"serve", "--port", port}, {"--port", port}}});
    }
    ExpectWrongUsage({{{"serve", "--port"}, {"--port"}}});
}

TEST(Usage, MessageIsOneLineWhateverTheArguments) {
    ExpectWrongUsage({
        {{"fro\nbnicate"}, {"fro bnicate"}},
        {{"show", "--record", "Data\nConcert"}, {"--record", "Data Concert"}},
        {{"demo", "mo\nre"}, {"mo re"}},
    });
}

TEST(Usage, HelpAndVersionAreNoErrors) {
    for (const Arguments& arguments : {Arguments{"--help"},
                                       {"-h"},
                                       {"tree", "--help"},
                                       {"text", "--help"},
                                       {"show", "--help"},
                                       {"fetch", "--help"},
                                       {"serve", "--help"},
                                       {"demo", "--help"}}) {
        const tooltest::Outcome outcome = RunTool(arguments);
        EXPECT_EQ(outcome.status, 0) << Line(arguments);
        EXPECT_NE(outcome.output.find("--help"), std::string::npos) << Line(arguments);
        EXPECT_EQ(outcome.errors, "") << Line(arguments);
    }
    EXPECT_TRUE(tooltest::Printed(RunTool({"--version"}), QUAVERA_TEST_VERSION "\n"));
}

TEST(Usage, HelpNamesEveryCommand) {
    const std::string help = RunTool({"--help"}).output;
    for (const char* const command :
         {"tree", "text", "show", "diff", "records", "fetch", "serve", "error", "demo"}) {
        EXPECT_NE(help.find("\n  " + std::string(command) + " "), std::string::npos) << command;
    }
}

}  // namespace
