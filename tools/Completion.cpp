#include "tools/Completion.h"

#include <algorithm>
#include <cstddef>
#include <map>

#include "common/QuaveraCommon.h"
#include "tools/CommandLine.h"
#include "tools/Help.h"

namespace tool {
namespace {

using Words = std::vector<std::string>;

Words CommandNames(const CLI::App& app) {
    Words names;
    for (const CLI::App* const command : app.get_subcommands({})) {
        names.push_back(command->get_name());
    }
    return names;
}

const CLI::App* FindCommand(const CLI::App& app, const std::string& name) {
    for (const CLI::App* const command : app.get_subcommands({})) {
        if (command->get_name() == name) {
            return command;
        }
    }
    return nullptr;
}

/// What an argument may be, by the name that the help gives its values.
Words ValuesOf(const CLI::App& app, const CLI::Option& option) {
    static const std::map<std::string, Words> values = {
        {"CLASS", RecordClassNames()}, {"RECORD", RequestNames()}, {"COMMAND", CommandNames(app)},
        {"FILE", {":files"}},          {"A", {":files"}},          {"B", {":files"}},
        {"CERT KEY", {":files"}},      {"DIR", {":folders"}},
    };
    if (option.check_name("--branding")) {
        return {kBrandingNameQuavera, kBrandingNameOstinex};
    }
    const auto found = values.find(option.get_type_name());
    return found == values.end() ? Words() : found->second;
}

/// The option whose value follows a word, if any.
const CLI::Option* OptionBefore(const CLI::App& command, const std::string& word) {
    for (const CLI::Option* const option : NamedOptions(command)) {
        if (!option->get_type_name().empty() && option->check_name(word)) {
            return option;
        }
    }
    return nullptr;
}

/// Of the words behind a command, the last one.
Words Argument(const CLI::App& app, const CLI::App& command, const Words& words) {
    if (words.back().substr(0, 1) == "-") {
        return OptionNames(command);
    }
    std::size_t place = 0;  // of the positional argument
    for (std::size_t at = 0; at + 1 < words.size(); ++at) {
        const CLI::Option* const option = OptionBefore(command, words[at]);
        if (option != nullptr) {
            const auto values = static_cast<std::size_t>(option->get_type_size());
            if (at + values + 1 >= words.size()) {
                return ValuesOf(app, *option);
            }
            at += values;
        } else if (words[at].substr(0, 1) != "-") {
            ++place;
        }
    }
    const std::vector<const CLI::Option*> positionals = Positionals(command);
    if (positionals.empty()) {
        return {};
    }
    const bool isBeyond = place >= positionals.size();
    const CLI::Option& last = *positionals.back();
    if (isBeyond && last.get_expected_max() <= 1) {
        return {};
    }
    return ValuesOf(app, isBeyond ? last : *positionals[place]);
}

}  // namespace

std::string Completions(const CLI::App& app, const Words& words) {
    const Words typed = words.empty() ? Words{""} : words;
    Words found;
    if (typed.size() == 1) {
        found = typed.front().substr(0, 1) == "-" ? OptionNames(app) : CommandNames(app);
    } else if (const CLI::App* const command = FindCommand(app, typed.front())) {
        found = Argument(app, *command, Words(typed.begin() + 1, typed.end()));
    }
    std::string lines;
    for (const std::string& each : found) {
        if (each.front() == ':' || each.compare(0, typed.back().size(), typed.back()) == 0) {
            lines += each + "\n";
        }
    }
    return lines;
}

}  // namespace tool
