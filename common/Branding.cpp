#include <algorithm>
#include <iterator>
#include <locale>
#include <string>
#include <string_view>

#include "common/QuaveraCommon.h"

namespace {

constexpr std::string_view kPlaceholder = "{0}";

struct Message {
    int code;
    const std::string& text;
};

/// All codes with a message of their own; -11 deliberately has none.
const Message kMessages[] = {
    {QuavResultAccountInUse, kMessageAccountInUse},
    {QuavResultOffLine, kMessageOffLine},
    {QuavResultNetworkError, kMessageNetworkError},
    {QuavResultServiceError, kMessageServiceError},
    {QuavResultExpiredAccount, kMessageExpiredAccount},
    {QuavResultInvalidPassword, kMessageInvalidPassword},
    {QuavResultInvalidAccountName, kMessageInvalidAccountName},
    {QuavResultInvalidData, kMessageInvalidData},
    {QuavResultUnexpectedError, kMessageUnexpectedError},
    {QuavResultConnectionFailed, kMessageConnectionFailed},
    {QuavResultInputTooLarge, kMessageInputTooLarge},
    {QuavResultInvalidTrack, kMessageInvalidTrack},
    {QuavResultCloseSession, kMessageCloseSession},
    {QuavResultTooManySessions, kMessageTooManySessions},
    {QuavResultCommunicationsError, kMessageCommunicationsError},
    {QuavResultSuccess, kMessageSuccess},
    {QuavResultEndOfTrack, kMessageEndOfTrack},
    {QuavResultDataNotAvailable, kMessageDataNotAvailable},
};

const std::string& MessageOf(int code) {
    const auto* const message =
        std::find_if(std::begin(kMessages), std::end(kMessages),
                     [code](const Message& candidate) { return candidate.code == code; });
    return message == std::end(kMessages) ? kMessageUnknownError : message->text;
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
    return branding == BrandingOstinex ? kBrandingNameOstinex : kBrandingNameQuavera;
}

QuaveraBranding QuaveraBrandingFromString(const std::string& name) {
    return EqualsIgnoringCase(name, kBrandingNameOstinex) ? BrandingOstinex : BrandingQuavera;
}

QuaveraBranding GetQuaveraBranding(const std::string& country) {
    const bool isFirst = country.empty() || EqualsIgnoringCase(country, "US");
    return isFirst ? BrandingQuavera : BrandingOstinex;
}

std::string QuavErrorToString(int code, QuaveraBranding branding) {
    const std::string name = QuaveraBrandingToString(branding);
    std::string text = MessageOf(code);
    for (std::size_t at = text.find(kPlaceholder); at != std::string::npos;
         at = text.find(kPlaceholder, at)) {
        text.replace(at, kPlaceholder.size(), name);
    }
    return text;
}
