#include "platform/XmlNode.h"

#include "platform/Base64Encoder.h"

// The operations with a body of their own. Here, not in the header: a compiler that sees them there
// tries them first at every call, though hardly any node has them.

namespace ZQXML {
namespace {

unsigned int ViewOne(INode* child, NodeView* views) {
    if (child == nullptr) {
        return 0;
    }
    *views = child->INode::View();
    return 1;
}

}  // namespace

unsigned int INodeList::ViewFirst(NodeView* views, unsigned int /*room*/) {
    return ViewOne(First(), views);
}

unsigned int INodeList::ViewNext(NodeView* views, unsigned int /*room*/) {
    return ViewOne(Next(), views);
}

std::size_t INodeList::CountHint() {
    return 0;
}

void INode::AddRef() {}

bool INode::IsEncoded() {
    return false;
}

INodeList* INode::GetChildrenIfAny() {
    return GetChildren();
}

NodeView INode::View() {
    NodeView view{};
    view.node = this;
    view.form = TextForm::kUnseen;
    return view;
}

void INode::AddCString(std::string_view name, const char* text) {
    AddChild(std::string(name), text);
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
