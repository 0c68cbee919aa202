#ifndef QUAVERA_COMMON_BUNDLED_PLATFORM_NODES_H_
#define QUAVERA_COMMON_BUNDLED_PLATFORM_NODES_H_

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/Decimal.h"
#include "platform/zqshared.h"

/// common/NodeAccess.h by the further operations of the bundled platform library.
namespace quavera::nodes {

using zq::Decimal;
using ZQXML::NodeView;
using ZQXML::TextForm;

inline ZQXML::INodeList* ChildrenOf(ZQXML::INode* node) {
    return node->GetChildrenIfAny();
}

inline unsigned int ViewFirst(ZQXML::INodeList* list, NodeView* views, unsigned int room) {
    return list->ViewFirst(views, room);
}

inline unsigned int ViewNext(ZQXML::INodeList* list, NodeView* views, unsigned int room) {
    return list->ViewNext(views, room);
}

inline std::size_t CountHint(ZQXML::INodeList* list) {
    return list->CountHint();
}

inline void AddCString(ZQXML::INode* node, std::string_view name, const char* text) {
    node->AddCString(name, text);
}

inline void AddText(ZQXML::INode* node, std::string_view name, const std::string& text) {
    node->AddText(name, text);
}

inline void AddNumber(ZQXML::INode* node, std::string_view name, int value) {
    node->AddNumber(name, value);
}

inline void AddUnsigned(ZQXML::INode* node, std::string_view name, unsigned long value) {
    node->AddUnsigned(name, value);
}

inline void AddFlag(ZQXML::INode* node, std::string_view name, bool value) {
    node->AddFlag(name, value);
}

inline void AddEncoded(ZQXML::INode* node, std::string_view name, const std::string& bytes) {
    node->AddEncoded(name, bytes);
}

inline zq::auto_com<ZQXML::INode> NewChild(ZQXML::INode* parent, std::string_view name) {
    return parent->CreateNode(name);
}

}  // namespace quavera::nodes

#endif  // QUAVERA_COMMON_BUNDLED_PLATFORM_NODES_H_
