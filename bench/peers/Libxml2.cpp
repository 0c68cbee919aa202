#include <libxml/parser.h>
#include <libxml/tree.h>
#include <libxml/xmlsave.h>

#include <cstdlib>

#include "bench/peers/TreePeer.h"

namespace bench {
namespace {

const xmlChar* Characters(const char* text) {
    return reinterpret_cast<const xmlChar*>(text);
}

const char* Bytes(const xmlChar* text) {
    return reinterpret_cast<const char*>(text);
}

class Libxml2Tree {
 public:
    using Element = xmlNode*;

    Libxml2Tree() : document_(xmlNewDoc(Characters("1.0"))) {}
    Libxml2Tree(const Libxml2Tree&) = delete;
    Libxml2Tree& operator=(const Libxml2Tree&) = delete;
    ~Libxml2Tree() { xmlFreeDoc(document_); }

    Element Root(const char* name) {
        Element const root = xmlNewDocRawNode(document_, nullptr, Characters(name), nullptr);
        xmlDocSetRootElement(document_, root);
        return root;
    }
    Element Root() { return xmlDocGetRootElement(document_); }
    Element Add(Element parent, const char* name) {
        return xmlNewTextChild(parent, nullptr, Characters(name), nullptr);
    }
    void Add(Element parent, const char* name, std::string_view text) {
        xmlNewTextChild(parent, nullptr, Characters(name), Characters(text.data()));
    }
    void AddEncoded(Element parent, const char* name, std::string_view text) {
        Element const child =
            xmlNewTextChild(parent, nullptr, Characters(name), Characters(text.data()));
        xmlNewProp(child, Characters("encoding"), Characters("base64"));
    }

    static Element First(Element parent) { return ElementFrom(parent->children); }
    static Element Next(Element child) { return ElementFrom(child->next); }
    static const char* Name(Element element) { return Bytes(element->name); }
    static const char* Text(Element element) {
        const xmlNode* const text = element->children;
        return text == nullptr || text->type != XML_TEXT_NODE ? "" : Bytes(text->content);
    }

    std::string Save() const {
        xmlBuffer* const buffer = xmlBufferCreate();
        xmlSaveCtxt* const context =
            xmlSaveToBuffer(buffer, "UTF-8", XML_SAVE_NO_DECL | XML_SAVE_AS_XML);
        xmlSaveDoc(context, document_);
        xmlSaveClose(context);
        std::string text(Bytes(xmlBufferContent(buffer)),
                         static_cast<std::size_t>(xmlBufferLength(buffer)));
        xmlBufferFree(buffer);
        return text;
    }

    void Parse(const std::string& text) {
        xmlFreeDoc(document_);
        document_ = xmlReadMemory(text.data(), static_cast<int>(text.size()), nullptr, "UTF-8",
                                  XML_PARSE_NONET | XML_PARSE_COMPACT | XML_PARSE_HUGE);
        if (document_ == nullptr) {
            std::abort();
        }
    }

 private:
    static Element ElementFrom(Element node) {
        while (node != nullptr && node->type != XML_ELEMENT_NODE) {
            node = node->next;
        }
        return node;
    }

    xmlDoc* document_;
};

}  // namespace

std::unique_ptr<Contender> MakeLibxml2() {
    return std::make_unique<TreePeer<Libxml2Tree>>();
}

}  // namespace bench
