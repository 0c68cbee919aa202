#include "platform/DirectXml.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "platform/Node.h"
#include "platform/XmlCharacters.h"
#include "platform/XmlText.h"

namespace ZQXML {
namespace {

/// Reads from the front of a text. Each step that reads tells whether it found what it can read; if
/// not, the text is not one for this reader, and what is left of it of no use.
class DirectReader {
 public:
    explicit DirectReader(std::string_view text) : rest_(text) {}

    zq::auto_com<INode> Read() {
        SkipWhiteSpace();
        bool isPlain = Skip("<") && ReadElement();
        while (isPlain && !open_.empty()) {
            isPlain = Skip("</") ? ReadEndTag() : Skip("<") && ReadElement();
        }
        SkipWhiteSpace();
        return isPlain && rest_.empty() ? std::move(root_) : nullptr;
    }

 private:
    /// An element whose end tag is still to come.
    struct Element {
        Node* node;
        std::string_view name;
    };

    bool Skip(std::string_view expected) {
        const bool isThere = rest_.substr(0, expected.size()) == expected;
        if (isThere) {
            rest_.remove_prefix(expected.size());
        }
        return isThere;
    }

    void SkipWhiteSpace() {
        rest_.remove_prefix(std::min(rest_.find_first_not_of(kXmlWhiteSpace), rest_.size()));
    }

    std::string_view Take(std::size_t size) {
        const std::string_view taken = rest_.substr(0, size);
        rest_.remove_prefix(size);
        return taken;
    }

    /// An element whole, which saves 2 % of ParseXml, or up to its first child. Its "<" has been
    /// read.
    bool ReadElement() {
        if (rest_.empty() || !MayStand(rest_[0], kAtNameStart) || open_.size() == kMaxXmlDepth) {
            return false;
        }
        const std::string_view name = Take(CountNameCharacters(rest_));
        const bool isEncoded = Skip(kXmlEncodedMark);
        if (Skip("/>")) {
            Add(name, {}, isEncoded);
            return SkipText();
        }
        std::string_view text;
        if (!Skip(">") || !ReadText(&text)) {
            return false;
        }
        if (Skip("</")) {
            Add(name, text, isEncoded);
            return Skip(name) && Skip(">") && SkipText();
        }
        const bool isLayout = text.find_first_not_of(kXmlWhiteSpace) == std::string_view::npos;
        open_.push_back({Add(name, isLayout ? std::string_view() : text, isEncoded), name});
        return true;
    }

    /// Its "</" has been read.
    bool ReadEndTag() {
        if (!Skip(open_.back().name) || !Skip(">")) {
            return false;
        }
        open_.pop_back();
        return SkipText();
    }

    Node* Add(std::string_view name, std::string_view text, bool isEncoded) {
        Node* const node = root_ ? open_.back().node->AddElement(name, text) : AddRoot(name, text);
        node->MarkEncoded(isEncoded);
        return node;
    }

    Node* AddRoot(std::string_view name, std::string_view text) {
        root_ = CreateXmlNode();
        Node* const node = static_cast<Node*>(root_.get());
        node->SetNameAndText(name, text);
        return node;
    }

    /// Character data after an element: it stands in no tree.
    bool SkipText() {
        std::string_view text;
        return open_.empty() || ReadText(&text);
    }

    /// Character data, up to the next "<": most texts are seen in place, which saves 25 % of
    /// ParseXml.
    bool ReadText(std::string_view* text) {
        *text = Take(CountPlainText(rest_));
        if (IsAtTag()) {
            return true;
        }
        text_ = *text;
        while (ReadReference()) {
            text_ += Take(CountPlainText(rest_));
        }
        *text = text_;
        return IsAtTag();
    }

    bool IsAtTag() const { return !rest_.empty() && rest_[0] == '<'; }

    bool ReadReference() {
        for (const XmlReference& reference : kXmlReferences) {
            if (Skip(reference.text)) {
                text_ += reference.character;
                return true;
            }
        }
        return false;
    }

    std::string_view rest_;
    zq::auto_com<INode> root_;
    std::vector<Element> open_;
    std::string text_;  // of the latest element, where it is not written as it is
};

}  // namespace

zq::auto_com<INode> ReadXmlDirectly(std::string_view text) {
    return DirectReader(text).Read();
}

}  // namespace ZQXML
