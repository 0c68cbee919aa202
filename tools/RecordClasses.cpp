#include "tools/RecordClasses.h"

#include <algorithm>
#include <utility>

#include "records/DataTrackInfo.h"

namespace tool {
namespace {

/// Which node a class's `FromXML` expects.
enum class Reads { kElement, kParent };

template <class Record, class Soap>
Tree ToTree(const SoapDocument& document, Failure* failure) {
    SoapContext context;
    Soap soap;
    return document.Decode(&context, &soap, failure) ? Record::ToXML(&soap) : nullptr;
}

template <class Record, Reads kReads>
std::string ToText(Tree element) {
    Record record;
    if (kReads == Reads::kElement) {
        record.FromXML(element.get());
    } else {
        const Tree parent = ZQXML::CreateXmlNode();
        parent->AppendChild(element.get());
        record.FromXML(parent.get());
    }
    return record.ToString();
}

template <class Record, class Soap, Reads kReads = Reads::kElement>
constexpr RecordClass Describe(std::string_view name, std::string_view soapElement,
                               std::string_view treeElement) {
    return {name, soapElement, treeElement, ToTree<Record, Soap>, ToText<Record, kReads>};
}

const RecordClass* Choose(std::string_view element, std::string_view RecordClass::*elementOf,
                          const RecordClass* chosen, const std::string& where, Failure* failure) {
    if (chosen != nullptr) {
        if (chosen->*elementOf == element) {
            return chosen;
        }
        *failure = {where, "the record is \"" + std::string(element) + "\", but " +
                               std::string(chosen->name) + " is made of \"" +
                               std::string(chosen->*elementOf) + "\""};
        return nullptr;
    }
    for (const RecordClass& candidate : RecordClasses()) {
        if (candidate.*elementOf == element) {
            return &candidate;
        }
    }
    *failure = {where, "no record class is made of \"" + std::string(element) + "\""};
    return nullptr;
}

}  // namespace

const std::vector<RecordClass>& RecordClasses() {
    using namespace Quavera;  // NOLINT(google-build-using-namespace): for one line a class
    static const std::vector<RecordClass> classes = {
        Describe<DataTrackInfo, Quavera2__LiteTrackMetadata>("DataTrackInfo", "LiteTrackMetadata",
                                                             "Track"),
    };
    return classes;
}

const RecordClass* FindRecordClass(std::string_view name) {
    for (const RecordClass& candidate : RecordClasses()) {
        if (candidate.name == name) {
            return &candidate;
        }
    }
    return nullptr;
}

const RecordClass* ClassOfSoapElement(std::string_view element, const RecordClass* chosen,
                                      const std::string& where, Failure* failure) {
    return Choose(element, &RecordClass::soapElement, chosen, where, failure);
}

const RecordClass* ClassOfTreeElement(std::string_view element, const RecordClass* chosen,
                                      const std::string& where, Failure* failure) {
    return Choose(element, &RecordClass::treeElement, chosen, where, failure);
}

}  // namespace tool
