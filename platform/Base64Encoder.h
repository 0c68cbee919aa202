#ifndef QUAVERA_PLATFORM_BASE64_ENCODER_H_
#define QUAVERA_PLATFORM_BASE64_ENCODER_H_

#include <string>
#include <string_view>

#include "platform/Export.h"

/// Base64 as in RFC 4648, section 4: the standard alphabet, "=" padding, no line breaks.
///
/// The codec keeps nothing between calls; an object serves any number of them, on any threads. All
/// lengths are in bytes. Nothing is written beyond a stated capacity, and no terminator is added.
/// Texts and data are borrowed for the call, and only empty ones may be null; pointers to lengths
/// may not. Nothing allocates or throws.
class ZQ_API Base64Encoder {
 public:
    /// The number of characters that `Encode` makes of `length` bytes: 4 for each 3 bytes begun.
    /// 0 for a negative length, or where the result does not fit a `long`.
    /// `mode` selects the line format; there is only one, so it is ignored (callers pass 2).
    long EncodeGetLength(long length, long mode) const;

    /// Encodes `length` bytes of `data` into `text`.
    ///
    /// `*textLength` is the capacity of `text` on entry and the number of characters written on
    /// return. Returns nonzero on success; 0, with nothing written and `*textLength` 0, when the
    /// length is negative or the capacity too small.
    int Encode(const char* data, long length, char* text, long* textLength, long mode) const;

    /// Decodes `length` characters of `text` into `data`.
    ///
    /// ASCII white space is skipped anywhere; the unused bits of the last character are ignored.
    /// `*dataLength` is the capacity of `data` on entry and the number of bytes produced on return.
    /// Returns nonzero on success; after the bytes produced, zeros may be written up to the
    /// capacity. Returns 0, with `*dataLength` 0 and the contents of `data` undefined up to its
    /// capacity, for a character outside the alphabet, missing, misplaced or surplus padding, a
    /// negative length, or when the capacity is too small.
    int Decode(const char* text, long length, char* data, long* dataLength) const;
};

namespace zq {

/// The base64 form of `bytes`, of any values. A failed allocation throws `std::bad_alloc`.
ZQ_API std::string EncodeBase64(std::string_view bytes);

}  // namespace zq

#endif  // QUAVERA_PLATFORM_BASE64_ENCODER_H_
