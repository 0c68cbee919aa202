#ifndef QUAVERA_TOOLS_JSON_H_
#define QUAVERA_TOOLS_JSON_H_

#include <nlohmann/json_fwd.hpp>
#include <string>

#include "platform/zqshared.h"
#include "tools/RecordShape.h"

namespace tool {

/// JSON that keeps the order of an object's members.
using Json = nlohmann::ordered_json;

/// The object that stands for a record, by the element of its tree: a member for each element that
/// the record has, in their order and by their names, with the value that its reader takes. What
/// comes more than once the reader takes more than once: of a value the last one counts, the
/// members of a record come together, and lists grow.
Json ToJson(ZQXML::INode* element, const RecordShape& shape);

/// On one line, in UTF-8; bytes that are none are written as U+FFFD.
std::string JsonText(const Json& json);

}  // namespace tool

#endif  // QUAVERA_TOOLS_JSON_H_
