#include "tools/Help.h"

#include <curl/curl.h>
#include <expat.h>
#include <gnutls/gnutls.h>
#include <microhttpd.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <sstream>
#include <utility>

#include "common/Version.h"
#include "soap/QuaveraStub.h"
#include "tools/Arguments.h"

namespace tool {
namespace {

constexpr std::size_t kNarrowest = 40;
constexpr std::size_t kWidest = 100;
constexpr std::size_t kUsual = 80;

/// How many characters a line may have.
std::size_t LineWidth() {
    const char* const columns = std::getenv("COLUMNS");
    int width = columns == nullptr ? 0 : ParseDecimal(columns).value_or(0);
    winsize size{};
    if (width <= 0 && ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0) {
        width = size.ws_col;
    }
    return width <= 0 ? kUsual : std::clamp(static_cast<std::size_t>(width), kNarrowest, kWidest);
}

/// Words in lines of that width, each behind as many blanks.
std::string Wrap(const std::string& text, std::size_t indentation, std::size_t width) {
    std::istringstream words(text);
    std::string wrapped;
    std::string line;
    for (std::string word; words >> word;) {
        if (!line.empty() && indentation + line.size() + 1 + word.size() > width) {
            wrapped += std::string(indentation, ' ') + line + "\n";
            line.clear();
        }
        line += (line.empty() ? "" : " ") + word;
    }
    return wrapped + std::string(indentation, ' ') + line + "\n";
}

using Entry = std::pair<std::string, std::string>;

/// A list under its title: names, and beside them what they mean.
std::string List(const std::string& title, const std::vector<Entry>& entries) {
    constexpr std::size_t kWidestName = 24;
    if (entries.empty()) {
        return {};
    }
    std::size_t column = 0;
    for (const Entry& entry : entries) {
        column = std::max(column, entry.first.size());
    }
    column = std::min(column, kWidestName) + 4;
    std::string list = "\n" + title + ":\n";
    for (const auto& [name, meaning] : entries) {
        const std::string text = Wrap(meaning, column, LineWidth());
        const bool isBeside = name.size() + 4 <= column;
        list += "  " + name;
        list += isBeside ? text.substr(name.size() + 2) : "\n" + text;
    }
    return list;
}

/// "--port N" or "FILE".
std::string NameOf(const CLI::Option& option) {
    if (option.get_positional()) {
        return option.get_type_name();
    }
    std::string name;
    for (const std::string& each : option.get_snames()) {
        name += "-" + each + ", ";
    }
    name += "--" + option.get_lnames().front();
    const std::string value = option.get_type_name();  // none of a flag
    return value.empty() ? name : name + " " + value;
}

std::string MeaningOf(const CLI::Option& option) {
    const std::string& meaning = option.get_description();
    const std::string value = option.get_default_str();
    return value.empty() ? meaning : meaning + " (default " + value + ")";
}

std::vector<Entry> EntriesOf(const std::vector<const CLI::Option*>& options) {
    std::vector<Entry> entries;
    entries.reserve(options.size());
    for (const CLI::Option* const option : options) {
        entries.emplace_back(NameOf(*option), MeaningOf(*option));
    }
    return entries;
}

std::string Usage(const CLI::App& app) {
    if (app.get_parent() == nullptr) {
        return "usage: " + app.get_name() + " COMMAND [ARGUMENT...]\n";
    }
    std::string usage = "usage: " + app.get_parent()->get_name() + " " + app.get_name();
    for (const CLI::Option* const option : NamedOptions(app)) {
        if (option->get_required()) {
            usage += " " + NameOf(*option);
        }
    }
    usage += " [OPTION...]";
    for (const CLI::Option* const option : Positionals(app)) {
        const std::string name = NameOf(*option) + (option->get_expected_max() > 1 ? "..." : "");
        usage += option->get_required() ? " " + name : " [" + name + "]";
    }
    return usage + "\n";
}

std::vector<Entry> Commands(const CLI::App& app) {
    std::vector<Entry> commands;
    for (const CLI::App* const command : app.get_subcommands({})) {
        commands.emplace_back(command->get_name(), command->get_description());
    }
    return commands;
}

}  // namespace

std::vector<const CLI::Option*> NamedOptions(const CLI::App& app) {
    return app.get_options([](const CLI::Option* option) { return !option->get_positional(); });
}

std::vector<const CLI::Option*> Positionals(const CLI::App& app) {
    return app.get_options([](const CLI::Option* option) { return option->get_positional(); });
}

std::vector<std::string> OptionNames(const CLI::App& app) {
    std::vector<std::string> names;
    for (const CLI::Option* const option : NamedOptions(app)) {
        names.push_back("--" + option->get_lnames().front());
    }
    return names;
}

std::string HelpFormatter::make_help(const CLI::App* app, std::string /*name*/,
                                     CLI::AppFormatMode /*mode*/) const {
    return Wrap(app->get_description(), 0, LineWidth()) + "\n" + Wrap(Usage(*app), 0, LineWidth()) +
           List("arguments", EntriesOf(Positionals(*app))) + List("commands", Commands(*app)) +
           List("options", EntriesOf(NamedOptions(*app))) + app->get_footer();
}

std::string Versions() {
    std::string expat = XML_ExpatVersion();  // "expat_2.5.0"
    std::replace(expat.begin(), expat.end(), '_', ' ');
    constexpr int kMajor = 100000;
    constexpr int kMinor = 1000;
    std::ostringstream text;
    text << "quavera " QUAVERA_VERSION "\n"
         << "gSOAP " << GSOAP_VERSION / kMajor << "." << GSOAP_VERSION / kMinor % 100 << "."
         << GSOAP_VERSION % kMinor << ", " << expat << ", libcurl "
         << curl_version_info(CURLVERSION_NOW)->version << ", libmicrohttpd " << MHD_get_version()
         << ", GnuTLS " << gnutls_check_version(nullptr) << ", nlohmann-json "
         << NLOHMANN_JSON_VERSION_MAJOR << "." << NLOHMANN_JSON_VERSION_MINOR << "."
         << NLOHMANN_JSON_VERSION_PATCH;
    return text.str();
}

}  // namespace tool
