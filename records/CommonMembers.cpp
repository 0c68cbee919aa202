// What all records have in the same form. Destructors, copies and moves go member by member. The
// destructor is declared, to be exported, and with it the copies and moves have to be, or growing
// lists would copy their items. They are defined here, so that the library exports one of each.

#include "records/Fields.h"
#include "records/RecordHeaders.h"

QuavData::~QuavData() = default;

#define QUAVERA_RECORD(Record, soap, element, node, answer) \
    Record::~Record() = default;                            \
    Record::Record(const Record&) = default;                \
    Record::Record(Record&&) noexcept = default;            \
    Record& Record::operator=(const Record&) = default;     \
    Record& Record::operator=(Record&&) noexcept = default; \
    std::string Record::ToString() {                        \
        TextLines lines;                                    \
        AddLines(*this, lines);                             \
        return lines.Take();                                \
    }
#include "records/Records.def"
