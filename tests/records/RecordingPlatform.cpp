#include "tests/records/RecordingPlatform.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <new>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

struct State {
    std::string calls;
    int lastNumber = 0;
    int liveNodes = 0;
    int codecCalls = 0;

    /// Counts a new node and returns its number.
    int CountNode() {
        if (liveNodes++ == 0) {
            lastNumber = 0;
        }
        return ++lastNumber;
    }
};

State& TheState() {
    static State state;
    return state;
}

std::string Quoted(std::string_view text) {
    return std::string(1, '"').append(text).append(1, '"');
}

class Node;

class ChildList final : public ZQXML::INodeList {
 public:
    explicit ChildList(const Node& owner) : owner_(owner) {}

    ZQXML::INode* First() override;
    ZQXML::INode* Next() override;

    std::vector<Node*> nodes;

 private:
    ZQXML::INode* Current() const;

    const Node& owner_;
    std::size_t position_ = 0;
};

class Node final : public ZQXML::INode {
 public:
    Node(std::string name, std::string text)
        : name_(std::move(name)), text_(std::move(text)), number_(TheState().CountNode()) {}
    Node(const Node&) = delete;
    Node& operator=(const Node&) = delete;

    std::string GetName() override {
        Record("GetName()");
        return name_;
    }
    std::string GetValue() override {
        Record("GetValue()");
        return text_;
    }
    int GetValueInt() override {
        Record("GetValueInt()");
        return std::atoi(text_.c_str());
    }
    ZQXML::INode* FindChild(const std::string& name) override {
        Record("FindChild(" + Quoted(name) + ")");
        const auto found = std::find_if(children_.nodes.begin(), children_.nodes.end(),
                                        [&name](const Node* node) { return node->name_ == name; });
        return found == children_.nodes.end() ? nullptr : *found;
    }
    void AppendChild(ZQXML::INode* child) override {
        auto* const node = static_cast<Node*>(child);
        Record("AppendChild(" + std::to_string(node->number_) + ")");
        children_.nodes.push_back(node);
        ++node->references_;
    }
    void AddChild(const std::string& name, const char* text) override {
        Add("AddChild", name, "C-string ", text, Quoted(text));
    }
    void AddChild(const std::string& name, const std::string& text) override {
        Add("AddChild", name, "string ", text, Quoted(text));
    }
    void AddChild(const std::string& name, int value) override {
        Add("AddChild", name, "int ", std::to_string(value), std::to_string(value));
    }
    void AddChild(const std::string& name, unsigned long value) override {
        Add("AddChild", name, "unsigned ", std::to_string(value), std::to_string(value));
    }
    void AddChild(const std::string& name, bool value) override {
        Add("AddChild", name, "bool ", value ? TRUE_STRING : "no", value ? "true" : "false");
    }
    void AddChildEncoded(const std::string& name, const std::string& text) override {
        Add("AddChildEncoded", name, "", text, Quoted(text));
    }
    std::string GetValueDecoded() override {
        Record("GetValueDecoded()");
        return text_;
    }
    ZQXML::INodeList* GetChildren() override {
        Record("GetChildren()");
        return &children_;
    }
    void Initialize(const std::string& name, const std::string& text) override {
        Record("Initialize(" + Quoted(name) + ", " + Quoted(text) + ")");
        name_ = name;
        text_ = text;
    }
    void Release() override {
        try {
            Record("Release()");
        } catch (const std::bad_alloc&) {
            // A test of failing allocations: the call is made by a destructor, so it must not
            // throw.
        }
        DropReference();
    }

    void Record(const std::string& call) const {
        TheState().calls += std::to_string(number_) + "." + call + "\n";
    }

 private:
    ~Node() {
        --TheState().liveNodes;
        for (Node* const child : children_.nodes) {
            child->DropReference();
        }
    }

    void Add(const char* operation, const std::string& name, const char* form,
             const std::string& text, const std::string& shown) {
        Record(std::string(operation) + "(" + Quoted(name) + ", " + form + shown + ")");
        children_.nodes.reserve(children_.nodes.size() + 1);
        children_.nodes.push_back(new Node(name, text));
    }

    void DropReference() {
        if (--references_ == 0) {
            delete this;
        }
    }

    std::string name_;
    std::string text_;
    int number_;
    int references_ = 1;
    ChildList children_{*this};
};

ZQXML::INode* ChildList::First() {
    owner_.Record("First()");
    position_ = 0;
    return Current();
}

ZQXML::INode* ChildList::Next() {
    owner_.Record("Next()");
    ++position_;
    return Current();
}

ZQXML::INode* ChildList::Current() const {
    return position_ < nodes.size() ? nodes[position_] : nullptr;
}

constexpr std::string_view kAlphabet =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

}  // namespace

namespace RecordingPlatform {

std::string TakeCalls() {
    return std::exchange(TheState().calls, {});
}

int LiveNodes() {
    return TheState().liveNodes;
}

int CodecCalls() {
    return TheState().codecCalls;
}

}  // namespace RecordingPlatform

zq::auto_com<ZQXML::INode> ZQXML::CreateXmlNode() {
    zq::auto_com<INode> node(new Node({}, {}));
    static_cast<Node*>(node.get())->Record("CreateXmlNode()");
    return node;
}

std::string zq::ToString(bool value) {
    return value ? "bool yes" : "bool no";
}
std::string zq::ToString(int value) {
    return "int " + std::to_string(value);
}
std::string zq::ToString(unsigned int value) {
    return "unsigned int " + std::to_string(value);
}
std::string zq::ToString(unsigned long value) {
    return "unsigned long " + std::to_string(value);
}

void zq::AssertWrite(const char* path, int line, const StackTrace& /*trace*/) {
    TheState().calls += "AssertWrite(" + Quoted(path) + ", " + std::to_string(line) + ")\n";
}

// A codec with ways of its own: it has other line formats than the one that is asked for, writes a
// terminator, which its lengths count, and does not tell how many bytes it has decoded.

constexpr long kWithoutLines = 2;

long Base64Encoder::EncodeGetLength(long length, long mode) const {
    return mode == kWithoutLines ? (length + 2) / 3 * 4 + 1 : 0;
}

int Base64Encoder::Encode(const char* data, long length, char* text, long* textLength,
                          long mode) const {
    ++TheState().codecCalls;
    std::string result;
    if (mode != kWithoutLines) {
        return 0;
    }
    for (long at = 0; at < length; at += 3) {
        std::array<unsigned, 3> group = {};
        const long size = std::min(3L, length - at);
        std::transform(data + at, data + at + size, group.begin(),
                       [](char byte) { return static_cast<unsigned char>(byte); });
        const unsigned bits = (group[0] << 16U) | (group[1] << 8U) | group[2];
        for (unsigned character = 0; character < 4; ++character) {
            result += static_cast<long>(character) <= size
                          ? kAlphabet[(bits >> (18 - 6 * character)) & 63U]
                          : '=';
        }
    }
    result += '\0';
    if (static_cast<long>(result.size()) > *textLength) {
        return 0;
    }
    std::copy(result.begin(), result.end(), text);
    *textLength = static_cast<long>(result.size());
    return 1;
}

int Base64Encoder::Decode(const char* text, long length, char* data, long* dataLength) const {
    ++TheState().codecCalls;
    std::string result;
    unsigned bits = 0;
    unsigned bitCount = 0;
    for (const char character : std::string_view(text, static_cast<std::size_t>(length))) {
        const std::size_t value = kAlphabet.find(character);
        if (value == std::string_view::npos) {
            if (character == '=') {
                break;
            }
            return 0;
        }
        bits = (bits << 6U) | static_cast<unsigned>(value);
        bitCount += 6;
        if (bitCount >= 8) {
            bitCount -= 8;
            result += static_cast<char>((bits >> bitCount) & 0xFFU);
        }
    }
    if (static_cast<long>(result.size()) > *dataLength) {
        return 0;
    }
    std::copy(result.begin(), result.end(), data);
    return 1;
}
