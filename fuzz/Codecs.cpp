// Base64 and hexadecimal texts, against codecs of the plainest form.

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "common/TextConversion.h"
#include "fuzz/Expect.h"
#include "fuzz/Input.h"
#include "fuzz/NaiveCodecs.h"
#include "fuzz/Target.h"
#include "platform/zqshared.h"

namespace {

using fuzz::Block;
using fuzz::Expect;
using fuzz::ExpectSame;
using fuzz::NaiveCharacter;

const Base64Encoder kCodec;

/// A capacity about the size that is needed.
std::size_t CapacityFor(fuzz::Input* input, std::size_t needed) {
    const std::size_t more = input->Below(16);
    return more < 8 ? needed + more : needed - std::min(needed, more - 7);
}

void CheckEncoding(fuzz::Input* input) {
    const std::size_t choice = input->Byte();
    const std::string_view bytes = input->Take(input->Byte() + choice % 64);
    const std::string text = fuzz::NaiveBase64(bytes);
    const auto size = static_cast<long>(bytes.size());
    ExpectSame(kCodec.EncodeGetLength(size, 2), static_cast<long>(text.size()), "EncodeGetLength");
    ExpectSame(zq::EncodeBase64(bytes), text, "EncodeBase64");
    ExpectSame(base64EncodeString(std::string(bytes)), text, "base64EncodeString");

    Block room(CapacityFor(input, text.size()));
    auto length = static_cast<long>(room.Size());
    const bool isDone = kCodec.Encode(Block(bytes).Data(), size, room.Data(), &length, 2) != 0;
    ExpectSame(isDone, room.Size() >= text.size(), "Encode goes by the capacity");
    ExpectSame(length, static_cast<long>(isDone ? text.size() : 0), "Encode tells the length");
    ExpectSame(std::string(room.View().substr(0, static_cast<std::size_t>(length))),
               isDone ? text : "", "Encode");
    // What was encoded is decoded.
    ExpectSame(base64DecodeString(text), fuzz::CutAtZero(std::string(bytes)),
               "the way to base64 and back");
}

void CheckDecoding(fuzz::Input* input) {
    const std::size_t choice = input->Byte();
    std::string_view text = input->Rest();
    const std::optional<std::string> bytes = fuzz::NaiveBase64Bytes(text);
    const std::string expected = bytes.value_or("");
    ExpectSame(base64DecodeString(std::string(text)), fuzz::CutAtZero(expected),
               "base64DecodeString");
    ExpectSame(DecodeAndConvertFromUtf8(std::string(text)),
               convertFromUtf8(fuzz::CutAtZero(expected)), "DecodeAndConvertFromUtf8");

    const std::size_t most = choice % 4 == 0 ? choice / 4 : text.size() - text.size() / 4;
    Block room(choice % 4 == 1 ? expected.size() : most);
    auto length = static_cast<long>(room.Size());
    const bool isDone =
        kCodec.Decode(text.data(), static_cast<long>(text.size()), room.Data(), &length) != 0;
    ExpectSame(isDone, bytes.has_value() && room.Size() >= expected.size(),
               "Decode goes by the text and the capacity");
    ExpectSame(length, static_cast<long>(isDone ? expected.size() : 0), "Decode tells the length");
    ExpectSame(std::string(room.View().substr(0, static_cast<std::size_t>(length))),
               isDone ? expected : "", "Decode");
}

/// Marked elements keep what they are given, in whatever form.
void CheckElement(std::string_view text) {
    const auto node = ZQXML::CreateXmlNode();
    node->AddChildEncoded("A", std::string(text));
    ZQXML::INode* const child = node->FindChild("A");
    ExpectSame(child->GetValue(), std::string(text), "a marked element keeps its text");
    ExpectSame(child->GetValueDecoded(), fuzz::NaiveBase64Bytes(text).value_or(""),
               "a marked element is decoded");
}

void CheckHex(std::string_view text) {
    ExpectSame<int>(HexStringToChar(std::string(text)), NaiveCharacter(text), "HexStringToChar");
    for (const char character : text.substr(0, 16)) {
        const std::string hex = CharToHexString(character);
        ExpectSame<std::size_t>(hex.size(), 2, "two characters");
        ExpectSame<int>(HexStringToChar(hex), character, "the way to hexadecimal digits and back");
        ExpectSame<int>(NaiveCharacter(hex), character, "CharToHexString");
    }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    switch (input.Below(4)) {
        case 0:
            CheckEncoding(&input);
            break;
        case 1:
            CheckElement(input.Rest());
            break;
        case 2:
            CheckHex(input.Rest());
            break;
        default:
            CheckDecoding(&input);
    }
    return 0;
}
