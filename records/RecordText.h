#ifndef QUAVERA_RECORDS_RECORD_TEXT_H_
#define QUAVERA_RECORDS_RECORD_TEXT_H_

#include <string>
#include <string_view>

#include "platform/zqshared.h"
#include "records/SoapRecords.h"

// The record classes by name; records/DataAlbum.h and the others have them.
#define QUAVERA_RECORD(Record, Soap, element, node, answer) class Record;
#include "records/Records.def"

/// @file
/// Records as text, in one call each way: `quavera::WriteRecord` for a component that has a SOAP
/// record and sends its text, `quavera::ReadRecord` for one that has received the text.
///
///     #include "records/DataAlbum.h"
///     #include "records/RecordText.h"
///
///     DataAlbum album;
///     std::string error;
///     if (!quavera::ReadRecord(xml, &album, &error)) { ... }
///
/// The text is that of the element tree (platform/XmlText.h). Needs the platform library that is
/// bundled with this one.

/// What this library adds to its records and conversions.
namespace quavera {

/// What the `FromXML` of a record class expects: the record's element, or a node that holds it.
enum class RecordNode {
    kElement,  ///< the element itself
    kParent,   ///< the node that holds the element, or several
};

/// What a record class is called (`kClass`), the name of its element (`kName`), texts that live as
/// long as the program, and which node it reads (`kNode`, a `RecordNode`). Defined for the record
/// classes only.
template <class Record>
struct RecordElement;

#define QUAVERA_RECORD(Record, Soap, element, node, answer)   \
    template <>                                               \
    struct RecordElement<Record> {                            \
        static constexpr std::string_view kClass = #Record;   \
        static constexpr std::string_view kName = element;    \
        static constexpr RecordNode kNode = RecordNode::node; \
    };
#include "records/Records.def"

/// Fills `*record` from the root of a tree, the record's element, as `FromXML` does. What becomes
/// of an element of another name is left to that. `root` is borrowed, and a null one counts as
/// empty; `record` must not be null. Where the class reads a parent, the element becomes the child
/// of one that is made for the call; an element that has a parent already cannot, and then nothing
/// is read. Throws `std::bad_alloc` only; fields may be filled then.
template <class Record>
void ReadRecordTree(ZQXML::INode* root, Record* record) {
    if constexpr (RecordElement<Record>::kNode == RecordNode::kElement) {
        record->FromXML(root);
    } else {
        const auto parent = ZQXML::CreateXmlNode();
        parent->AppendChild(root);
        record->FromXML(parent.get());
    }
}

/// Fills `*record`, which must not be null, from the text of its element, which is borrowed.
///
/// False for a text that `ZQXML::ParseXml` does not accept, and for a root that is not the element
/// of this class; then `*record` is unchanged, and `*error`, where `error` is not null, says why:
/// "line 3, column 7: mismatched tag", or both names,
/// "the root is \"Artist\", but DataAlbum reads \"Album\"".
///
/// True does not mean that the text held all of the record: absent and unknown elements are no
/// errors. A record that is read into twice keeps what only the first text had, and its lists hold
/// the items of both. Throws `std::bad_alloc` only; fields may be filled then.
template <class Record>
bool ReadRecord(std::string_view xml, Record* record, std::string* error = nullptr) {
    using Element = RecordElement<Record>;
    const zq::auto_com<ZQXML::INode> root = ZQXML::ParseXml(xml, error);
    if (!root) {
        return false;
    }
    const std::string name = root->GetName();
    if (name != Element::kName) {
        if (error != nullptr) {
            *error = "the root is \"" + name + "\", but ";
            error->append(Element::kClass).append(" reads \"").append(Element::kName).append("\"");
        }
        return false;
    }
    ReadRecordTree(root.get(), record);
    return true;
}

/// The text of the element that `Record::ToXML` makes of a SOAP record, which is borrowed and must
/// not be null unless that function says otherwise: UTF-8, without an XML declaration and a final
/// line break; with `indent`, one element a line (see `ZQXML::WriteXml`). `ReadRecord` reads it
/// back. Throws `std::bad_alloc` only.
template <class Record, class Soap>
std::string WriteRecord(Soap* soap, bool indent = false) {
    return ZQXML::WriteXml(Record::ToXML(soap).get(), indent);
}

}  // namespace quavera

#endif  // QUAVERA_RECORDS_RECORD_TEXT_H_
