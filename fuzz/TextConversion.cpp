// Texts in every form, against the C library's converter.

#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "common/BorrowedText.h"
#include "common/TextConversion.h"
#include "fuzz/Expect.h"
#include "fuzz/Input.h"
#include "fuzz/Target.h"
#include "tests/common/ConversionReference.h"
#include "tests/support/Utf8Text.h"

namespace {

using fuzz::ExpectSame;

/// Whether all of a text is UTF-8 as RFC 3629 has it, without a zero byte.
bool IsStrictUtf8(std::string_view text) {
    std::size_t size = 0;
    for (; !text.empty(); text.remove_prefix(size)) {
        size = Utf8SequenceSize(text);
        if (size == 0 || text[0] == '\0') {
            return false;
        }
    }
    return true;
}

void CheckNarrowing(const std::wstring& wide) {
    static ToCodePageReference toUtf8("UTF-8");
    static ToCodePageReference toCp850("CP850");
    // A block of the exact size, unlike a string's.
    const auto block = std::make_unique<wchar_t[]>(wide.size());
    wide.copy(block.get(), wide.size());
    const std::wstring_view view(block.get(), wide.size());

    ExpectSame(quavera::Narrow(view), toUtf8(wide), "Narrow");
    ExpectSame(convertToUtf8(wide), toUtf8(wide), "convertToUtf8");
    ExpectSame(convertToCP850(wide), toCp850(wide), "convertToCP850");
    quavera::TextBuffer buffer;
    buffer.Append("ahead");
    quavera::AppendNarrow(view, &buffer);
    ExpectSame(std::string(buffer.View()), "ahead" + toUtf8(wide), "AppendNarrow");
}

void CheckCodePage(fuzz::Input* input, const std::wstring& wide) {
    static const std::vector<std::string> kCodePages = {
        "CP437", "ISO-8859-15", "ASCII//TRANSLIT", "UTF-16LE",
        "UTF-7", "UCS-4LE",     "CP850//IGNORE",   "no such set"};
    const std::string& codePage = input->Pick(kCodePages);
    ExpectSame(convertToCodePage(codePage, wide), ToCodePageReference(codePage)(wide),
               codePage.c_str());
}

void CheckWidening(std::string_view utf8) {
    static FromUtf8Reference fromUtf8;
    const std::string text(utf8);
    const std::wstring wide = fromUtf8(text);
    ExpectSame(quavera::Widen(utf8), wide, "Widen");
    ExpectSame(convertFromUtf8(text), wide, "convertFromUtf8");
    ExpectSame(quavera::WidenUpToZero(utf8), fromUtf8(text.substr(0, text.find('\0'))),
               "WidenUpToZero");
    if (IsStrictUtf8(utf8)) {
        ExpectSame(convertToUtf8(wide), text, "the way to wide characters and back");
    }
    CheckNarrowing(wide);
}

/// Four bytes for each character, of which those in front may be left out.
std::wstring TakeWide(fuzz::Input* input) {
    std::wstring wide;
    while (!input->IsAtEnd()) {
        const unsigned int first = input->Byte();
        wide += static_cast<wchar_t>(first < 0x80 ? first : input->Number() >> 8 * (first % 4));
    }
    return wide;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    switch (input.Below(4)) {
        case 0:
            CheckNarrowing(TakeWide(&input));
            break;
        case 1:
            CheckCodePage(&input, TakeWide(&input));
            break;
        default:
            CheckWidening(input.Rest());  // up to the end of the input's block
    }
    return 0;
}
