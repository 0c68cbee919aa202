#ifndef QUAVERA_COMMON_CLIENT_MESSAGES_H_
#define QUAVERA_COMMON_CLIENT_MESSAGES_H_

#include <cstdint>
#include <string>

#include "common/Export.h"

/// @file
/// Fixed-size replies to the playback client, and two functions that fill its outgoing buffers.
/// Each reply holds the image of its message: the fields packed in the stated order, in the byte
/// order of the machine (little-endian on the controller), without padding. What the fields mean is
/// settled between the callers. Nothing here reports an error or throws, but for the copy of a
/// string that a caller makes. A reply is used by one thread at a time.

// No virtual destructor, which is part of the binary interface: replies are never deleted through a
// pointer to a base.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

/// The base of the replies, and itself one without values of its own. Image: tag, value; 6 bytes.
class QUAVERA_API QuavClientResponse {
 public:
    /// Writes the fields into the object's image and returns a pointer to its first byte. The image
    /// belongs to the object and lives as long; it is `GetByteSize()` bytes long, without a
    /// terminator. Only the image of the object's own class is written.
    virtual unsigned char* ToBuffer();
    /// Reads the fields from the object's image. A caller copies what it has received to where
    /// `ToBuffer()` points, first.
    virtual void FromBuffer();
    /// The length of the image in bytes.
    virtual unsigned int GetByteSize();

    std::uint32_t value = 0;          ///< the reply's main value
    std::uint16_t tag = 0;            ///< the reply's header word
    unsigned char wireBytes[6] = {};  ///< the image of this class
};

/// Image: tag, value, param1; 10 bytes.
/// "Plackback" is how the class is named: programs use it by this name.
class QUAVERA_API StartPlackbackResponse : public QuavClientResponse {
 public:
    unsigned char* ToBuffer() override;
    void FromBuffer() override;
    unsigned int GetByteSize() override;

    std::uint32_t param1 = 0;          ///< the reply's own value
    unsigned char wireBytes[10] = {};  ///< the image of this class
};

/// Image: tag, value, param1; 10 bytes.
class QUAVERA_API InitTrackPlaybackResponse : public QuavClientResponse {
 public:
    unsigned char* ToBuffer() override;
    void FromBuffer() override;
    unsigned int GetByteSize() override;

    std::uint32_t param1 = 0;          ///< the reply's own value
    unsigned char wireBytes[10] = {};  ///< the image of this class
};

/// Image: tag, value, param1, param2; 14 bytes.
class QUAVERA_API GetAudioDataResponse : public QuavClientResponse {
 public:
    unsigned char* ToBuffer() override;
    void FromBuffer() override;
    unsigned int GetByteSize() override;

    std::uint32_t param1 = 0;          ///< the first value of its own
    std::uint32_t param2 = 0;          ///< the second value of its own
    unsigned char wireBytes[14] = {};  ///< the image of this class
};

#pragma GCC diagnostic pop

/// Writes `value` as four bytes, most significant first, at `buffer + offset`. The caller has room
/// for them there: nothing is checked, `buffer` itself included. Returns the offset after them.
QUAVERA_API unsigned int AddDWORDToBuffer(unsigned char* buffer, unsigned int offset,
                                          unsigned int value);

/// Writes the length of `text` as two bytes, most significant first, and its bytes, which may be
/// any, after them, without terminator, at `buffer + offset`. Returns the offset after them.
///
/// Nothing is checked here either. The caller has room for all of the text and keeps it below 65536
/// bytes: of a longer one all bytes are written, but the length that is written, and that the
/// result goes by, is reduced modulo 65536.
QUAVERA_API unsigned int AddStringToBuffer(unsigned char* buffer, unsigned int offset,
                                           std::string text);

#endif  // QUAVERA_COMMON_CLIENT_MESSAGES_H_
