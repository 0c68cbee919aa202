#include "tools/RecordClasses.h"

#include <algorithm>

#include "records/RecordHeaders.h"
#include "records/RecordText.h"

namespace tool {
namespace {

/// The name on the wire of the SOAP class "Quavera2__AlbumMetadata": what stands after the prefix.
constexpr std::string_view ElementOf(std::string_view soapClass) {
    return soapClass.substr(soapClass.find("__") + 2);
}

/// Of a document that holds one record.
template <class Record, class Soap>
Result<Trees> ToTree(const SoapDocument& document) {
    SoapContext context;
    Soap soap;
    const Result<Done> decoded = document.Decode(&context, &soap);
    if (!decoded) {
        return decoded.failure();
    }
    Trees trees;
    trees.push_back(Record::ToXML(&soap));
    return trees;
}

/// Of a document that holds a list, with the records in the member `kItems`.
template <class Record, class List, auto kItems>
Result<Trees> ToTrees(const SoapDocument& document) {
    SoapContext context;
    List list;
    const Result<Done> decoded = document.Decode(&context, &list);
    if (!decoded) {
        return decoded.failure();
    }
    Trees trees;
    const auto* const wrapper = list.*kItems;
    for (int at = 0; wrapper != nullptr && at < wrapper->count; ++at) {
        if (wrapper->items[at] != nullptr) {
            trees.push_back(Record::ToXML(wrapper->items[at]));
        }
    }
    return trees;
}

template <class Record>
constexpr std::string_view NodeOf() {
    const bool isElement = quavera::RecordElement<Record>::kNode == quavera::RecordNode::kElement;
    return isElement ? "element" : "parent";
}

template <class Record>
std::string ToText(ZQXML::INode* element) {
    Record record;
    quavera::ReadRecordTree(element, &record);
    return record.ToString();
}

}  // namespace

// One line of Records.def is one entry of the table. A lambda each, for the names that NONE, ONE
// and LIST use.
#define QUAVERA_RECORD(Class, Soap, element, node, answer)                      \
    [] {                                                                        \
        using Record = Class;                                                   \
        constexpr std::string_view kElement = ElementOf(#Soap);                 \
        constexpr auto kToTrees = ToTree<Record, Quavera::Soap>;                \
        return RecordClass{#Class,   kElement,       element, NodeOf<Record>(), \
                           kToTrees, ToText<Record>, answer};                   \
    }(),
#define SENT(kind, request) #kind, Quavera::soap_send_Quavera2__##request
#define NONE "", nullptr, "", nullptr
#define ONE(kind, request) SENT(kind, request), kElement, kToTrees
#define LIST(kind, request, List, items) \
    SENT(kind, request), ElementOf(#List), ToTrees<Record, Quavera::List, &Quavera::List::items>

const std::vector<RecordClass>& RecordClasses() {
    static const std::vector<RecordClass> classes = {
#include "records/Records.def"
    };
    return classes;
}

const RecordClass* FindClass(std::string_view RecordClass::*key, std::string_view value) {
    const std::vector<RecordClass>& classes = RecordClasses();
    const auto found =
        std::find_if(classes.begin(), classes.end(),
                     [key, value](const RecordClass& each) { return each.*key == value; });
    return found == classes.end() ? nullptr : &*found;
}

Result<const RecordClass*> ClassOfElement(std::string_view RecordClass::*key,
                                          std::string_view element, const RecordClass* chosen,
                                          const std::string& where) {
    if (chosen != nullptr && chosen->*key != element) {
        return WrongElement(where, element, chosen->name, chosen->*key);
    }
    const RecordClass* const found = chosen == nullptr ? FindClass(key, element) : chosen;
    if (found == nullptr) {
        return Failure{where, "no record class is made of \"" + std::string(element) + "\""};
    }
    return found;
}

Failure WrongElement(const std::string& where, std::string_view element, std::string_view maker,
                     std::string_view expected) {
    return {where, "the record is \"" + std::string(element) + "\", but " + std::string(maker) +
                       " is made of \"" + std::string(expected) + "\""};
}

}  // namespace tool
