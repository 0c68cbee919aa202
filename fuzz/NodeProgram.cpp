// Programs of the operations that nodes have, against a model of trees.

#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "fuzz/Expect.h"
#include "fuzz/Input.h"
#include "fuzz/NaiveCodecs.h"
#include "fuzz/Target.h"
#include "fuzz/Trees.h"
#include "platform/zqshared.h"
#include "tests/support/FakeNode.h"

namespace {

using fuzz::Expect;
using fuzz::ExpectSame;
using fuzz::Tree;

// --- The model ---------------------------------------------------------------------------------

/// An element. It lives as long as its parent or a handle holds it, as a node is to.
struct Model : std::enable_shared_from_this<Model> {
    Model() = default;
    Model(const Model&) = delete;
    Model& operator=(const Model&) = delete;
    ~Model() {
        for (const auto& child : children) {
            child->parent = nullptr;
        }
    }

    bool IsWithin(const Model* root) const {
        const Model* above = this;
        while (above != nullptr && above != root) {
            above = above->parent;
        }
        return above == root;
    }

    std::size_t Size() const {
        std::size_t size = 1;
        for (const auto& child : children) {
            size += child->Size();
        }
        return size;
    }

    std::string name;
    std::string text;
    bool isEncoded = false;
    Model* parent = nullptr;
    std::vector<std::shared_ptr<Model>> children;
};

using ModelPointer = std::shared_ptr<Model>;

ModelPointer NewModel(const std::string& name, const std::string& text, bool isEncoded) {
    auto model = std::make_shared<Model>();
    model->name = name;
    model->text = text;
    model->isEncoded = isEncoded;
    return model;
}

void Append(Model* parent, ModelPointer child) {
    child->parent = parent;
    parent->children.push_back(std::move(child));
}

/// As a copy of nodes that know no marks is.
ModelPointer CopyWithoutMarks(const Model& model) {
    ModelPointer copy = NewModel(model.name, model.text, false);
    for (const auto& child : model.children) {
        Append(copy.get(), CopyWithoutMarks(*child));
    }
    return copy;
}

// --- What a node has to show of its model ------------------------------------------------------

void CheckValues(ZQXML::INode* node, const Model& model) {
    ExpectSame(node->GetName(), model.name, "GetName");
    ExpectSame(node->GetValue(), model.text, "GetValue");
    ExpectSame(node->GetValueInt(), fuzz::NaiveNumber(model.text), "GetValueInt");
    ExpectSame(node->IsEncoded(), model.isEncoded, "IsEncoded");
    ExpectSame(node->GetValueDecoded(),
               model.isEncoded ? fuzz::NaiveBase64Bytes(model.text).value_or("") : model.text,
               "GetValueDecoded");
}

void CheckView(const ZQXML::NodeView& view, const Model& model) {
    using Form = ZQXML::TextForm;
    ExpectSame(std::string(view.Name()), model.name, "the name of a view");
    switch (view.form) {
        case Form::kNumber:
            ExpectSame(std::to_string(view.Number()), model.text, "the number of a view");
            ExpectSame(model.isEncoded, false, "a number has no mark");
            break;
        case Form::kBytes:
            ExpectSame(fuzz::NaiveBase64(view.Text()), model.text, "the bytes of a view");
            ExpectSame(model.isEncoded, true, "bytes have the mark");
            break;
        default:
            ExpectSame(std::string(view.Text()), model.text, "the text of a view");
            ExpectSame(view.form == Form::kBase64, model.isEncoded, "the form of a view");
    }
}

std::vector<ZQXML::INode*> ChildrenOf(ZQXML::INode* node) {
    std::vector<ZQXML::INode*> children;
    ZQXML::INodeList* const list = node->GetChildren();
    for (ZQXML::INode* child = list->First(); child != nullptr; child = list->Next()) {
        children.push_back(child);
    }
    return children;
}

void CheckTree(ZQXML::INode* node, const Model& model) {
    CheckValues(node, model);
    CheckView(node->View(), model);
    ExpectSame(node->GetChildrenIfAny() == nullptr, model.children.empty(), "GetChildrenIfAny");
    const std::vector<ZQXML::INode*> children = ChildrenOf(node);
    ExpectSame(children.size(), model.children.size(), "the number of children");
    for (std::size_t at = 0; at < children.size(); ++at) {
        CheckTree(children[at], *model.children[at]);
    }
}

// --- Programs ----------------------------------------------------------------------------------

class Program {
 public:
    explicit Program(fuzz::Input* input) : input_(*input) {}

    void Run() {
        while (!input_.IsAtEnd()) {
            Step();
        }
        for (const Handle& handle : handles_) {
            if (handle.node) {
                CheckTree(handle.node.get(), *handle.model);
            }
        }
    }

 private:
    /// A reference on a node, and its model.
    struct Handle {
        Tree node;
        ModelPointer model;
    };
    /// A node, borrowed.
    struct Place {
        ZQXML::INode* node;
        Model* model;
    };

    // Doubling by copies has to end.
    static constexpr std::size_t kMostCopied = 64;

    Handle& AnyHandle() { return handles_[input_.Below(std::size(handles_))]; }

    /// Of a node that a handle holds, or that stands below it; a new one, if there is none.
    Place AnyPlace() {
        Handle& handle = AnyHandle();
        if (!handle.node) {
            handle = {ZQXML::CreateXmlNode(), NewModel("", "", false)};
        }
        Place place = {handle.node.get(), handle.model.get()};
        for (std::size_t steps = input_.Below(4); steps > 0; --steps) {
            if (!place.model->children.empty()) {
                const std::size_t at = input_.Below(place.model->children.size());
                place = {ChildrenOf(place.node)[at], place.model->children[at].get()};
            }
        }
        return place;
    }

    /// Few, so that some are equal.
    std::string Name() {
        const std::size_t choice = input_.Below(6);
        return choice == 5 ? input_.Text() : std::string("Abcdefghi").substr(0, 2 * choice);
    }

    void Step() {
        switch (input_.Below(10)) {
            case 0:
            case 1:
            case 2:
                AddChild();
                break;
            case 3:
                AppendChild();
                break;
            case 4:
                NewChild();
                break;
            case 5:
                Hold();
                break;
            case 6:
                AnyHandle() = {};
                break;
            case 7:
                Change();
                break;
            case 8:
                Walk();
                break;
            default:
                Look();
        }
    }

    void AddChild() {
        const Place place = AnyPlace();
        const std::string name = Name();
        ModelPointer child;
        if (input_.Flag()) {
            child = AddText(place.node, name);
        } else {
            child = AddOther(place.node, name);
        }
        Append(place.model, child);
        CheckValues(ChildrenOf(place.node).back(), *child);
    }

    ModelPointer AddText(ZQXML::INode* node, const std::string& name) {
        const std::size_t form = input_.Below(6);
        const std::string text = input_.Text();
        switch (form) {
            case 0:
                node->AddCString(name, text.c_str());
                return NewModel(name, fuzz::CutAtZero(text), false);
            case 1:
                node->AddChild(name, text.c_str());
                return NewModel(name, fuzz::CutAtZero(text), false);
            case 2:
                node->AddText(name, text);
                return NewModel(name, text, false);
            case 3:
                node->AddChild(name, text);
                return NewModel(name, text, false);
            case 4:
                node->AddEncoded(name, text);
                return NewModel(name, fuzz::NaiveBase64(text), true);
            default:
                node->AddChildEncoded(name, text);
                return NewModel(name, text, true);
        }
    }

    ModelPointer AddOther(ZQXML::INode* node, const std::string& name) {
        switch (const int number = input_.Integer(); input_.Below(5)) {
            case 0:
                node->AddNumber(name, number);
                return NewModel(name, std::to_string(number), false);
            case 1:
                node->AddChild(name, number);
                return NewModel(name, std::to_string(number), false);
            case 2:
                node->AddChild(name, static_cast<unsigned long>(number));
                return NewModel(name, std::to_string(static_cast<std::uint32_t>(number)), false);
            case 3:
                node->AddChild(name, number > 0);
                return NewModel(name, number > 0 ? "true" : "false", false);
            default:
                node->AddCString(name, nullptr);
                return NewModel(name, "", false);
        }
    }

    void AppendChild() {
        const Place parent = AnyPlace();
        switch (input_.Below(4)) {
            case 0:
                parent.node->AppendChild(nullptr);
                break;
            case 1:
                AppendCopy(parent);
                break;
            default:
                AppendOwn(parent, AnyPlace());
        }
    }

    static void AppendOwn(const Place& parent, const Place& child) {
        parent.node->AppendChild(child.node);
        // Whatever has no parent is held by a handle.
        if (child.model->parent == nullptr && !parent.model->IsWithin(child.model)) {
            Append(parent.model, child.model->shared_from_this());
        }
    }

    void AppendCopy(const Place& parent) {
        const Place original = AnyPlace();
        if (original.model->Size() > kMostCopied) {
            return;
        }
        ModelPointer copy = CopyWithoutMarks(*original.model);
        parent.node->AppendChild(FakeNode::Copy(original.node).get());
        Append(parent.model, std::move(copy));
    }

    void NewChild() {
        const Place near = AnyPlace();
        const std::string name = Name();
        Tree node = near.node->CreateNode(name);
        ModelPointer model = NewModel(name, "", false);
        CheckTree(node.get(), *model);
        AnyHandle() = {std::move(node), std::move(model)};
    }

    /// One more reference, in another handle's place; or releases one that is not held.
    void Hold() {
        const Place place = AnyPlace();
        ModelPointer model = place.model->shared_from_this();
        if (input_.Below(4) == 0) {
            const bool isHeld =
                std::any_of(std::begin(handles_), std::end(handles_),
                            [&](const Handle& handle) { return handle.model == model; });
            if (!isHeld) {
                place.node->Release();
            }
            return;
        }
        place.node->AddRef();
        AnyHandle() = {Tree(place.node), std::move(model)};
    }

    void Change() {
        const Place place = AnyPlace();
        place.model->name = Name();
        place.model->text = input_.Text();
        place.model->isEncoded = false;
        place.node->Initialize(place.model->name, place.model->text);
        CheckValues(place.node, *place.model);
    }

    /// A walk that follows what is added on the way.
    void Walk() {
        const Place place = AnyPlace();
        ZQXML::INodeList* const list = place.node->GetChildren();
        std::size_t at = 0;
        for (ZQXML::INode* child = list->First(); child != nullptr; child = list->Next()) {
            Expect(at < place.model->children.size(), "a walk has an end", place.model->name);
            CheckValues(child, *place.model->children[at]);
            ++at;
            if (input_.Below(4) == 1) {
                place.node->AddText("On the way", "");
                Append(place.model, NewModel("On the way", "", false));
            }
        }
        ExpectSame(at, place.model->children.size(), "a walk comes by every child");
    }

    void Look() {
        const Place place = AnyPlace();
        if (input_.Flag()) {
            Find(place);
        } else {
            LookAtSeveral(place);
        }
    }

    void Find(const Place& place) {
        const std::string name = Name();
        ZQXML::INode* const found = place.node->FindChild(name);
        const auto& models = place.model->children;
        const auto model = std::find_if(models.begin(), models.end(),
                                        [&](const auto& child) { return child->name == name; });
        ExpectSame(found == nullptr, model == models.end(), "FindChild finds a child");
        if (found != nullptr) {
            const auto at = static_cast<std::size_t>(model - models.begin());
            Expect(found == ChildrenOf(place.node)[at], "FindChild finds the first", name);
        }
    }

    /// A walk in steps of any size.
    void LookAtSeveral(const Place& place) {
        ZQXML::INodeList* const list = place.node->GetChildren();
        ExpectSame(list->CountHint(), place.model->children.size(), "CountHint");
        ZQXML::NodeView views[9];
        std::size_t at = 0;
        for (bool isFirst = true;; isFirst = false) {
            const auto room = static_cast<unsigned int>(1 + input_.Below(std::size(views)));
            const unsigned int count =
                isFirst ? list->ViewFirst(views, room) : list->ViewNext(views, room);
            Expect(count <= room, "no more views than there is room", count);
            for (unsigned int view = 0; view < count; ++view, ++at) {
                Expect(at < place.model->children.size(), "views have an end", at);
                CheckView(views[view], *place.model->children[at]);
                CheckValues(views[view].node, *place.model->children[at]);
            }
            if (count == 0) {
                break;
            }
        }
        ExpectSame(at, place.model->children.size(), "views show every child");
    }

    fuzz::Input& input_;
    Handle handles_[6];
};

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    Program(&input).Run();
    return 0;
}
