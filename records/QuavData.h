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
/// Ownership: SOAP records and nodes are borrowed for the call; the node that a `ToXML` returns is
/// the caller's, and with it the whole tree; fields are held by value.
///
/// Writing, unless a class says otherwise: a member of a SOAP record that is null gives no element,
/// a list without items an empty one, and null items of a list are left out.
///
/// Errors: nothing reports any. An absent element leaves its field as it is, an unknown one is
/// ignored, and of a malformed number or text comes what the interfaces of nodes
/// (platform/XmlNode.h) and conversions (common/TextConversion.h) state. Only a failed allocation
/// throws, `std::bad_alloc`; then nothing leaks, a node that was given keeps what was added to it,
/// a record may be filled in part, and an item of a list is there with all that it has, or not at
/// all. A list of a SOAP record that counts items but has no array of them counts as a failed
/// allocation: readers without memory for the array leave it so. Neither a SOAP record nor a node
/// to write to may be null unless a class says otherwise.
class QUAVERA_API QuavData {
 public:
    /// Selects the constructor of a record that reserves no room, where the default one does.
    struct Unreserved {};

    /// Records may be deleted through a pointer to this class.
    virtual ~QuavData();

    /// The record as text, UTF-8 as far as its fields are: a line "label = value\r\n" for each
    /// field, nested records in between. What a class leaves out, or prints in another form, it
    /// states.
    virtual std::string ToString() = 0;

    /// Fills the record from `node`; which node that is, the element itself or its parent, each
    /// class states. Names are matched exactly, but those of list items, which may be any. Fields
    /// without an element keep their value, of repeated elements the last one counts, flags are
    /// only ever set, and lists grow: reading twice doubles them. A null `node` counts as empty.
    virtual void FromXML(ZQXML::INode* node) = 0;

 protected:
    QuavData() = default;
    QuavData(const QuavData&) = default;
    QuavData(QuavData&&) = default;
    QuavData& operator=(const QuavData&) = default;
    QuavData& operator=(QuavData&&) = default;
};

#endif  // QUAVERA_RECORDS_QUAV_DATA_H_
