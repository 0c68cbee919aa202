#include "platform/DirectXml.h"

#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>
#include <utility>

#include "base/SmallText.h"
#include "base/Speed.h"
#include "platform/Node.h"
#include "platform/OrdinaryText.h"
#include "platform/XmlCharacters.h"
#include "platform/XmlText.h"

namespace ZQXML {
namespace {

/// Each step of reading takes the place where it begins and returns the one where it ends; null if
/// the text is not one for this reader.
class DirectReader {
 public:
    explicit DirectReader(std::string_view text)
        : end_(text.data() + text.size()),
          holder_(CreateXmlNode()),
          parent_(static_cast<Node*>(holder_.get())),
          arena_(parent_->TreeArena()) {}

    zq::auto_com<INode> Read(const char* at) {
        at = SkipWhiteSpace(at);
        if (!IsAt(at, '<')) {
            return nullptr;
        }
        do {
            if (!IsAt(at, '<')) {
                at = ReadUnusualText(at);  // after an element: it stands in no tree
            } else {
                at = depth_ > 0 && IsAtEndTag(at) ? ReadEndTag(at) : ReadElement(at + 1);
            }
        } while (at != nullptr && depth_ > 0);
        if (at == nullptr || SkipWhiteSpace(at) != end_) {
            return nullptr;
        }
        Node* const root = parent_->FirstChild();
        root->AddRef();
        return zq::auto_com<INode>(root);
    }

 private:
    std::size_t Left(const char* at) const { return static_cast<std::size_t>(end_ - at); }
    std::string_view Rest(const char* at) const { return {at, Left(at)}; }
    bool IsAt(const char* at, char character) const { return at != end_ && *at == character; }
    bool IsAtEndTag(const char* at) const { return Left(at) >= 2 && at[1] == '/'; }

    QUAVERA_INLINE_FOR_SPEED bool StartsWith(const char* at, std::string_view expected) const {
        return Left(at) >= expected.size() &&
               quavera::IsSameByWords(at, expected.data(), expected.size());
    }

    const char* SkipWhiteSpace(const char* at) const {
        while (at != end_ && kXmlWhiteSpace.find(*at) != std::string_view::npos) {
            ++at;
        }
        return at;
    }

    /// What follows the "<" of a start tag, and the element whole, or up to its first child.
    const char* ReadElement(const char* at) {
        const Name* const name = ReadName(at);
        if (name == nullptr) {
            return nullptr;
        }
        at += name->size;
        if (IsAt(at, '>')) {
            return ReadPlain(at + 1, name);
        }
        const bool isEncoded = StartsWith(at, kXmlEncodedMark);
        at += isEncoded ? kXmlEncodedMark.size() : 0;
        if (StartsWith(at, "/>")) {
            Add(name, {}, isEncoded);
            return at + 2;
        }
        return isEncoded && IsAt(at, '>') ? ReadEncoded(at + 1, name) : nullptr;
    }

    /// Null where there is none. Most often, it is the name that is expected, which is compared
    /// with the text in place: saves 27 % of ParseXml.
    const Name* ReadName(const char* at) {
        const Name* const expected = arena_.NextName();
        if (expected != nullptr && StartsWith(at, expected->View()) &&
            IsNameEnd(at + expected->size)) {
            return arena_.UseNextName();
        }
        return ReadOtherName(at);
    }

    [[gnu::noinline]] const Name* ReadOtherName(const char* at) {
        const std::size_t size =
            at != end_ && MayStand(*at, kAtNameStart) ? CountNameCharacters(Rest(at)) : 0;
        return size == 0 ? nullptr : arena_.FindOrAddName({at, size});
    }

    bool IsNameEnd(const char* at) const {
        return IsAt(at, '>') || at == end_ || !MayStand(*at, kInName);
    }

    /// The text of an element and its end tag, or the text up to its first child.
    QUAVERA_INLINE_FOR_SPEED const char* ReadPlain(const char* at, const Name* name) {
        // Most texts are seen in place, and copied once.
        const char* const end = SkipOrdinaryText(at, end_);
        return IsAt(end, '<') ? ReadEnd(end, name, {at, static_cast<std::size_t>(end - at)}, false)
                              : ReadUnusual(at, name, false);
    }

    /// The same of an element that is marked. A text as we write it is looked at by its decoder
    /// alone.
    const char* ReadEncoded(const char* at, const Name* name) {
        const auto* const end = static_cast<const char*>(std::memchr(at, '<', Left(at)));
        const bool isWhole = end != nullptr && StartsWith(end, name->EndTag());
        return isWhole && parent_->AddBase64(name, {at, static_cast<std::size_t>(end - at)})
                   ? end + name->EndTag().size()
                   : ReadUnusual(at, name, true);
    }

    [[gnu::noinline]] const char* ReadUnusual(const char* at, const Name* name, bool isEncoded) {
        at = ReadUnusualText(at);
        return at == nullptr ? nullptr : ReadEnd(at, name, text_, isEncoded);
    }

    /// What follows the text of an element: its end tag, or something to be read as its content.
    const char* ReadEnd(const char* at, const Name* name, std::string_view text, bool isEncoded) {
        if (StartsWith(at, name->EndTag())) {
            Add(name, text, isEncoded);
            return at + name->EndTag().size();
        }
        const bool isLayout = text.find_first_not_of(kXmlWhiteSpace) == std::string_view::npos;
        parent_ = Add(name, isLayout ? std::string_view() : text, isEncoded);
        // Here one level below what may be read: whether there is one more is for expat to find
        // out.
        return ++depth_ < kMaxXmlDepth ? at : nullptr;
    }

    Node* Add(const Name* name, std::string_view text, bool isEncoded) {
        Node* const node = parent_->AddElement(name, text);
        if (isEncoded) {
            node->MarkEncoded(true);
        }
        return node;
    }

    const char* ReadEndTag(const char* at) {
        const std::string_view tag = parent_->StoredName().EndTag();
        parent_ = parent_->Parent();
        --depth_;
        return StartsWith(at, tag) ? at + tag.size() : nullptr;
    }

    /// Character data of any kind, up to the next "<", into `text_`.
    [[gnu::noinline]] const char* ReadUnusualText(const char* at) {
        text_.clear();
        do {
            const std::size_t size = CountPlainText(Rest(at));
            text_.append(at, size);
            at += size;
        } while (ReadReference(&at));
        return IsAt(at, '<') ? at : nullptr;
    }

    bool ReadReference(const char** at) {
        for (const XmlReference& reference : kXmlReferences) {
            if (StartsWith(*at, reference.text)) {
                text_ += reference.character;
                *at += reference.text.size();
                return true;
            }
        }
        return false;
    }

    const char* const end_;
    zq::auto_com<INode> holder_;  // of the root, which is read like any other element
    Node* parent_;                // the innermost element whose end tag is still to come, or that
    Arena& arena_;
    std::size_t depth_ = 0;  // the number of elements whose end tag is still to come
    std::string text_;       // of the latest element, where it is not written as it is
};

}  // namespace

zq::auto_com<INode> ReadXmlDirectly(std::string_view text) {
    return DirectReader(text).Read(text.data());
}

}  // namespace ZQXML
