#include "platform/Node.h"

#include <new>
#include <typeinfo>
#include <vector>

#include "base/Speed.h"
#include "platform/Base64Codec.h"
#include "platform/Base64Encoder.h"
#include "platform/Decimal.h"
#include "platform/ToString.h"

namespace ZQXML {
namespace {

std::string DecodeBase64(std::string_view text) {
    std::string data(text.size(), '\0');
    long size = static_cast<long>(data.size());
    Base64Encoder().Decode(text.data(), static_cast<long>(text.size()), data.data(), &size);
    data.resize(static_cast<std::size_t>(size));
    return data;
}

}  // namespace

inline void ChildList::Append(Node* child) {
    (last_ == nullptr ? first_ : last_->next_) = child;
    last_ = child;
}

inline ChildList* Node::Children() {
    if (children_ == nullptr) {
        children_ = ::new (arena_->Allocate(sizeof(ChildList))) ChildList;
    }
    return children_;
}

inline const Name* Node::InternedName(std::string_view name) {
    return name.empty() ? kNoName : arena_->StoreName(name);
}

/// A new last child. The one way in which leaves are made: most of a tree's nodes are. Inline, it
/// saves 17 % of ToXML; with the text copied last, when all else is stored, 3 %.
inline Node* Node::AddLeaf(Arena::Pair memory, const Name* name, std::string_view text) {
    Node* const child = ::new (memory.object) Node(arena_, false);
    child->name_ = name;
    child->content_ = memory.text;
    child->contentSize_ = static_cast<std::uint32_t>(text.size());
    child->parent_ = this;
    children_->Append(child);
    quavera::CopyText(text, memory.text);
    return child;
}

/// Whether a leaf can be made without a call: the list exists, and the block has room. This is the
/// usual case; keeping it free of calls saves 3 % of ParseXml.
inline bool Node::IsReadyForLeaf(std::size_t textSize) const {
    return children_ != nullptr && arena_->HasRoom(sizeof(Node), textSize);
}

/// The usual case, inline and free of calls, which saves 9 % of ToXML: the list exists, the name is
/// the expected one.
QUAVERA_INLINE_FOR_SPEED inline Node* Node::AddNamed(std::string_view name, std::string_view text) {
    if (children_ != nullptr) {
        if (const Name* const expected = arena_->ExpectedName(name)) {
            return AddLeaf(arena_->AllocatePair(sizeof(Node), text.size()), expected, text);
        }
    }
    return AddElementWithPreparation(name, text);
}

INode* ChildList::First() {
    return current_ = first_;
}

INode* ChildList::Next() {
    if (current_ != nullptr) {
        current_ = current_->next_;
    }
    return current_;
}

inline unsigned int ChildList::ViewFrom(Node* child, NodeView* views, unsigned int room) {
    const NodeView* const end = views + room;
    NodeView* view = views;
    current_ = nullptr;
    for (; child != nullptr && view != end; child = child->next_) {
        *view++ = child->Node::View();
        current_ = child;
    }
    return static_cast<unsigned int>(view - views);
}

unsigned int ChildList::ViewFirst(NodeView* views, unsigned int room) {
    return ViewFrom(first_, views, room);
}

unsigned int ChildList::ViewNext(NodeView* views, unsigned int room) {
    return ViewFrom(current_ == nullptr ? nullptr : current_->next_, views, room);
}

std::size_t ChildList::CountHint() {
    std::size_t count = 0;
    for (const Node* child = first_; child != nullptr; child = child->next_) {
        ++count;
    }
    return count;
}

zq::auto_com<INode> CreateXmlNode() {
    Arena* const arena = Arena::Create();
    // Cannot fail: an arena's first block has room for a node. The node takes over the first pin.
    return zq::auto_com<INode>(::new (arena->Allocate(sizeof(Node))) Node(arena, true));
}

/// In this node's arena: saves 68 % of ToXML and three quarters of a tree's heap.
zq::auto_com<INode> Node::CreateNode(std::string_view name) {
    const Name* const stored = InternedName(name);
    Node* const node = ::new (arena_->Allocate(sizeof(Node))) Node(arena_, true);
    node->name_ = stored;
    // It is about to get some, and `AddElement` is fastest with the list there: saves 2 % of ToXML.
    node->Children();
    arena_->Pin();
    return zq::auto_com<INode>(node);
}

std::string Node::GetValue() {
    switch (Form()) {
        case TextForm::kBytes:
            return zq::EncodeBase64(Content());
        case TextForm::kNumber:
            return zq::ToString(Number());
        default:
            return std::string(Content());
    }
}

int Node::GetValueInt() {
    switch (Form()) {
        case TextForm::kBytes:
            return zq::ReadDecimal(GetValue());
        case TextForm::kNumber:
            return Number();
        default:
            return zq::ReadDecimal(Content());
    }
}

std::string Node::GetValueDecoded() {
    switch (Form()) {
        case TextForm::kBase64:
            return DecodeBase64(Content());
        case TextForm::kNumber:
            return zq::ToString(Number());
        default:
            return std::string(Content());
    }
}

NodeView Node::View() {
    const std::string_view name = NameText();
    return {this, name.data(), name.size(), content_, contentSize_, Form()};
}

INode* Node::FindChild(const std::string& name) {
    Node* child = FirstChild();
    while (child != nullptr && child->NameText() != name) {
        child = child->next_;
    }
    return child;
}

void Node::Initialize(const std::string& name, const std::string& text) {
    SetNameAndText(name, text);
    MarkEncoded(false);
}

void Node::AddChild(const std::string& name, unsigned long value) {
    AddElement(name, zq::Decimal(static_cast<std::uint32_t>(value)).View());
}

void Node::AddChild(const std::string& name, bool value) {
    AddElement(name, value ? std::string_view(TRUE_STRING) : "false");
}

void Node::AddChildEncoded(const std::string& name, const std::string& text) {
    AddElement(name, text)->MarkEncoded(true);
}

void Node::AppendChild(INode* child) {
    if (child == nullptr) {
        return;
    }
    // Final classes have no derived ones, so this is a cast without a search: saves 6 % of ToXML.
    if (typeid(*child) != typeid(Node)) {
        AttachCopy(child);
        return;
    }
    Node* const own = static_cast<Node*>(child);
    if (own->parent_ == nullptr && !IsInSubtreeOf(own)) {
        Attach(own);
    }
}

void Node::AddCString(std::string_view name, const char* text) {
    AddNamed(name, text == nullptr ? std::string_view() : std::string_view(text));
}

void Node::AddText(std::string_view name, std::string_view text) {
    AddNamed(name, text);
}

/// As with encoded texts, what readers are after is kept: saves 7 % of a round.
void Node::AddNumber(std::string_view name, int value) {
    Node* const child = AddNamed(name, {});
    child->contentSize_ = static_cast<std::uint32_t>(value);
    child->SetForm(TextForm::kNumber);
}

/// Most readers are after the bytes, so they are what is kept, which saves 29 % of a round; the
/// text is made for those who ask.
void Node::AddEncoded(std::string_view name, std::string_view bytes) {
    AddNamed(name, bytes)->SetForm(TextForm::kBytes);
}

Node* Node::AddElement(std::string_view name, std::string_view text) {
    return AddNamed(name, text);
}

Node* Node::AddElement(const Name* name, std::string_view text) {
    return IsReadyForLeaf(text.size())
               ? AddLeaf(arena_->TakePair(sizeof(Node), text.size()), name, text)
               : AddElementWithPreparation(name, text);
}

[[gnu::noinline]] Node* Node::AddElementWithPreparation(std::string_view name,
                                                        std::string_view text) {
    return AddElementWithPreparation(InternedName(name), text);
}

[[gnu::noinline]] Node* Node::AddElementWithPreparation(const Name* name, std::string_view text) {
    Children();
    return AddLeaf(arena_->AllocatePair(sizeof(Node), text.size()), name, text);
}

bool Node::AddBase64(const Name* name, std::string_view text) {
    const std::size_t size = zq::DecodedSize(text);
    char* const bytes = arena_->AllocateText(size);
    if (!zq::ReadBase64(text, bytes)) {
        arena_->TakeBack(bytes, size);
        return false;
    }
    Node* const child = AddElement(name, {});
    child->content_ = bytes;
    child->contentSize_ = static_cast<std::uint32_t>(size);
    child->SetForm(TextForm::kBytes);
    return true;
}

void Node::SetNameAndText(std::string_view name, std::string_view text) {
    const Name* const stored = InternedName(name);
    SetText(text);
    name_ = stored;  // last: a failed allocation changes nothing
}

void Node::SetText(std::string_view text) {
    content_ = arena_->StoreText(text);
    contentSize_ = static_cast<std::uint32_t>(text.size());
    MarkEncoded(IsEncoded());
}

/// Looks from both ends in turns, up from this node and down through the subtree, so that neither
/// a deep tree nor a large subtree makes building quadratic. On the way down it is the end alone
/// that tells something: this node is not come to before its root is on the way up.
bool Node::IsInSubtreeOf(Node* root) {
    const Node* above = this;
    const Node* below = root;
    while (above != root) {
        above = above->parent_;
        if (above == nullptr) {
            return false;
        }
        below = below->NextInSubtree(root);
        if (below == nullptr) {
            return false;
        }
    }
    return true;
}

void Node::Attach(Node* child) {
    ChildList* const list = Children();
    if (child->arena_ != arena_) {
        child->arena_->Pin();
        ++arena_->outwardLinks;
    }
    child->parent_ = this;
    list->Append(child);
}

void Node::CopyContents(INode* foreign) {
    SetNameAndText(foreign->GetName(), foreign->GetValue());
    MarkEncoded(foreign->IsEncoded());
}

void Node::AttachCopy(INode* foreign) {
    struct Level {
        INodeList* originals;
        Node* parent;
        bool isBegun;
    };
    std::vector<Level> levels;
    const auto descend = [&levels](INode* original, Node* copy) {
        copy->CopyContents(original);
        if (INodeList* const originals = original->GetChildrenIfAny()) {
            levels.push_back({originals, copy, false});
        }
    };

    // Attached last: a failure on the way leaves this node as it was.
    const zq::auto_com<INode> root = CreateNode({});
    descend(foreign, static_cast<Node*>(root.get()));
    while (!levels.empty()) {
        Level& level = levels.back();
        INode* const original = level.isBegun ? level.originals->Next() : level.originals->First();
        level.isBegun = true;
        if (original == nullptr) {
            levels.pop_back();
        } else {
            descend(original, level.parent->AddElement({}, {}));
        }
    }
    Attach(static_cast<Node*>(root.get()));
}

void Node::AddRef() {
    if (!IsReferenced()) {
        arena_->Pin();
    }
    state_ += kReference;
}

void Node::Release() {
    if (!IsReferenced()) {
        return;
    }
    state_ -= kReference;
    if (IsReferenced()) {
        return;
    }
    if (parent_ == nullptr) {
        Destroy(this);
    } else {
        arena_->Unpin();
    }
}

/// Ends the life of a node that has neither parent nor reference, and of all in its subtree that
/// has no reference either. The nodes still to go form a list, each with a pin on its arena.
void Node::Destroy(Node* root) {
    for (Node* dying = root; dying != nullptr;) {
        Node* const node = dying;
        dying = node->next_;
        Arena* const arena = node->arena_;
        // With no other pin and no link out of it, the arena goes whole, with all its elements:
        // saves 7 % of a round.
        if (!arena->IsPinnedOnce() || arena->outwardLinks > 0) {
            node->UnlinkChildren(&dying);
        }
        arena->Unpin();
    }
}

void Node::UnlinkChildren(Node** dying) {
    for (Node* child = FirstChild(); child != nullptr;) {
        Node* const next = child->next_;
        child->parent_ = nullptr;
        child->next_ = nullptr;
        const bool hasOwnArena = child->arena_ != arena_;
        if (hasOwnArena) {
            --arena_->outwardLinks;
        }
        if (child->IsReferenced()) {
            if (hasOwnArena) {
                child->arena_->Unpin();
            }
        } else {
            if (!hasOwnArena) {
                arena_->Pin();
            }
            child->next_ = *dying;
            *dying = child;
        }
        child = next;
    }
}

}  // namespace ZQXML
