#include <CLI/CLI.hpp>

#include <cstdio>
#include <exception>
#include <sstream>
#include <string>
#include <vector>

#include "tools/CommandLine.h"
#include "tools/Files.h"

namespace {

using tool::Run;

/// The commands, in the order in which the help names them.
const struct {
    const char* name;
    const char* purpose;
    Run (*declare)(CLI::App* command);
} kCommands[] = {
    {"tree", "Print the element tree of a SOAP response", tool::DeclareTree},
    {"text", "Print the record of an element tree", tool::DeclareText},
    {"show", "Print the record of a SOAP response", tool::DeclareShow},
    {"diff", "Compare two documents of a record class", tool::DeclareDiff},
    {"records", "List the record classes and their elements", tool::DeclareRecords},
    {"fetch", "Ask a service and print its answer", tool::DeclareFetch},
    {"serve", "Answer as the service would", tool::DeclareServe},
    {"error", "Print the message of a result code", tool::DeclareError},
    {"demo", "Show a record's whole way on this machine", tool::DeclareDemo},
};

/// For what CLI11 reports: help and version, or wrong usage.
int FailParsing(const CLI::App& app, const CLI::ParseError& error) {
    if (error.get_exit_code() == 0) {
        std::ostringstream text;
        app.exit(error, text, text);
        return tool::StatusOf(tool::Print(text.str()));
    }
    // CLI11 misses a command first, and only then notices arguments that are none.
    const std::vector<std::string> unknown = app.remaining();
    const bool isCommand = app.get_subcommands().empty() && !unknown.empty();
    tool::Report(
        {isCommand ? unknown.front() : "arguments", isCommand ? "no such command" : error.what()});
    return tool::kWrongUsage;
}

int RunCommand(int argc, char** argv) {
    CLI::App app("Reads, shows, fetches and serves the records of the music service.", "quavera");
    app.set_version_flag("--version", QUAVERA_VERSION);
    app.require_subcommand(1);
    Run run;
    for (const auto& command : kCommands) {
        CLI::App* const parser = app.add_subcommand(command.name, command.purpose);
        parser->parse_complete_callback(
            [&run, runThis = command.declare(parser)] { run = runThis; });
    }
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return FailParsing(app, error);
    }
    return run();
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return RunCommand(argc, argv);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "quavera: %s\n", error.what());  // out of memory
        return tool::kFailed;
    }
}
