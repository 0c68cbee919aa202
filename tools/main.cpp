#include <CLI/CLI.hpp>

#include <cstdio>
#include <exception>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "tools/CommandLine.h"
#include "tools/Completion.h"
#include "tools/Files.h"
#include "tools/Help.h"
#include "tools/NearestName.h"

namespace {

using tool::Run;

struct Command {
    const char* name;
    const char* purpose;
    const char* examples;
    Run (*declare)(CLI::App* command);
};

/// The commands, in the order in which the help names them.
const Command kCommands[] = {
    {"tree", "Print the element tree of a SOAP response",
     "  quavera tree --indent answer.xml\n"
     "  quavera tree answer.xml | quavera text\n",
     tool::DeclareTree},
    {"text", "Print the record of an element tree",
     "  quavera text tree.xml\n"
     "  quavera text --json --strict tree.xml\n",
     tool::DeclareText},
    {"show", "Print the record of a SOAP response",
     "  quavera show answer.xml\n"
     "  quavera show --json *.xml | jq .Name\n",
     tool::DeclareShow},
    {"diff", "Compare two documents of a record class",
     "  quavera diff yesterday.xml today.xml\n"
     "  quavera fetch --endpoint http://127.0.0.1:8080 --tree album Alb.40013100 | "
     "quavera diff - answer.xml\n",
     tool::DeclareDiff},
    {"records", "List the record classes, or the elements of one",
     "  quavera records\n"
     "  quavera records DataAlbum\n",
     tool::DeclareRecords},
    {"fetch", "Ask a service and print its answer",
     "  quavera fetch --endpoint http://127.0.0.1:8080 album Alb.40013100\n"
     "  quavera fetch --endpoint https://service.example --user me --record-to answers "
     "album Alb.1\n",
     tool::DeclareFetch},
    {"serve", "Answer as the service would, from a catalogue",
     "  quavera serve --port 8080\n"
     "  quavera serve --catalog answers --delay 500 --fail 10%\n",
     tool::DeclareServe},
    {"error", "Print the message of a result code",
     "  quavera error -2\n"
     "  quavera error -15 --country DE\n",
     tool::DeclareError},
    {"demo", "Show a record's whole way on this machine", "  quavera demo\n", tool::DeclareDemo},
};

std::vector<std::string> CommandNames() {
    std::vector<std::string> names = {"help"};
    for (const Command& command : kCommands) {
        names.emplace_back(command.name);
    }
    return names;
}

bool IsOption(const std::string& word) {
    return word.size() > 1 && word.front() == '-';
}

/// The failure of a word that a command, or the tool, does not know.
tool::Failure Unexpected(const CLI::App& app, const std::string& word) {
    const std::string where = app.get_parent() == nullptr ? "arguments" : app.get_name();
    if (IsOption(word)) {
        return {where,
                "no such option: " + word +
                    tool::DidYouMean(word.substr(0, word.find('=')), tool::OptionNames(app))};
    }
    if (app.get_parent() == nullptr) {
        return {word, "no such command" + tool::DidYouMean(word, CommandNames())};
    }
    return {where, "surplus argument: \"" + word + "\""};
}

/// What CLI11 says of wrong usage, in our words where it names no names.
tool::Failure WrongUsage(const CLI::App& app, const CLI::ParseError& error) {
    const std::vector<CLI::App*> chosen = app.get_subcommands();
    const CLI::App& command = chosen.empty() ? app : *chosen.front();
    // CLI11 misses a command first, and only then notices words that are none.
    const std::vector<std::string> unknown = app.remaining(true);
    const bool isUnknown = dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr;
    if (!unknown.empty() && (chosen.empty() || isUnknown)) {
        const bool isAhead = !app.remaining(false).empty();
        return Unexpected(isAhead ? app : command, unknown.front());
    }
    if (chosen.empty()) {
        return {"arguments", "a command is missing; \"quavera help\" lists them"};
    }
    return {command.get_name(), error.what()};
}

/// For what CLI11 reports: help and version, or wrong usage.
int FailParsing(const CLI::App& app, const CLI::ParseError& error) {
    if (error.get_exit_code() == 0) {
        std::ostringstream text;
        app.exit(error, text, text);
        return tool::StatusOf(tool::Print(text.str()));
    }
    tool::Report(WrongUsage(app, error));
    return tool::kWrongUsage;
}

/// Declares `help [COMMAND]`.
Run DeclareHelp(CLI::App* app, CLI::App* command) {
    const auto name = std::make_shared<std::string>();
    command->add_option("command", *name, "One of the commands")
        ->check(tool::OneOf(CommandNames(), "command"))
        ->type_name("COMMAND");
    return [app, name] {
        const CLI::App* const asked = name->empty() ? app : app->get_subcommand(*name);
        return tool::StatusOf(
            tool::Print(tool::HelpFormatter().make_help(asked, "", CLI::AppFormatMode::Normal)));
    };
}

/// Declares all commands. `*run` becomes what runs the one that is parsed.
void DeclareCommands(CLI::App* app, Run* run) {
    const auto add = [app](const char* name, const char* purpose, const char* examples) {
        CLI::App* const command = app->add_subcommand(name, purpose);
        command->footer(std::string("\nexamples:\n") + examples);
        command->set_help_flag("-h,--help", "Print this text");
        return command;
    };
    const auto runBy = [run](CLI::App* command, const Run& runThis) {
        command->parse_complete_callback([run, runThis] { *run = runThis; });
    };
    for (const Command& each : kCommands) {
        CLI::App* const command = add(each.name, each.purpose, each.examples);
        runBy(command, each.declare(command));
    }
    CLI::App* const help =
        add("help", "Print how a command is used", "  quavera help\n  quavera help show\n");
    runBy(help, DeclareHelp(app, help));
}

int RunCommand(int argc, char** argv) {
    CLI::App app("Reads, shows, compares, fetches and serves the records of the music service.",
                 "quavera");
    app.formatter(std::make_shared<tool::HelpFormatter>());
    app.set_help_flag("-h,--help", "Print this text");
    app.set_version_flag("--version", tool::Versions,
                         "Print the version, and those of the libraries that are used");
    app.footer("\n\"quavera help COMMAND\" has the arguments of a command, with examples.\n");
    app.require_subcommand(1);
    Run run;
    DeclareCommands(&app, &run);
    if (argc > 1 && std::string(argv[1]) == "--complete") {
        return tool::StatusOf(tool::Print(tool::Completions(app, {argv + 2, argv + argc})));
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
    tool::EndWithStatusOutOfMemory(tool::kFailed);
    try {
        return RunCommand(argc, argv);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "quavera: %s\n", error.what());  // out of memory
        return tool::kFailed;
    }
}
