#ifndef QUAVERA_TOOLS_RECORD_SHAPE_H_
#define QUAVERA_TOOLS_RECORD_SHAPE_H_

#include <string>
#include <string_view>
#include <vector>

namespace tool {

/// What an element of a record's tree holds, or a line of its log text.
enum class Content {
    kText,        // a text as it stands
    kMarkedText,  // the same, or base64 of it, which the element's mark tells
    kDisplay,     // a text as base64 of its UTF-8; in the log text, its UTF-8
    kLetter,      // a byte as two hexadecimal digits
    kNumber,      // a signed number of 32 bits, in decimal
    kUnsigned,    // an unsigned one
    kFlag,        // "true" or "false"
    kRecord,      // the elements of a record
    kRecords,     // an element for each record of a list
    kTexts,       // an element for each text of a list
};

struct ElementShape;

/// The elements that a record writes or reads.
using RecordShape = std::vector<ElementShape>;

struct ElementShape {
    std::string_view name;
    Content content = Content::kText;
    bool isRepeated = false;  // there is one for each text of a list
    bool isWritten = false;
    std::string_view writtenIf;  // where that is not by the member alone: "unless zero"
    bool isRead = false;
    Content readAs = Content::kText;  // where the record holds it in another form, else the same

    // Of lists.
    std::string_view item;         // the name of the items' elements
    bool isItemOfOneName = false;  // others are not read

    RecordShape elements;  // of a record, or of each record of a list
};

/// The element of that name; null where there is none.
const ElementShape* FindElement(const RecordShape& shape, std::string_view name);

/// The shape of the record class of that name, those of the records within it included: first what
/// it writes, in that order, then what it only reads. It is not written down anywhere: it is what
/// the rows of the record's source say.
const RecordShape& ShapeOf(std::string_view recordClass);

struct LineShape;

/// The lines of a record's log text.
using TextShape = std::vector<LineShape>;

struct LineShape {
    std::string label;  // all ahead of the value: "albumId = "
    Content content = Content::kText;
    bool isRepeated = false;  // there is one for each text of a list
    bool isBroken = true;     // a line break comes after it
    TextShape lines;          // of a record, or of each record of a list
};

/// The lines of the record class of that name, in their order, those of the records within it
/// included. Made of the rows, too.
const TextShape& TextOf(std::string_view recordClass);

}  // namespace tool

#endif  // QUAVERA_TOOLS_RECORD_SHAPE_H_
