#ifndef QUAVERA_COMMON_MESSAGE_TEXTS_H_
#define QUAVERA_COMMON_MESSAGE_TEXTS_H_

/// @file
/// The texts of the messages, as constants.

/// The texts of the messages in `common/QuaveraCommon.h`, with "{0}" for the service's name, and
/// the brandings' names. They are compile-time constants, there before any object is made: so the
/// initialisers of a program can ask for messages, too.
namespace quavera::texts {

/// The text of which `QuavErrorToString` makes the message of the `QuavResult` of this name. ASCII.
///@{
inline constexpr char kSuccess[] = "Success";
inline constexpr char kEndOfTrack[] = "End of track reached.";
inline constexpr char kDataNotAvailable[] = "Data not available.";
inline constexpr char kCommunicationsError[] = "Communications error.";
inline constexpr char kTooManySessions[] = "Maximum number of {0} sessions for this account.";
inline constexpr char kCloseSession[] = "Please close session and try again.";
inline constexpr char kInvalidTrack[] = "The specified track is invalid.";
inline constexpr char kInputTooLarge[] = "The input string was too large.";
inline constexpr char kConnectionFailed[] = "{0} service connection failed.";
inline constexpr char kUnexpectedError[] = "Unexpected error.  Please try again.";
inline constexpr char kInvalidData[] = "Invalid data.";
inline constexpr char kInvalidAccountName[] = "Invalid {0} account name.";
inline constexpr char kInvalidPassword[] = "Invalid {0} password.";
inline constexpr char kExpiredAccount[] = "Expired {0} account.";
inline constexpr char kServiceError[] = "{0} service error.";
inline constexpr char kNetworkError[] = "Network error.";
inline constexpr char kOffLine[] = "{0} off line.";
inline constexpr char kAccountInUse[] = "Account in use on another device - this session will end.";
///@}
/// The message of all codes without one of their own: the text of `kUnexpectedError` once more.
inline constexpr char kUnknownError[] = "Unexpected error.  Please try again.";

/// The name of this branding, for users.
///@{
inline constexpr char kBrandingNameOstinex[] = "Ostinex";
inline constexpr char kBrandingNameQuavera[] = "Quavera";
///@}

}  // namespace quavera::texts

#endif  // QUAVERA_COMMON_MESSAGE_TEXTS_H_
