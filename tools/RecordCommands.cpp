#include <memory>
#include <string>
#include <vector>

#include "tools/CommandLine.h"
#include "tools/Files.h"
#include "tools/Printing.h"

// tree, text, show: from a file to standard output.

namespace tool {
namespace {

struct RecordOptions {
    std::string recordClass;
    std::string file = "-";
    bool indent = false;
};

using Options = std::shared_ptr<RecordOptions>;

Options DeclareInput(CLI::App* command) {
    auto options = std::make_shared<RecordOptions>();
    std::vector<std::string> names;
    for (const RecordClass& each : RecordClasses()) {
        names.emplace_back(each.name);
    }
    command->add_option("--record", options->recordClass, "Record class, \"DataAlbum\" for example")
        ->check(CLI::IsMember(names))
        ->type_name("CLASS");
    command->add_option("file", options->file, "Input; \"-\" is standard input")->type_name("FILE");
    return options;
}

/// Prints what `print` makes of the command's input.
template <class Printer>
int PrintInput(const RecordOptions& options, const Printer& print) {
    const Result<std::string> text = ReadFile(options.file);
    if (!text) {
        return StatusOf(text.failure());
    }
    const std::string where = DisplayName(options.file);
    return StatusOf(Print(print(*text, where, FindClass(&RecordClass::name, options.recordClass))));
}

int PrintSoapAs(Form form, const RecordOptions& options) {
    return PrintInput(options, [form](const std::string& soap, const std::string& where,
                                      const RecordClass* chosen) {
        return PrintSoap(soap, where, chosen, form);
    });
}

}  // namespace

Run DeclareTree(CLI::App* command) {
    const Options options = DeclareInput(command);
    command->add_flag("--indent", options->indent, "One element a line");
    return [options] {
        return PrintSoapAs(options->indent ? Form::kIndentedTree : Form::kTree, *options);
    };
}

Run DeclareText(CLI::App* command) {
    const Options options = DeclareInput(command);
    return [options] { return PrintInput(*options, PrintText); };
}

Run DeclareShow(CLI::App* command) {
    const Options options = DeclareInput(command);
    return [options] { return PrintSoapAs(Form::kText, *options); };
}

}  // namespace tool
