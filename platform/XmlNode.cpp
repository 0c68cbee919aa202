#include "platform/XmlNode.h"

#include "platform/Base64Encoder.h"

// The operations with a body of their own. Here, not in the header: a compiler that sees them there
// tries them first at every call, though hardly any node has them.

namespace ZQXML {

void INode::AddRef() {}

bool INode::IsEncoded() {
    return false;
}

bool INode::HasChildren() {
    INodeList* const children = GetChildren();
    return children != nullptr && children->First() != nullptr;
}

NodeView INode::View(NodeCopies& copies) {
    copies.name = GetName();
    copies.text = GetValue();
    return {this, copies.name.data(), copies.name.size(), copies.text.data(), copies.text.size(),
            false};
}

unsigned int INode::ViewChildren(INode* last, NodeView* views, unsigned int /*room*/,
                                 NodeCopies& copies) {
    INodeList* const children = GetChildren();
    if (children == nullptr) {
        return 0;
    }
    INode* const child = last == nullptr ? children->First() : children->Next();
    if (child == nullptr) {
        return 0;
    }
    *views = child->View(copies);
    return 1;
}

void INode::AddText(std::string_view name, std::string_view text) {
    AddChild(std::string(name), std::string(text));
}

void INode::AddNumber(std::string_view name, int value) {
    AddChild(std::string(name), value);
}

void INode::AddEncoded(std::string_view name, std::string_view bytes) {
    AddChildEncoded(std::string(name), zq::EncodeBase64(bytes));
}

zq::auto_com<INode> INode::CreateNode(std::string_view name) {
    auto node = CreateXmlNode();
    node->Initialize(std::string(name), "");
    return node;
}

}  // namespace ZQXML
