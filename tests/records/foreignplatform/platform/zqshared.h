#ifndef QUAVERA_TESTS_RECORDS_FOREIGNPLATFORM_PLATFORM_ZQSHARED_H_
#define QUAVERA_TESTS_RECORDS_FOREIGNPLATFORM_PLATFORM_ZQSHARED_H_

#include <string>
#include <string_view>
#include <utility>

// A platform library of another maker, with the bundled one's texts of numbers and flags, so that
// the tests of the records hold on it too. ForeignPlatform.cpp and ForeignText.cpp implement it.
//
// A node's operations are the 15 that every platform has. What stands beside them here is for the
// tests.

namespace zq {

template <class T>
class auto_com {
 public:
    auto_com() = default;
    explicit auto_com(T* object) : object_(object) {}
    auto_com(auto_com&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    auto_com(const auto_com&) = delete;
    auto_com& operator=(const auto_com&) = delete;
    auto_com& operator=(auto_com&&) = delete;
    ~auto_com() {
        if (object_ != nullptr) {
            object_->Release();
        }
    }

    T* get() const { return object_; }
    T* operator->() const { return object_; }
    explicit operator bool() const { return object_ != nullptr; }

 private:
    T* object_ = nullptr;
};

std::string ToString(bool value);
std::string ToString(int value);
std::string ToString(unsigned int value);
std::string ToString(unsigned long value);

class StackTrace {};

void AssertWrite(const char* path, int line, const StackTrace& trace);

}  // namespace zq

namespace ZQXML {

class INode;

class INodeList {
 public:
    virtual INode* First() = 0;
    virtual INode* Next() = 0;

 protected:
    virtual ~INodeList() = default;
};

class INode {
 public:
    virtual std::string GetName() = 0;
    virtual std::string GetValue() = 0;
    virtual int GetValueInt() = 0;
    virtual INode* FindChild(const std::string& name) = 0;
    virtual void AppendChild(INode* child) = 0;
    virtual void AddChild(const std::string& name, const char* text) = 0;
    virtual void AddChild(const std::string& name, const std::string& text) = 0;
    virtual void AddChild(const std::string& name, int value) = 0;
    virtual void AddChild(const std::string& name, unsigned long value) = 0;
    virtual void AddChild(const std::string& name, bool value) = 0;
    virtual void AddChildEncoded(const std::string& name, const std::string& text) = 0;
    virtual std::string GetValueDecoded() = 0;
    virtual INodeList* GetChildren() = 0;
    virtual void Initialize(const std::string& name, const std::string& text) = 0;
    virtual void Release() = 0;

    // For the tests: false, and no effect, on a node that is not this platform's.
    bool IsEncoded();
    void AddRef();

 protected:
    virtual ~INode() = default;
};

zq::auto_com<INode> CreateXmlNode();

// For the tests: trees from and to XML text.
std::string WriteXml(INode* node);
zq::auto_com<INode> ParseXml(std::string_view text, std::string* error);

}  // namespace ZQXML

class Base64Encoder {
 public:
    long EncodeGetLength(long length, long mode) const;
    int Encode(const char* data, long length, char* text, long* textLength, long mode) const;
    int Decode(const char* text, long length, char* data, long* dataLength) const;
};

inline constexpr char TRUE_STRING[] = "true";

#endif  // QUAVERA_TESTS_RECORDS_FOREIGNPLATFORM_PLATFORM_ZQSHARED_H_
