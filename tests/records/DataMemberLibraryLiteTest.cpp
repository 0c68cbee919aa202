#include "records/DataMemberLibraryLite.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <type_traits>

#include "soap/QuaveraStub.h"
#include "tests/records/RecordTesting.h"
#include "tests/records/SampleMemberLibraryLite.h"

namespace {

struct MemberLibraryLiteCase : RecordCase, SampleMemberLibraryLite {
    using Record = DataMemberLibraryLite;
    static constexpr const char* kTextReadTwice = kText;
    static constexpr char kEmptyTree[] = "<MemberLibraryLite/>";
    static constexpr char kEmptyText[] = "lastModifiedDate = 0\r\nmemberId = \r\n";
};

const RulesFor<MemberLibraryLiteCase> kRules("DataMemberLibraryLite");

static_assert(AreAll<std::uint32_t>(&DataMemberLibraryLite::lastModifiedDate));
static_assert(AreAll<std::wstring>(&DataMemberLibraryLite::memberId));
static_assert(std::is_base_of_v<QuavData, DataMemberLibraryLite>);

using Soap = Quavera::Quavera5__LiteMemberLibrary;

DataMemberLibraryLite Library(const std::string& content) {
    return FromTree<DataMemberLibraryLite>(Wrapped("MemberLibraryLite", content));
}

TEST(DataMemberLibraryLite, ReadsEachElementIntoItsField) {
    const auto library = FromTree<DataMemberLibraryLite>(SampleMemberLibraryLite::kTree);
    EXPECT_EQ(library.lastModifiedDate, 3123456789U);
    EXPECT_EQ(library.memberId, L"Mitglied N\u00BA 815 \u4F1A\u54E1");
}

TEST(DataMemberLibraryLite, StampIsAnUnsignedNumberBothWays) {
    for (const unsigned long stamp : kUnsignedDates) {
        Values values;
        Soap soap;
        soap.lastModified = values.Of(stamp);
        const std::string tree = TreeOf<DataMemberLibraryLite>(soap);
        EXPECT_EQ(tree,
                  Wrapped("MemberLibraryLite", Wrapped("LastModified", std::to_string(stamp))));
        auto library = FromTree<DataMemberLibraryLite>(tree);
        EXPECT_EQ(library.lastModifiedDate, stamp);
        EXPECT_EQ(library.ToString(),
                  "lastModifiedDate = " + std::to_string(stamp) + "\r\nmemberId = \r\n");
    }
}

TEST(DataMemberLibraryLite, StampIsWhatTheNodeTakesItsTextFor) {
    EXPECT_EQ(Library("<LastModified>-1</LastModified>").lastModifiedDate, 4294967295U);
    EXPECT_EQ(Library("<LastModified>heute</LastModified>").lastModifiedDate, 0U);
}

TEST(DataMemberLibraryLite, MemberThatIsNoBase64IsEmpty) {
    EXPECT_EQ(Library("<MemberId>M?ller</MemberId>").memberId, L"");
}

TEST(DataMemberLibraryLite, EmptyMemberAndZeroStampArePresent) {
    Values values;
    Soap soap;
    soap.lastModified = values.Of(0UL);
    soap.memberId = values.Text("");
    EXPECT_EQ(TreeOf<DataMemberLibraryLite>(soap),
              "<MemberLibraryLite><LastModified>0</LastModified><MemberId encoding=\"base64\"/>"
              "</MemberLibraryLite>");
}

TEST(DataMemberLibraryLite, DocumentArrives) {
    ExpectDocument<MemberLibraryLiteCase>("DataMemberLibraryLite/full.xml",
                                          "Quavera5:LiteMemberLibrary",
                                          TestData("DataMemberLibraryLite/full.tree.xml"),
                                          TestData("DataMemberLibraryLite/full.txt"));
}

}  // namespace
