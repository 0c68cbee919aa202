#ifndef QUAVERA_FUZZ_NAIVE_XML_H_
#define QUAVERA_FUZZ_NAIVE_XML_H_

#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "platform/zqshared.h"
#include "tests/platform/ExpatOracle.h"
#include "tests/support/Utf8Text.h"

/// `WriteXml` in the plainest form: recursive, a character at a time, and by expat's word for what
/// may stand in a name.
namespace fuzz {

/// Whether a name may begin with the character, or hold it further on.
inline bool FitsInName(const std::string& character, bool isFirst) {
    static std::map<std::pair<std::string, bool>, bool> known;
    const auto [place, isNew] = known.try_emplace({character, isFirst});
    if (isNew) {
        const std::string name = (isFirst ? "" : "a") + character;
        const ExpatVerdict verdict = ExpatOracle::Judge("<" + name + "/>");
        place->second = verdict.isWellFormed && verdict.rootName == name;
    }
    return place->second;
}

/// `text` with each character, and each byte that is part of none, replaced by what `replace`
/// returns for it; for such a byte, that is for an empty character.
template <class Replace>
std::string ReplaceCharacters(std::string_view text, Replace replace) {
    std::string replaced;
    while (!text.empty()) {
        const std::size_t size = Utf8SequenceSize(text);
        replaced += replace(std::string(text.substr(0, size)));
        text.remove_prefix(size == 0 ? 1 : size);
    }
    return replaced;
}

inline std::string NaiveName(const std::string& name) {
    bool isFirst = true;
    const std::string written = ReplaceCharacters(name, [&isFirst](const std::string& character) {
        const bool fits = !character.empty() && FitsInName(character, isFirst);
        isFirst = false;
        return fits ? character : std::string("_");
    });
    return written.empty() ? "_" : written;
}

inline bool IsXmlText(const std::string& character) {
    const auto first = static_cast<unsigned char>(character[0]);
    return (first >= ' ' || character == "\t" || character == "\n" || character == "\r") &&
           character != "\xEF\xBF\xBE" && character != "\xEF\xBF\xBF";  // U+FFFE, U+FFFF
}

inline std::string NaiveText(const std::string& text) {
    static const std::map<std::string, std::string> kReferences = {
        {"&", "&amp;"}, {"<", "&lt;"}, {">", "&gt;"}, {"\r", "&#13;"}};
    return ReplaceCharacters(text, [](const std::string& character) {
        const auto reference = kReferences.find(character);
        return character.empty() || !IsXmlText(character) ? std::string("\xEF\xBF\xBD")
               : reference != kReferences.end()           ? reference->second
                                                          : character;
    });
}

inline std::string NaiveXml(ZQXML::INode* node, bool indent, std::size_t depth = 0) {
    const std::string name = NaiveName(node->GetName());
    const std::string text = node->GetValue();
    const std::string start = "<" + name + (node->IsEncoded() ? " encoding=\"base64\"" : "");
    const auto line = [indent](std::size_t level) {
        return indent ? "\n" + std::string(2 * level, ' ') : std::string();
    };
    std::string content = NaiveText(text);
    // White space ahead of a child is dropped on reading; any other text would get it added.
    bool startsLine = text.find_first_not_of(" \t\n\r") == std::string::npos;
    ZQXML::INodeList* const children = node->GetChildren();
    bool hasChildren = false;
    for (ZQXML::INode* child = children->First(); child != nullptr; child = children->Next()) {
        content += (startsLine ? line(depth + 1) : "") + NaiveXml(child, indent, depth + 1);
        startsLine = true;
        hasChildren = true;
    }
    content += hasChildren ? line(depth) : "";
    return content.empty() ? start + "/>" : start + ">" + content + "</" + name + ">";
}

}  // namespace fuzz

#endif  // QUAVERA_FUZZ_NAIVE_XML_H_
