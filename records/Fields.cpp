#include "records/Fields.h"

#include <algorithm>

#include "common/PlatformExtras.h"
#include "common/TextConversion.h"

namespace {

constexpr std::size_t kLargestTypicalItem = 512;

}  // namespace

void ElementWriter::Unsigned(std::string_view name, const unsigned long* value) {
    if (value != nullptr) {
        element_->AddChild(std::string(name), *value);
    }
}

void ElementWriter::Flag(std::string_view name, const bool* value) {
    if (value != nullptr) {
        element_->AddChild(std::string(name), *value);
    }
}

void ElementWriter::NumberUnlessZero(std::string_view name, int value) {
    if (value != 0) {
        Number(name, &value);
    }
}

void ElementWriter::FlagIfTrue(std::string_view name, bool value) {
    if (value) {
        Flag(name, &value);
    }
}

void ElementWriter::ValuesUnlessEmpty(std::string_view name,
                                      const std::vector<std::string>& texts) {
    if (texts.empty()) {
        return;
    }
    const auto list = NewChild(name);
    for (const std::string& text : texts) {
        ElementWriter(list.get()).String("Value", &text);
    }
    element_->AppendChild(list.get());
}

std::size_t ChildReader::CountChildren() {
    std::size_t count = 0;
    if (ZQXML::INodeList* const children = extras::ChildrenOf(Child())) {
        for (auto* child = children->First(); child != nullptr; child = children->Next()) {
            ++count;
        }
    }
    return count;
}

void ChildReader::Values(std::string_view name, std::vector<std::string>& field) {
    if (Takes(name)) {
        for (ChildReader value(Child()); value.Next();) {
            field.emplace_back(value.Text());
        }
    }
}

void ChildReader::Each(std::string_view name, std::vector<std::string>& field) {
    if (Takes(name)) {
        field.emplace_back(Text());
    }
}

void TextLines::Unsigned(std::string_view label, unsigned long value) {
    Plain(label, extras::Decimal(value).View());
}

void TextLines::Each(std::string_view label, const std::vector<std::string>& texts) {
    for (const std::string& text : texts) {
        Plain(label, text);
    }
}

void TextLines::Unbroken(std::string_view prefix, const std::vector<std::string>& texts) {
    for (const std::string& text : texts) {
        Text(prefix);
        Text(text);
    }
}

void TextLines::Line(std::string_view label, std::string_view text) {
    Text(label);
    Text(text);
    Text(kLineEnd);
}

void TextLines::Text(std::string_view text) {
    text_.Append(text);
}

void TextLines::PutUnusual(const std::wstring& text) {
    text_.Put(convertToUtf8(text));  // never more than the room for all others
}

void TextLines::ExpectItems(std::size_t count, std::size_t firstSize) {
    const std::size_t size = count * std::min(firstSize, kLargestTypicalItem);
    text_.Expect(size + size / 4);
}

bool IsNamed(ZQXML::INode* node, const std::string& name) {
    return node != nullptr && node->GetName() == name;
}

ZQXML::INode* FindChild(ZQXML::INode* node, const std::string& name) {
    return node == nullptr ? nullptr : node->FindChild(name);
}

zq::auto_com<ZQXML::INode> NewElement(std::string_view name) {
    auto element = ZQXML::CreateXmlNode();
    element->Initialize(std::string(name), "");
    return element;
}
