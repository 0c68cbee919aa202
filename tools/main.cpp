#include <CLI/CLI.hpp>

#include <charconv>
#include <cstdio>
#include <exception>
#include <optional>
#include <regex>
#include <sstream>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "common/QuaveraCommon.h"
#include "tools/Commands.h"

namespace {

// Exit statuses besides 0.
constexpr int kFailed = 1;
constexpr int kWrongUsage = 2;

constexpr int kHighestPort = 65535;
constexpr std::size_t kLongestAddress = 1000;

struct Options {
    std::string recordClass;
    std::string file = "-";
    bool indent = false;
    bool tree = false;
    std::string endpoint;
    std::string record;
    std::string id;
    std::string host = "127.0.0.1";
    std::string port = "8080";
    std::string catalog;
    std::string code;
    std::string branding;
    std::string country;
};

template <class Entries, class Name>
std::vector<std::string> NamesOf(const Entries& entries, Name name) {
    std::vector<std::string> names;
    names.reserve(entries.size());
    for (const auto& entry : entries) {
        names.emplace_back(entry.*name);
    }
    return names;
}

/// The decimal number that a text is; nothing if it is none. CLI11 reads numbers as C does: a
/// leading zero means octal, and an empty text 0.
std::optional<int> ParseDecimal(const std::string& text) {
    int value = 0;
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, value);
    const bool isNumber = result.ec == std::errc() && result.ptr == end;
    return isNumber ? std::optional<int>(value) : std::nullopt;
}

/// For CLI11: the reason why a text is no result code; empty if it is one.
std::string IsCode(const std::string& text) {
    return ParseDecimal(text) ? "" : "code: \"" + text + "\" is no number";
}

/// The same for a port.
std::string IsPort(const std::string& text) {
    const int port = ParseDecimal(text).value_or(-1);
    return port >= 0 && port <= kHighestPort ? "" : "\"" + text + "\" is no port";
}

/// For CLI11: the reason why a text is no address of a service; empty if it is one. gSOAP takes any
/// text: it reduces a port modulo 65536, and sends to standard output where there is no host.
std::string IsHttpAddress(const std::string& text) {
    static const std::regex address(
        R"(http://([^/?#@\s]*@)?(\[[0-9A-Fa-f:.]+\]|[^/?#@:\[\]\s]+)(:([0-9]{1,5}))?([/?#]\S*)?)");
    std::smatch parts;
    const bool isAddress = text.size() <= kLongestAddress &&
                           std::regex_match(text, parts, address) &&
                           (!parts[4].matched || std::stoi(parts[4]) <= kHighestPort);
    return isAddress ? "" : "\"" + text + "\" is no http:// address";
}

void AddInput(CLI::App* command, Options* options) {
    command->add_option("--record", options->recordClass, "Record class, \"DataAlbum\" for example")
        ->check(CLI::IsMember(NamesOf(tool::RecordClasses(), &tool::RecordClass::name)))
        ->type_name("CLASS");
    command->add_option("file", options->file, "Input; \"-\" is standard input")->type_name("FILE");
}

int Fail(const tool::Failure& failure) {
    std::fprintf(stderr, "quavera: %s\n", tool::Message(failure).c_str());
    return kFailed;
}

int Print(const tool::Output& output, tool::Failure* failure) {
    return output && tool::WriteOutput(*output, failure) ? 0 : Fail(*failure);
}

/// Reads the command's input and prints what `print` makes of it.
template <class Printer>
int PrintInput(const Options& options, const Printer& print) {
    tool::Failure failure;
    std::string text;
    if (!tool::ReadFile(options.file, &text, &failure)) {
        return Fail(failure);
    }
    const std::string where = tool::DisplayName(options.file);
    return Print(print(text, where, tool::FindRecordClass(options.recordClass), &failure),
                 &failure);
}

/// For what CLI11 reports: help and version, or wrong usage.
int FailParsing(const CLI::App& app, const CLI::ParseError& error) {
    if (error.get_exit_code() == 0) {
        std::ostringstream text;
        app.exit(error, text, text);
        tool::Failure failure;
        return Print(text.str(), &failure);
    }
    // CLI11 misses a command first, and only then notices arguments that are none.
    const std::vector<std::string> unknown = app.remaining();
    const bool isCommand = app.get_subcommands().empty() && !unknown.empty();
    Fail({isCommand ? unknown.front() : "arguments", isCommand ? "no such command" : error.what()});
    return kWrongUsage;
}

int PrintSoap(const Options& options, tool::Form form) {
    return PrintInput(options, [form](const std::string& soap, const std::string& where,
                                      const tool::RecordClass* chosen, tool::Failure* failure) {
        return tool::PrintSoap(soap, where, chosen, form, failure);
    });
}

int Fetch(const Options& options) {
    tool::Failure failure;
    const tool::Form form = options.tree ? tool::Form::kTree : tool::Form::kText;
    return Print(tool::Fetch(*tool::FindOperation(options.record), options.endpoint, options.id,
                             form, &failure),
                 &failure);
}

/// Prints a result code's message; without branding and country that of the first branding.
int PrintError(const Options& options) {
    tool::Failure failure;
    const QuaveraBranding branding = options.branding.empty()
                                         ? GetQuaveraBranding(options.country)
                                         : QuaveraBrandingFromString(options.branding);
    return Print(QuavErrorToString(*ParseDecimal(options.code), branding) + "\n", &failure);
}

int Run(int argc, char** argv) {
    Options options;
    CLI::App app("Reads, shows, fetches and serves the records of the music service.", "quavera");
    app.set_version_flag("--version", QUAVERA_VERSION);
    app.require_subcommand(1);

    CLI::App* const tree = app.add_subcommand("tree", "Print the element tree of a SOAP response");
    AddInput(tree, &options);
    tree->add_flag("--indent", options.indent, "One element a line");

    CLI::App* const text = app.add_subcommand("text", "Print the record of an element tree");
    AddInput(text, &options);

    CLI::App* const show = app.add_subcommand("show", "Print the record of a SOAP response");
    AddInput(show, &options);

    CLI::App* const fetch = app.add_subcommand("fetch", "Ask a service and print its answer");
    fetch->add_option("--endpoint", options.endpoint, "The service's address")
        ->type_name("URL")
        ->check(IsHttpAddress)
        ->required();
    fetch->add_option("record", options.record, "What to ask for")
        ->check(CLI::IsMember(NamesOf(tool::Operations(), &tool::Operation::record)))
        ->type_name("RECORD")
        ->required();
    fetch->add_option("id", options.id, "Its identifier")->type_name("ID");
    CLI::Option* const asTree = fetch->add_flag("--tree", options.tree, "Print the element tree");
    fetch->add_flag("--text", "Print the record (default)")->excludes(asTree);

    CLI::App* const serve = app.add_subcommand("serve", "Answer as the service would");
    serve->add_option("--host", options.host, "Address to listen on")->capture_default_str();
    serve->add_option("--port", options.port, "Port; 0 takes a free one")
        ->check(IsPort)
        ->type_name("N")
        ->capture_default_str();
    serve->add_option("--catalog", options.catalog, "Folder of SOAP responses, RECORD/ID.xml")
        ->type_name("DIR");

    CLI::App* const message = app.add_subcommand("error", "Print the message of a result code");
    message->add_option("code", options.code, "The code, negative ones as they stand")
        ->check(IsCode)
        ->type_name("CODE")
        ->required();
    CLI::Option* const branding =
        message->add_option("--branding", options.branding, "Quavera (default) or Ostinex")
            ->check(CLI::IsMember({kBrandingNameQuavera, kBrandingNameOstinex}, CLI::ignore_case))
            ->type_name("NAME");
    message->add_option("--country", options.country, "The branding of a country, by its code")
        ->type_name("CC")
        ->excludes(branding);

    app.add_subcommand("demo", "Show a record's whole way on this machine");

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return FailParsing(app, error);
    }

    tool::Failure failure;
    if (*tree) {
        return PrintSoap(options, options.indent ? tool::Form::kIndentedTree : tool::Form::kTree);
    }
    if (*text) {
        return PrintInput(options, tool::PrintText);
    }
    if (*show) {
        return PrintSoap(options, tool::Form::kText);
    }
    if (*fetch) {
        return Fetch(options);
    }
    if (*message) {
        return PrintError(options);
    }
    if (*serve) {
        return tool::Serve(options.host, *ParseDecimal(options.port), options.catalog, &failure)
                   ? 0
                   : Fail(failure);
    }
    return tool::Demo(&failure) ? 0 : Fail(failure);
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
