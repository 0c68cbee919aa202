#include "tools/StrictCheck.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <utility>
#include <vector>

#include "base/ExpatParser.h"
#include "tools/ElementTypes.h"
#include "tools/EnvelopeWalk.h"
#include "tools/Printing.h"
#include "tools/XmlNames.h"

namespace tool {
namespace {

std::string Quoted(std::string_view text) {
    constexpr std::size_t kLongest = 100;
    const bool isLong = text.size() > kLongest;
    return "\"" + std::string(text.substr(0, kLongest)) + (isLong ? "...\"" : "\"");
}

/// Holds the elements of a record, and those within it, against their types.
class Checker : public quavera::ExpatParser<Checker> {
 public:
    /// Of a SOAP response: the type of its record is found by name.
    Checker() = default;
    /// Of a tree, whose root has that type and stands behind so many lines of other trees.
    Checker(const ElementType* root, std::size_t linesAhead)
        : root_(root), linesAhead_(linesAhead) {}

    void Start(const XML_Char* name, const XML_Char** attributes) {
        const std::string_view local = WithoutPrefix(name);
        switch (walk_.Start(local)) {
            case EnvelopeWalk::Role::kRecord:
                Open(local, root_ == nullptr ? FindSoapType(local) : root_, attributes);
                break;
            case EnvelopeWalk::Role::kWithinRecord:
                OpenMember(local, attributes);
                break;
            default:
                break;
        }
    }

    void End(const XML_Char* /*name*/) {
        if (walk_.End()) {
            CheckText(open_.back());
            open_.pop_back();
        }
    }

    void Text(std::string_view text) {
        if (walk_.IsInRecord()) {
            open_.back().text += text;
        }
    }

 private:
    struct OpenElement {
        std::string name;
        const ElementType* type;  // null: an unknown record, of which nothing is known
        Place place;
        bool isNil;
        std::string text;
    };

    static const ElementType* FindSoapType(std::string_view name) {
        const auto found = SoapTypes().find(std::string(name));
        return found == SoapTypes().end() ? nullptr : &found->second;
    }

    /// In SOAP documents an element may be of a type that extends its own, or be nil.
    void Open(std::string_view name, const ElementType* type, const XML_Char** attributes) {
        bool isNil = false;
        if (root_ == nullptr) {
            const XML_Char* const named = FindAttribute(attributes, "type");
            const ElementType* const own =
                named == nullptr ? nullptr : FindSoapType(WithoutPrefix(named));
            isNil = FindAttribute(attributes, "nil", IsTrueValue) != nullptr;
            type = own != nullptr && type != nullptr ? own : type;
        }
        open_.push_back({std::string(name), type, InText(), isNil, {}});
    }

    Place InText() const {
        const Place here = Here();
        return {here.line + linesAhead_, here.column};
    }

    void OpenMember(std::string_view name, const XML_Char** attributes) {
        const OpenElement& parent = open_.back();
        if (parent.type == nullptr) {
            Open(name, nullptr, attributes);
            return;
        }
        for (const ElementMember& member : parent.type->members) {
            if (member.name == name) {
                Open(name, member.type, attributes);
                return;
            }
        }
        RefuseMember(name, parent);
        Open(name, nullptr, attributes);
    }

    void RefuseMember(std::string_view name, const OpenElement& parent) {
        const std::string nearest = NearestMember(*parent.type, name);
        std::string reason = Quoted(name) + " is no element of " + Quoted(parent.name);
        if (parent.type->isValue != nullptr) {
            reason += ", which holds " + std::string(parent.type->expected);
        } else if (!nearest.empty()) {
            reason += "; the nearest is " + Quoted(nearest);
        }
        RefuseAt(InText(), reason);
    }

    void CheckText(const OpenElement& element) {
        if (element.type == nullptr || element.isNil) {
            return;
        }
        const bool isRight = element.type->isValue == nullptr
                                 ? element.text.find_first_not_of(" \t\r\n") == std::string::npos
                                 : element.type->isValue(element.text);
        if (!isRight) {
            RefuseAt(element.place, Quoted(element.name) + " holds " + Quoted(element.text) +
                                        ", where " + std::string(element.type->expected) +
                                        (element.type->isValue == nullptr ? " are" : " is") +
                                        " expected");
        }
    }

    const ElementType* root_ = nullptr;
    std::size_t linesAhead_ = 0;
    EnvelopeWalk walk_;
    std::vector<OpenElement> open_;
};

Result<Done> Check(Checker* checker, std::string_view text, const std::string& where) {
    return checker->Parse(text) ? Result<Done>(Done()) : Failure{where, checker->Error()};
}

}  // namespace

Result<Done> CheckSoap(const std::string& soap, const std::string& where,
                       const RecordClass* /*chosen*/) {
    Checker checker;
    return Check(&checker, soap, where);
}

Result<Done> CheckTrees(const std::string& xml, const std::string& where,
                        const RecordClass* chosen) {
    const Result<Records> records = ReadTrees(xml, where, chosen);
    if (!records) {
        return records.failure();
    }
    const TreeTypes types(ShapeOf(records->record->name));
    std::vector<std::string_view> texts = {xml};
    if (records->isList) {
        texts = SplitAtRoots(xml, records->record->treeElement);
    }
    std::size_t lines = 0;
    for (const std::string_view text : texts) {
        Checker checker(types.root(), lines);
        Result<Done> checked = Check(&checker, text, where);
        if (!checked) {
            return checked;
        }
        lines += static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
    }
    return Done();
}

}  // namespace tool
