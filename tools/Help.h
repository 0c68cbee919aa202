#ifndef QUAVERA_TOOLS_HELP_H_
#define QUAVERA_TOOLS_HELP_H_

#include <CLI/CLI.hpp>

#include <string>
#include <vector>

namespace tool {

/// The help of the tool and of its commands, as wide as the terminal.
class HelpFormatter : public CLI::FormatterBase {
 public:
    std::string make_help(const CLI::App* app, std::string name,
                          CLI::AppFormatMode mode) const override;
};

/// The options of a command, or of the tool, in the order of their declaration: those with a name,
/// or those without one.
std::vector<const CLI::Option*> NamedOptions(const CLI::App& app);
std::vector<const CLI::Option*> Positionals(const CLI::App& app);

/// The long names of the options, "--port".
std::vector<std::string> OptionNames(const CLI::App& app);

/// The tool's version, and those of the libraries that it runs with.
std::string Versions();

}  // namespace tool

#endif  // QUAVERA_TOOLS_HELP_H_
