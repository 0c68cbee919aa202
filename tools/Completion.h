#ifndef QUAVERA_TOOLS_COMPLETION_H_
#define QUAVERA_TOOLS_COMPLETION_H_

#include <CLI/CLI.hpp>

#include <string>
#include <vector>

namespace tool {

/// What may stand in place of the last of some words, which are typed behind the tool's name: a
/// line for each command, option or name; instead, "files" behind a colon where it is the path of
/// a file, and "folders" where it is that of a folder. For packaging/quavera.bash, which asks for
/// it, so that it knows what the tool declares.
std::string Completions(const CLI::App& app, const std::vector<std::string>& words);

}  // namespace tool

#endif  // QUAVERA_TOOLS_COMPLETION_H_
