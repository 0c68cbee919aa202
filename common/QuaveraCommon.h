#ifndef QUAVERA_COMMON_QUAVERA_COMMON_H_
#define QUAVERA_COMMON_QUAVERA_COMMON_H_

#include <string>

#include "common/Branding.h"
#include "common/ClientMessages.h"
#include "common/SocketHelpers.h"
#include "common/TextConversion.h"

/// What every component of the integration shares. A source that can do without the messages
/// includes the header of its topic instead, and saves their copies.

// The user-visible texts, once for both brandings: "{0}" stands for the service's name. Each source
// file that includes this header has its own copies (the order is part of the interface).

static const std::string kMessageSuccess = "Success";
static const std::string kMessageEndOfTrack = "End of track reached.";
static const std::string kMessageDataNotAvailable = "Data not available.";
static const std::string kMessageCommunicationsError = "Communications error.";
static const std::string kMessageTooManySessions =
    "Maximum number of {0} sessions for this account.";
static const std::string kMessageCloseSession = "Please close session and try again.";
static const std::string kMessageInvalidTrack = "The specified track is invalid.";
static const std::string kMessageInputTooLarge = "The input string was too large.";
static const std::string kMessageConnectionFailed = "{0} service connection failed.";
// The same text twice: code -7 selects the first, all codes without a message of their own the
// second.
static const std::string kMessageUnexpectedError = "Unexpected error.  Please try again.";
static const std::string kMessageInvalidData = "Invalid data.";
static const std::string kMessageInvalidAccountName = "Invalid {0} account name.";
static const std::string kMessageInvalidPassword = "Invalid {0} password.";
static const std::string kMessageUnknownError = "Unexpected error.  Please try again.";
static const std::string kMessageExpiredAccount = "Expired {0} account.";
static const std::string kMessageServiceError = "{0} service error.";
static const std::string kMessageNetworkError = "Network error.";
static const std::string kMessageOffLine = "{0} off line.";
static const std::string kMessageAccountInUse =
    "Account in use on another device - this session will end.";
/// The format of the service's audio streams; for callers, no function here uses it.
static const std::string kAudioStreamFormat = "MP3";
static const std::string kBrandingNameOstinex = "Ostinex";
static const std::string kBrandingNameQuavera = "Quavera";

#endif  // QUAVERA_COMMON_QUAVERA_COMMON_H_
