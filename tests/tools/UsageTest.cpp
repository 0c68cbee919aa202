// Arguments: wrong ones are named on one line, exit status 2; help and version are no errors.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
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
         {"", "127.0.0.1:80", "ftp://127.0.0.1/", "httpss://127.0.0.1/", "http:", "http://",
          "https:", "https://", "https://:443", "https://127.0.0.1:65536", "http:///service",
          "http://:80", "http://127.0.0.1:0x50", "http://127.0.0.1:service",
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
}

TEST(Usage, VersionNamesTheLibrariesToo) {
    const tooltest::Outcome outcome = RunTool({"--version"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.errors, "");
    EXPECT_EQ(outcome.output.rfind("quavera " QUAVERA_TEST_VERSION "\n", 0), 0U);
    for (const char* const library : {"gSOAP 2.8.", "expat 2.", "libcurl ", "libmicrohttpd ",
                                      "GnuTLS 3.", "nlohmann-json 3."}) {
        EXPECT_NE(outcome.output.find(library), std::string::npos) << outcome.output;
    }
}

TEST(Usage, HelpOfACommandIsTheSameEitherWay) {
    EXPECT_EQ(RunTool({"help"}).output, RunTool({"--help"}).output);
    for (const std::string command :
         {"tree", "text", "show", "diff", "records", "fetch", "serve", "error", "demo", "help"}) {
        const tooltest::Outcome outcome = RunTool({"help", command});
        EXPECT_EQ(outcome.status, 0) << command;
        EXPECT_EQ(outcome.output, RunTool({command, "--help"}).output);
        EXPECT_NE(outcome.output.find("\nusage: quavera " + command), std::string::npos);
        EXPECT_NE(outcome.output.find("\nexamples:\n  quavera " + command), std::string::npos);
    }
}

/// The longest line of a text.
std::size_t WidthOf(const std::string& text) {
    std::size_t widest = 0;
    for (std::size_t begin = 0, end = 0; end != std::string::npos; begin = end + 1) {
        end = text.find('\n', begin);
        widest = std::max(widest, std::min(end, text.size()) - begin);
    }
    return widest;
}

TEST(Usage, HelpIsAsWideAsTheTerminal) {
    const auto width = [](const char* columns) {
        setenv("COLUMNS", columns, 1);
        std::string help = RunTool({"help", "show"}).output;
        unsetenv("COLUMNS");
        return WidthOf(help.substr(0, help.find("examples:")));
    };
    EXPECT_LE(width("50"), 50U);
    EXPECT_GT(width("100"), 50U);
    EXPECT_LE(width("100"), 100U);
    EXPECT_LE(width("9999"), 100U);
    EXPECT_LE(width("1"), 40U);
    EXPECT_EQ(width("0"), width("80"));
    EXPECT_EQ(width("wide"), width("80"));
}

TEST(Usage, NearNamesAreOffered) {
    ExpectWrongUsage({
        {{"shwo"}, {"shwo: no such command", "did you mean \"show\"?"}},
        {{"show", "--jsn"}, {"show: no such option: --jsn", "did you mean \"--json\"?"}},
        {{"--vresion"}, {"no such option: --vresion", "\"--version\""}},
        {{"show", "--record", "DataAlbm"}, {"\"DataAlbm\"", "did you mean \"DataAlbum\"?"}},
        {{"records", "dataalbum"}, {"did you mean \"DataAlbum\"?"}},
        {{"fetch", "--endpoint", kEndpoint, "albun"}, {"\"albun\"", "\"album\"?"}},
        {{"help", "shw"}, {"\"shw\" is no command", "\"show\"?"}},
    });
    // Not what is far.
    EXPECT_EQ(RunTool({"frobnicate"}).errors, "quavera: frobnicate: no such command\n");
}

TEST(Usage, OptionAheadOfTheCommandIsNoCommand) {
    ExpectWrongUsage(
        {{{"--json", "show"}, {"no such option: --json"}}, {{"-x"}, {"no such option: -x"}}});
}

TEST(Usage, FailureIsToldOnce) {
    EXPECT_EQ(RunTool({"error", "abc"}).errors, "quavera: error: code: \"abc\" is no number\n");
}

TEST(Usage, HelpNamesEveryCommand) {
    const std::string help = RunTool({"--help"}).output;
    for (const char* const command :
         {"tree", "text", "show", "diff", "records", "fetch", "serve", "error", "demo"}) {
        EXPECT_NE(help.find("\n  " + std::string(command) + " "), std::string::npos) << command;
    }
}

}  // namespace
