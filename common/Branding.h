#ifndef QUAVERA_COMMON_BRANDING_H_
#define QUAVERA_COMMON_BRANDING_H_

#include <string>

#include "common/Export.h"

/// Brandings, and what a user is told of a result.

/// The names under which the service is offered. Any `int` may be converted to it: values that are
/// no enumerator count as `BrandingQuavera`.
enum QuaveraBranding : int {
    BrandingQuavera = 0,
    BrandingOstinex = 1,
};

/// The result codes that have a message of their own.
enum QuavResult : int {
    QuavResultAccountInUse = -16,
    QuavResultOffLine = -15,
    QuavResultNetworkError = -14,
    QuavResultServiceError = -13,
    QuavResultExpiredAccount = -12,
    QuavResultInvalidPassword = -10,
    QuavResultInvalidAccountName = -9,
    QuavResultInvalidData = -8,
    QuavResultUnexpectedError = -7,
    QuavResultConnectionFailed = -6,
    QuavResultInputTooLarge = -5,
    QuavResultInvalidTrack = -4,
    QuavResultCloseSession = -3,
    QuavResultTooManySessions = -2,
    QuavResultCommunicationsError = -1,
    QuavResultSuccess = 0,
    QuavResultEndOfTrack = 1,
    QuavResultDataNotAvailable = 2,
};

/// The branding's name for users: "Ostinex", or "Quavera" for every other value.
QUAVERA_API std::string QuaveraBrandingToString(QuaveraBranding branding);

/// The branding of that name; `BrandingQuavera` for any other text. Upper and lower case count as
/// equal by the character classification of the global locale at the time of the call.
QUAVERA_API QuaveraBranding QuaveraBrandingFromString(const std::string& name);

/// The branding in a country, given by its two-letter code: `BrandingQuavera` for "US" (in any
/// case, as above) and for an empty code, `BrandingOstinex` for all others.
QUAVERA_API QuaveraBranding GetQuaveraBranding(const std::string& country);

/// The text that tells a user of a result code, with the branding's name put in. A code without a
/// message of its own gives "Unexpected error.  Please try again.".
QUAVERA_API std::string QuavErrorToString(int code, QuaveraBranding branding);

#endif  // QUAVERA_COMMON_BRANDING_H_
