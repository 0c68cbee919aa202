#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/TextBuffer.h"
#include "base/Utf8.h"
#include "platform/XmlCharacters.h"
#include "platform/XmlText.h"

namespace ZQXML {
namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";  // U+FFFD

/// How a character of a text is written that cannot stand as it is.
std::string_view Escape(char32_t code) {
    for (const XmlReference& reference : kXmlReferences) {
        if (code == static_cast<unsigned char>(reference.character)) {
            return reference.text;
        }
    }
    return kReplacement;
}

void AppendText(std::string_view text, zq::TextBuffer& out) {
    for (;;) {
        const std::size_t plainSize = CountPlainText(text);
        out.Append(text.substr(0, plainSize));
        text.remove_prefix(plainSize);
        if (text.empty()) {
            return;
        }
        const zq::Utf8Character character = zq::FirstCharacter(text);
        out.Append(character.size == 0 ? kReplacement : Escape(character.code));
        text.remove_prefix(character.size == 0 ? 1 : character.size);
    }
}

bool FitsName(const zq::Utf8Character& character, bool isFirst) {
    return character.size > 0 &&
           (isFirst ? IsNameStart(character.code) : IsNameCharacter(character.code));
}

void AppendUnusualName(std::string_view name, zq::TextBuffer& out) {
    if (name.empty()) {
        out.Append("_");
    }
    for (bool isFirst = true; !name.empty(); isFirst = false) {
        const zq::Utf8Character character = zq::FirstCharacter(name);
        const std::size_t size = character.size == 0 ? 1 : character.size;
        out.Append(FitsName(character, isFirst) ? name.substr(0, size) : "_");
        name.remove_prefix(size);
    }
}

void AppendName(std::string_view name, zq::TextBuffer& out) {
    if (!name.empty() && MayStand(name[0], kAtNameStart) &&
        CountNameCharacters(name) == name.size()) {
        out.Append(name);
    } else {
        AppendUnusualName(name, out);
    }
}

class Writer {
 public:
    explicit Writer(bool indent) : indent_(indent) {}

    std::string Write(INode* root) {
        Begin(root);
        while (!open_.empty()) {
            Element& element = open_.back();
            if (INode* const child = element.nextChild) {
                element.nextChild = element.children->Next();
                if (!std::exchange(element.sharesLine, false)) {
                    StartLine(open_.size());
                }
                Begin(child);
            } else {
                End();
            }
        }
        return out_.Take();
    }

 private:
    /// An element whose end tag is still to come.
    struct Element {
        std::size_t nameAt;  // where its start tag has its name
        std::size_t nameSize;
        INodeList* children;
        INode* nextChild;
        bool sharesLine;  // the next child has to follow the text at once, or it would change it
    };

    void StartLine(std::size_t depth) {
        if (indent_) {
            out_.Append("\n");
            for (; depth > 0; --depth) {
                out_.Append("  ");
            }
        }
    }

    /// Writes an element whole, or up to its first child.
    void Begin(INode* node) {
        out_.Append("<");
        const std::size_t nameAt = out_.Size();
        const NodeView view = node->View(copies_);
        AppendName(view.Name(), out_);
        const std::size_t nameSize = out_.Size() - nameAt;
        if (node->IsEncoded()) {
            out_.Append(kXmlEncodedMark);
        }
        const std::string_view text = view.Text();
        const bool hasChildren = node->HasChildren();
        if (text.empty() && !hasChildren) {
            out_.Append("/>");
            return;
        }
        out_.Append(">");
        AppendText(text, out_);
        if (hasChildren) {
            INodeList* const children = node->GetChildren();
            const bool hasText = text.find_first_not_of(kXmlWhiteSpace) != std::string_view::npos;
            open_.push_back({nameAt, nameSize, children, children->First(), hasText});
        } else {
            AppendEndTag(nameAt, nameSize);
        }
    }

    void End() {
        const Element element = open_.back();
        open_.pop_back();
        StartLine(open_.size());
        AppendEndTag(element.nameAt, element.nameSize);
    }

    void AppendEndTag(std::size_t nameAt, std::size_t nameSize) {
        out_.Reserve(nameSize + 3);
        out_.Put("</");
        out_.Put(out_.View().substr(nameAt, nameSize));
        out_.Put(">");
    }

    bool indent_;
    zq::TextBuffer out_;
    NodeCopies copies_;
    std::vector<Element> open_;
};

}  // namespace

std::string WriteXml(INode* node, bool indent) {
    return node == nullptr ? std::string() : Writer(indent).Write(node);
}

}  // namespace ZQXML
