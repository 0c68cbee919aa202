#ifndef QUAVERA_TESTS_RECORDS_SAMPLE_MEMBER_LIBRARY_LITE_H_
#define QUAVERA_TESTS_RECORDS_SAMPLE_MEMBER_LIBRARY_LITE_H_

#include <string>

#include "soap/QuaveraStub.h"
#include "tests/records/Values.h"

/// A member library's header with every member present and no value twice.
struct SampleMemberLibraryLite {
    using Soap = Quavera::Quavera5__LiteMemberLibrary;

    static void Fill(Soap& soap, Values& values) {
        soap.lastModified = values.Of(3123456789UL);
        soap.memberId = values.Text("Mitglied Nº 815 会員");
    }

    static constexpr char kElements[] =
        "<LastModified>3123456789</LastModified>"
        "<MemberId encoding=\"base64\">TWl0Z2xpZWQgTsK6IDgxNSDkvJrlk6E=</MemberId>";

    /// The element that it gives.
    inline static const std::string kTree =
        std::string("<MemberLibraryLite>") + kElements + "</MemberLibraryLite>";

    /// The log text of the record that this element fills.
    static constexpr char kText[] =
        "lastModifiedDate = 3123456789\r\n"
        "memberId = Mitglied Nº 815 会員\r\n";
};

#endif  // QUAVERA_TESTS_RECORDS_SAMPLE_MEMBER_LIBRARY_LITE_H_
