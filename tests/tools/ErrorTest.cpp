// What `error` prints, and which arguments it refuses.

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "tests/tools/Process.h"

namespace {

using tooltest::Arguments;
using tooltest::Printed;
using tooltest::Refused;
using tooltest::RunTool;

constexpr int kFailed = 1;
constexpr int kWrongUsage = 2;

const char kQuaveraOffLine[] = "Quavera off line.\n";
const char kOstinexOffLine[] = "Ostinex off line.\n";
const char kDefaultMessage[] = "Unexpected error.  Please try again.\n";

/// `error` with `arguments`, as they would be typed after it.
tooltest::Outcome RunError(Arguments arguments) {
    arguments.insert(arguments.begin(), "error");
    return RunTool(arguments);
}

void ExpectWrongUsage(const Arguments& arguments, const std::vector<std::string>& message) {
    EXPECT_TRUE(Refused(RunError(arguments), kWrongUsage, message))
        << testing::PrintToString(arguments);
}

TEST(Error, PrintsTheMessageOfACode) {
    const std::vector<std::pair<std::string, std::string>> messages = {
        {"-16", "Account in use on another device - this session will end.\n"},
        {"-2", "Maximum number of Quavera sessions for this account.\n"},
        {"-1", "Communications error.\n"},
        {"0", "Success\n"},
        {"2", "Data not available.\n"},
        {"-17", kDefaultMessage},
        {"-11", kDefaultMessage},
        {"3", kDefaultMessage},
        {"-2147483648", kDefaultMessage},
        {"2147483647", kDefaultMessage},
    };
    for (const auto& [code, message] : messages) {
        EXPECT_TRUE(Printed(RunError({code}), message)) << code;
    }
}

TEST(Error, ReadsCodesAsDecimalNumbers) {
    EXPECT_TRUE(Printed(RunError({"-010"}), "Invalid Quavera password.\n"));
    EXPECT_TRUE(Printed(RunError({"-08"}), "Invalid data.\n"));
    EXPECT_TRUE(Printed(RunError({"002"}), "Data not available.\n"));
}

TEST(Error, WordsTheMessageForABranding) {
    for (const char* const name : {"Ostinex", "ostinex", "OSTINEX"}) {
        EXPECT_TRUE(Printed(RunError({"-15", "--branding", name}), kOstinexOffLine)) << name;
    }
    for (const char* const name : {"Quavera", "quavera", "QUAVERA"}) {
        EXPECT_TRUE(Printed(RunError({"-15", "--branding", name}), kQuaveraOffLine)) << name;
    }
}

TEST(Error, WordsTheMessageForACountry) {
    for (const char* const country : {"us", "Us", "uS", "US", ""}) {
        EXPECT_TRUE(Printed(RunError({"-15", "--country", country}), kQuaveraOffLine)) << country;
    }
    for (const char* const country : {"GB", "USA", "U", "DE", " "}) {
        EXPECT_TRUE(Printed(RunError({"-15", "--country", country}), kOstinexOffLine)) << country;
    }
}

TEST(Error, TakesOptionsAheadOfTheCodeToo) {
    EXPECT_TRUE(Printed(RunError({"--branding", "Ostinex", "-15"}), kOstinexOffLine));
    EXPECT_TRUE(Printed(RunError({"--country", "GB", "-15"}), kOstinexOffLine));
    EXPECT_TRUE(Printed(RunError({"--branding=ostinex", "-15"}), kOstinexOffLine));
}

TEST(Error, NeedsACode) {
    ExpectWrongUsage({}, {"code"});
    ExpectWrongUsage({"--branding", "Ostinex"}, {"code"});
    ExpectWrongUsage({"--country", "GB"}, {"code"});
}

TEST(Error, RefusesCodesThatAreNoNumbersOfThatRange) {
    for (const char* const code :
         {"", "x", "-", "1x", "x1", "1.5", "1e3", "1 ", "0x2", "-0x8", "true", "2147483648",
          "-2147483649", "99999999999999999999", "-99999999999999999999"}) {
        ExpectWrongUsage({code}, {"code", code});
    }
}

TEST(Error, RefusesOtherBrandings) {
    for (const char* const name :
         {"", "Other", "Ostinex ", " Ostinex", "Ostine", "Ostinexx", "0", "1"}) {
        ExpectWrongUsage({"-15", "--branding", name}, {"--branding", name});
    }
    ExpectWrongUsage({"-15", "--branding"}, {"--branding"});
    ExpectWrongUsage({"-15", "--country"}, {"--country"});
}

TEST(Error, RefusesBrandingAndCountryTogether) {
    const std::vector<std::string> message = {"--branding", "--country"};
    ExpectWrongUsage({"-15", "--branding", "Quavera", "--country", "US"}, message);
    ExpectWrongUsage({"-15", "--country", "GB", "--branding", "Ostinex"}, message);
    ExpectWrongUsage({"-15", "--country", "", "--branding", "Quavera"}, message);
}

TEST(Error, RefusesSurplusArguments) {
    ExpectWrongUsage({"-15", "-14"}, {"-14"});
    ExpectWrongUsage({"-15", "--indent"}, {"--indent"});
}

TEST(Error, FailsWhereItsOutputCannotBeWritten) {
    EXPECT_TRUE(Refused(tooltest::RunToolInto("/dev/full", {"error", "-15"}), kFailed,
                        {"standard output"}));
}

TEST(Error, IsInTheHelpAndHasOne) {
    EXPECT_NE(RunTool({"--help"}).output.find("\n  error "), std::string::npos);
    const tooltest::Outcome outcome = RunError({"--help"});
    EXPECT_EQ(outcome.status, 0);
    for (const char* const name : {"CODE", "--branding", "--country"}) {
        EXPECT_NE(outcome.output.find(name), std::string::npos) << name;
    }
}

}  // namespace
