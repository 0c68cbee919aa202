#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/Utf8.h"
#include "platform/XmlCharacters.h"
#include "platform/XmlText.h"

namespace ZQXML {
namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";  // U+FFFD

/// How a character of a text is written where it cannot stand as it is; empty where it can.
std::string_view Escape(char32_t code) {
    switch (code) {
        case '&':
            return "&amp;";
        case '<':
            return "&lt;";
        case '>':
            return "&gt;";
        case '\r':
            return "&#13;";  // a reader turns a bare one into a line feed
        default:
            return IsXmlCharacter(code) ? std::string_view() : kReplacement;
    }
}

void AppendText(std::string& out, std::string_view text) {
    for (;;) {
        std::size_t size = CountPlain(text, kInText);
        out += text.substr(0, size);
        text.remove_prefix(size);
        if (text.empty()) {
            return;
        }
        const zq::Utf8Character character = zq::FirstCharacter(text);
        size = character.size == 0 ? 1 : character.size;
        const std::string_view escape = character.size == 0 ? kReplacement : Escape(character.code);
        out += escape.empty() ? text.substr(0, size) : escape;
        text.remove_prefix(size);
    }
}

bool FitsName(const zq::Utf8Character& character, bool isFirst) {
    return character.size > 0 &&
           (isFirst ? IsNameStart(character.code) : IsNameCharacter(character.code));
}

void AppendUnusualName(std::string& out, std::string_view name) {
    if (name.empty()) {
        out += '_';
    }
    for (bool isFirst = true; !name.empty(); isFirst = false) {
        const zq::Utf8Character character = zq::FirstCharacter(name);
        const std::size_t size = character.size == 0 ? 1 : character.size;
        out += FitsName(character, isFirst) ? name.substr(0, size) : "_";
        name.remove_prefix(size);
    }
}

void AppendName(std::string& out, std::string_view name) {
    if (!name.empty() && MayStand(name[0], kAtNameStart) &&
        CountPlain(name, kInName) == name.size()) {
        out += name;
    } else {
        AppendUnusualName(out, name);
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
        return std::move(out_);
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
            out_ += '\n';
            out_.append(2 * depth, ' ');
        }
    }

    /// Writes an element whole, or up to its first child.
    void Begin(INode* node) {
        out_ += '<';
        const std::size_t nameAt = out_.size();
        const NodeView view = node->View(copies_);
        AppendName(out_, view.Name());
        const std::size_t nameSize = out_.size() - nameAt;
        if (node->IsEncoded()) {
            out_ += kXmlEncodedMark;
        }
        const std::string_view text = view.Text();
        const bool hasChildren = node->HasChildren();
        if (text.empty() && !hasChildren) {
            out_ += "/>";
            return;
        }
        out_ += '>';
        AppendText(out_, text);
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
        out_ += "</";
        out_.append(out_, nameAt, nameSize);
        out_ += '>';
    }

    bool indent_;
    std::string out_;
    NodeCopies copies_;
    std::vector<Element> open_;
};

}  // namespace

std::string WriteXml(INode* node, bool indent) {
    return node == nullptr ? std::string() : Writer(indent).Write(node);
}

}  // namespace ZQXML
