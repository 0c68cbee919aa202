#ifndef QUAVERA_COMMON_EXTERNAL_PLATFORM_NODES_H_
#define QUAVERA_COMMON_EXTERNAL_PLATFORM_NODES_H_

#include <cstddef>
#include <string>
#include <string_view>

#include "common/BorrowedText.h"
#include "platform/zqshared.h"

namespace quavera {

enum class TextForm { kPlain, kBase64, kBytes, kNumber, kUnseen };

/// Nothing but the node is ever seen.
struct NodeView {
    std::string_view Name() const { return {nameData, nameSize}; }
    std::string_view Text() const { return {}; }

    ZQXML::INode* node;
    const char* nameData;
    std::size_t nameSize;
    TextForm form;
};

/// common/NodeAccess.h by what every platform library has.
struct Nodes {
    using List = ZQXML::INodeList;
    using Node = ZQXML::INode;
    using Text = std::string_view;

    static List* ChildrenOf(Node* node) { return node->GetChildren(); }
    static unsigned int ViewFirst(List* list, NodeView* views, unsigned int /*room*/) {
        return ViewOne(list->First(), views);
    }
    static unsigned int ViewNext(List* list, NodeView* views, unsigned int /*room*/) {
        return ViewOne(list->Next(), views);
    }
    static unsigned int ViewOne(Node* child, NodeView* views) {
        *views = {child, nullptr, 0, TextForm::kUnseen};
        return child == nullptr ? 0 : 1;
    }
    static int NumberOf(const NodeView& view) { return view.node->GetValueInt(); }
    static std::size_t CountHint(List* /*list*/) { return 0; }
    static void AddCString(Node* node, Text name, const char* text) {
        node->AddChild(std::string(name), text);
    }
    static void AddText(Node* node, Text name, const std::string& text) {
        node->AddChild(std::string(name), text);
    }
    static void AddNumber(Node* node, Text name, int value) {
        node->AddChild(std::string(name), value);
    }
    static void AddEncoded(Node* node, Text name, const std::string& bytes) {
        node->AddChildEncoded(std::string(name), EncodeBase64(bytes));
    }
    template <class Number>
    static void AppendDecimal(Number value, TextBuffer* out) {
        out->Append(zq::ToString(value));
    }
    static zq::auto_com<Node> NewChild(Node* /*parent*/, Text name) {
        auto node = ZQXML::CreateXmlNode();
        node->Initialize(std::string(name), "");
        return node;
    }
};

}  // namespace quavera

#endif  // QUAVERA_COMMON_EXTERNAL_PLATFORM_NODES_H_
