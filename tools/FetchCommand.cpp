#include <memory>
#include <string>

#include "tools/Arguments.h"
#include "tools/CommandLine.h"
#include "tools/Printing.h"
#include "tools/Service.h"

namespace tool {
namespace {

struct FetchOptions {
    std::string endpoint;
    std::string timeout = "60";
    std::string kind;
    std::string id;
    bool tree = false;
};

Result<std::string> Fetch(const FetchOptions& options) {
    return Fetch({options.endpoint, *ParseDecimal(options.timeout)},
                 *FindClass(&RecordClass::kind, options.kind), options.id,
                 options.tree ? Form::kTree : Form::kText);
}

}  // namespace

Run DeclareFetch(CLI::App* command) {
    const auto options = std::make_shared<FetchOptions>();
    command->add_option("--endpoint", options->endpoint, "The service's address")
        ->type_name("URL")
        ->check(CheckHttpAddress)
        ->required();
    command->add_option("--timeout", options->timeout, "Seconds to wait for the whole answer")
        ->check(CheckSeconds)
        ->type_name("N")
        ->capture_default_str();
    command->add_option("record", options->kind, "What to ask for: " + Listed(RequestNames()))
        ->check(OneOf(RequestNames(), "record"))
        ->type_name("RECORD")
        ->required();
    command->add_option("id", options->id, "Its identifier")->type_name("ID");
    CLI::Option* const tree = command->add_flag("--tree", options->tree, "Print the element tree");
    command->add_flag("--text", "Print the record (default)")->excludes(tree);
    return [options] { return StatusOf(Print(Fetch(*options))); };
}

}  // namespace tool
