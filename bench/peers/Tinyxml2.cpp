#include <tinyxml2.h>

#include <cstdlib>

#include "bench/peers/TreePeer.h"

namespace bench {
namespace {

class Tinyxml2Tree {
 public:
    using Element = tinyxml2::XMLElement*;

    Element Root(const char* name) {
        Element const root = document_.NewElement(name);
        document_.InsertEndChild(root);
        return root;
    }
    Element Root() { return document_.RootElement(); }
    Element Add(Element parent, const char* name) { return parent->InsertNewChildElement(name); }
    void Add(Element parent, const char* name, std::string_view text) {
        SetText(Add(parent, name), text);
    }
    void AddEncoded(Element parent, const char* name, std::string_view text) {
        Element const child = Add(parent, name);
        child->SetAttribute("encoding", "base64");
        SetText(child, text);
    }

    static Element First(Element parent) { return parent->FirstChildElement(); }
    static Element Next(Element child) { return child->NextSiblingElement(); }
    static const char* Name(Element element) { return element->Name(); }
    static const char* Text(Element element) {
        const char* const text = element->GetText();
        return text == nullptr ? "" : text;
    }

    std::string Save() const {
        tinyxml2::XMLPrinter printer(nullptr, true);
        document_.Print(&printer);
        return {printer.CStr(), static_cast<std::size_t>(printer.CStrSize()) - 1};
    }

    void Parse(const std::string& text) {
        if (document_.Parse(text.data(), text.size()) != tinyxml2::XML_SUCCESS) {
            std::abort();
        }
    }

 private:
    static void SetText(Element element, std::string_view text) {
        if (!text.empty()) {
            element->InsertNewText(text.data());
        }
    }

    tinyxml2::XMLDocument document_;
};

}  // namespace

std::unique_ptr<Contender> MakeTinyxml2() {
    return std::make_unique<TreePeer<Tinyxml2Tree>>();
}

}  // namespace bench
