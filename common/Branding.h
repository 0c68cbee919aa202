#ifndef QUAVERA_COMMON_BRANDING_H_
#define QUAVERA_COMMON_BRANDING_H_

#include <string>

#include "common/Export.h"

/// @file
/// Brandings, and what a user is told of a result. Texts are ASCII, and the caller's. Failed
/// allocations throw `std::bad_alloc`, and nothing else is an error.

/// The names under which the service is offered. Any `int` may be converted to it: values that are
/// no enumerator count as `BrandingQuavera`.
enum QuaveraBranding : int {
    BrandingQuavera = 0,  ///< "Quavera"
    BrandingOstinex = 1,  ///< "Ostinex"
};

/// The result codes that have a message of their own; what each means is what its message says.
enum QuavResult : int {
    QuavResultAccountInUse = -16,        ///< the account is in use on another device
    QuavResultOffLine = -15,             ///< the service is off line
    QuavResultNetworkError = -14,        ///< an error of the network
    QuavResultServiceError = -13,        ///< an error of the service
    QuavResultExpiredAccount = -12,      ///< the account has expired
    QuavResultInvalidPassword = -10,     ///< the password is invalid
    QuavResultInvalidAccountName = -9,   ///< the account name is invalid
    QuavResultInvalidData = -8,          ///< data are invalid
    QuavResultUnexpectedError = -7,      ///< an unexpected error
    QuavResultConnectionFailed = -6,     ///< the connection to the service failed
    QuavResultInputTooLarge = -5,        ///< the input string was too large
    QuavResultInvalidTrack = -4,         ///< the specified track is invalid
    QuavResultCloseSession = -3,         ///< a session has to be closed first
    QuavResultTooManySessions = -2,      ///< the account has its maximum of sessions
    QuavResultCommunicationsError = -1,  ///< an error in communication
    QuavResultSuccess = 0,               ///< success
    QuavResultEndOfTrack = 1,            ///< the end of the track is reached
    QuavResultDataNotAvailable = 2,      ///< the data are not available
};

/// The branding's name for users: "Ostinex", or "Quavera" for every other value.
QUAVERA_API std::string QuaveraBrandingToString(QuaveraBranding branding);

/// The branding of that name; `BrandingQuavera` for any other text. Upper and lower case count as
/// equal by the character classification of the global locale at the time of the call.
QUAVERA_API QuaveraBranding QuaveraBrandingFromString(const std::string& name);

/// The branding in a country, given by its two-letter code: `BrandingQuavera` for "US" (in any
/// case, as above) and for an empty code, `BrandingOstinex` for all others.
QUAVERA_API QuaveraBranding GetQuaveraBranding(const std::string& country);

/// The message that tells a user of a result code, with the branding's name put in. A code that has
/// none of its own gives "Unexpected error.  Please try again." (with both blanks).
QUAVERA_API std::string QuavErrorToString(int code, QuaveraBranding branding);

#endif  // QUAVERA_COMMON_BRANDING_H_
