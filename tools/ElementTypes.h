#ifndef QUAVERA_TOOLS_ELEMENT_TYPES_H_
#define QUAVERA_TOOLS_ELEMENT_TYPES_H_

#include <deque>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "tools/RecordShape.h"

namespace tool {

struct ElementType;

/// An element that may stand in another one.
struct ElementMember {
    std::string name;
    const ElementType* type;
};

/// What an element may hold: a text of some form, or elements.
struct ElementType {
    std::string_view expected;                 // of a text: "a number from 0 to 4294967295"
    bool (*isValue)(const std::string& text);  // of a text; null: it holds elements
    std::vector<ElementMember> members;
};

/// The type of a record's element in a tree, made of its shape.
class TreeTypes {
 public:
    explicit TreeTypes(const RecordShape& shape) : root_(TypeOf(shape)) {}

    const ElementType* root() const { return root_; }

 private:
    const ElementType* TypeOf(const RecordShape& shape);
    const ElementType* TypeOf(const ElementShape& element);
    const ElementType* ListOf(std::string_view item, const ElementType* type);

    std::deque<ElementType> types_;
    const ElementType* root_;
};

/// The types of the service's SOAP records by the names that they have on the wire, as the
/// service's description has them.
const std::map<std::string, ElementType>& SoapTypes();

/// The name among those of a type's members that is least different from `name`; empty for a type
/// without members.
std::string NearestMember(const ElementType& type, std::string_view name);

}  // namespace tool

#endif  // QUAVERA_TOOLS_ELEMENT_TYPES_H_
