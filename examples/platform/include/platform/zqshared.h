#ifndef EXAMPLE_PLATFORM_ZQSHARED_H_
#define EXAMPLE_PLATFORM_ZQSHARED_H_

#include <memory>
#include <string>

/// A platform library of one's own: all that Quavera asks of one, and nothing more.

namespace zq {

template <class T>
struct Releaser {
    void operator()(T* object) const { object->Release(); }
};
/// Owns one reference. Quavera makes these, returns and destroys them, and borrows what they hold.
template <class T>
using auto_com = std::unique_ptr<T, Releaser<T>>;

std::string ToString(bool value);
std::string ToString(int value);
std::string ToString(unsigned int value);
std::string ToString(unsigned long value);

class StackTrace {};
/// Something happened that cannot happen; Quavera goes on.
void AssertWrite(const char* path, int line, const StackTrace& trace);

}  // namespace zq

namespace ZQXML {

class INode;

/// A node's children in their order: borrowed, null behind the last one.
class INodeList {
 public:
    virtual INode* First() = 0;
    virtual INode* Next() = 0;

 protected:
    ~INodeList() = default;
};

/// An element: a name, a text, children. It lives as long as somebody holds a reference on it.
class INode {
 public:
    virtual std::string GetName() = 0;
    virtual std::string GetValue() = 0;                     // the text as it is
    virtual int GetValueInt() = 0;                          // 0 where it is no number
    virtual INode* FindChild(const std::string& name) = 0;  // the first, borrowed, or null
    virtual void AppendChild(INode* child) = 0;             // takes a reference of its own
    virtual void AddChild(const std::string& name, const char* text) = 0;  // null: an empty one
    virtual void AddChild(const std::string& name, const std::string& text) = 0;
    virtual void AddChild(const std::string& name, int value) = 0;
    virtual void AddChild(const std::string& name, unsigned long value) = 0;  // its lower 32 bits
    virtual void AddChild(const std::string& name, bool value) = 0;
    virtual void AddChildEncoded(const std::string& name, const std::string& base64) = 0;
    virtual std::string GetValueDecoded() = 0;  // of an encoded text the bytes, else the text
    virtual INodeList* GetChildren() = 0;       // borrowed, never null
    virtual void Initialize(const std::string& name, const std::string& text) = 0;
    virtual void Release() = 0;  // gives one reference back

 protected:
    ~INode() = default;
};

zq::auto_com<INode> CreateXmlNode();

}  // namespace ZQXML

/// Lengths are in bytes: the room that there is, then what was written. 0 is failure.
class Base64Encoder {
 public:
    long EncodeGetLength(long length, long mode) const;
    int Encode(const char* data, long length, char* text, long* textLength, long mode) const;
    int Decode(const char* text, long length, char* data, long* dataLength) const;
};

/// The text of a flag that is set.
inline constexpr char TRUE_STRING[] = "true";

#endif  // EXAMPLE_PLATFORM_ZQSHARED_H_
