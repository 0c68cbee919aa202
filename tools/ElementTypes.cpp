#include "tools/ElementTypes.h"

#include <cstdint>
#include <utility>

#include "base/ExpatParser.h"
#include "base/Utf8.h"
#include "platform/zqshared.h"
#include "tools/Decimal.h"
#include "tools/NearestName.h"
#include "tools/ServiceDescription.h"
#include "tools/XmlNames.h"

namespace tool {
namespace {

// --- values

bool IsAnyText(const std::string& /*text*/) {
    return true;
}

template <class Integer>
bool IsTreeNumber(const std::string& text) {
    return ParseWholeDecimal<Integer>(text).has_value();
}

/// In a document of an XML schema, blanks around a number and a plus sign mean nothing.
template <class Integer>
bool IsSchemaNumber(const std::string& text) {
    constexpr std::string_view kBlanks = " \t\r\n";
    const std::size_t begin = text.find_first_not_of(kBlanks);
    if (begin == std::string::npos) {
        return false;
    }
    std::string_view number(text);
    number = number.substr(begin, text.find_last_not_of(kBlanks) + 1 - begin);
    const bool isPlus = number.size() > 1 && number[0] == '+' && number[1] != '-';
    return ParseWholeDecimal<Integer>(number.substr(isPlus ? 1 : 0)).has_value();
}

bool IsTreeFlag(const std::string& text) {
    return text == "true" || text == "false";
}

bool IsSchemaFlag(const std::string& text) {
    const std::size_t begin = text.find_first_not_of(" \t\r\n");
    const std::size_t end = text.find_last_not_of(" \t\r\n");
    const std::string flag =
        begin == std::string::npos ? std::string() : text.substr(begin, end + 1 - begin);
    return IsTreeFlag(flag) || flag == "1" || flag == "0";
}

bool IsUtf8(std::string_view text) {
    while (!text.empty()) {
        const std::size_t size = quavera::FirstCharacter(text).size;
        if (size == 0) {
            return false;
        }
        text.remove_prefix(size);
    }
    return true;
}

bool IsDisplayText(const std::string& text) {
    std::string bytes(text.size(), '\0');
    long size = static_cast<long>(bytes.size());
    return Base64Encoder().Decode(text.data(), static_cast<long>(text.size()), bytes.data(),
                                  &size) != 0 &&
           IsUtf8(std::string_view(bytes).substr(0, static_cast<std::size_t>(size)));
}

bool IsHexDigit(char character) {
    return std::string_view("0123456789abcdefABCDEF").find(character) != std::string_view::npos;
}

bool IsLetter(const std::string& text) {
    return text.size() == 2 && (text[0] == ' ' || IsHexDigit(text[0])) && IsHexDigit(text[1]);
}

constexpr char kAnyText[] = "a text";
constexpr char kInt[] = "a number from -2147483648 to 2147483647";
constexpr char kUnsignedInt[] = "a number from 0 to 4294967295";
constexpr char kFlag[] = R"("true" or "false")";
constexpr char kLong[] = "a number of 64 bits";

const ElementType kText = {kAnyText, IsAnyText, {}};

/// What an element of a tree may hold, by the content of its shape; nothing for elements.
const ElementType* TreeTypeOf(Content content) {
    static const ElementType display = {"base64 of UTF-8", IsDisplayText, {}};
    static const ElementType letter = {"two hexadecimal digits", IsLetter, {}};
    static const ElementType number = {kInt, IsTreeNumber<std::int32_t>, {}};
    static const ElementType unsignedNumber = {kUnsignedInt, IsTreeNumber<std::uint32_t>, {}};
    static const ElementType flag = {kFlag, IsTreeFlag, {}};
    switch (content) {
        case Content::kText:
        case Content::kMarkedText:
            return &kText;
        case Content::kDisplay:
            return &display;
        case Content::kLetter:
            return &letter;
        case Content::kNumber:
            return &number;
        case Content::kUnsigned:
            return &unsignedNumber;
        case Content::kFlag:
            return &flag;
        default:
            return nullptr;
    }
}

/// The types of XML schemas that the service's description uses.
const std::map<std::string, ElementType>& SchemaTypes() {
    static const std::map<std::string, ElementType> types = {
        {"string", kText},
        {"int", {kInt, IsSchemaNumber<std::int32_t>, {}}},
        {"unsignedInt", {kUnsignedInt, IsSchemaNumber<std::uint32_t>, {}}},
        {"long", {kLong, IsSchemaNumber<std::int64_t>, {}}},
        {"boolean", {kFlag, IsSchemaFlag, {}}},
    };
    return types;
}

/// Reads the service's description: of the types that have a name, what they are extensions of, and
/// the elements that they add.
class DescriptionReader : public quavera::ExpatParser<DescriptionReader> {
 public:
    struct Declared {
        std::string base;
        std::vector<std::pair<std::string, std::string>> members;  // names, and names of types
    };

    void Start(const XML_Char* name, const XML_Char** attributes) {
        const std::string_view element = WithoutPrefix(name);
        if (element == "complexType") {
            const std::string type = Attribute(attributes, "name");
            open_ = type.empty() ? nullptr : &declared_[type];
        } else if (element == "extension" && open_ != nullptr) {
            open_->base = std::string(WithoutPrefix(Attribute(attributes, "base")));
        } else if (element == "element" && open_ != nullptr) {
            open_->members.emplace_back(Attribute(attributes, "name"),
                                        WithoutPrefix(Attribute(attributes, "type")));
        }
    }
    void End(const XML_Char* name) {
        if (WithoutPrefix(name) == "complexType") {
            open_ = nullptr;
        }
    }
    void Text(std::string_view /*text*/) {}

    const std::map<std::string, Declared>& declared() const { return declared_; }

 private:
    static std::string Attribute(const XML_Char** attributes, std::string_view name) {
        const XML_Char* const value = FindAttribute(attributes, name);
        return value == nullptr ? "" : value;
    }

    std::map<std::string, Declared> declared_;
    Declared* open_ = nullptr;
};

using Types = std::map<std::string, ElementType>;

/// The members of a type, behind those of its base.
void AddMembers(const std::map<std::string, DescriptionReader::Declared>& declared,
                const std::string& name, const Types& types, ElementType* type) {
    const auto found = declared.find(name);
    if (found == declared.end()) {
        return;
    }
    AddMembers(declared, found->second.base, types, type);
    for (const auto& [member, of] : found->second.members) {
        const auto simple = SchemaTypes().find(of);
        const auto complex = types.find(of);
        const ElementType* const known = simple != SchemaTypes().end() ? &simple->second
                                         : complex != types.end()      ? &complex->second
                                                                       : &kText;
        type->members.push_back({member, known});
    }
}

Types ReadDescription() {
    DescriptionReader reader;
    reader.Parse(kServiceDescription);
    Types types;
    for (const auto& each : reader.declared()) {
        types[each.first] = {"elements", nullptr, {}};
    }
    for (auto& [name, type] : types) {
        AddMembers(reader.declared(), name, types, &type);
    }
    return types;
}

}  // namespace

const ElementType* TreeTypes::TypeOf(const RecordShape& shape) {
    ElementType type = {"elements", nullptr, {}};
    for (const ElementShape& element : shape) {
        type.members.push_back({std::string(element.name), TypeOf(element)});
    }
    types_.push_back(std::move(type));
    return &types_.back();
}

const ElementType* TreeTypes::TypeOf(const ElementShape& element) {
    switch (element.content) {
        case Content::kRecord:
            return TypeOf(element.elements);
        case Content::kRecords:
            return ListOf(element.item, TypeOf(element.elements));
        case Content::kTexts:
            return ListOf(element.item, &kText);
        default:
            return TreeTypeOf(element.content);
    }
}

const ElementType* TreeTypes::ListOf(std::string_view item, const ElementType* type) {
    types_.push_back({"elements", nullptr, {{std::string(item), type}}});
    return &types_.back();
}

const std::map<std::string, ElementType>& SoapTypes() {
    static const Types types = ReadDescription();
    return types;
}

std::string NearestMember(const ElementType& type, std::string_view name) {
    std::vector<std::string> names;
    for (const ElementMember& member : type.members) {
        names.push_back(member.name);
    }
    return NearestName(name, names);
}

}  // namespace tool
