#ifndef QUAVERA_TESTS_SUPPORT_TREE_TEXT_H_
#define QUAVERA_TESTS_SUPPORT_TREE_TEXT_H_

#include <string>

#include "platform/zqshared.h"

/// A text in quotes, with bytes that are not printable ASCII as "\xHH".
inline std::string Quoted(const std::string& text) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    std::string quoted = "\"";
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        if (byte < 0x20 || byte > 0x7E || byte == '"' || byte == '\\') {
            quoted += "\\x";
            quoted += kDigits[byte / 16];
            quoted += kDigits[byte % 16];
        } else {
            quoted += character;
        }
    }
    return quoted + '"';
}

/// All that there is to know of a tree, on one line: `"name"="text"*("child"="" ...)`, with "*" for
/// the mark of encoded text. Not XML, so that it takes any bytes and owes nothing to the XML code.
/// Recursive: for trees of moderate depth.
inline std::string TreeText(ZQXML::INode* node) {
    if (node == nullptr) {
        return "none";
    }
    std::string text = Quoted(node->GetName()) + '=' + Quoted(node->GetValue());
    if (node->IsEncoded()) {
        text += '*';
    }
    ZQXML::INodeList* const children = node->GetChildren();
    std::string separator = "(";
    for (ZQXML::INode* child = children->First(); child != nullptr; child = children->Next()) {
        text += separator + TreeText(child);
        separator = " ";
    }
    return separator == " " ? text + ')' : text;
}

#endif  // QUAVERA_TESTS_SUPPORT_TREE_TEXT_H_
