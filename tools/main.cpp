#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include "common/QuaveraCommon.h"
#include "tools/Arguments.h"
#include "tools/Commands.h"
#include "tools/Files.h"

namespace {

using tool::Done;
using tool::Form;
using tool::RecordClass;
using tool::Result;

// Exit statuses besides 0.
constexpr int kFailed = 1;
constexpr int kWrongUsage = 2;

/// The arguments of all commands.
struct Options {
    std::string recordClass;
    std::string file = "-";
    bool indent = false;
    bool tree = false;
    std::string endpoint;
    std::string timeout = "60";
    std::string kind;
    std::string id;
    std::string host = "127.0.0.1";
    std::string port = "8080";
    std::string catalog;
    std::string code;
    std::string branding;
    std::string country;
};

Result<Done> Print(const Result<std::string>& output) {
    return output ? tool::WriteOutput(*output) : output.failure();
}

// --- tree, text, show: from a file to standard output

void DeclareInput(CLI::App* command, Options* options) {
    std::vector<std::string> names;
    for (const RecordClass& each : tool::RecordClasses()) {
        names.emplace_back(each.name);
    }
    command->add_option("--record", options->recordClass, "Record class, \"DataAlbum\" for example")
        ->check(CLI::IsMember(names))
        ->type_name("CLASS");
    command->add_option("file", options->file, "Input; \"-\" is standard input")->type_name("FILE");
}

/// Prints what `print` makes of the command's input.
template <class Printer>
Result<Done> PrintInput(const Options& options, const Printer& print) {
    const Result<std::string> text = tool::ReadFile(options.file);
    if (!text) {
        return text.failure();
    }
    const std::string where = tool::DisplayName(options.file);
    return Print(print(*text, where, tool::FindClass(&RecordClass::name, options.recordClass)));
}

Result<Done> PrintSoap(const Options& options, Form form) {
    return PrintInput(options, [form](const std::string& soap, const std::string& where,
                                      const RecordClass* chosen) {
        return tool::PrintSoap(soap, where, chosen, form);
    });
}

void DeclareTree(CLI::App* command, Options* options) {
    DeclareInput(command, options);
    command->add_flag("--indent", options->indent, "One element a line");
}

Result<Done> RunTree(const Options& options) {
    return PrintSoap(options, options.indent ? Form::kIndentedTree : Form::kTree);
}

Result<Done> RunText(const Options& options) {
    return PrintInput(options, tool::PrintText);
}

Result<Done> RunShow(const Options& options) {
    return PrintSoap(options, Form::kText);
}

// --- fetch

void DeclareFetch(CLI::App* command, Options* options) {
    std::vector<std::string> kinds;
    for (const RecordClass& each : tool::RecordClasses()) {
        if (!each.kind.empty()) {
            kinds.emplace_back(each.kind);
        }
    }
    command->add_option("--endpoint", options->endpoint, "The service's address")
        ->type_name("URL")
        ->check(tool::CheckHttpAddress)
        ->required();
    command->add_option("--timeout", options->timeout, "Seconds to wait for the whole answer")
        ->check(tool::CheckSeconds)
        ->type_name("N")
        ->capture_default_str();
    command->add_option("record", options->kind, "What to ask for")
        ->check(CLI::IsMember(kinds))
        ->type_name("RECORD")
        ->required();
    command->add_option("id", options->id, "Its identifier")->type_name("ID");
    CLI::Option* const tree = command->add_flag("--tree", options->tree, "Print the element tree");
    command->add_flag("--text", "Print the record (default)")->excludes(tree);
}

Result<Done> RunFetch(const Options& options) {
    return Print(tool::Fetch({options.endpoint, *tool::ParseDecimal(options.timeout)},
                             *tool::FindClass(&RecordClass::kind, options.kind), options.id,
                             options.tree ? Form::kTree : Form::kText));
}

// --- serve

void DeclareServe(CLI::App* command, Options* options) {
    command->add_option("--host", options->host, "Address to listen on")->capture_default_str();
    command->add_option("--port", options->port, "Port; 0 takes a free one")
        ->check(tool::CheckPort)
        ->type_name("N")
        ->capture_default_str();
    command->add_option("--catalog", options->catalog, "Folder of SOAP responses, RECORD/ID.xml")
        ->type_name("DIR");
}

Result<Done> RunServe(const Options& options) {
    return tool::Serve(options.host, *tool::ParseDecimal(options.port), options.catalog);
}

// --- error

void DeclareError(CLI::App* command, Options* options) {
    command->add_option("code", options->code, "The code, negative ones as they stand")
        ->check(tool::CheckCode)
        ->type_name("CODE")
        ->required();
    CLI::Option* const branding =
        command->add_option("--branding", options->branding, "Quavera (default) or Ostinex")
            ->check(CLI::IsMember({kBrandingNameQuavera, kBrandingNameOstinex}, CLI::ignore_case))
            ->type_name("NAME");
    command->add_option("--country", options->country, "The branding of a country, by its code")
        ->type_name("CC")
        ->excludes(branding);
}

/// Without branding and country the message is that of the first branding.
Result<Done> RunError(const Options& options) {
    const QuaveraBranding branding = options.branding.empty()
                                         ? GetQuaveraBranding(options.country)
                                         : QuaveraBrandingFromString(options.branding);
    return Print(QuavErrorToString(*tool::ParseDecimal(options.code), branding) + "\n");
}

/// The commands, in the order in which the help names them.
const struct {
    const char* name;
    const char* purpose;
    void (*declare)(CLI::App* command, Options* options);
    Result<Done> (*run)(const Options& options);
} kCommands[] = {
    {"tree", "Print the element tree of a SOAP response", DeclareTree, RunTree},
    {"text", "Print the record of an element tree", DeclareInput, RunText},
    {"show", "Print the record of a SOAP response", DeclareInput, RunShow},
    {"fetch", "Ask a service and print its answer", DeclareFetch, RunFetch},
    {"serve", "Answer as the service would", DeclareServe, RunServe},
    {"error", "Print the message of a result code", DeclareError, RunError},
    {"demo", "Show a record's whole way on this machine",
     [](CLI::App* /*command*/, Options* /*options*/) {},
     [](const Options& /*options*/) { return tool::Demo(); }},
};

/// The exit status of what has been done.
int StatusOf(const Result<Done>& done) {
    if (!done) {
        tool::Report(done.failure());
    }
    return done ? 0 : kFailed;
}

/// For what CLI11 reports: help and version, or wrong usage.
int FailParsing(const CLI::App& app, const CLI::ParseError& error) {
    if (error.get_exit_code() == 0) {
        std::ostringstream text;
        app.exit(error, text, text);
        return StatusOf(Print(text.str()));
    }
    // CLI11 misses a command first, and only then notices arguments that are none.
    const std::vector<std::string> unknown = app.remaining();
    const bool isCommand = app.get_subcommands().empty() && !unknown.empty();
    tool::Report(
        {isCommand ? unknown.front() : "arguments", isCommand ? "no such command" : error.what()});
    return kWrongUsage;
}

int Run(int argc, char** argv) {
    Options options;
    CLI::App app("Reads, shows, fetches and serves the records of the music service.", "quavera");
    app.set_version_flag("--version", QUAVERA_VERSION);
    app.require_subcommand(1);
    for (const auto& command : kCommands) {
        command.declare(app.add_subcommand(command.name, command.purpose), &options);
    }
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return FailParsing(app, error);
    }
    const auto* const chosen =
        std::find_if(std::begin(kCommands), std::end(kCommands),
                     [&app](const auto& command) { return app.got_subcommand(command.name); });
    return StatusOf(chosen->run(options));
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return Run(argc, argv);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "quavera: %s\n", error.what());  // out of memory
        return kFailed;
    }
}
