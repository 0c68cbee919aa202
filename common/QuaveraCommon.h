#ifndef QUAVERA_COMMON_QUAVERA_COMMON_H_
#define QUAVERA_COMMON_QUAVERA_COMMON_H_

#include <cstdint>
#include <string>

#include "common/Export.h"

struct soap;  // gSOAP's context

/// What every component of the integration shares.

// --- Messages ----------------------------------------------------------------------------------
//
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

// --- Brandings and result codes ----------------------------------------------------------------

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

// --- Text conversion ---------------------------------------------------------------------------
//
// The forms in which text travels: UTF-8 (service records, element trees), wide strings of 32-bit
// characters (the user interface), CP850 (a display that knows only that page), base64 of UTF-8
// (display texts inside a tree) and two hexadecimal digits (a single letter inside a tree).
//
// All functions are stateless and reentrant. None reports an error: a failure shows in the result,
// as each function states. Failed allocations throw `std::bad_alloc`.

/// The wide string of a UTF-8 text.
///
/// The reader is the C library's: beyond strict UTF-8 it takes 4- to 6-byte forms of values up to
/// 7FFFFFFF; a byte order mark is a character like any other.
/// - Empty text gives an empty string.
/// - A text with a zero byte is cut there, if it is valid to its end.
/// - An invalid or cut sequence gives the characters ahead of it, then zero characters up to four
///   times the *byte* length of `text`: the result is not trimmed, so that a failure can be told.
QUAVERA_API std::wstring convertFromUtf8(std::string text);

/// A wide string in the character set that the C library's converter knows by the name `codePage`
/// (for example "CP850"; suffixes such as "//TRANSLIT" are handed on).
///
/// - Empty text gives an empty string.
/// - The result is cut at its first zero byte; sets that write zero bytes of their own, such as
///   "UTF-16LE", come out cut.
/// - A character that the set does not have, or that is no character (a surrogate), gives the bytes
///   ahead of it, then zero bytes up to four times the number of characters of `text`, untrimmed.
///   So does a result of more than four bytes per character in all. Tag characters (U+E0000 to
///   U+E007F) are an exception: sets that lack them drop them.
/// - An unknown set gives four zero bytes for each character of `text`.
QUAVERA_API std::string convertToCodePage(std::string codePage, std::wstring text);

/// `convertToCodePage` with "UTF-8".
QUAVERA_API std::string convertToUtf8(std::wstring text);

/// `convertToCodePage` with "CP850".
QUAVERA_API std::string convertToCP850(std::wstring text);

/// Base64 (RFC 4648, "=" padding, no line breaks) of the bytes of `data`, zero bytes included.
/// Empty data gives an empty string, and so does a result for which there is no memory.
QUAVERA_API std::string base64EncodeString(std::string data);

/// The same of the string that `data`, which must not be null, points to.
QUAVERA_API std::string base64EncodeString(std::string* data);

/// The bytes that a base64 text stands for, cut at their first zero byte.
/// ASCII white space is skipped. Malformed text (see `Base64Encoder::Decode`) gives an empty
/// string, and so does a result for which there is no memory.
QUAVERA_API std::string base64DecodeString(std::string text);

/// `convertFromUtf8` of `base64DecodeString` of `text`, with the failures of both.
QUAVERA_API std::wstring DecodeAndConvertFromUtf8(std::string text);

/// The code of a character, 0 to 255, as two upper-case hexadecimal digits; below 16 as a blank
/// and one digit ('\t' gives " 9").
QUAVERA_API std::string CharToHexString(char character);

/// The character whose code the first one or two hexadecimal digits of `text` give, in either
/// case, behind any white space: the way back from `CharToHexString`. What follows is ignored.
/// Text without a digit there gives 0, and so does a signed one.
QUAVERA_API char HexStringToChar(const std::string& text);

// --- Reply messages of the playback client -----------------------------------------------------
//
// Fixed-size replies. Each object holds the image of its message: the fields packed in the stated
// order, in the byte order of the machine (little-endian on the controller), without padding. What
// the fields mean is settled between the callers.

// No virtual destructor, which is part of the binary interface: replies are never deleted through a
// pointer to a base.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

/// The reply that has no values of its own. Image: tag, value; 6 bytes.
class QUAVERA_API QuavClientResponse {
 public:
    /// Writes the fields into the object's image and returns its first byte. The image belongs to
    /// the object. Only the image of the object's own class is written.
    virtual unsigned char* ToBuffer();
    /// Reads the fields from the object's image, which the caller has filled at `ToBuffer()`.
    virtual void FromBuffer();
    /// The length of the image in bytes.
    virtual unsigned int GetByteSize();

    std::uint32_t value = 0;
    std::uint16_t tag = 0;
    unsigned char wireBytes[6] = {};
};

/// Image: tag, value, param1; 10 bytes.
class QUAVERA_API StartPlackbackResponse : public QuavClientResponse {
 public:
    unsigned char* ToBuffer() override;
    void FromBuffer() override;
    unsigned int GetByteSize() override;

    std::uint32_t param1 = 0;
    unsigned char wireBytes[10] = {};
};

/// Image: tag, value, param1; 10 bytes.
class QUAVERA_API InitTrackPlaybackResponse : public QuavClientResponse {
 public:
    unsigned char* ToBuffer() override;
    void FromBuffer() override;
    unsigned int GetByteSize() override;

    std::uint32_t param1 = 0;
    unsigned char wireBytes[10] = {};
};

/// Image: tag, value, param1, param2; 14 bytes.
class QUAVERA_API GetAudioDataResponse : public QuavClientResponse {
 public:
    unsigned char* ToBuffer() override;
    void FromBuffer() override;
    unsigned int GetByteSize() override;

    std::uint32_t param1 = 0;
    std::uint32_t param2 = 0;
    unsigned char wireBytes[14] = {};
};

#pragma GCC diagnostic pop

/// Writes `value` as four bytes, most significant first, at `buffer + offset`, where the caller has
/// room for them. Returns the offset behind them.
QUAVERA_API unsigned int AddDWORDToBuffer(unsigned char* buffer, unsigned int offset,
                                          unsigned int value);

/// Writes the length of `text` as two bytes, most significant first, and its bytes behind them,
/// without terminator, at `buffer + offset`. Returns the offset behind them.
///
/// The caller has room for all of the text and keeps it below 65536 bytes: of a longer one all
/// bytes are written, but the length, and with it the result, are reduced modulo 65536.
QUAVERA_API unsigned int AddStringToBuffer(unsigned char* buffer, unsigned int offset,
                                           std::string text);

// --- Sockets and SOAP contexts -----------------------------------------------------------------
//
// The playback client's byte channel is read through a SOAP context's `frecv`, one call for each
// read: a short read is a failure, not a reason to go on. Nothing is closed, and no error is set in
// the context.

/// Reads what `AddStringToBuffer` writes: a length of two bytes, most significant first, and as
/// many bytes. The text is cut at its first zero byte. A read that delivers too little gives an
/// empty string; of length zero, nothing is read behind it.
QUAVERA_API std::string GetStringFromSocket(struct soap* context);

/// Reads what `AddDWORDToBuffer` writes: four bytes, most significant first. A read that delivers
/// any other number of bytes is reported through `zq::AssertWrite`; the result then is those bytes
/// in the machine's order with zeros behind them, 0 if there are none.
QUAVERA_API unsigned int GetDWORDFromSocket(struct soap* context);

/// Switches a descriptor's non-blocking mode on or off; its other flags stay. Returns 0, or -1 with
/// `errno` as `fcntl` has set it.
QUAVERA_API int EnableNonBlocking(bool enable, int descriptor);

/// Sleeps; returns the result of `usleep`. The milliseconds are multiplied by 1000 modulo 2^32
/// whatever they are: negative and very large ones give what comes of that.
QUAVERA_API int Sleep(int milliseconds);

/// Gives a context the client's time-outs: 35 s for receiving and connecting, 5 s for sending. No
/// other field changes.
QUAVERA_API void SetSoapTimeouts(struct soap* context);

#endif  // QUAVERA_COMMON_QUAVERA_COMMON_H_
