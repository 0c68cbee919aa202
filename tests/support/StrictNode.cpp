#include "tests/support/StrictNode.h"

#include <algorithm>
#include <cstdlib>
#include <sstream>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/zqshared.h"

namespace {

using Lists = StrictTree::Lists;

/// Calls of `GetChildren` on one node that nobody needs.
constexpr int kFarTooManyWalks = 100;

struct Element;

/// What the nodes of a tree share.
struct Watch {
    explicit Watch(Lists lists) : kind(lists) {}

    void Complain(const std::string& line) {
        if (std::find(violations.begin(), violations.end(), line) == violations.end()) {
            violations.push_back(line);
        }
    }

    Lists kind;
    bool isClosed = false;
    std::vector<std::pair<std::string, std::string>> allowed;  // path, operation
    std::vector<std::string> violations;
    std::vector<std::string> changes;
};

std::string Joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) {
        text += line + '\n';
    }
    return text;
}

std::string InQuotes(std::string_view text) {
    return std::string(1, '"').append(text).append(1, '"');
}

/// Whether a path is one that `pattern` stands for.
bool Matches(const std::string& path, const std::string& pattern) {
    std::istringstream names(path);
    std::istringstream wanted(pattern);
    std::string name;
    std::string expected;
    while (std::getline(wanted, expected, '/')) {
        if (!std::getline(names, name, '/') || (expected != "*" && expected != name)) {
            return false;
        }
    }
    return names.eof() || names.peek() == std::istringstream::traits_type::eof();
}

/// Stands for an element.
class Node final : public ZQXML::INode {
 public:
    Node(Watch* watch, Element* element) : watch_(watch), element_(element) {}
    Node(const Node&) = delete;
    Node& operator=(const Node&) = delete;
    ~Node() override = default;

    void StandFor(Element* element) { element_ = element; }

    std::string GetName() override;
    std::string GetValue() override;
    int GetValueInt() override;
    ZQXML::INode* FindChild(const std::string& name) override;
    void AppendChild(ZQXML::INode* child) override;
    void AddChild(const std::string& name, const char* text) override;
    void AddChild(const std::string& name, const std::string& text) override;
    void AddChild(const std::string& name, int value) override;
    void AddChild(const std::string& name, unsigned long value) override;
    void AddChild(const std::string& name, bool value) override;
    void AddChildEncoded(const std::string& name, const std::string& text) override;
    std::string GetValueDecoded() override;
    ZQXML::INodeList* GetChildren() override;
    void Initialize(const std::string& name, const std::string& text) override;
    void Release() override;

 private:
    void Use(const std::string& operation);
    const std::string& Value(const std::string& operation);
    void Change(const std::string& call);
    void Add(const std::string& name, const std::string& text, const std::string& shown);

    Watch* watch_;
    Element* element_;
};

class List final : public ZQXML::INodeList {
 public:
    List(Watch* watch, Element* owner) : watch_(watch), owner_(owner), node_(watch, nullptr) {}
    List(const List&) = delete;
    List& operator=(const List&) = delete;
    ~List() override = default;

    void BeginAnew();
    ZQXML::INode* First() override;
    ZQXML::INode* Next() override;

 private:
    enum class Walk { kNotBegun, kOnTheWay, kAtEnd };

    void Use(const std::string& operation);
    ZQXML::INode* Go(std::size_t position);
    void Complain(const std::string& what);

    Watch* watch_;
    Element* owner_;
    Node node_;  // of a list whose children are made on demand
    std::size_t position_ = 0;
    Walk walk_ = Walk::kNotBegun;
};

struct Element {
    Element(Watch* watch, std::string elementPath, std::string elementName, std::string elementText)
        : path(std::move(elementPath)),
          name(std::move(elementName)),
          text(std::move(elementText)),
          node(watch, this) {}

    Element* Append(Watch* watch, const std::string& childName, const std::string& childText) {
        children.push_back(
            std::make_unique<Element>(watch, path + '/' + childName, childName, childText));
        return children.back().get();
    }

    std::string path;
    std::string name;
    std::string text;
    std::vector<std::unique_ptr<Element>> children;
    Node node;
    std::vector<std::unique_ptr<List>> lists;
    int walks = 0;
    int endedWalks = 0;
};

/// Copies what is below a node of any tree.
void CopyChildren(Watch* watch, ZQXML::INode* from, Element* to) {
    ZQXML::INodeList* const children = from->GetChildren();
    for (ZQXML::INode* child = children->First(); child != nullptr; child = children->Next()) {
        CopyChildren(watch, child, to->Append(watch, child->GetName(), child->GetValue()));
    }
}

std::string Shown(const Element& element) {
    std::string text = InQuotes(element.name);
    if (!element.text.empty()) {
        text += ' ' + InQuotes(element.text);
    }
    for (const auto& child : element.children) {
        text += " (" + Shown(*child) + ')';
    }
    return text;
}

void AddWalks(const Element& element, std::vector<std::string>* lines) {
    if (element.walks > 0) {
        const int cutOff = element.walks - element.endedWalks;
        lines->push_back(element.path + ' ' + std::to_string(element.walks) +
                         (cutOff == 0 ? "" : ", " + std::to_string(cutOff) + " cut off"));
    }
    for (const auto& child : element.children) {
        AddWalks(*child, lines);
    }
}

// --- Nodes -------------------------------------------------------------------------------------

std::string Node::GetName() {
    Use("GetName");
    return element_->name;
}

std::string Node::GetValue() {
    return Value("GetValue");
}

int Node::GetValueInt() {
    return static_cast<int>(std::strtoll(Value("GetValueInt").c_str(), nullptr, 10));
}

std::string Node::GetValueDecoded() {
    return Value("GetValueDecoded");
}

ZQXML::INode* Node::FindChild(const std::string& name) {
    Use("FindChild");
    for (const auto& child : element_->children) {
        if (child->name == name) {
            return &child->node;
        }
    }
    return nullptr;
}

void Node::AppendChild(ZQXML::INode* child) {
    Element* const copy = element_->Append(watch_, child->GetName(), child->GetValue());
    CopyChildren(watch_, child, copy);
    Change("AppendChild(" + Shown(*copy) + ")");
}

void Node::AddChild(const std::string& name, const char* text) {
    Add(name, text == nullptr ? "" : text,
        text == nullptr ? "C-string null" : "C-string " + InQuotes(text));
}

void Node::AddChild(const std::string& name, const std::string& text) {
    Add(name, text, "string " + InQuotes(text));
}

void Node::AddChild(const std::string& name, int value) {
    const std::string text = std::to_string(value);
    Add(name, text, "int " + text);
}

void Node::AddChild(const std::string& name, unsigned long value) {
    const std::string text = std::to_string(value);
    Add(name, text, "unsigned " + text);
}

void Node::AddChild(const std::string& name, bool value) {
    const std::string text = value ? TRUE_STRING : "false";
    Add(name, text, "bool " + text);
}

void Node::AddChildEncoded(const std::string& name, const std::string& text) {
    element_->Append(watch_, name, text);
    Change("AddChildEncoded(" + InQuotes(name) + ", " + InQuotes(text) + ")");
}

ZQXML::INodeList* Node::GetChildren() {
    Use("GetChildren");
    auto& lists = element_->lists;
    if (lists.empty() || watch_->kind == Lists::kNew) {
        lists.push_back(std::make_unique<List>(watch_, element_));
    }
    ++element_->walks;
    lists.back()->BeginAnew();
    return lists.back().get();
}

void Node::Initialize(const std::string& name, const std::string& text) {
    Change("Initialize(" + InQuotes(name) + ", " + InQuotes(text) + ")");
    element_->name = name;
    element_->text = text;
}

void Node::Release() {
    Use("Release");
    watch_->Complain(element_->path + ": Release of a borrowed node");
}

void Node::Use(const std::string& operation) {
    if (watch_->isClosed) {
        watch_->Complain(element_->path + ": " + operation + " of a node that is gone");
    }
}

const std::string& Node::Value(const std::string& operation) {
    Use(operation);
    const bool isAllowed = std::any_of(watch_->allowed.begin(), watch_->allowed.end(),
                                       [&](const auto& pathAndOperation) {
                                           return pathAndOperation.second == operation &&
                                                  Matches(element_->path, pathAndOperation.first);
                                       });
    if (!isAllowed) {
        watch_->Complain(element_->path + ": " + operation + " of a node that has no such value");
    }
    return element_->text;
}

void Node::Change(const std::string& call) {
    Use(call);
    const bool isRoot = element_->path.find('/') == std::string::npos;
    watch_->changes.push_back((isRoot ? "" : element_->path + ": ") + call);
}

void Node::Add(const std::string& name, const std::string& text, const std::string& shown) {
    element_->Append(watch_, name, text);
    Change("AddChild(" + InQuotes(name) + ", " + shown + ")");
}

// --- Lists -------------------------------------------------------------------------------------

void List::BeginAnew() {
    position_ = 0;
    walk_ = Walk::kNotBegun;
}

ZQXML::INode* List::First() {
    Use("First");
    if (walk_ != Walk::kNotBegun) {
        Complain("First twice on a list");
    }
    return Go(0);
}

ZQXML::INode* List::Next() {
    Use("Next");
    if (walk_ == Walk::kNotBegun) {
        Complain("Next ahead of First");
        return Go(0);
    }
    if (walk_ == Walk::kAtEnd) {
        Complain("Next after the end");
        return nullptr;
    }
    return Go(position_ + 1);
}

void List::Use(const std::string& operation) {
    if (watch_->isClosed) {
        Complain(operation + " of a list that is gone");
    }
}

ZQXML::INode* List::Go(std::size_t position) {
    const bool isEndless = owner_->walks > kFarTooManyWalks;
    if (isEndless) {
        Complain("walks without end");
    }
    position_ = position;
    if (isEndless || position >= owner_->children.size()) {
        walk_ = Walk::kAtEnd;
        ++owner_->endedWalks;
        return nullptr;
    }
    walk_ = Walk::kOnTheWay;
    Element* const child = owner_->children[position].get();
    if (watch_->kind != Lists::kReused) {
        return &child->node;
    }
    node_.StandFor(child);
    return &node_;
}

void List::Complain(const std::string& what) {
    watch_->Complain(owner_->path + ": " + what);
}

}  // namespace

// --- The tree ----------------------------------------------------------------------------------

struct StrictTree::State {
    State(Lists lists, const std::string& name, const std::string& text)
        : watch(lists), root(&watch, name, name, text) {}

    Watch watch;
    Element root;
};

StrictTree::StrictTree(Lists lists, const std::string& rootName)
    : state_(std::make_unique<State>(lists, rootName, "")) {}

StrictTree::StrictTree(Lists lists, ZQXML::INode* original)
    : state_(std::make_unique<State>(lists, original->GetName(), original->GetValue())) {
    CopyChildren(&state_->watch, original, &state_->root);
}

StrictTree::~StrictTree() = default;

ZQXML::INode* StrictTree::Root() {
    return &state_->root.node;
}

void StrictTree::Allow(const std::string& path, const std::string& operation) {
    state_->watch.allowed.emplace_back(path, operation);
}

void StrictTree::Close() {
    state_->watch.isClosed = true;
}

std::string StrictTree::Violations() const {
    return Joined(state_->watch.violations);
}

std::string StrictTree::Walks() const {
    std::vector<std::string> lines;
    AddWalks(state_->root, &lines);
    return Joined(lines);
}

std::string StrictTree::Changes() const {
    return Joined(state_->watch.changes);
}
