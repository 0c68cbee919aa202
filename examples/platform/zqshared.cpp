#include "platform/zqshared.h"

#include <cstdlib>
#include <iostream>
#include <string_view>
#include <utility>
#include <vector>

namespace {

/// A node that is the list of its children, too.
class Node final : public ZQXML::INode, public ZQXML::INodeList {
 public:
    Node(std::string name, std::string text, bool isEncoded)
        : name_(std::move(name)), text_(std::move(text)), isEncoded_(isEncoded) {}

    std::string GetName() override { return name_; }
    std::string GetValue() override { return text_; }
    int GetValueInt() override {
        // An unsigned number of 32 bits, too: 4294967295 is -1.
        return static_cast<int>(std::strtoll(text_.c_str(), nullptr, 10));
    }
    ZQXML::INode* FindChild(const std::string& name) override {
        for (const auto& child : children_) {
            if (child->name_ == name) {
                return child.get();
            }
        }
        return nullptr;
    }
    void AppendChild(ZQXML::INode* child) override {
        auto* const node = static_cast<Node*>(child);  // there is no other class of nodes
        if (node != nullptr) {
            ++node->references_;
            children_.push_back(zq::auto_com<Node>(node));
        }
    }
    void AddChild(const std::string& name, const char* text) override {
        Add(name, text == nullptr ? "" : text, false);
    }
    void AddChild(const std::string& name, const std::string& text) override {
        Add(name, text, false);
    }
    void AddChild(const std::string& name, int value) override {
        Add(name, zq::ToString(value), false);
    }
    void AddChild(const std::string& name, unsigned long value) override {
        Add(name, zq::ToString(value & 0xFFFFFFFFUL), false);
    }
    void AddChild(const std::string& name, bool value) override {
        Add(name, zq::ToString(value), false);
    }
    void AddChildEncoded(const std::string& name, const std::string& base64) override {
        Add(name, base64, true);
    }
    std::string GetValueDecoded() override {
        if (!isEncoded_) {
            return text_;
        }
        std::string data(text_.size(), '\0');
        auto size = static_cast<long>(data.size());
        const bool isDecoded = Base64Encoder().Decode(text_.data(), size, data.data(), &size) != 0;
        data.resize(isDecoded ? static_cast<std::size_t>(size) : 0);
        return data;
    }
    ZQXML::INodeList* GetChildren() override { return this; }
    void Initialize(const std::string& name, const std::string& text) override {
        name_ = name;
        text_ = text;
        isEncoded_ = false;
    }
    void Release() override {
        if (--references_ == 0) {
            delete this;
        }
    }

    ZQXML::INode* First() override {
        position_ = 0;
        return Next();
    }
    ZQXML::INode* Next() override {
        return position_ < children_.size() ? children_[position_++].get() : nullptr;
    }

 private:
    ~Node() = default;

    void Add(const std::string& name, std::string text, bool isEncoded) {
        children_.push_back(zq::auto_com<Node>(new Node(name, std::move(text), isEncoded)));
    }

    std::string name_;
    std::string text_;
    bool isEncoded_;
    std::vector<zq::auto_com<Node>> children_;
    std::size_t position_ = 0;
    int references_ = 1;
};

constexpr std::string_view kDigits =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

unsigned int ByteAt(const char* data, long length, long at) {
    return at < length ? static_cast<unsigned char>(data[at]) : 0;
}

}  // namespace

zq::auto_com<ZQXML::INode> ZQXML::CreateXmlNode() {
    return zq::auto_com<INode>(new Node({}, {}, false));
}

std::string zq::ToString(bool value) {
    return value ? TRUE_STRING : "false";
}
std::string zq::ToString(int value) {
    return std::to_string(value);
}
std::string zq::ToString(unsigned int value) {
    return std::to_string(value);
}
std::string zq::ToString(unsigned long value) {
    return std::to_string(value);
}

void zq::AssertWrite(const char* path, int line, const StackTrace& /*trace*/) {
    std::cerr << path << ':' << line << ": cannot be\n";
}

long Base64Encoder::EncodeGetLength(long length, long /*mode*/) const {
    return (length + 2) / 3 * 4;
}

int Base64Encoder::Encode(const char* data, long length, char* text, long* textLength,
                          long mode) const {
    const long room = std::exchange(*textLength, 0);
    if (room < EncodeGetLength(length, mode)) {
        return 0;
    }
    for (long at = 0; at < length; at += 3) {
        const unsigned int bits = ByteAt(data, length, at) << 16 |
                                  ByteAt(data, length, at + 1) << 8 | ByteAt(data, length, at + 2);
        for (const int digit : {0, 1, 2, 3}) {
            const bool isPadding = at + digit > length;
            text[(*textLength)++] = isPadding ? '=' : kDigits[bits >> (18 - 6 * digit) & 63];
        }
    }
    return 1;
}

int Base64Encoder::Decode(const char* text, long length, char* data, long* dataLength) const {
    const long room = std::exchange(*dataLength, 0);
    std::string_view digits(text, static_cast<std::size_t>(length));
    if (digits.size() % 4 != 0) {
        return 0;
    }
    for (int padding = 0; padding < 2 && !digits.empty() && digits.back() == '='; ++padding) {
        digits.remove_suffix(1);
    }
    const auto size = static_cast<long>(digits.size() * 3 / 4);
    if (size > room) {
        return 0;
    }
    unsigned int bits = 0;
    for (std::size_t at = 0; at < digits.size(); ++at) {
        const std::size_t digit = kDigits.find(digits[at]);
        if (digit == std::string_view::npos) {
            return 0;
        }
        bits = bits << 6 | static_cast<unsigned int>(digit);
        if (at % 4 != 0) {
            *data++ = static_cast<char>(bits >> (6 - at % 4 * 2));
        }
    }
    *dataLength = size;
    return 1;
}
