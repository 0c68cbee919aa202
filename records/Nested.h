#ifndef QUAVERA_RECORDS_NESTED_H_
#define QUAVERA_RECORDS_NESTED_H_

#include "platform/zqshared.h"
#include "records/SoapRecords.h"

class TextLines;

/// Adds the lines of a record's log text: to its own, or to those of the record that it stands in.
#define QUAVERA_RECORD(Record, soap, element, node, answer) \
    void AddLines(const class Record& record, TextLines& lines);
#include "records/Records.def"

/// Writers into a given node, of records that have no public one.
struct GenreLiteElements {
    static void ToXML(ZQXML::INode* node, Quavera::Quavera2__LiteGenreMetadata* soap);
};
struct TrackElements {
    static void ToXML(ZQXML::INode* node, Quavera::Quavera2__LiteTrackMetadata* soap);
};

#endif  // QUAVERA_RECORDS_NESTED_H_
