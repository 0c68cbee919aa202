// Texts read as numbers and numbers written as texts, against a reader of the plainest form.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "fuzz/Expect.h"
#include "fuzz/Input.h"
#include "fuzz/NaiveCodecs.h"
#include "fuzz/Target.h"
#include "platform/Decimal.h"
#include "platform/zqshared.h"

namespace {

using fuzz::ExpectSame;

void CheckReading(std::string_view text) {
    const int number = fuzz::NaiveNumber(std::string(text));
    ExpectSame(zq::ReadDecimal(text), number, "ReadDecimal");

    const auto node = ZQXML::CreateXmlNode();
    node->Initialize("A", std::string(text));
    ExpectSame(node->GetValueInt(), number, "GetValueInt");
    node->AddChildEncoded("Marked", std::string(text));
    ExpectSame(node->FindChild("Marked")->GetValueInt(), number, "GetValueInt of marked text");
    node->AddEncoded("Bytes", text);
    ExpectSame(node->FindChild("Bytes")->GetValueInt(), fuzz::NaiveNumber(fuzz::NaiveBase64(text)),
               "GetValueInt of bytes");
}

void CheckChild(ZQXML::INode* node, const char* name, const std::string& text) {
    ZQXML::INode* const child = node->FindChild(name);
    ExpectSame(child->GetValue(), text, name);
    ExpectSame(child->GetValueInt(), fuzz::NaiveNumber(text), name);
    ExpectSame(ZQXML::WriteXml(child),
               "<" + std::string(name) + ">" + text + "</" + std::string(name) + ">", name);
}

void CheckWriting(unsigned long wide) {
    const auto number = static_cast<std::int32_t>(static_cast<std::uint32_t>(wide));
    ExpectSame(zq::ToString(number), std::to_string(number), "ToString of an int");
    ExpectSame(zq::ToString(static_cast<unsigned int>(number)),
               std::to_string(static_cast<unsigned int>(number)), "ToString of an unsigned int");
    ExpectSame(zq::ToString(wide), std::to_string(wide), "ToString of an unsigned long");

    const auto node = ZQXML::CreateXmlNode();
    node->AddNumber("Number", number);
    node->AddChild("Int", number);
    node->AddChild("Long", wide);
    CheckChild(node.get(), "Number", std::to_string(number));
    CheckChild(node.get(), "Int", std::to_string(number));
    CheckChild(node.get(), "Long", std::to_string(wide & 0xFFFFFFFFUL));
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    if (input.Flag()) {
        CheckReading(input.Rest());
        return 0;
    }
    // Around a power of two, or anything.
    const std::size_t power = input.Byte();
    unsigned long number = power < sizeof(number) * 8 ? 1UL << power : 0;
    if (number == 0) {
        for (std::size_t byte = 0; byte < sizeof number; ++byte) {
            number = number << 8 | input.Byte();
        }
    }
    CheckWriting(number + input.Below(3) - 1);
    return 0;
}
