#ifndef QUAVERA_TOOLS_RECORD_CLASSES_H_
#define QUAVERA_TOOLS_RECORD_CLASSES_H_

#include <string>
#include <string_view>
#include <vector>

#include "tools/Result.h"
#include "tools/SoapDocument.h"

namespace tool {

using Trees = std::vector<Tree>;

/// What the tool knows of a record class of the library.
struct RecordClass {
    std::string_view name;                                   // "DataAlbum"
    std::string_view soapElement;                            // of its SOAP record: "AlbumMetadata"
    std::string_view treeElement;                            // of its tree: "Album"
    std::string_view node;                                   // that it reads: "element" or "parent"
    Result<Trees> (*toTrees)(const SoapDocument& document);  // the one tree of its SOAP record
    std::string (*toText)(ZQXML::INode* element);

    // The request of the service that it answers. The answer may be a list of such records.
    std::string_view kind;  // "album", as users name it; empty: there is no such request
    int (*send)(struct soap* soap, const char* endpoint, const char* action, const std::string& id);
    std::string_view answerElement;  // "AlbumMetadata"; of a list: "Images"
    Result<Trees> (*answerToTrees)(const SoapDocument& answer);

    bool AnswersWithList() const { return !kind.empty() && answerElement != soapElement; }
};

/// All record classes, in the order of records/Records.def.
const std::vector<RecordClass>& RecordClasses();

/// The first class with that name, kind or element, as `key` says; null where there is none.
const RecordClass* FindClass(std::string_view RecordClass::*key, std::string_view value);

/// The class whose SOAP record or tree, as `key` says, is called `element`: `chosen`, if that is
/// not null and the element is its own, else the first such class.
Result<const RecordClass*> ClassOfElement(std::string_view RecordClass::*key,
                                          std::string_view element, const RecordClass* chosen,
                                          const std::string& where);

/// The failure of an element that is not the one that `maker` is made of.
Failure WrongElement(const std::string& where, std::string_view element, std::string_view maker,
                     std::string_view expected);

}  // namespace tool

#endif  // QUAVERA_TOOLS_RECORD_CLASSES_H_
