#include <algorithm>
#include <cstring>
#include <string>

#include "common/ClientMessages.h"

namespace {

/// Copies the fields, one after the other, to `image`.
template <class... Field>
void Pack(unsigned char* image, const Field&... fields) {
    ((std::memcpy(image, &fields, sizeof(fields)), image += sizeof(fields)), ...);
}

/// Copies them back.
template <class... Field>
void Unpack(const unsigned char* image, Field&... fields) {
    ((std::memcpy(&fields, image, sizeof(fields)), image += sizeof(fields)), ...);
}

/// Writes the low bytes of `value`, most significant first, and returns the place after them.
unsigned char* WriteBigEndian(unsigned char* place, unsigned int value, int size) {
    for (int byte = size - 1; byte >= 0; --byte) {
        *place++ = static_cast<unsigned char>(value >> (8 * byte));
    }
    return place;
}

}  // namespace

// A class, and the fields that its image holds.
#define QUAVERA_REPLY(Reply, ...)       \
    unsigned char* Reply::ToBuffer() {  \
        Pack(wireBytes, __VA_ARGS__);   \
        return wireBytes;               \
    }                                   \
    void Reply::FromBuffer() {          \
        Unpack(wireBytes, __VA_ARGS__); \
    }                                   \
    unsigned int Reply::GetByteSize() { \
        return sizeof(wireBytes);       \
    }
QUAVERA_REPLY(QuavClientResponse, tag, value)
QUAVERA_REPLY(StartPlackbackResponse, tag, value, param1)
QUAVERA_REPLY(InitTrackPlaybackResponse, tag, value, param1)
QUAVERA_REPLY(GetAudioDataResponse, tag, value, param1, param2)

unsigned int AddDWORDToBuffer(unsigned char* buffer, unsigned int offset, unsigned int value) {
    WriteBigEndian(buffer + offset, value, 4);
    return offset + 4;
}

unsigned int AddStringToBuffer(unsigned char* buffer, unsigned int offset, std::string text) {
    const auto length = static_cast<std::uint16_t>(text.size());
    unsigned char* const place = WriteBigEndian(buffer + offset, length, 2);
    std::copy(text.begin(), text.end(), place);  // no terminator: the length tells the end
    return offset + 2 + length;
}
