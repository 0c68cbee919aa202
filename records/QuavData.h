#ifndef QUAVERA_RECORDS_QUAV_DATA_H_
#define QUAVERA_RECORDS_QUAV_DATA_H_

#include <string>

#include "common/Export.h"
#include "platform/zqshared.h"

/// The base of the records, one class for each kind of record that the service returns.
///
/// A record is a plain value. It turns the service's SOAP record into a tree of elements (a static
/// `ToXML`), fills itself from such a tree (`FromXML`) and renders itself for a log (`ToString`).
///
/// Ownership: SOAP records and the nodes that a record reads are borrowed for the call; the node
/// that a one-argument `ToXML` returns is the caller's, and with it the whole tree; fields are held
/// by value. Narrow strings hold UTF-8, wide ones UCS-4. Nothing reports an error: an absent
/// element leaves its field as it is, an unknown one is ignored, and what a malformed number or
/// text gives is stated with the node's and the conversions' interface. Only a failed allocation
/// throws; then nothing leaks, and an item of a list is there with all that it has, or not at all.
/// A list of a SOAP record that counts items but has a null in their place counts as one: readers
/// leave that behind where they had no memory for them. A SOAP record must not be null unless a
/// class says otherwise.
class QUAVERA_API QuavData {
 public:
    /// Selects the constructor of a record that reserves no room, where the default one does.
    struct Unreserved {};

    virtual ~QuavData();

    /// The record as text: a line "label = value\r\n" for each field, nested records in between.
    virtual std::string ToString() = 0;

    /// Fills the record from `node`; which node that is, the element itself or its parent, each
    /// class states. Names are matched exactly. Fields without an element keep their value, flags
    /// are only ever set, and lists grow: reading twice doubles them. A null `node` counts as
    /// empty.
    virtual void FromXML(ZQXML::INode* node) = 0;

 protected:
    QuavData() = default;
    QuavData(const QuavData&) = default;
    QuavData(QuavData&&) = default;
    QuavData& operator=(const QuavData&) = default;
    QuavData& operator=(QuavData&&) = default;
};

#endif  // QUAVERA_RECORDS_QUAV_DATA_H_
