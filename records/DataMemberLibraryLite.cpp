#include "records/DataMemberLibraryLite.h"

#include "records/Fields.h"
#include "soap/QuaveraStub.h"

DataMemberLibraryLite::DataMemberLibraryLite() = default;

void DataMemberLibraryLite::ToXML(ZQXML::INode* node, Quavera::Quavera5__LiteMemberLibrary* soap) {
    ElementWriter out(node);
    out.Unsigned("LastModified", soap->lastModified);
    out.Display("MemberId", soap->memberId);
}

zq::auto_com<ZQXML::INode> DataMemberLibraryLite::ToXML(
    Quavera::Quavera5__LiteMemberLibrary* soap) {
    return NewElementWith<DataMemberLibraryLite>("MemberLibraryLite", soap);
}

void DataMemberLibraryLite::FromXML(ZQXML::INode* node) {
    for (ChildReader child(node); child.Next();) {
        child.Unsigned("LastModified", lastModifiedDate);
        child.Display("MemberId", memberId);
    }
}

void AddLines(const DataMemberLibraryLite& library, TextLines& lines) {
    lines.Unsigned("lastModifiedDate", library.lastModifiedDate);
    lines.Display("memberId", library.memberId);
}
