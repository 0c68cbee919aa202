#include <memory>
#include <string>

#include "common/QuaveraCommon.h"
#include "tools/Arguments.h"
#include "tools/CommandLine.h"

namespace tool {
namespace {

struct ErrorOptions {
    std::string code;
    std::string branding;
    std::string country;
};

/// Without branding and country the message is that of the first branding.
std::string ErrorMessage(const ErrorOptions& options) {
    const QuaveraBranding branding = options.branding.empty()
                                         ? GetQuaveraBranding(options.country)
                                         : QuaveraBrandingFromString(options.branding);
    return QuavErrorToString(*ParseDecimal(options.code), branding) + "\n";
}

}  // namespace

Run DeclareError(CLI::App* command) {
    const auto options = std::make_shared<ErrorOptions>();
    command->add_option("code", options->code, "The code, negative ones as they stand")
        ->check(CheckCode)
        ->type_name("CODE")
        ->required();
    CLI::Option* const branding =
        command->add_option("--branding", options->branding, "Quavera (default) or Ostinex")
            ->check(CLI::IsMember({kBrandingNameQuavera, kBrandingNameOstinex}, CLI::ignore_case))
            ->type_name("NAME");
    command->add_option("--country", options->country, "The branding of a country, by its code")
        ->type_name("CC")
        ->excludes(branding);
    return [options] { return StatusOf(Print(ErrorMessage(*options))); };
}

}  // namespace tool
