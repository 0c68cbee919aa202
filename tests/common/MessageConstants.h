#ifndef QUAVERA_TESTS_COMMON_MESSAGE_CONSTANTS_H_
#define QUAVERA_TESTS_COMMON_MESSAGE_CONSTANTS_H_

#include <string>
#include <vector>

#include "common/QuaveraCommon.h"

using Constants = std::vector<const std::string*>;

/// The including file's own copies of the common header's constants, in the header's order.
static inline Constants OwnConstants() {
    return {&kMessageSuccess,          &kMessageEndOfTrack,
            &kMessageDataNotAvailable, &kMessageCommunicationsError,
            &kMessageTooManySessions,  &kMessageCloseSession,
            &kMessageInvalidTrack,     &kMessageInputTooLarge,
            &kMessageConnectionFailed, &kMessageUnexpectedError,
            &kMessageInvalidData,      &kMessageInvalidAccountName,
            &kMessageInvalidPassword,  &kMessageUnknownError,
            &kMessageExpiredAccount,   &kMessageServiceError,
            &kMessageNetworkError,     &kMessageOffLine,
            &kMessageAccountInUse,     &kAudioStreamFormat,
            &kBrandingNameOstinex,     &kBrandingNameQuavera};
}

/// The copies of another source file, MessageConstants.cpp.
Constants ConstantsElsewhere();

#endif  // QUAVERA_TESTS_COMMON_MESSAGE_CONSTANTS_H_
