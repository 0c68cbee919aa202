#ifndef QUAVERA_COMMON_SOCKET_HELPERS_H_
#define QUAVERA_COMMON_SOCKET_HELPERS_H_

#include <string>

#include "common/Export.h"

/// @file
/// The playback client's byte channel is read through a SOAP context's `frecv`, one call for each
/// read: a short read is a failure, not a reason to go on. Nothing is closed, and no error is set
/// in the context, which is borrowed for the call and must not be null. How long a read waits is
/// the context's matter.

struct soap;  // gSOAP's context

/// Reads what `AddStringToBuffer` writes: a length of two bytes, most significant first, and as
/// many bytes, up to 65535. The text, of any encoding, is cut at its first zero byte. A read that
/// delivers too little gives an empty string; of length zero, nothing more is read. A failed
/// allocation throws `std::bad_alloc`, with the length read and the bytes not.
QUAVERA_API std::string GetStringFromSocket(struct soap* context);

/// Reads what `AddDWORDToBuffer` writes: four bytes, most significant first. A read that delivers
/// any other number of bytes is reported through `zq::AssertWrite`; the result then is those bytes
/// in the machine's order with zeros after them, 0 if there are none.
QUAVERA_API unsigned int GetDWORDFromSocket(struct soap* context);

/// Switches a descriptor's non-blocking mode on or off; its other flags stay. Returns 0, or -1 with
/// `errno` as `fcntl` has set it.
QUAVERA_API int EnableNonBlocking(bool enable, int descriptor);

/// Sleeps for a number of milliseconds; returns the result of `usleep`. They are multiplied by 1000
/// modulo 2^32 whatever they are: negative and very large ones give what comes of that.
QUAVERA_API int Sleep(int milliseconds);

/// Gives a context the client's time-outs: 35 s for receiving and connecting, 5 s for sending. No
/// other field changes.
QUAVERA_API void SetSoapTimeouts(struct soap* context);

#endif  // QUAVERA_COMMON_SOCKET_HELPERS_H_
