#ifndef QUAVERA_TOOLS_DIFFERENCES_H_
#define QUAVERA_TOOLS_DIFFERENCES_H_

#include <string>
#include <vector>

#include "tools/Json.h"
#include "tools/RecordShape.h"

namespace tool {

/// What differs between the JSON of two documents of a class, a line for each difference, without
/// line breaks:
///
///     Label: "Mond" -> "Sonne"
///     Tracks[3].Name: "Eins" -> "One"
///     Copyright: - -> "2009"            what one of them does not have
///     Tracks[4]: [4] -> [1]             the item has another place among those of both
///
/// in the order of `left`, with what only `right` has behind the rest of its record or list. Places
/// in lists count from 0; they are those of `left`, or of `right` for what only that one has. The
/// records of a list belong together by their identifiers, the element that is called as their
/// items are, without "Lite", and "Id"; those without one, and texts, by their places.
std::vector<std::string> Differences(const Json& left, const Json& right, const RecordShape& shape);

/// The JSON patch (RFC 6902) that makes `right` of `left`: empty where they are the same but for
/// the order of members.
Json Patch(Json left, const Json& right);

}  // namespace tool

#endif  // QUAVERA_TOOLS_DIFFERENCES_H_
