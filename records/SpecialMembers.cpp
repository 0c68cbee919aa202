// The records' destructors, copies and moves: member by member, all of them.
//
// A virtual destructor has to be declared, or the classes would not export one; with it, the copies
// and moves have to be declared too, or lists would copy their items when they grow. They are
// defined here, not in the headers, so that the library holds and exports one of each.

#include "records/RecordHeaders.h"

#define QUAVERA_RECORD(Record, soap, element, node, answer) \
    Record::~Record() = default;                            \
    Record::Record(const Record&) = default;                \
    Record::Record(Record&&) noexcept = default;            \
    Record& Record::operator=(const Record&) = default;     \
    Record& Record::operator=(Record&&) noexcept = default;
#include "records/Records.def"
