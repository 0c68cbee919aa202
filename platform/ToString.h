#ifndef QUAVERA_PLATFORM_TO_STRING_H_
#define QUAVERA_PLATFORM_TO_STRING_H_

#include <string>

#include "platform/Export.h"

/// @file
/// Texts of numbers and flags, in ASCII, whatever the locale. Failed allocations throw
/// `std::bad_alloc`.

/// The text of a true flag in an element tree (XML Schema's boolean text).
inline constexpr char TRUE_STRING[] = "true";

namespace zq {

/// "true" or "false".
ZQ_API std::string ToString(bool value);
/// Decimal digits, after a "-" for negative numbers.
ZQ_API std::string ToString(int value);
/// Decimal digits.
ZQ_API std::string ToString(unsigned int value);
/// Decimal digits of the whole value, 64 bits where `unsigned long` has them.
ZQ_API std::string ToString(unsigned long value);

}  // namespace zq

#endif  // QUAVERA_PLATFORM_TO_STRING_H_
