#ifndef QUAVERA_COMMON_TEXT_CONVERSION_H_
#define QUAVERA_COMMON_TEXT_CONVERSION_H_

#include <string>

#include "common/Export.h"

/// @file
/// The forms in which text travels: UTF-8 (service records, element trees), wide strings of 32-bit
/// characters (the user interface), CP850 (a display that knows only that page), base64 of UTF-8
/// (display texts inside a tree) and two hexadecimal digits (a single letter inside a tree).
///
/// All functions are stateless and reentrant. None reports an error: a failure shows in the result,
/// as each function states. Results are the caller's. A failed allocation throws `std::bad_alloc`,
/// unless a function states what it gives instead.

/// The wide string of a UTF-8 text.
///
/// The reader is the C library's: beyond strict UTF-8 it takes 4- to 6-byte forms of values up to
/// 7FFFFFFF; a byte order mark is a character like any other.
/// - Empty text gives an empty string.
/// - A text with a zero byte is cut there, if it is valid to its end.
/// - An invalid or cut sequence gives the characters ahead of it, then zero characters up to four
///   times the *byte* length of `text`: the result is not trimmed, so that a failure can be told.
/// - A text with a zero byte, or that is no strict UTF-8, takes the C library's converter: where
///   that finds no memory, all of the result may be zero characters, as many.
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
/// - An unknown set gives four zero bytes for each character of `text`. So may any set, where the
///   converter finds no memory.
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
/// and one digit (a tab gives " 9").
QUAVERA_API std::string CharToHexString(char character);

/// The character whose code the first one or two hexadecimal digits of `text` give, in either
/// case, after any ASCII white space: the way back from `CharToHexString`. What follows is ignored.
/// Text without a digit there gives 0, signed numbers included.
QUAVERA_API char HexStringToChar(const std::string& text);

#endif  // QUAVERA_COMMON_TEXT_CONVERSION_H_
