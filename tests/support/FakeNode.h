#ifndef QUAVERA_TESTS_SUPPORT_FAKE_NODE_H_
#define QUAVERA_TESTS_SUPPORT_FAKE_NODE_H_

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "platform/zqshared.h"

/// A second implementation of the node interface: just the 15 operations, in the plainest way.
/// It shows what code under test does with a node that is not the platform's own.
///
/// Children may be of any implementation. Trees are released recursively, so keep them small.
class FakeNode : public ZQXML::INode {
 public:
    // Kept out of line: what a compiler sees of the operations through it, it warns about for the
    // null that every owning pointer may hold.
    [[gnu::noinline]] static zq::auto_com<FakeNode> Create(std::string name = {},
                                                           std::string text = {}) {
        return zq::auto_com<FakeNode>(new FakeNode(std::move(name), std::move(text)));
    }

    /// A copy of a tree of any implementation.
    static zq::auto_com<ZQXML::INode> Copy(ZQXML::INode* tree) {
        zq::auto_com<ZQXML::INode> copy(new FakeNode(tree->GetName(), tree->GetValue()));
        ZQXML::INodeList* const children = tree->GetChildren();
        for (ZQXML::INode* child = children->First(); child != nullptr; child = children->Next()) {
            copy->AppendChild(Copy(child).get());
        }
        return copy;
    }

    FakeNode(const FakeNode&) = delete;
    FakeNode& operator=(const FakeNode&) = delete;

    /// The number of nodes of this class that exist.
    static int LiveCount() { return liveCount; }

    std::string GetName() override { return name_; }
    std::string GetValue() override { return text_; }
    int GetValueInt() override { return Number(text_); }

    ZQXML::INode* FindChild(const std::string& name) override {
        const auto found =
            std::find_if(children_.nodes.begin(), children_.nodes.end(),
                         [&name](ZQXML::INode* child) { return child->GetName() == name; });
        return found == children_.nodes.end() ? nullptr : *found;
    }

    void AppendChild(ZQXML::INode* child) override {
        if (child == nullptr) {
            return;
        }
        children_.nodes.emplace_back() = child;  // first, as it may throw
        if (auto* const own = dynamic_cast<FakeNode*>(child)) {
            ++own->references_;
        } else {
            child->AddRef();
        }
    }

    void AddChild(const std::string& name, const char* text) override {
        Add(name, text == nullptr ? "" : text);
    }
    void AddChild(const std::string& name, const std::string& text) override { Add(name, text); }
    void AddChild(const std::string& name, int value) override { Add(name, std::to_string(value)); }
    void AddChild(const std::string& name, unsigned long value) override {
        Add(name, std::to_string(value & 0xFFFFFFFFUL));
    }
    void AddChild(const std::string& name, bool value) override {
        Add(name, value ? TRUE_STRING : "false");
    }
    void AddChildEncoded(const std::string& name, const std::string& text) override {
        Add(name, text);
    }

    std::string GetValueDecoded() override { return text_; }
    ZQXML::INodeList* GetChildren() override { return &children_; }

    void Initialize(const std::string& name, const std::string& text) override {
        name_ = name;
        text_ = text;
    }

    void Release() override {
        if (--references_ == 0) {
            delete this;
        }
    }

 private:
    struct List final : public ZQXML::INodeList {
        ZQXML::INode* First() override {
            at = 0;
            return Current();
        }
        ZQXML::INode* Next() override {
            at += at < nodes.size() ? 1U : 0U;
            return Current();
        }
        ZQXML::INode* Current() const { return at < nodes.size() ? nodes[at] : nullptr; }

        std::vector<ZQXML::INode*> nodes;
        std::size_t at = 0;
    };

    FakeNode(std::string name, std::string text) : name_(std::move(name)), text_(std::move(text)) {
        ++liveCount;
    }
    ~FakeNode() override {
        for (ZQXML::INode* const child : children_.nodes) {
            child->Release();
        }
        --liveCount;
    }

    void Add(const std::string& name, const std::string& text) {
        const zq::auto_com<FakeNode> child = Create(name, text);
        AppendChild(child.get());
    }

    static int Number(const std::string& text) {
        std::size_t at = text.find_first_not_of(' ');
        if (at == std::string::npos) {
            return 0;
        }
        const bool isNegative = text[at] == '-';
        at += isNegative || text[at] == '+' ? 1U : 0U;
        std::uint32_t value = 0;
        for (; at < text.size() && text[at] >= '0' && text[at] <= '9'; ++at) {
            value = value * 10U + static_cast<std::uint32_t>(text[at] - '0');
        }
        return static_cast<int>(isNegative ? 0U - value : value);
    }

    inline static int liveCount = 0;

    std::string name_;
    std::string text_;
    List children_;
    int references_ = 1;
};

#endif  // QUAVERA_TESTS_SUPPORT_FAKE_NODE_H_
