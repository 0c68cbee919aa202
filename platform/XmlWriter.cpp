#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/TextBuffer.h"
#include "base/Utf8.h"
#include "platform/Base64Codec.h"
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

void AppendText(std::string_view text, quavera::TextBuffer& out) {
    for (;;) {
        const std::size_t plainSize = CountPlainText(text);
        out.Append(text.substr(0, plainSize));
        text.remove_prefix(plainSize);
        if (text.empty()) {
            return;
        }
        const quavera::Utf8Character character = quavera::FirstCharacter(text);
        out.Append(character.size == 0 ? kReplacement : Escape(character.code));
        text.remove_prefix(character.size == 0 ? 1 : character.size);
    }
}

bool FitsName(const quavera::Utf8Character& character, bool isFirst) {
    return character.size > 0 &&
           (isFirst ? IsNameStart(character.code) : IsNameCharacter(character.code));
}

void AppendUnusualName(std::string_view name, quavera::TextBuffer& out) {
    if (name.empty()) {
        out.Append("_");
    }
    for (bool isFirst = true; !name.empty(); isFirst = false) {
        const quavera::Utf8Character character = quavera::FirstCharacter(name);
        const std::size_t size = character.size == 0 ? 1 : character.size;
        out.Append(FitsName(character, isFirst) ? name.substr(0, size) : "_");
        name.remove_prefix(size);
    }
}

void AppendName(std::string_view name, quavera::TextBuffer& out) {
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
        Begin(root->View());
        while (!open_.empty()) {
            Element& element = open_.back();
            if (INode* const child = element.NextChild()) {
                if (!std::exchange(element.sharesLine, false)) {
                    StartLine(open_.size());
                }
                Begin(child->View());
            } else {
                End();
            }
        }
        return out_.Take();
    }

 private:
    /// An element whose end tag is still to come.
    struct Element {
        INode* NextChild() {
            return firstChild == nullptr ? children->Next() : std::exchange(firstChild, nullptr);
        }

        std::size_t nameAt;  // where its start tag has its name
        std::size_t nameSize;
        INodeList* children;
        INode* firstChild;  // still to come
        bool sharesLine;    // the next child has to follow the text at once, or it would change it
    };

    void StartLine(std::size_t depth) {
        if (indent_) {
            out_.Append("\n");
            for (; depth > 0; --depth) {
                out_.Append("  ");
            }
        }
    }

    std::string_view NameOf(const NodeView& view) {
        return view.form == TextForm::kUnseen ? name_ = view.node->GetName() : view.Name();
    }

    std::string_view TextOf(const NodeView& view) {
        if (view.form == TextForm::kUnseen) {
            return text_ = view.node->GetValue();
        }
        if (view.form == TextForm::kBytes) {
            text_.resize(zq::Base64Size(view.textSize));
            zq::WriteBase64(view.Text(), text_.data());
            return text_;
        }
        return view.Text();
    }

    static bool IsEncoded(const NodeView& view) {
        return view.form == TextForm::kUnseen ? view.node->IsEncoded()
                                              : view.form != TextForm::kPlain;
    }

    /// Writes an element whole, which saves 11 % of WriteXml, or up to its first child. That our
    /// nodes make no list for their leaves saves 5 %.
    void Begin(const NodeView& view) {
        out_.Append("<");
        const std::size_t nameAt = out_.Size();
        AppendName(NameOf(view), out_);
        const std::size_t nameSize = out_.Size() - nameAt;
        if (IsEncoded(view)) {
            out_.Append(kXmlEncodedMark);
        }
        const std::string_view text = TextOf(view);
        INodeList* const children = view.node->GetChildrenIfAny();
        INode* const firstChild = children == nullptr ? nullptr : children->First();
        if (text.empty() && firstChild == nullptr) {
            out_.Append("/>");
            return;
        }
        out_.Append(">");
        AppendText(text, out_);
        if (firstChild == nullptr) {
            AppendEndTag(nameAt, nameSize);
        } else {
            const bool hasText = text.find_first_not_of(kXmlWhiteSpace) != std::string_view::npos;
            open_.push_back({nameAt, nameSize, children, firstChild, hasText});
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
    quavera::TextBuffer out_;
    std::string name_;  // of the latest element, where they are not seen in place
    std::string text_;
    std::vector<Element> open_;
};

}  // namespace

std::string WriteXml(INode* node, bool indent) {
    return node == nullptr ? std::string() : Writer(indent).Write(node);
}

}  // namespace ZQXML
