#ifndef QUAVERA_COMMON_SOCKET_HELPERS_H_
#define QUAVERA_COMMON_SOCKET_HELPERS_H_

#include <string>

#include "common/Export.h"

/// @file
/// Reading the playback client's byte channel, and settings of sockets and of SOAP contexts.
///
/// The channel is read through a SOAP context's `frecv`, one call for each read: a short read is a
/// failure, not a reason to go on. Nothing is closed for it, and no error set in the context. How
/// long a read waits is the context's matter. A context is borrowed for the call, must not be null,
/// and is used by one thread at a time.

struct soap;  // gSOAP's context

/// Reads what `AddStringToBuffer` writes: a length of two bytes, most significant first, and as
/// many bytes, up to 65535; after a length of zero, nothing more. The text, of any encoding, is cut
/// at its first zero byte. A read that delivers too little gives an empty string. A failed
/// allocation throws `std::bad_alloc`: the length has been read then, and the bytes may have been.
QUAVERA_API std::string GetStringFromSocket(struct soap* context);

/// Reads what `AddDWORDToBuffer` writes: four bytes, most significant first. A read that delivers
/// any other number of bytes is reported through `zq::AssertWrite`, as line 192 of
/// "common/QuaveraCommon"; the result then is those bytes in the machine's order with zeros after
/// them, 0 if there are none.
QUAVERA_API unsigned int GetDWORDFromSocket(struct soap* context);

/// Switches a descriptor's non-blocking mode on or off; its other flags stay. Returns 0, or -1 with
/// `errno` as `fcntl` has set it.
QUAVERA_API int EnableNonBlocking(bool enable, int descriptor);

/// Sleeps for a number of milliseconds, which `usleep` gets multiplied by 1000 modulo 2^32:
/// negative and very large ones give what comes of that. Returns its result: 0, or -1 with `errno`,
/// as where a signal has ended the sleep.
QUAVERA_API int Sleep(int milliseconds);

/// Gives a context the client's time-outs: 35 s for receiving and connecting, 5 s for sending. No
/// other field changes.
QUAVERA_API void SetSoapTimeouts(struct soap* context);

#endif  // QUAVERA_COMMON_SOCKET_HELPERS_H_
