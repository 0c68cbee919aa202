#include "records/Fields.h"

#include "common/PlatformExtras.h"
#include "common/QuaveraCommon.h"

void ElementWriter::Plain(std::string_view name, const std::string* text) {
    if (text != nullptr) {
        element_->AddChild(std::string(name), text->c_str());
    }
}

void ElementWriter::String(std::string_view name, const std::string* text) {
    if (text != nullptr) {
        element_->AddChild(std::string(name), *text);
    }
}

void ElementWriter::Display(std::string_view name, std::string* text) {
    if (text != nullptr) {
        element_->AddChildEncoded(std::string(name), base64EncodeString(text));
    }
}

void ElementWriter::Number(std::string_view name, const int* value) {
    if (value != nullptr) {
        element_->AddChild(std::string(name), *value);
    }
}

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

zq::auto_com<ZQXML::INode> ElementWriter::NewChild(std::string_view name) {
    auto child = CreateNodeFor(element_);
    child->Initialize(std::string(name), "");
    return child;
}

ChildReader::ChildReader(ZQXML::INode* element)
    : children_(element == nullptr ? nullptr : element->GetChildren()) {}

bool ChildReader::Next() {
    if (children_ == nullptr) {
        return false;
    }
    child_ = isStarted_ ? children_->Next() : children_->First();
    isStarted_ = true;
    if (child_ == nullptr) {
        return false;
    }
    isTaken_ = false;
    name_ = NameOf(child_, nameStorage_);
    return true;
}

bool ChildReader::Next(std::string_view name) {
    while (Next()) {
        if (Takes(name)) {
            return true;
        }
    }
    return false;
}

bool ChildReader::Takes(std::string_view name) {
    if (isTaken_ || name != name_) {
        return false;
    }
    isTaken_ = true;
    return true;
}

void ChildReader::Plain(std::string_view name, std::string& field) {
    if (Takes(name)) {
        field = child_->GetValue();
    }
}

void ChildReader::Display(std::string_view name, std::wstring& field) {
    if (Takes(name)) {
        field = DecodeAndConvertFromUtf8(child_->GetValue());
    }
}

void ChildReader::Number(std::string_view name, int& field) {
    if (Takes(name)) {
        field = child_->GetValueInt();
    }
}

void ChildReader::Flag(std::string_view name, bool& field) {
    if (Takes(name) && child_->GetValue() == TRUE_STRING) {
        field = true;
    }
}

void ChildReader::Values(std::string_view name, std::vector<std::string>& field) {
    if (Takes(name)) {
        for (ChildReader value(child_); value.Next();) {
            field.push_back(value.Child()->GetValue());
        }
    }
}

void ChildReader::Each(std::string_view name, std::vector<std::string>& field) {
    if (Takes(name)) {
        field.push_back(child_->GetValue());
    }
}

void TextLines::Plain(std::string_view label, std::string_view text) {
    Text(label);
    Line(" = ", text);
}

void TextLines::Display(std::string_view label, const std::wstring& text) {
    Plain(label, convertToUtf8(text));
}

void TextLines::Number(std::string_view label, int value) {
    Plain(label, zq::ToString(value));
}

void TextLines::Unsigned(std::string_view label, unsigned long value) {
    Plain(label, zq::ToString(value));
}

void TextLines::Flag(std::string_view label, bool value) {
    Plain(label, zq::ToString(value));
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
    Text("\r\n");
}

bool IsNamed(ZQXML::INode* node, const std::string& name) {
    return node != nullptr && node->GetName() == name;
}

ZQXML::INode* FindChild(ZQXML::INode* node, const std::string& name) {
    return node == nullptr ? nullptr : node->FindChild(name);
}

zq::auto_com<ZQXML::INode> NewElement(const std::string& name) {
    auto element = ZQXML::CreateXmlNode();
    element->Initialize(name, "");
    return element;
}
