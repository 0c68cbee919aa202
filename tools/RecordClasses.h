#ifndef QUAVERA_TOOLS_RECORD_CLASSES_H_
#define QUAVERA_TOOLS_RECORD_CLASSES_H_

#include <string>
#include <string_view>
#include <vector>

#include "platform/zqshared.h"
#include "tools/SoapDocument.h"

namespace tool {

using Tree = zq::auto_com<ZQXML::INode>;

/// What the tool knows of a record class of the library.
struct RecordClass {
    std::string_view name;         // "DataAlbum"
    std::string_view soapElement;  // of its SOAP record: "AlbumMetadata"
    std::string_view treeElement;  // of its tree: "Album"

    /// The tree of a document's record; an empty pointer with a reason where it cannot be decoded.
    Tree (*toTree)(const SoapDocument& document, Failure* failure);
    /// The log text of the record whose element is `element`.
    std::string (*toText)(Tree element);

    // For records that the service answers with as a list.
    std::string_view listElement;  // "Images"; empty for other records
    /// The trees of a list's records. False with a reason where it cannot be decoded.
    bool (*toTrees)(const SoapDocument& document, std::vector<Tree>* trees, Failure* failure);
};

/// All record classes. Where two write an element of the same name, the full class stands first.
const std::vector<RecordClass>& RecordClasses();

/// The class of that name; null when there is none.
const RecordClass* FindRecordClass(std::string_view name);

/// The class for a SOAP record element or for the root of a tree: `chosen`, if that is not null
/// and the element is its own, else the first class with such an element. Null with a reason.
const RecordClass* ClassOfSoapElement(std::string_view element, const RecordClass* chosen,
                                      const std::string& where, Failure* failure);
const RecordClass* ClassOfTreeElement(std::string_view element, const RecordClass* chosen,
                                      const std::string& where, Failure* failure);

/// The failure of an element that is not the one that `maker` is made of.
Failure WrongElement(const std::string& where, std::string_view element, std::string_view maker,
                     std::string_view expected);

}  // namespace tool

#endif  // QUAVERA_TOOLS_RECORD_CLASSES_H_
