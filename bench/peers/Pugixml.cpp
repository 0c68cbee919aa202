#include <pugixml.hpp>

#include <cstdlib>

#include "bench/peers/TreePeer.h"

namespace bench {
namespace {

class PugixmlTree {
 public:
    using Element = pugi::xml_node;

    Element Root(const char* name) { return document_.append_child(name); }
    Element Root() { return document_.first_child(); }
    Element Add(Element parent, const char* name) { return parent.append_child(name); }
    void Add(Element parent, const char* name, std::string_view text) {
        SetText(parent.append_child(name), text);
    }
    void AddEncoded(Element parent, const char* name, std::string_view text) {
        Element child = parent.append_child(name);
        child.append_attribute("encoding").set_value("base64");
        SetText(child, text);
    }

    static Element First(Element parent) { return parent.first_child(); }
    static Element Next(Element child) { return child.next_sibling(); }
    static const char* Name(Element element) { return element.name(); }
    static const char* Text(Element element) { return element.child_value(); }

    std::string Save() const {
        struct Writer final : pugi::xml_writer {
            void write(const void* data, std::size_t size) override {
                text.append(static_cast<const char*>(data), size);
            }
            std::string text;
        } writer;
        document_.save(writer, "", pugi::format_raw | pugi::format_no_declaration,
                       pugi::encoding_utf8);
        return std::move(writer.text);
    }

    void Parse(const std::string& text) {
        if (!document_.load_buffer(text.data(), text.size(), pugi::parse_default,
                                   pugi::encoding_utf8)) {
            std::abort();
        }
    }

 private:
    static void SetText(Element element, std::string_view text) {
        element.append_child(pugi::node_pcdata).set_value(text.data(), text.size());
    }

    pugi::xml_document document_;
};

}  // namespace

std::unique_ptr<Contender> MakePugixml() {
    return std::make_unique<TreePeer<PugixmlTree>>();
}

std::unique_ptr<Contender> MakePugixmlLean() {
    return std::make_unique<TreePeer<PugixmlTree, NewTracks::kUnreserved>>();
}

}  // namespace bench
