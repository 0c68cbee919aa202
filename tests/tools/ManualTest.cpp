// The man page names the commands and options that the tool has, and no others.

#include <gtest/gtest.h>

#include <regex>
#include <set>
#include <string>
#include <vector>

#include "tests/tools/Files.h"
#include "tests/tools/Process.h"

namespace {

using tooltest::RunTool;
using Names = std::set<std::string>;

const std::vector<std::string>& Commands() {
    static const std::vector<std::string> commands = [] {
        std::vector<std::string> names;
        const std::string help = RunTool({"--help"}).output;
        const std::string list = help.substr(0, help.find("\noptions:"));
        const std::regex command("\n  ([a-z]+) ");
        for (std::sregex_iterator at(list.begin(), list.end(), command), end; at != end; ++at) {
            names.push_back((*at)[1]);
        }
        return names;
    }();
    return commands;
}

/// The names of all options in a text.
Names OptionsIn(const std::string& text) {
    Names names;
    const std::regex option("--[a-z][-a-z]*");
    for (std::sregex_iterator at(text.begin(), text.end(), option), end; at != end; ++at) {
        names.insert(at->str());
    }
    return names;
}

/// Those that the help of a command declares.
Names OptionsOf(const std::string& command) {
    const std::string help = RunTool({"help", command}).output;
    const std::size_t begin = help.find("\noptions:");
    std::string lines;
    const std::regex line("\n  (-[a-z], )?(--[a-z][-a-z]*)");
    Names names;
    const std::string list = help.substr(begin, help.find("\nexamples:") - begin);
    for (std::sregex_iterator at(list.begin(), list.end(), line), end; at != end; ++at) {
        names.insert((*at)[2]);
    }
    names.erase("--help");
    return names;
}

/// The man page with its hyphens as they are read.
std::string Manual() {
    return std::regex_replace(tooltest::Contents(QUAVERA_TEST_MANUAL), std::regex("\\\\-"), "-");
}

std::string Section(const std::string& manual, const std::string& title) {
    const std::size_t begin = manual.find("\n.SH " + title + "\n");
    EXPECT_NE(begin, std::string::npos) << title;
    return manual.substr(begin, manual.find("\n.SH ", begin + 1) - begin);
}

TEST(Manual, SynopsisOfEachCommandHasItsOptions) {
    const std::string synopsis = Section(Manual(), "SYNOPSIS") + "\n.br\n";
    for (const std::string& command : Commands()) {
        const std::size_t begin = synopsis.find(".B quavera " + command + "\n");
        ASSERT_NE(begin, std::string::npos) << command;
        const std::string own = synopsis.substr(begin, synopsis.find("\n.br\n", begin) - begin);
        EXPECT_EQ(OptionsIn(own), OptionsOf(command)) << command;
    }
}

TEST(Manual, DescriptionHasEachCommand) {
    const std::string description = Section(Manual(), "DESCRIPTION");
    for (const std::string& command : Commands()) {
        EXPECT_NE(description.find("\n.B " + command + "\n"), std::string::npos) << command;
    }
}

TEST(Manual, EachOptionIsExplainedAndNoOther) {
    Names declared = {"--help", "--version"};
    for (const std::string& command : Commands()) {
        declared.merge(OptionsOf(command));
    }
    Names explained;
    const std::string options = Section(Manual(), "OPTIONS");
    const std::regex entry("\n\\.TP\n(.*)\n");
    for (std::sregex_iterator at(options.begin(), options.end(), entry), end; at != end; ++at) {
        explained.merge(OptionsIn((*at)[1]));
    }
    EXPECT_EQ(explained, declared);
}

TEST(Manual, IsOfThisVersion) {
    EXPECT_NE(Manual().find("\"quavera " QUAVERA_TEST_VERSION "\""), std::string::npos);
}

}  // namespace
