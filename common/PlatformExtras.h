#ifndef QUAVERA_COMMON_PLATFORM_EXTRAS_H_
#define QUAVERA_COMMON_PLATFORM_EXTRAS_H_

#include <string>
#include <string_view>

#include "common/DirectText.h"
#include "common/TextConversion.h"
#include "platform/zqshared.h"
#ifndef QUAVERA_EXTERNAL_PLATFORM
#include "platform/Decimal.h"
#endif

/// What our own platform library offers beyond the interface that every platform has, for saving
/// work only. This is the one place that knows of it: built against another platform
/// (QUAVERA_EXTERNAL_PLATFORM), the same functions make do with the common interface.
namespace extras {

#ifdef QUAVERA_EXTERNAL_PLATFORM

/// The children of a node; null may stand for none.
inline ZQXML::INodeList* ChildrenOf(ZQXML::INode* node) {
    return node->GetChildren();
}

/// A walk over the children of an element.
class ChildWalk {
 public:
    /// `element` may be null, and then has no children.
    explicit ChildWalk(ZQXML::INode* element)
        : children_(element == nullptr ? nullptr : element->GetChildren()) {}

    /// Goes to the next child, the first one at first; false at the end, where it stays.
    bool Next() {
        if (children_ == nullptr) {
            return false;
        }
        child_ = isStarted_ ? children_->Next() : children_->First();
        isStarted_ = true;
        if (child_ == nullptr) {
            children_ = nullptr;
            return false;
        }
        name_ = child_->GetName();
        return true;
    }

    /// The child, its name and its text, all borrowed until the next call of Next or Text.
    ZQXML::INode* Node() const { return child_; }
    std::string_view Name() const { return name_; }
    std::string_view Text() { return text_ = child_->GetValue(); }
    /// The wide string that the text stands for, in base64 and UTF-8.
    std::wstring DisplayText() { return DecodeDisplayText(Text()); }

 private:
    ZQXML::INodeList* children_;
    ZQXML::INode* child_ = nullptr;
    bool isStarted_ = false;
    std::string name_;
    std::string text_;
};

/// The decimal text of a number.
template <class Number>
class Decimal {
 public:
    explicit Decimal(Number value) : text_(zq::ToString(value)) {}
    std::string_view View() const { return text_; }

 private:
    std::string text_;
};

inline void AddCString(ZQXML::INode* node, std::string_view name, const char* text) {
    node->AddChild(std::string(name), text);
}

inline void AddString(ZQXML::INode* node, std::string_view name, const std::string& text) {
    node->AddChild(std::string(name), text);
}

inline void AddNumber(ZQXML::INode* node, std::string_view name, int value) {
    node->AddChild(std::string(name), value);
}

inline void AddEncoded(ZQXML::INode* node, std::string_view name, std::string& bytes) {
    node->AddChildEncoded(std::string(name), base64EncodeString(&bytes));
}

inline zq::auto_com<ZQXML::INode> CreateNodeFor(ZQXML::INode* /*parent*/, std::string_view name) {
    auto node = ZQXML::CreateXmlNode();
    node->Initialize(std::string(name), "");
    return node;
}

#else

/// The same without a list being made for a node that has none.
inline ZQXML::INodeList* ChildrenOf(ZQXML::INode* node) {
    return node->HasChildren() ? node->GetChildren() : nullptr;
}

/// A walk over the children of an element, which looks at as many of them in a call as most records
/// have: the walk takes a third of the instructions that it takes child by child.
class ChildWalk {
 public:
    explicit ChildWalk(ZQXML::INode* element) : element_(element) {}

    bool Next() {
        ++view_;
        return view_ < end_ || More();
    }

    ZQXML::INode* Node() const { return view_->node; }
    std::string_view Name() const { return view_->Name(); }
    std::string_view Text() {
        return view_->isInBytes ? view_->node->View(copies_).Text() : view_->Text();
    }
    std::wstring DisplayText() const {
        return view_->isInBytes ? WidenDisplayText(view_->Text())
                                : DecodeDisplayText(view_->Text());
    }

 private:
    static constexpr unsigned int kRoom = 16;

    bool More() {
        view_ = views_;
        end_ = views_;
        if (element_ == nullptr) {
            return false;
        }
        const unsigned int count = element_->ViewChildren(last_, views_, kRoom, copies_);
        end_ += count;
        if (count != 1 && count < kRoom) {
            element_ = nullptr;  // these are the last ones
            return count > 0;
        }
        last_ = end_[-1].node;
        return true;
    }

    ZQXML::INode* element_;
    ZQXML::INode* last_ = nullptr;
    const ZQXML::NodeView* view_ = views_;
    const ZQXML::NodeView* end_ = views_;
    ZQXML::NodeView views_[kRoom];
    ZQXML::NodeCopies copies_;
};

using zq::Decimal;

inline void AddCString(ZQXML::INode* node, std::string_view name, const char* text) {
    node->AddText(name, text);
}

inline void AddString(ZQXML::INode* node, std::string_view name, const std::string& text) {
    node->AddText(name, text);
}

inline void AddNumber(ZQXML::INode* node, std::string_view name, int value) {
    node->AddNumber(name, value);
}

/// Adds a last child with the base64 form of `bytes`.
inline void AddEncoded(ZQXML::INode* node, std::string_view name, const std::string& bytes) {
    node->AddEncoded(name, bytes);
}

/// A new node of that name that is meant to be appended below `parent`.
inline zq::auto_com<ZQXML::INode> CreateNodeFor(ZQXML::INode* parent, std::string_view name) {
    return parent->CreateNode(name);
}

#endif

}  // namespace extras

#endif  // QUAVERA_COMMON_PLATFORM_EXTRAS_H_
