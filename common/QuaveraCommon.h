#ifndef QUAVERA_COMMON_QUAVERA_COMMON_H_
#define QUAVERA_COMMON_QUAVERA_COMMON_H_

#include <string>

#include "common/Branding.h"
#include "common/ClientMessages.h"
#include "common/MessageTexts.h"
#include "common/SocketHelpers.h"
#include "common/TextConversion.h"
#include "common/Version.h"

/// @file
/// What every component of the integration shares. A source that can do without the messages
/// includes the header of its topic instead, and saves their copies.

/// The text of this name in `quavera::texts`, with "{0}" for the service's name: a message that
/// users see. Each source file that includes this header has copies of its own (their order is part
/// of the interface), which are there once the initialisers of that file have run.
///@{
static const std::string kMessageSuccess = quavera::texts::kSuccess;
static const std::string kMessageEndOfTrack = quavera::texts::kEndOfTrack;
static const std::string kMessageDataNotAvailable = quavera::texts::kDataNotAvailable;
static const std::string kMessageCommunicationsError = quavera::texts::kCommunicationsError;
static const std::string kMessageTooManySessions = quavera::texts::kTooManySessions;
static const std::string kMessageCloseSession = quavera::texts::kCloseSession;
static const std::string kMessageInvalidTrack = quavera::texts::kInvalidTrack;
static const std::string kMessageInputTooLarge = quavera::texts::kInputTooLarge;
static const std::string kMessageConnectionFailed = quavera::texts::kConnectionFailed;
static const std::string kMessageUnexpectedError = quavera::texts::kUnexpectedError;
static const std::string kMessageInvalidData = quavera::texts::kInvalidData;
static const std::string kMessageInvalidAccountName = quavera::texts::kInvalidAccountName;
static const std::string kMessageInvalidPassword = quavera::texts::kInvalidPassword;
static const std::string kMessageUnknownError = quavera::texts::kUnknownError;
static const std::string kMessageExpiredAccount = quavera::texts::kExpiredAccount;
static const std::string kMessageServiceError = quavera::texts::kServiceError;
static const std::string kMessageNetworkError = quavera::texts::kNetworkError;
static const std::string kMessageOffLine = quavera::texts::kOffLine;
static const std::string kMessageAccountInUse = quavera::texts::kAccountInUse;
///@}
/// The name of the format of the service's audio streams. It is for callers: no function here uses
/// it.
static const std::string kAudioStreamFormat = "MP3";
/// The text of this name in `quavera::texts`: what a branding is called.
///@{
static const std::string kBrandingNameOstinex = quavera::texts::kBrandingNameOstinex;
static const std::string kBrandingNameQuavera = quavera::texts::kBrandingNameQuavera;
///@}

#endif  // QUAVERA_COMMON_QUAVERA_COMMON_H_
