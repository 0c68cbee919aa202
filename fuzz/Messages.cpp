// Brandings, what users are told, and the replies' images.

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <map>
#include <string>
#include <string_view>

#include "common/QuaveraCommon.h"
#include "fuzz/Expect.h"
#include "fuzz/Input.h"
#include "fuzz/Target.h"

namespace {

using fuzz::Expect;
using fuzz::ExpectSame;

std::string UpperCase(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), [](char character) {
        return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A')
                                                    : character;
    });
    return text;
}

void CheckBranding(const std::string& text) {
    ExpectSame<int>(QuaveraBrandingFromString(text), UpperCase(text) == "OSTINEX" ? 1 : 0,
                    "QuaveraBrandingFromString");
    ExpectSame<int>(GetQuaveraBranding(text), text.empty() || UpperCase(text) == "US" ? 0 : 1,
                    "GetQuaveraBranding");
}

/// For the codes that have one; of "%", the branding's name is to stand there.
const std::map<int, std::string> kMessages = {
    {-16, "Account in use on another device - this session will end."},
    {-15, "% off line."},
    {-14, "Network error."},
    {-13, "% service error."},
    {-12, "Expired % account."},
    {-10, "Invalid % password."},
    {-9, "Invalid % account name."},
    {-8, "Invalid data."},
    {-6, "% service connection failed."},
    {-5, "The input string was too large."},
    {-4, "The specified track is invalid."},
    {-3, "Please close session and try again."},
    {-2, "Maximum number of % sessions for this account."},
    {-1, "Communications error."},
    {0, "Success"},
    {1, "End of track reached."},
    {2, "Data not available."},
};

void CheckMessage(int code, int branding) {
    const std::string name = branding == 1 ? "Ostinex" : "Quavera";
    const auto found = kMessages.find(code);
    std::string expected =
        found == kMessages.end() ? "Unexpected error.  Please try again." : found->second;
    if (const std::size_t at = expected.find('%'); at != std::string::npos) {
        expected.replace(at, 1, name);
    }
    const auto value = static_cast<QuaveraBranding>(branding);
    ExpectSame(QuaveraBrandingToString(value), name, "QuaveraBrandingToString");
    ExpectSame(QuavErrorToString(code, value), expected, "QuavErrorToString");
}

/// The four bytes of a number as they stand in memory.
std::string InMemory(std::uint32_t number) {
    std::string bytes(sizeof number, '\0');
    std::memcpy(bytes.data(), &number, sizeof number);
    return bytes;
}

std::string ImageOf(QuavClientResponse* reply) {
    const unsigned char* const image = reply->ToBuffer();
    return {image, image + reply->GetByteSize()};
}

/// Fills a reply from an image of its own.
template <class Reply>
Reply FromImage(std::string_view image) {
    Reply reply;
    ExpectSame<std::size_t>(reply.GetByteSize(), image.size(), "GetByteSize");
    std::copy(image.begin(), image.end(), reply.ToBuffer());
    reply.FromBuffer();
    ExpectSame(ImageOf(&reply), std::string(image), "the way to a reply and back");
    ExpectSame<int>(
        reply.tag, static_cast<unsigned char>(image[0]) | static_cast<unsigned char>(image[1]) << 8,
        "the tag");
    ExpectSame(InMemory(reply.value), std::string(image.substr(2, 4)), "the value");
    return reply;
}

void CheckReplies(fuzz::Input* input) {
    std::string bytes(input->Take(14));
    bytes.resize(14);
    const std::string_view image = bytes;
    FromImage<QuavClientResponse>(image.substr(0, 6));
    const auto start = FromImage<StartPlackbackResponse>(image.substr(0, 10));
    ExpectSame(InMemory(start.param1), std::string(image.substr(6, 4)), "the first parameter");
    const auto begin = FromImage<InitTrackPlaybackResponse>(image.substr(0, 10));
    ExpectSame(InMemory(begin.param1), std::string(image.substr(6, 4)), "the first parameter");
    const auto audio = FromImage<GetAudioDataResponse>(image);
    ExpectSame(InMemory(audio.param1), std::string(image.substr(6, 4)), "the first parameter");
    ExpectSame(InMemory(audio.param2), std::string(image.substr(10, 4)), "the second parameter");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    CheckMessage(input.Integer(), input.Integer());
    CheckReplies(&input);
    CheckBranding(std::string(input.Rest()));
    return 0;
}
