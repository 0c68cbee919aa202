#ifndef QUAVERA_TESTS_SUPPORT_EMPTY_NODE_H_
#define QUAVERA_TESTS_SUPPORT_EMPTY_NODE_H_

#include <string>

#include "platform/XmlNode.h"

/// A node that has nothing, takes nothing and offers no list of children: a base for nodes of
/// which a test needs one or two operations. Owned by the test; references do not matter.
class EmptyNode : public ZQXML::INode {
 public:
    EmptyNode() = default;
    EmptyNode(const EmptyNode&) = delete;
    EmptyNode& operator=(const EmptyNode&) = delete;
    ~EmptyNode() override = default;

    std::string GetName() override { return {}; }
    std::string GetValue() override { return {}; }
    int GetValueInt() override { return 0; }
    ZQXML::INode* FindChild(const std::string& /*name*/) override { return nullptr; }
    void AppendChild(ZQXML::INode* /*child*/) override {}
    void AddChild(const std::string& /*name*/, const char* /*text*/) override {}
    void AddChild(const std::string& /*name*/, const std::string& /*text*/) override {}
    void AddChild(const std::string& /*name*/, int /*value*/) override {}
    void AddChild(const std::string& /*name*/, unsigned long /*value*/) override {}
    void AddChild(const std::string& /*name*/, bool /*value*/) override {}
    void AddChildEncoded(const std::string& /*name*/, const std::string& /*text*/) override {}
    std::string GetValueDecoded() override { return {}; }
    ZQXML::INodeList* GetChildren() override { return nullptr; }
    void Initialize(const std::string& /*name*/, const std::string& /*text*/) override {}
    void Release() override {}
};

#endif  // QUAVERA_TESTS_SUPPORT_EMPTY_NODE_H_
