#include "common/Branding.h"

#include <algorithm>
#include <iterator>
#include <locale>
#include <string>
#include <string_view>

#include "common/MessageTexts.h"

namespace {

namespace texts = quavera::texts;

constexpr std::string_view kPlaceholder = "{0}";

struct Message {
    int code;
    std::string_view text;
};

/// All codes with a message of their own; -11 deliberately has none.
constexpr Message kMessages[] = {
    {QuavResultAccountInUse, texts::kAccountInUse},
    {QuavResultOffLine, texts::kOffLine},
    {QuavResultNetworkError, texts::kNetworkError},
    {QuavResultServiceError, texts::kServiceError},
    {QuavResultExpiredAccount, texts::kExpiredAccount},
    {QuavResultInvalidPassword, texts::kInvalidPassword},
    {QuavResultInvalidAccountName, texts::kInvalidAccountName},
    {QuavResultInvalidData, texts::kInvalidData},
    {QuavResultUnexpectedError, texts::kUnexpectedError},
    {QuavResultConnectionFailed, texts::kConnectionFailed},
    {QuavResultInputTooLarge, texts::kInputTooLarge},
    {QuavResultInvalidTrack, texts::kInvalidTrack},
    {QuavResultCloseSession, texts::kCloseSession},
    {QuavResultTooManySessions, texts::kTooManySessions},
    {QuavResultCommunicationsError, texts::kCommunicationsError},
    {QuavResultSuccess, texts::kSuccess},
    {QuavResultEndOfTrack, texts::kEndOfTrack},
    {QuavResultDataNotAvailable, texts::kDataNotAvailable},
};

std::string_view MessageOf(int code) {
    const auto* const message =
        std::find_if(std::begin(kMessages), std::end(kMessages),
                     [code](const Message& candidate) { return candidate.code == code; });
    return message == std::end(kMessages) ? texts::kUnknownError : message->text;
}

bool EqualsIgnoringCase(std::string_view left, std::string_view right) {
    const std::locale locale;
    const auto& characters = std::use_facet<std::ctype<char>>(locale);
    return std::equal(left.begin(), left.end(), right.begin(), right.end(), [&](char a, char b) {
        return characters.toupper(a) == characters.toupper(b);
    });
}

}  // namespace

std::string QuaveraBrandingToString(QuaveraBranding branding) {
    return branding == BrandingOstinex ? texts::kBrandingNameOstinex : texts::kBrandingNameQuavera;
}

QuaveraBranding QuaveraBrandingFromString(const std::string& name) {
    return EqualsIgnoringCase(name, texts::kBrandingNameOstinex) ? BrandingOstinex
                                                                 : BrandingQuavera;
}

QuaveraBranding GetQuaveraBranding(const std::string& country) {
    const bool isFirst = country.empty() || EqualsIgnoringCase(country, "US");
    return isFirst ? BrandingQuavera : BrandingOstinex;
}

std::string QuavErrorToString(int code, QuaveraBranding branding) {
    const std::string name = QuaveraBrandingToString(branding);
    std::string text(MessageOf(code));
    for (std::size_t at = text.find(kPlaceholder); at != std::string::npos;
         at = text.find(kPlaceholder, at)) {
        text.replace(at, kPlaceholder.size(), name);
    }
    return text;
}
