#include <memory>
#include <string>
#include <vector>

#include "tools/CommandLine.h"
#include "tools/Files.h"
#include "tools/Printing.h"
#include "tools/StrictCheck.h"

// tree, text, show: from files to standard output.

namespace tool {
namespace {

struct RecordOptions {
    std::string recordClass;
    std::vector<std::string> files;
    bool indent = false;
    bool json = false;
    bool strict = false;
};

using Options = std::shared_ptr<RecordOptions>;

Options DeclareInput(CLI::App* command) {
    auto options = std::make_shared<RecordOptions>();
    DeclareRecordClass(command, &options->recordClass);
    command->add_option("file", options->files, "Input; \"-\", as without one, is standard input")
        ->type_name("FILE");
    command->add_flag("--strict", options->strict,
                      "Refuse unknown elements, and values that are not of their type");
    return options;
}

void DeclareJson(CLI::App* command, const Options& options) {
    command->add_flag("--json", options->json, "One line of JSON for each document");
}

/// What a command does with a document's text, as it was read.
struct Reading {
    Result<Done> (*check)(const std::string& text, const std::string& where,
                          const RecordClass* chosen);
    Result<std::string> (*print)(const std::string& text, const std::string& where,
                                 const RecordClass* chosen, Form form);
};

constexpr Reading kOfSoap = {CheckSoap, PrintSoap};
constexpr Reading kOfTrees = {CheckTrees, PrintText};

Result<std::string> PrintFile(const std::string& path, const RecordOptions& options, Form form,
                              const Reading& reading) {
    const Result<std::string> text = ReadFile(path);
    if (!text) {
        return text.failure();
    }
    const std::string where = DisplayName(path);
    const RecordClass* const chosen = FindClass(&RecordClass::name, options.recordClass);
    const Result<Done> checked =
        options.strict ? reading.check(*text, where, chosen) : Result<Done>(Done());
    return checked ? reading.print(*text, where, chosen, form) : checked.failure();
}

/// What stands ahead of a document's output where there are several, in the way of head.
std::string Heading(const std::string& path, bool isFirst) {
    return (isFirst ? "==> " : "\n==> ") + DisplayName(path) + " <==\n";
}

/// Prints all documents; one that is bad is no reason to leave out the others.
int PrintFiles(const RecordOptions& options, Form form, const Reading& reading) {
    const std::vector<std::string> files =
        options.files.empty() ? std::vector<std::string>{"-"} : options.files;
    const bool hasHeadings = files.size() > 1 && form != Form::kJson;
    bool isFirst = true;
    int status = 0;
    for (const std::string& path : files) {
        const Result<std::string> printed = PrintFile(path, options, form, reading);
        if (!printed) {
            status = StatusOf(printed.failure());
            continue;
        }
        const Result<Done> written =
            WriteOutput(hasHeadings ? Heading(path, isFirst) + *printed : *printed);
        if (!written) {
            return StatusOf(written);
        }
        isFirst = false;
    }
    return status;
}

}  // namespace

Run DeclareTree(CLI::App* command) {
    const Options options = DeclareInput(command);
    command->add_flag("--indent", options->indent, "One element a line");
    return [options] {
        return PrintFiles(*options, options->indent ? Form::kIndentedTree : Form::kTree, kOfSoap);
    };
}

Run DeclareText(CLI::App* command) {
    const Options options = DeclareInput(command);
    DeclareJson(command, options);
    return [options] {
        return PrintFiles(*options, options->json ? Form::kJson : Form::kText, kOfTrees);
    };
}

Run DeclareShow(CLI::App* command) {
    const Options options = DeclareInput(command);
    DeclareJson(command, options);
    return [options] {
        return PrintFiles(*options, options->json ? Form::kJson : Form::kText, kOfSoap);
    };
}

}  // namespace tool
