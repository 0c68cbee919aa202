#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "tools/CommandLine.h"
#include "tools/Files.h"
#include "tools/Printing.h"

// tree, text, show: from files to standard output.

namespace tool {
namespace {

struct RecordOptions {
    std::string recordClass;
    std::vector<std::string> files;
    bool indent = false;
    bool json = false;
};

using Options = std::shared_ptr<RecordOptions>;

Options DeclareInput(CLI::App* command) {
    auto options = std::make_shared<RecordOptions>();
    DeclareRecordClass(command, &options->recordClass);
    command->add_option("file", options->files, "Input; \"-\", as without one, is standard input")
        ->type_name("FILE");
    return options;
}

void DeclareJson(CLI::App* command, const Options& options) {
    command->add_flag("--json", options->json, "One line of JSON for each document");
}

/// Prints a document's text, as it was read, in a form.
using Printer = Result<std::string> (*)(const std::string& text, const std::string& where,
                                        const RecordClass* chosen, Form form);

Result<std::string> PrintFile(const std::string& path, const RecordOptions& options, Form form,
                              Printer print) {
    const Result<std::string> text = ReadFile(path);
    return text ? print(*text, DisplayName(path),
                        FindClass(&RecordClass::name, options.recordClass), form)
                : text;
}

/// What stands ahead of a document's output where there are several, in the way of head.
std::string Heading(const std::string& path, bool isFirst) {
    return (isFirst ? "==> " : "\n==> ") + DisplayName(path) + " <==\n";
}

/// Prints all documents; one that is bad is no reason to leave out the others.
int PrintFiles(const RecordOptions& options, Form form, Printer print) {
    const std::vector<std::string> files =
        options.files.empty() ? std::vector<std::string>{"-"} : options.files;
    const bool hasHeadings = files.size() > 1 && form != Form::kJson;
    bool isFirst = true;
    int status = 0;
    for (const std::string& path : files) {
        const Result<std::string> printed = PrintFile(path, options, form, print);
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
        return PrintFiles(*options, options->indent ? Form::kIndentedTree : Form::kTree, PrintSoap);
    };
}

Run DeclareText(CLI::App* command) {
    const Options options = DeclareInput(command);
    DeclareJson(command, options);
    return [options] {
        return PrintFiles(*options, options->json ? Form::kJson : Form::kText, PrintText);
    };
}

Run DeclareShow(CLI::App* command) {
    const Options options = DeclareInput(command);
    DeclareJson(command, options);
    return [options] {
        return PrintFiles(*options, options->json ? Form::kJson : Form::kText, PrintSoap);
    };
}

}  // namespace tool
