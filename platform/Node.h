#ifndef QUAVERA_PLATFORM_NODE_H_
#define QUAVERA_PLATFORM_NODE_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/Arena.h"
#include "platform/XmlNode.h"

namespace ZQXML {

class Node;

/// The children of a node; made at the latest when it gets its first child or is asked for its
/// list.
class ChildList final : public INodeList {
 public:
    INode* First() override;
    INode* Next() override;

 private:
    friend class Node;

    void Append(Node* child);

    Node* first_ = nullptr;
    Node* last_ = nullptr;
    Node* current_ = nullptr;  // the walk's position; null ahead of First and behind the end
};

/// Our element. Elements that are added to a created node lie in its arena; a node appended to
/// another tree keeps its own. Every node in use by itself (referenced from outside, or attached
/// to a parent in another arena) holds a pin on its arena; the others live by their parent.
class Node final : public INode {
 public:
    /// A new node holds one reference for its maker, or none.
    Node(Arena* arena, bool isReferenced) : arena_(arena), state_(isReferenced ? kReference : 0) {}
    Node(const Node&) = delete;
    Node& operator=(const Node&) = delete;

    std::string GetName() override;
    std::string GetValue() override;
    int GetValueInt() override;
    INode* FindChild(const std::string& name) override;
    void AppendChild(INode* child) override;
    void AddChild(const std::string& name, const char* text) override;
    void AddChild(const std::string& name, const std::string& text) override;
    void AddChild(const std::string& name, int value) override;
    void AddChild(const std::string& name, unsigned long value) override;
    void AddChild(const std::string& name, bool value) override;
    void AddChildEncoded(const std::string& name, const std::string& text) override;
    std::string GetValueDecoded() override;
    INodeList* GetChildren() override;
    void Initialize(const std::string& name, const std::string& text) override;
    void Release() override;

    void AddRef() override;
    bool IsEncoded() override { return (state_ & kEncoded) != 0; }
    bool HasChildren() override { return FirstChild() != nullptr; }
    NodeView View(NodeCopies& copies) override;
    unsigned int ViewChildren(INode* last, NodeView* views, unsigned int room,
                              NodeCopies& copies) override;
    void AddText(std::string_view name, std::string_view text) override;
    void AddNumber(std::string_view name, int value) override;
    void AddEncoded(std::string_view name, std::string_view bytes) override;
    zq::auto_com<INode> CreateNode(std::string_view name) override;

    /// Adds a last child and returns it, borrowed.
    Node* AddElement(std::string_view name, std::string_view text);
    void SetNameAndText(std::string_view name, std::string_view text);
    void SetText(std::string_view text);
    void SetEncoded(bool encoded) { SetMarks(encoded ? kEncoded : 0); }

 private:
    friend class ChildList;

    // In one word, as nodes are what a tree's memory goes to.
    static constexpr std::uint32_t kEncoded = 1;
    static constexpr std::uint32_t kInBytes = 2;    // encoded, but kept as the bytes it stands for
    static constexpr std::uint32_t kReference = 4;  // held by a caller; the tree's own is parent_

    bool IsReferenced() const { return state_ >= kReference; }
    std::string_view NameText() const { return name_->View(); }
    bool IsInBytes() const { return (state_ & kInBytes) != 0; }
    void SetMarks(std::uint32_t marks) { state_ = (state_ & ~(kEncoded | kInBytes)) | marks; }
    /// The text, or the bytes that it stands for.
    std::string_view Stored() const { return {text_, textSize_}; }
    NodeView Look() {
        const std::string_view name = NameText();
        return {this, name.data(), name.size(), text_, textSize_, IsInBytes()};
    }
    Node* AddLeaf(const Name* name, std::string_view text);
    Node* AddUnexpected(std::string_view name, std::string_view text);
    Node* AddUnready(std::string_view name, std::string_view text);
    const Name* StoredName(std::string_view name);
    ChildList* Children();
    Node* FirstChild() const { return children_ == nullptr ? nullptr : children_->first_; }
    Node* NextInSubtree(const Node* root) const;
    bool IsInSubtreeOf(Node* root);
    void Attach(Node* child);
    void AttachCopy(INode* foreign);
    void CopyContents(INode* foreign);
    void UnlinkChildren(Node** dying);
    static void Destroy(Node* root);

    Arena* arena_;
    Node* parent_ = nullptr;
    Node* next_ = nullptr;  // the next sibling; in a tree that is being destroyed, the next to go
    ChildList* children_ = nullptr;
    const Name* name_ = &kNoName;
    const char* text_ = nullptr;
    std::uint32_t textSize_ = 0;
    std::uint32_t state_;  // marks, and kReference times the number of references
};

}  // namespace ZQXML

#endif  // QUAVERA_PLATFORM_NODE_H_
