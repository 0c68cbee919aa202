#ifndef QUAVERA_PLATFORM_XML_CHARACTERS_H_
#define QUAVERA_PLATFORM_XML_CHARACTERS_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace ZQXML {

inline constexpr std::string_view kXmlWhiteSpace = " \t\n\r";

/// The mark of encoded text, as it is written in a start tag.
inline constexpr std::string_view kXmlEncodedMark = R"( encoding="base64")";

/// A character that is written as a reference, as it cannot stand in an element's text as it is.
/// What may stand there as it is follows from this table everywhere.
struct XmlReference {
    char character;
    std::string_view text;
};

inline constexpr XmlReference kXmlReferences[] = {
    {'&', "&amp;"},
    {'<', "&lt;"},
    {'>', "&gt;"},
    {'\r', "&#13;"},  // a reader turns a bare one into a line feed
};

/// Whether an XML name may begin with the character, or hold it after its first character. The
/// letters are those of Appendix B of XML 1.0 up to its fourth edition, the ones that expat knows;
/// later editions allow more.
bool IsNameStart(char32_t code);
bool IsNameCharacter(char32_t code);

/// What an ASCII character may be written as it is for. Nearly all characters are ASCII, so a
/// look-up comes first, which saves 2 % of WriteXml.
enum CharacterUse : std::uint8_t {
    kInText = 1,
    kInName = 2,
    kAtNameStart = 4,
};

/// The uses of each byte; none of those beyond ASCII.
extern const std::array<std::uint8_t, 256> kCharacterUses;

inline bool MayStand(char byte, CharacterUse use) {
    return (kCharacterUses[static_cast<unsigned char>(byte)] & use) != 0;
}

/// The number of ASCII name characters that `text` begins with.
inline std::size_t CountNameCharacters(std::string_view text) {
    std::size_t count = 0;
    while (count < text.size() && MayStand(text[count], kInName)) {
        ++count;
    }
    return count;
}

/// The number of bytes of the characters that `text` begins with and that may be written as they
/// are in an element's text: all that XML knows but those of `kXmlReferences`.
std::size_t CountPlainText(std::string_view text);

}  // namespace ZQXML

#endif  // QUAVERA_PLATFORM_XML_CHARACTERS_H_
