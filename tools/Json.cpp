#include "tools/Json.h"

#include <cstdint>
#include <nlohmann/json.hpp>
#include <optional>

#include "common/TextConversion.h"
#include "tools/Decimal.h"

namespace tool {
namespace {

/// Calls `work` for each child.
template <class Work>
void ForEachChild(ZQXML::INode* element, const Work& work) {
    ZQXML::INodeList* const children = element->GetChildren();
    for (ZQXML::INode* child = children->First(); child != nullptr; child = children->Next()) {
        work(child);
    }
}

/// A number that the record holds as a text: only what is none stays one.
template <class Integer>
Json NumberOfText(const std::string& text) {
    const std::optional<Integer> value = ParseWholeDecimal<Integer>(text);
    return value ? Json(*value) : Json(text);
}

/// The value of an element that holds no elements, as the record's reader takes it.
Json ValueOf(ZQXML::INode* element, const ElementShape& shape) {
    const bool isReadAsText = shape.readAs == Content::kText;
    switch (shape.content) {
        case Content::kDisplay:
            return convertToUtf8(DecodeAndConvertFromUtf8(element->GetValue()));
        case Content::kLetter:
            return std::string(1, HexStringToChar(element->GetValue()));
        case Content::kNumber:
            return isReadAsText ? NumberOfText<std::int32_t>(element->GetValue())
                                : Json(element->GetValueInt());
        case Content::kUnsigned:
            return isReadAsText ? NumberOfText<std::uint32_t>(element->GetValue())
                                : Json(static_cast<std::uint32_t>(element->GetValueInt()));
        case Content::kFlag:
            return element->GetValue() == TRUE_STRING;
        default:
            return shape.readAs == Content::kMarkedText ? element->GetValueDecoded()
                                                        : element->GetValue();
    }
}

void AddMembers(ZQXML::INode* element, const RecordShape& shape, Json* object);

/// The list that stands at `member`, in which there may be items already.
Json* ListAt(Json* member) {
    if (member->is_null()) {
        *member = Json::array();
    }
    return member;
}

void AddItems(ZQXML::INode* element, const ElementShape& shape, Json* list) {
    ForEachChild(element, [&](ZQXML::INode* item) {
        if (shape.isItemOfOneName && item->GetName() != shape.item) {
            return;
        }
        if (shape.content == Content::kTexts) {
            list->push_back(item->GetValue());
        } else {
            list->push_back(ToJson(item, shape.elements));
        }
    });
}

void AddMember(ZQXML::INode* element, const ElementShape& shape, Json* member) {
    switch (shape.content) {
        case Content::kRecord:
            AddMembers(element, shape.elements, member);
            break;
        case Content::kRecords:
        case Content::kTexts:
            AddItems(element, shape, ListAt(member));
            break;
        case Content::kFlag:  // only ever set
            *member = (member->is_boolean() && member->get<bool>()) ||
                      ValueOf(element, shape).get<bool>();
            break;
        default:
            if (shape.isRepeated) {
                ListAt(member)->push_back(ValueOf(element, shape));
            } else {
                *member = ValueOf(element, shape);
            }
    }
}

void AddMembers(ZQXML::INode* element, const RecordShape& shape, Json* object) {
    if (object->is_null()) {
        *object = Json::object();
    }
    ForEachChild(element, [&](ZQXML::INode* child) {
        if (const ElementShape* const known = FindElement(shape, child->GetName())) {
            AddMember(child, *known, &(*object)[std::string(known->name)]);
        }
    });
}

}  // namespace

Json ToJson(ZQXML::INode* element, const RecordShape& shape) {
    Json object;
    AddMembers(element, shape, &object);
    return object;
}

std::string JsonText(const Json& json) {
    return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

}  // namespace tool
