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
    unsigned int ViewFirst(NodeView* views, unsigned int room) override;
    unsigned int ViewNext(NodeView* views, unsigned int room) override;
    std::size_t CountHint() override;

 private:
    friend class Node;

    unsigned int ViewFrom(Node* child, NodeView* views, unsigned int room);

    void Append(Node* child);

    Node* first_ = nullptr;
    Node* last_ = nullptr;
    Node* current_ = nullptr;  // the walk's position; null ahead of First and at the end
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

    std::string GetName() override { return std::string(NameText()); }
    std::string GetValue() override;
    int GetValueInt() override;
    INode* FindChild(const std::string& name) override;
    void AppendChild(INode* child) override;
    void AddChild(const std::string& name, const char* text) override { AddCString(name, text); }
    void AddChild(const std::string& name, const std::string& text) override {
        AddElement(name, text);
    }
    void AddChild(const std::string& name, int value) override { AddNumber(name, value); }
    void AddChild(const std::string& name, unsigned long value) override;
    void AddChild(const std::string& name, bool value) override;
    void AddChildEncoded(const std::string& name, const std::string& text) override;
    std::string GetValueDecoded() override;
    INodeList* GetChildren() override { return Children(); }
    void Initialize(const std::string& name, const std::string& text) override;
    void Release() override;

    void AddRef() override;
    bool IsEncoded() override { return Form() == TextForm::kBase64 || Form() == TextForm::kBytes; }
    INodeList* GetChildrenIfAny() override { return FirstChild() == nullptr ? nullptr : children_; }
    NodeView View() override;
    void AddCString(std::string_view name, const char* text) override;
    void AddText(std::string_view name, std::string_view text) override;
    void AddNumber(std::string_view name, int value) override;
    void AddEncoded(std::string_view name, std::string_view bytes) override;
    zq::auto_com<INode> CreateNode(std::string_view name) override;

    const Name& StoredName() const { return *name_; }
    TextForm Form() const { return static_cast<TextForm>(state_ & kFormMask); }
    /// What is kept of the text: itself, or the bytes that it stands for. Not of a number.
    std::string_view Content() const { return {content_, contentSize_}; }
    /// Of a number only.
    std::int32_t Number() const { return static_cast<std::int32_t>(contentSize_); }
    Node* Parent() const { return parent_; }
    Node* FirstChild() const { return children_ == nullptr ? nullptr : children_->first_; }
    Node* NextSibling() const { return next_; }
    /// The element after this one in document order within the subtree of `root`.
    Node* NextInSubtree(const Node* root) const {
        if (Node* const child = FirstChild()) {
            return child;
        }
        const Node* node = this;
        while (node != root && node->next_ == nullptr) {
            node = node->parent_;
        }
        return node == root ? nullptr : node->next_;
    }

    Arena& TreeArena() { return *arena_; }

    /// Adds a last child and returns it, borrowed.
    Node* AddElement(std::string_view name, std::string_view text);
    /// The same, with a name of the tree's arena.
    Node* AddElement(const Name* name, std::string_view text);
    /// The same, for a text as `zq::WriteBase64` writes it: marked as encoded, and kept as the
    /// bytes that it stands for, which takes less memory and is what readers are after: saves 10 %
    /// of the whole way. False, with nothing added, for any other text.
    bool AddBase64(const Name* name, std::string_view text);
    void SetNameAndText(std::string_view name, std::string_view text);
    void SetName(const Name* name) { name_ = name; }
    void SetText(std::string_view text);
    /// Says what the text is: plain, or base64.
    void MarkEncoded(bool isEncoded) { SetForm(isEncoded ? TextForm::kBase64 : TextForm::kPlain); }

 private:
    friend class ChildList;

    // The text's form and the references share a word: saves 9 % of a tree's heap.
    static constexpr std::uint32_t kFormMask = 3;
    static constexpr std::uint32_t kReference = 4;  // held by a caller; the tree's own is parent_

    bool IsReferenced() const { return state_ >= kReference; }
    std::string_view NameText() const { return name_->View(); }
    void SetForm(TextForm form) {
        state_ = (state_ & ~kFormMask) | static_cast<std::uint32_t>(form);
    }
    Node* AddLeaf(Arena::Pair memory, const Name* name, std::string_view text);
    Node* AddNamed(std::string_view name, std::string_view text);
    bool IsReadyForLeaf(std::size_t textSize) const;
    Node* AddElementWithPreparation(std::string_view name, std::string_view text);
    Node* AddElementWithPreparation(const Name* name, std::string_view text);
    const Name* InternedName(std::string_view name);
    ChildList* Children();
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
    const Name* name_ = kNoName;
    const char* content_ = nullptr;
    std::uint32_t contentSize_ = 0;  // or the number
    std::uint32_t state_;            // the form, and kReference times the number of references
};

}  // namespace ZQXML

#endif  // QUAVERA_PLATFORM_NODE_H_
