#include "records/Fields.h"

#include <algorithm>
#include <new>

#include "common/TextConversion.h"

void FailForItems() {
    throw std::bad_alloc();
}

void ElementWriter::Unsigned(RowName name, const unsigned long* value) {
    if (value != nullptr) {
        element_->AddChild(std::string(name), *value);
    }
}

void ElementWriter::DecimalString(RowName name, const int* value) {
    if (value != nullptr) {
        const std::string text = zq::ToString(*value);
        String(name, &text);
    }
}

void ElementWriter::HexLetter(RowName name, const std::string* text) {
    if (text != nullptr) {
        const std::string code = CharToHexString(text->c_str()[0]);  // of an empty text: zero's
        String(name, &code);
    }
}

void ElementWriter::Flag(RowName name, const bool* value) {
    if (value != nullptr) {
        element_->AddChild(std::string(name), *value);
    }
}

void ElementWriter::ValuesUnlessEmpty(RowName name, const std::vector<std::string>& texts) {
    if (texts.empty()) {
        return;
    }
    const auto list = quavera::Nodes::NewChild(element_, name);
    for (const std::string& text : texts) {
        ElementWriter(list.get()).String("Value", &text);
    }
    element_->AppendChild(list.get());
}

void ChildReader::HexLetter(RowName name, std::string& field) {
    if (Takes(name)) {
        field.assign(1, HexStringToChar(std::string(walk_.Text())));
    }
}

void ChildReader::Values(RowName name, std::vector<std::string>& field) {
    if (Takes(name)) {
        for (ChildWalk value(Child()); value.Next();) {
            field.emplace_back(value.Text());
        }
    }
}

void TextLines::Each(RowName label, const std::vector<std::string>& texts) {
    for (const std::string& text : texts) {
        Plain(label, text);
    }
}

void TextLines::Unbroken(RowName prefix, const std::vector<std::string>& texts) {
    for (const std::string& text : texts) {
        text_.Append(prefix);
        text_.Append(text);
    }
}

void TextLines::ExpectItems(std::size_t count, std::size_t firstSize) {
    constexpr std::size_t kLargestTypical = 512;
    const std::size_t size = count * std::min(firstSize, kLargestTypical);
    text_.Expect(size + size / 4);
}

bool IsNamed(ZQXML::INode* node, const std::string& name) {
    return node != nullptr && node->GetName() == name;
}

ZQXML::INode* FindChild(ZQXML::INode* node, const std::string& name) {
    return node == nullptr ? nullptr : node->FindChild(name);
}

zq::auto_com<ZQXML::INode> NewElement(RowName name) {
    auto element = ZQXML::CreateXmlNode();
    element->Initialize(std::string(name), "");
    return element;
}
