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

unsigned char* QuavClientResponse::ToBuffer() {
    Pack(wireBytes, tag, value);
    return wireBytes;
}

void QuavClientResponse::FromBuffer() {
    Unpack(wireBytes, tag, value);
}

unsigned int QuavClientResponse::GetByteSize() {
    return sizeof(wireBytes);
}

unsigned char* StartPlackbackResponse::ToBuffer() {
    Pack(wireBytes, tag, value, param1);
    return wireBytes;
}

void StartPlackbackResponse::FromBuffer() {
    Unpack(wireBytes, tag, value, param1);
}

unsigned int StartPlackbackResponse::GetByteSize() {
    return sizeof(wireBytes);
}

unsigned char* InitTrackPlaybackResponse::ToBuffer() {
    Pack(wireBytes, tag, value, param1);
    return wireBytes;
}

void InitTrackPlaybackResponse::FromBuffer() {
    Unpack(wireBytes, tag, value, param1);
}

unsigned int InitTrackPlaybackResponse::GetByteSize() {
    return sizeof(wireBytes);
}

unsigned char* GetAudioDataResponse::ToBuffer() {
    Pack(wireBytes, tag, value, param1, param2);
    return wireBytes;
}

void GetAudioDataResponse::FromBuffer() {
    Unpack(wireBytes, tag, value, param1, param2);
}

unsigned int GetAudioDataResponse::GetByteSize() {
    return sizeof(wireBytes);
}

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
