#include <expat.h>

#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "platform/zqshared.h"

namespace {

std::string Escaped(const std::string& text) {
    std::string escaped;
    for (const char character : text) {
        switch (character) {
            case '&':
                escaped += "&amp;";
                break;
            case '<':
                escaped += "&lt;";
                break;
            case '>':
                escaped += "&gt;";
                break;
            case '\r':
                escaped += "&#13;";
                break;
            default:
                escaped += character;
        }
    }
    return escaped;
}

struct Element {
    std::string name;
    std::string text;
    bool isEncoded;
    std::vector<Element> children;
};

/// The elements that have begun, the one that the root belongs to first.
using OpenElements = std::vector<Element>;

void XMLCALL OnStart(void* user, const char* name, const char** attributes) {
    auto& open = *static_cast<OpenElements*>(user);
    Element& parent = open.back();
    if (parent.text.find_first_not_of(" \t\r\n") == std::string::npos) {
        parent.text.clear();
    }
    const bool isEncoded = attributes[0] != nullptr && std::string(attributes[0]) == "encoding" &&
                           std::string(attributes[1]) == "base64";
    open.push_back({name, {}, isEncoded, {}});
}

void XMLCALL OnEnd(void* user, const char* /*name*/) {
    auto& open = *static_cast<OpenElements*>(user);
    Element element = std::move(open.back());
    open.pop_back();
    open.back().children.push_back(std::move(element));
}

void XMLCALL OnText(void* user, const char* text, int size) {
    Element& element = static_cast<OpenElements*>(user)->back();
    if (element.children.empty()) {
        element.text.append(text, static_cast<std::size_t>(size));
    }
}

void AddTo(ZQXML::INode* parent, const Element& element) {
    if (element.isEncoded) {
        parent->AddChildEncoded(element.name, element.text);
        return;
    }
    const auto node = ZQXML::CreateXmlNode();
    node->Initialize(element.name, element.text);
    for (const Element& child : element.children) {
        AddTo(node.get(), child);
    }
    parent->AppendChild(node.get());
}

}  // namespace

std::string ZQXML::WriteXml(INode* node) {
    std::string content = Escaped(node->GetValue());
    for (INode* child = node->GetChildren()->First(); child != nullptr;
         child = node->GetChildren()->Next()) {
        content += WriteXml(child);
    }
    const std::string name = node->GetName();
    const std::string start = "<" + name + (node->IsEncoded() ? " encoding=\"base64\"" : "");
    return content.empty() ? start + "/>" : start + ">" + content + "</" + name + ">";
}

zq::auto_com<ZQXML::INode> ZQXML::ParseXml(std::string_view text, std::string* error) {
    const std::unique_ptr<std::remove_pointer_t<XML_Parser>, decltype(&XML_ParserFree)> parser(
        XML_ParserCreate("UTF-8"), XML_ParserFree);
    OpenElements open(1);
    XML_SetUserData(parser.get(), &open);
    XML_SetElementHandler(parser.get(), OnStart, OnEnd);
    XML_SetCharacterDataHandler(parser.get(), OnText);
    if (XML_Parse(parser.get(), text.data(), static_cast<int>(text.size()), 1) != XML_STATUS_OK) {
        *error = XML_ErrorString(XML_GetErrorCode(parser.get()));
        return {};
    }
    const auto document = CreateXmlNode();
    AddTo(document.get(), open.front().children.front());
    INode* const root = document->GetChildren()->First();
    root->AddRef();
    return zq::auto_com<INode>(root);
}
