#include "records/Fields.h"

#include "common/PlatformExtras.h"
#include "common/QuaveraCommon.h"

void ElementWriter::Plain(std::string_view name, const std::string* text) {
    if (text != nullptr) {
        element_->AddChild(std::string(name), text->c_str());
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

void TextLines::Plain(std::string_view label, std::string_view text) {
    text_.append(label).append(" = ").append(text).append("\r\n");
}

void TextLines::Display(std::string_view label, const std::wstring& text) {
    Plain(label, convertToUtf8(text));
}

void TextLines::Number(std::string_view label, int value) {
    Plain(label, zq::ToString(value));
}

zq::auto_com<ZQXML::INode> NewElement(const std::string& name) {
    auto element = ZQXML::CreateXmlNode();
    element->Initialize(name, "");
    return element;
}
