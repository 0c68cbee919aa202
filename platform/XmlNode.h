#ifndef QUAVERA_PLATFORM_XML_NODE_H_
#define QUAVERA_PLATFORM_XML_NODE_H_

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/AutoCom.h"
#include "platform/Export.h"

/// @file
/// Trees of XML elements: a name, a text, and child elements in document order.
///
/// Names and texts are byte strings, UTF-8 by convention; the tree stores any bytes unchanged.
/// A tree is used by one thread at a time; a subtree that a reference keeps beyond its tree, and a
/// node made by `CreateNode`, still belong to the tree that they come from. Depth and width are
/// limited by memory only, no operation recurses, and a failed allocation throws `std::bad_alloc`
/// and changes nothing. So does a name or a text of more than 2^32 - 1 bytes. Nothing else is an
/// error, or reported; strings that are returned are copies.

/// Trees of XML elements, and their text.
namespace ZQXML {

class INode;

/// A new node without name, text or children, never null; the result holds its only reference.
ZQ_API zq::auto_com<INode> CreateXmlNode();

/// What the text of an element is, as a `NodeView` shows it.
enum class TextForm : unsigned int {
    kPlain,   ///< a text without the mark of encoded text
    kBase64,  ///< an encoded text, as it is
    kBytes,   ///< the bytes that an encoded text stands for, in its place
    kNumber,  ///< the number that a text is the decimal form of, in its place
    kUnseen,  ///< neither name nor text are shown: ask the node for what is needed
};

/// What a node shows of itself without copies, valid as long as neither it nor its tree changes.
/// An array of these takes no initialisation.
struct NodeView {
    /// The element's name; not of an unseen node.
    std::string_view Name() const { return {nameData, nameSize}; }
    /// Text or bytes; not of a number or an unseen node.
    std::string_view Text() const { return {textData, textSize}; }
    /// The number, where the form says that there is one.
    int Number() const { return static_cast<int>(static_cast<unsigned int>(textSize)); }

    INode* node;           ///< the node itself, borrowed
    const char* nameData;  ///< borrowed, without a terminator
    std::size_t nameSize;  ///< in bytes
    const char* textData;  ///< borrowed, without a terminator
    std::size_t textSize;  ///< in bytes; of a number: its 32 bits
    TextForm form;         ///< what `textData` and `textSize` are
};

/// The direct children of a node in document order, owned by that node.
/// A list has one position, so one walk at a time; it follows children added on the way.
///
/// `First` and `Next` make a complete list. The operations after them have a body in terms of those
/// two; an implementation overrides them to save work.
class ZQ_API INodeList {
 public:
    /// The first child, or null when there is none. Borrowed. Starts a walk.
    virtual INode* First() = 0;
    /// The child after the one returned last, or null at the end, where it stays, and ahead of
    /// `First`. Borrowed.
    virtual INode* Next() = 0;

    /// `First` and `Next` for several children at once: shows the next ones of the walk, at least
    /// one as long as there is any, at most `room`, and returns their number. A child that is
    /// `kUnseen` is shown alone. `views` has room for as many, one at least. The default bodies
    /// show one, unseen.
    ///@{
    virtual unsigned int ViewFirst(NodeView* views, unsigned int room);
    virtual unsigned int ViewNext(NodeView* views, unsigned int room);
    ///@}
    /// About how many children there are, for making room; 0, as from the default body, where
    /// telling would disturb the walk.
    virtual std::size_t CountHint();

 protected:
    INodeList() = default;
    INodeList(const INodeList&) = default;
    INodeList& operator=(const INodeList&) = default;
    virtual ~INodeList() = default;
};

/// One element of a tree.
///
/// The first 15 operations make a complete node, in this order. The ones after them have a body
/// in terms of those 15, so a class that implements the 15 can be handed to anyone; an
/// implementation overrides them to save work, or to offer what the 15 cannot express.
///
/// A node lives as long as it has a parent or somebody holds a reference on it. Child pointers
/// are borrowed: they are valid as long as the parent lives, and are not to be released.
class ZQ_API INode {
 public:
    /// The element's name.
    virtual std::string GetName() = 0;
    /// The element's text exactly as stored; encoded text comes back undecoded.
    virtual std::string GetValue() = 0;
    /// The text as a signed decimal number: optional blanks (U+0020), an optional sign, and digits
    /// up to the first other character, reduced modulo 2^32 into the signed range (so
    /// "4294967295" is -1). 0 where there is no digit.
    virtual int GetValueInt() = 0;
    /// The first direct child of exactly that name, or null. Borrowed.
    virtual INode* FindChild(const std::string& name) = 0;
    /// Makes `child`, with its subtree, the last child; the tree takes a reference of its own.
    ///
    /// Does nothing when `child` is null, has a parent already, is this node or one of its
    /// ancestors: a tree stays a tree. Of a node of another implementation a copy is attached, for
    /// which the child lists of its subtree are walked.
    virtual void AppendChild(INode* child) = 0;
    /// Adds a last child with this name and text; a null text counts as empty.
    virtual void AddChild(const std::string& name, const char* text) = 0;
    /// Adds a last child with this name and text, zero bytes included.
    virtual void AddChild(const std::string& name, const std::string& text) = 0;
    /// Adds a last child whose text is the number in decimal.
    virtual void AddChild(const std::string& name, int value) = 0;
    /// Adds a last child whose text is the value modulo 2^32 in decimal, so that the text is the
    /// same whether `unsigned long` has 32 or 64 bits.
    virtual void AddChild(const std::string& name, unsigned long value) = 0;
    /// Adds a last child whose text is "true" (`TRUE_STRING`) or "false".
    virtual void AddChild(const std::string& name, bool value) = 0;
    /// Adds a last child for a text that is base64 already, and marks it as encoded. The text is
    /// not looked at.
    virtual void AddChildEncoded(const std::string& name, const std::string& text) = 0;
    /// The decoded bytes of an element marked as encoded (empty where its text is no base64); of
    /// any other the text as it stands.
    virtual std::string GetValueDecoded() = 0;
    /// The list of direct children; never null, owned by this node.
    virtual INodeList* GetChildren() = 0;
    /// Gives a new node its name and text. On a node in use both are replaced and the mark of
    /// encoded text goes; children stay.
    virtual void Initialize(const std::string& name, const std::string& text) = 0;
    /// Gives one reference back. The node goes with its last reference, unless it has a parent.
    /// Does nothing where no reference is held, so that releasing a borrowed child is harmless.
    /// Must not throw: destructors call it.
    virtual void Release() = 0;

    /// Takes one more reference, which keeps this node and its subtree usable after the rest of
    /// the tree has gone. The default body does nothing.
    virtual void AddRef();
    /// Whether the element is marked as holding base64 text. The default body knows no marks.
    virtual bool IsEncoded();
    /// `GetChildren`, or null where there are no children: our nodes make no list for that. The
    /// default body is `GetChildren`.
    virtual INodeList* GetChildrenIfAny();
    /// Name and text without copies, borrowed as `NodeView` states. The default body shows neither.
    virtual NodeView View();

    /// Operations that add a child, with views in place of strings, which saves making them. Each
    /// default body calls the operation of the 15 that the child's form names: `AddChild` in the
    /// C-string, the string and the int form, and `AddChildEncoded` of the base64 form of `bytes`.
    ///@{
    virtual void AddCString(std::string_view name, const char* text);
    virtual void AddText(std::string_view name, std::string_view text);
    virtual void AddNumber(std::string_view name, int value);
    virtual void AddEncoded(std::string_view name, std::string_view bytes);
    ///@}
    /// A new node of that name, without text, that is meant to become part of this node's tree and
    /// may share memory with it. As with `CreateXmlNode`, the result holds its only reference, and
    /// the node is still to be appended. The default body makes one that shares nothing.
    virtual zq::auto_com<INode> CreateNode(std::string_view name);

 protected:
    INode() = default;
    INode(const INode&) = default;
    INode& operator=(const INode&) = default;
    virtual ~INode() = default;
};

}  // namespace ZQXML

#endif  // QUAVERA_PLATFORM_XML_NODE_H_
