#include "fuzz/Trees.h"

namespace fuzz {
namespace {

// Few enough for tests' helpers that recurse.
constexpr std::size_t kMostLevels = 60;

Tree NewNode(const std::string& name, const std::string& text) {
    Tree node = ZQXML::CreateXmlNode();
    node->Initialize(name, text);
    return node;
}

}  // namespace

std::string TreeMaker::Name() {
    const std::size_t choice = input_.Byte();
    return choice < 0xF0 ? names_[choice % names_.size()] : input_.Pick(names_) + input_.Text();
}

void TreeMaker::Add(std::size_t form) {
    ZQXML::INode* const parent = open_.back();
    const std::string name = Name();
    switch (form) {
        case 0:
            parent->AddCString(name, input_.Text().c_str());
            break;
        case 1:
            parent->AddText(name, input_.Text());
            break;
        case 2:
            parent->AddNumber(name, input_.Integer());
            break;
        case 3:
            parent->AddEncoded(name, input_.Text());
            break;
        case 4:
            parent->AddChildEncoded(name, input_.Text());
            break;
        case 5:
            parent->AddChild(name, input_.Flag());
            break;
        case 6:
            parent->AddChild(name, static_cast<unsigned long>(input_.Integer()));
            break;
        default:
            parent->AddChild(name, zq::EncodeBase64(input_.Text()));
    }
}

void TreeMaker::Open(Tree element) {
    open_.back()->AppendChild(element.get());
    open_.push_back(element.get());
}

void TreeMaker::EnterLastChild() {
    ZQXML::INode* last = nullptr;
    ZQXML::INodeList* const children = open_.back()->GetChildren();
    for (ZQXML::INode* child = children->First(); child != nullptr; child = children->Next()) {
        last = child;
    }
    if (last != nullptr) {
        open_.push_back(last);
    }
}

Tree TreeMaker::Make() {
    Tree root = NewNode(Name(), input_.Text());
    open_ = {root.get()};
    while (!input_.IsAtEnd()) {
        const std::size_t step = input_.Below(14);
        const bool isDeep = open_.size() > kMostLevels;
        if (step < 8) {
            Add(step);
        } else if (step == 8) {
            break;
        } else if (step < 11) {
            if (open_.size() > 1) {
                open_.pop_back();
            }
        } else if (!isDeep && step == 11) {
            EnterLastChild();
        } else if (!isDeep) {
            Open(step == 12 ? open_.back()->CreateNode(Name()) : NewNode(Name(), input_.Text()));
        }
    }
    return root;
}

}  // namespace fuzz
