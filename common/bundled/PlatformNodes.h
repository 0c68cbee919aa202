#ifndef QUAVERA_COMMON_BUNDLED_PLATFORM_NODES_H_
#define QUAVERA_COMMON_BUNDLED_PLATFORM_NODES_H_

#include <cstddef>
#include <string>
#include <string_view>

#include "base/TextBuffer.h"
#include "platform/Decimal.h"
#include "platform/zqshared.h"

namespace quavera {

using ZQXML::NodeView;
using ZQXML::TextForm;

/// common/NodeAccess.h by the further operations of the bundled platform library.
struct Nodes {
    using List = ZQXML::INodeList;
    using Node = ZQXML::INode;
    using Text = std::string_view;

    static List* ChildrenOf(Node* node) { return node->GetChildrenIfAny(); }
    static unsigned int ViewFirst(List* list, NodeView* views, unsigned int room) {
        return list->ViewFirst(views, room);
    }
    static unsigned int ViewNext(List* list, NodeView* views, unsigned int room) {
        return list->ViewNext(views, room);
    }
    static int NumberOf(const NodeView& view) {
        return view.form == TextForm::kNumber  ? view.Number()
               : view.form == TextForm::kPlain ? zq::ReadDecimal(view.Text())
                                               : view.node->GetValueInt();
    }
    static std::size_t CountHint(List* list) { return list->CountHint(); }
    static void AddCString(Node* node, Text name, const char* text) {
        node->AddCString(name, text);
    }
    static void AddText(Node* node, Text name, const std::string& text) {
        node->AddText(name, text);
    }
    static void AddNumber(Node* node, Text name, int value) { node->AddNumber(name, value); }
    static void AddEncoded(Node* node, Text name, const std::string& bytes) {
        node->AddEncoded(name, bytes);
    }
    template <class Number>
    static void AppendDecimal(Number value, TextBuffer* out) {
        out->SetEnd(zq::PutDecimal(value, out->Reserve(zq::kMostDecimal<Number>)));
    }
    static zq::auto_com<Node> NewChild(Node* parent, Text name) { return parent->CreateNode(name); }
};

}  // namespace quavera

#endif  // QUAVERA_COMMON_BUNDLED_PLATFORM_NODES_H_
