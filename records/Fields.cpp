#include "records/Fields.h"

#include <algorithm>
#include <utility>

#include "common/DirectText.h"
#include "common/PlatformExtras.h"
#include "common/TextConversion.h"

namespace {

constexpr std::string_view kEquals = " = ";
constexpr std::string_view kLineEnd = "\r\n";
constexpr std::size_t kLargestTypicalItem = 512;
// A string cannot grow without being filled first. Done in pieces of this size, it happens in the
// processor's nearest cache, right ahead of the writing.
constexpr std::size_t kPiece = 1024;
constexpr std::size_t kLargestUtf8 = 4;  // bytes of a character

/// Writes `text` at `to`; the place behind it.
char* Put(std::string_view text, char* to) {
    return zq::CopyText(text, to);
}

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
    ZQXML::INodeList* const children = Child()->GetChildren();
    if (children != nullptr && children->First() != nullptr) {
        do {
            ++count;
        } while (children->Next() != nullptr);
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

void TextLines::Plain(std::string_view label, std::string_view text) {
    char* const at = Room(label.size() + kEquals.size() + text.size() + kLineEnd.size());
    Put(kLineEnd, Put(text, Put(kEquals, Put(label, at))));
}

void TextLines::Display(std::string_view label, const std::wstring& text) {
    const std::size_t start = size_;
    char* at = Room(label.size() + kEquals.size() + text.size() * kLargestUtf8 + kLineEnd.size());
    at = Put(kEquals, Put(label, at));
    const std::size_t size = NarrowDirectly(text, at);
    if (size == kUnusualText) {
        size_ = start;
        Plain(label, convertToUtf8(text));
        return;
    }
    size_ = static_cast<std::size_t>(Put(kLineEnd, at + size) - buffer_.data());
}

void TextLines::Number(std::string_view label, int value) {
    Plain(label, extras::Decimal(value).View());
}

void TextLines::Unsigned(std::string_view label, unsigned long value) {
    Plain(label, extras::Decimal(value).View());
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
    Text(kLineEnd);
}

void TextLines::Text(std::string_view text) {
    Put(text, Room(text.size()));
}

std::string TextLines::Take() {
    buffer_.resize(size_);
    return std::move(buffer_);
}

char* TextLines::Room(std::size_t size) {
    if (buffer_.size() - size_ < size) {
        buffer_.resize(size_ + std::max(size, kPiece));
    }
    char* const start = &buffer_[size_];
    size_ += size;
    return start;
}

void TextLines::ExpectItems(std::size_t count, std::size_t firstSize) {
    const std::size_t size = count * std::min(firstSize, kLargestTypicalItem);
    const std::size_t room = size_ + size + size / 4;
    if (room > buffer_.capacity()) {
        buffer_.reserve(room);
    }
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
