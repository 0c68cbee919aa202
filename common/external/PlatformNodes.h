#ifndef QUAVERA_COMMON_EXTERNAL_PLATFORM_NODES_H_
#define QUAVERA_COMMON_EXTERNAL_PLATFORM_NODES_H_

#include <cstddef>
#include <string>
#include <string_view>

#include "common/BorrowedText.h"
#include "platform/zqshared.h"

/// common/NodeAccess.h by what every platform library has.
namespace quavera::nodes {

enum class TextForm { kPlain, kBase64, kBytes, kUnseen };

/// Nothing but the node is ever seen.
struct NodeView {
    std::string_view Name() const { return {nameData, nameSize}; }
    std::string_view Text() const { return {}; }

    ZQXML::INode* node;
    const char* nameData;
    std::size_t nameSize;
    TextForm form;
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

inline ZQXML::INodeList* ChildrenOf(ZQXML::INode* node) {
    return node->GetChildren();
}

inline unsigned int ViewOne(ZQXML::INode* child, NodeView* views) {
    *views = {child, nullptr, 0, TextForm::kUnseen};
    return child == nullptr ? 0 : 1;
}

inline unsigned int ViewFirst(ZQXML::INodeList* list, NodeView* views, unsigned int /*room*/) {
    return ViewOne(list->First(), views);
}

inline unsigned int ViewNext(ZQXML::INodeList* list, NodeView* views, unsigned int /*room*/) {
    return ViewOne(list->Next(), views);
}

inline std::size_t CountHint(ZQXML::INodeList* /*list*/) {
    return 0;
}

inline void AddCString(ZQXML::INode* node, std::string_view name, const char* text) {
    node->AddChild(std::string(name), text);
}

inline void AddText(ZQXML::INode* node, std::string_view name, const std::string& text) {
    node->AddChild(std::string(name), text);
}

inline void AddNumber(ZQXML::INode* node, std::string_view name, int value) {
    node->AddChild(std::string(name), value);
}

inline void AddUnsigned(ZQXML::INode* node, std::string_view name, unsigned long value) {
    node->AddChild(std::string(name), value);
}

inline void AddFlag(ZQXML::INode* node, std::string_view name, bool value) {
    node->AddChild(std::string(name), value);
}

inline void AddEncoded(ZQXML::INode* node, std::string_view name, const std::string& bytes) {
    node->AddChildEncoded(std::string(name), EncodeBase64(bytes));
}

inline zq::auto_com<ZQXML::INode> NewChild(ZQXML::INode* /*parent*/, std::string_view name) {
    auto node = ZQXML::CreateXmlNode();
    node->Initialize(std::string(name), "");
    return node;
}

}  // namespace quavera::nodes

#endif  // QUAVERA_COMMON_EXTERNAL_PLATFORM_NODES_H_
