#ifndef QUAVERA_TOOLS_COMMAND_LINE_H_
#define QUAVERA_TOOLS_COMMAND_LINE_H_

#include <CLI/CLI.hpp>

#include <functional>
#include <string>
#include <vector>

#include "tools/Result.h"

// The tool's commands, as its main function declares and runs them.

namespace tool {

// Exit statuses besides 0.
constexpr int kFailed = 1;
constexpr int kWrongUsage = 2;

/// Runs a command with the arguments that have been parsed; returns the tool's exit status.
using Run = std::function<int()>;

// Each declares a command's arguments, which live as long as what it returns.
Run DeclareTree(CLI::App* command);
Run DeclareText(CLI::App* command);
Run DeclareShow(CLI::App* command);
Run DeclareDiff(CLI::App* command);
Run DeclareRecords(CLI::App* command);
Run DeclareFetch(CLI::App* command);
Run DeclareServe(CLI::App* command);
Run DeclareError(CLI::App* command);
Run DeclareDemo(CLI::App* command);

/// The names of the record classes, and of the requests.
std::vector<std::string> RecordClassNames();
std::vector<std::string> RequestNames();

/// "one, two or three".
std::string Listed(const std::vector<std::string>& names);

/// What an argument is checked by that is one of some names: "\"albun\" is no record; did you
/// mean \"album\"?"
CLI::Validator OneOf(std::vector<std::string> names, const std::string& what);

/// Declares `--record CLASS`.
void DeclareRecordClass(CLI::App* command, std::string* recordClass);

/// The exit status of what has been done; a failure is reported.
int StatusOf(const Result<Done>& done);

/// From now on the tool ends with that status, and not by a signal, where a failed allocation
/// cannot be thrown: destructors of the JSON library allocate.
void EndWithStatusOutOfMemory(int status);

/// Prints what there is to print.
Result<Done> Print(const Result<std::string>& output);

}  // namespace tool

#endif  // QUAVERA_TOOLS_COMMAND_LINE_H_
