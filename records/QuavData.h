#ifndef QUAVERA_RECORDS_QUAV_DATA_H_
#define QUAVERA_RECORDS_QUAV_DATA_H_

#include <string>

#include "common/Export.h"
#include "platform/zqshared.h"

/// The base of the records, one class for each kind of record that the service returns.
///
/// A record is a plain value. It turns the service's SOAP record into a tree of elements (a static
/// `ToXML`), fills itself from such a tree (`FromXML`) and renders itself for a log (`ToString`).
/// Different records may be used by several threads at once, one record by one of them at a time.
///
/// Fields: numbers and flags begin with the value that stands at the field, texts and lists empty.
/// Narrow strings hold the bytes of an element's text, UTF-8 by convention; wide strings hold what
/// a text in base64 and UTF-8 stands for, a character (UCS-4) in each place. Identifiers, codes,
/// dates and stamps are the service's own: it alone knows their form, their range and their epoch.
/// Copies and assignments take all fields. A record that was moved from is fit for all that a new
/// one is for, but what its fields hold is open.
///
/// Ownership: SOAP records and nodes are borrowed for the call; the node that a one-argument
/// `ToXML` returns is the caller's, and with it the whole tree; fields are held by value.
///
/// Errors: nothing reports any. An absent element leaves its field as it is, an unknown one is
/// ignored, and what a malformed number or text gives is stated with the node's
/// (platform/XmlNode.h) and the conversions' interface (common/TextConversion.h). Only a failed
/// allocation throws, `std::bad_alloc`; then nothing leaks, a node that was given keeps what was
/// added to it, and an item of a list is there with all that it has, or not at all. A list of a
/// SOAP record that counts items but has a null in their place counts as one: readers leave that
/// behind where they had no memory for them. Neither a SOAP record nor a node to write to may be
/// null unless a class says otherwise.
class QUAVERA_API QuavData {
 public:
    /// Selects the constructor of a record that reserves no room, where the default one does.
    struct Unreserved {};

    /// Records may be deleted through a pointer to this class.
    virtual ~QuavData();

    /// The record as text, UTF-8: a line "label = value\r\n" for each field, nested records in
    /// between. What a class leaves out, or prints in another form, it states.
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
