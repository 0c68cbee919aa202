#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/zqshared.h"

namespace {

class Node;

class ChildList final : public ZQXML::INodeList {
 public:
    ChildList() = default;
    ChildList(const ChildList&) = delete;
    ChildList& operator=(const ChildList&) = delete;
    ~ChildList() override {
        for (ZQXML::INode* const node : nodes_) {
            node->Release();
        }
    }

    ZQXML::INode* First() override {
        next_ = 0;
        return Next();
    }
    ZQXML::INode* Next() override { return next_ < nodes_.size() ? nodes_[next_++] : nullptr; }

    /// Takes over the reference that `node` holds.
    void Take(zq::auto_com<Node> node);

    const std::vector<ZQXML::INode*>& Nodes() const { return nodes_; }

 private:
    std::vector<ZQXML::INode*> nodes_;
    std::size_t next_ = 0;
};

class Node final : public ZQXML::INode {
 public:
    Node(std::string name, std::string text, bool isEncoded = false)
        : name_(std::move(name)), text_(std::move(text)), isEncoded_(isEncoded) {}
    Node(const Node&) = delete;
    Node& operator=(const Node&) = delete;

    bool IsMarked() const { return isEncoded_; }
    void Keep() { ++references_; }

    std::string GetName() override { return name_; }
    std::string GetValue() override { return text_; }
    int GetValueInt() override;
    ZQXML::INode* FindChild(const std::string& name) override {
        for (ZQXML::INode* const child : children_.Nodes()) {
            if (child->GetName() == name) {
                return child;
            }
        }
        return nullptr;
    }
    void AppendChild(ZQXML::INode* child) override {
        auto* const node = dynamic_cast<Node*>(child);
        if (node != nullptr) {
            node->Keep();
            children_.Take(zq::auto_com<Node>(node));
        }
    }
    void AddChild(const std::string& name, const char* text) override { Add(name, text); }
    void AddChild(const std::string& name, const std::string& text) override { Add(name, text); }
    void AddChild(const std::string& name, int value) override { Add(name, std::to_string(value)); }
    void AddChild(const std::string& name, unsigned long value) override {
        Add(name, std::to_string(static_cast<std::uint32_t>(value)));
    }
    void AddChild(const std::string& name, bool value) override {
        Add(name, value ? TRUE_STRING : "false");
    }
    void AddChildEncoded(const std::string& name, const std::string& text) override {
        Add(name, text, true);
    }
    std::string GetValueDecoded() override;
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
    ~Node() override = default;

    void Add(const std::string& name, const std::string& text, bool isEncoded = false) {
        children_.Take(zq::auto_com<Node>(new Node(name, text, isEncoded)));
    }

    std::string name_;
    std::string text_;
    bool isEncoded_;
    int references_ = 1;
    ChildList children_;
};

void ChildList::Take(zq::auto_com<Node> node) {
    nodes_.push_back(node.get());
    node.get()->Keep();
}

int Node::GetValueInt() {
    const std::size_t start = text_.find_first_not_of(' ');
    if (start == std::string::npos) {
        return 0;
    }
    const bool isNegative = text_[start] == '-';
    std::uint32_t value = 0;
    for (const char digit :
         std::string_view(text_).substr(start + (isNegative || text_[start] == '+' ? 1U : 0U))) {
        if (digit < '0' || digit > '9') {
            break;
        }
        value = value * 10U + static_cast<std::uint32_t>(digit - '0');
    }
    return static_cast<int>(isNegative ? 0U - value : value);
}

std::string Node::GetValueDecoded() {
    if (!isEncoded_) {
        return text_;
    }
    std::string data(text_.size(), '\0');
    long size = static_cast<long>(data.size());
    if (Base64Encoder().Decode(text_.data(), size, data.data(), &size) == 0) {
        return {};
    }
    data.resize(static_cast<std::size_t>(size));
    return data;
}

constexpr std::string_view kAlphabet =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

/// The six bits of a base64 character, none for padding; false for any other character.
bool SixBits(char character, std::uint32_t* bits) {
    const std::size_t at = kAlphabet.find(character);
    *bits = at == std::string_view::npos ? 0U : static_cast<std::uint32_t>(at);
    return at != std::string_view::npos || character == '=';
}

}  // namespace

bool ZQXML::INode::IsEncoded() {
    const auto* const node = dynamic_cast<Node*>(this);
    return node != nullptr && node->IsMarked();
}

void ZQXML::INode::AddRef() {
    auto* const node = dynamic_cast<Node*>(this);
    if (node != nullptr) {
        node->Keep();
    }
}

zq::auto_com<ZQXML::INode> ZQXML::CreateXmlNode() {
    return zq::auto_com<INode>(new Node({}, {}));
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

void zq::AssertWrite(const char* /*path*/, int /*line*/, const StackTrace& /*trace*/) {
    std::abort();  // no record reports anything
}

long Base64Encoder::EncodeGetLength(long length, long /*mode*/) const {
    return (length + 2) / 3 * 4;
}

int Base64Encoder::Encode(const char* data, long length, char* text, long* textLength,
                          long mode) const {
    if (*textLength < EncodeGetLength(length, mode)) {
        return 0;
    }
    *textLength = EncodeGetLength(length, mode);
    for (long at = 0; at < length; at += 3) {
        std::uint32_t bits = 0;
        for (long byte = at; byte < at + 3; ++byte) {
            bits = bits << 8U | (byte < length ? static_cast<unsigned char>(data[byte]) : 0U);
        }
        for (long character = 0; character < 4; ++character) {
            *text++ =
                character <= length - at ? kAlphabet[bits >> (18 - 6 * character) & 63U] : '=';
        }
    }
    return 1;
}

int Base64Encoder::Decode(const char* text, long length, char* data, long* dataLength) const {
    const std::string_view characters(text, static_cast<std::size_t>(length));
    const std::size_t end = characters.find('=');
    const std::size_t padding = end == std::string_view::npos ? 0 : characters.size() - end;
    const std::size_t size = characters.size() / 4 * 3 - padding;
    if (characters.size() % 4 != 0 || padding > 2 || size > static_cast<std::size_t>(*dataLength)) {
        return 0;
    }
    std::size_t made = 0;
    std::uint32_t bits = 0;
    for (std::size_t at = 0; at < characters.size(); ++at) {
        std::uint32_t six = 0;
        if (!SixBits(characters[at], &six)) {
            return 0;
        }
        bits = bits << 6U | six;
        for (unsigned shift = 24; at % 4 == 3 && shift > 0 && made < size; ++made) {
            shift -= 8;
            data[made] = static_cast<char>(bits >> shift & 255U);
        }
    }
    *dataLength = static_cast<long>(size);
    return 1;
}
