#include "records/DataAccountProperties.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdint>
#include <string>
#include <type_traits>

#include "soap/QuaveraStub.h"
#include "tests/records/RecordTesting.h"
#include "tests/records/SampleAccountProperties.h"

namespace {

using Account = DataAccountProperties;

struct AccountCase : RecordCase, SampleAccountProperties {
    using Record = Account;
    static constexpr bool kReadsParent = true;
    static constexpr const char* kTextReadTwice = kText;
    static constexpr char kEmptyTree[] =
        "<AccountProperties>"
        "<freePlaysAllowed>0</freePlaysAllowed>"
        "<freePlaysRemaining>0</freePlaysRemaining>"
        "<freeTrialTimeLeftInMillis>0</freeTrialTimeLeftInMillis>"
        "</AccountProperties>";
    static constexpr char kEmptyText[] =
        "accountType = \r\n"
        "cobrand = \r\n"
        "country = \r\n"
        "dateCreated = 0\r\n"
        "email = \r\n"
        "firstName = \r\n"
        "freePlaysAllowed = 0\r\n"
        "freePlaysRemaining = 0\r\n"
        "freeTrialTimeLeftInMillis = 0\r\n"
        "quavera25MonthReset = 0\r\n"
        "trialTerminationDate = 0\r\n"
        "userName = \r\n"
        "zip = \r\n";
};

const RulesFor<AccountCase> kRules("DataAccountProperties");

static_assert(AreAll<std::string>(&Account::accountType, &Account::cobrand, &Account::country,
                                  &Account::lastName, &Account::zip));
static_assert(AreAll<std::wstring>(&Account::email, &Account::firstName, &Account::userName));
static_assert(AreAll<int>(&Account::freePlaysAllowed, &Account::freePlaysRemaining));
static_assert(AreAll<std::uint32_t>(&Account::dateCreated, &Account::quavera25MonthReset,
                                    &Account::trialTerminationDate));
static_assert(AreAll<std::uint64_t>(&Account::freeTrialTimeLeftInMillis));
static_assert(std::is_base_of_v<QuavData, Account>);

using Soap = Quavera::Quavera2__AccountMetaData;

/// The node that the class expects, with an "AccountProperties" of this content.
std::string Parent(const std::string& content) {
    return Wrapped("Parent", Wrapped("AccountProperties", content));
}

Account FullAccount() {
    return FromTree<Account>(Wrapped("Parent", AccountCase::kTree));
}

/// The record's trip as text.
Account Sent(Soap& soap) {
    return FromTree<Account>(Wrapped("Parent", TreeOf<Account>(soap)));
}

/// Whether the log text has this line.
bool HasLine(Account& account, const std::string& line) {
    return ("\r\n" + account.ToString()).find("\r\n" + line + "\r\n") != std::string::npos;
}

TEST(DataAccountProperties, ReadsEachElementIntoItsField) {
    const auto account = FullAccount();
    EXPECT_EQ(account.accountType, "UNLIMITED & more");
    EXPECT_EQ(account.cobrand, "cob.303");
    EXPECT_EQ(account.country, "DE");
    EXPECT_EQ(account.dateCreated, 2222222222U);
    EXPECT_EQ(account.email, L"j\u00F6rg@example.com");
    EXPECT_EQ(account.firstName, L"J\u00F6rg-\u592A\u90CE");
    EXPECT_EQ(account.freePlaysAllowed, 1010);
    EXPECT_EQ(account.freePlaysRemaining, -111);
    EXPECT_EQ(account.freeTrialTimeLeftInMillis, 1212121212U);
    EXPECT_EQ(account.lastName, "");
    EXPECT_EQ(account.quavera25MonthReset, 3333333333U);
    EXPECT_EQ(account.trialTerminationDate, 4242424242U);
    EXPECT_EQ(account.userName, L"\u0416\u0443\u043A \U0001FAB2");
    EXPECT_EQ(account.zip, "D-60311");
}

TEST(DataAccountProperties, RecordOfNullsHasTheThreeNumbersOnly) {
    Soap soap;
    soap.freePlaysAllowed = 0;
    soap.freePlaysRemaining = 5;
    soap.freeTrialTimeLeftInMillis = 6;
    EXPECT_EQ(TreeOf<Account>(soap),
              "<AccountProperties><freePlaysAllowed>0</freePlaysAllowed>"
              "<freePlaysRemaining>5</freePlaysRemaining>"
              "<freeTrialTimeLeftInMillis>6</freeTrialTimeLeftInMillis></AccountProperties>");
}

TEST(DataAccountProperties, MembersWithoutAFieldAreNotWritten) {
    Values values;
    Soap soap;
    soap.billingPlan = soap.currency = soap.language = soap.memberId = soap.state =
        values.Text("text");
    soap.contactByEmail = values.Of(true);
    soap.maximumSessions = soap.preferredBitrate = values.Of(1);
    EXPECT_EQ(TreeOf<Account>(soap), AccountCase::kEmptyTree);
}

TEST(DataAccountProperties, LastNameIsNeverWritten) {
    Values values;
    EXPECT_EQ(Account::ToXML(values.Filled<SampleAccountProperties>())->FindChild("lastName"),
              nullptr);
}

TEST(DataAccountProperties, LastNameIsStoredVerbatimAndNeverRendered) {
    for (const char* text : {"R3LDvMOfZQ==", "Größe 漢", ""}) {
        auto account =
            FromTree<Account>(Parent("<lastName>old</lastName>" + Wrapped("lastName", text)));
        EXPECT_EQ(account.lastName, text);
        EXPECT_EQ(account.ToString(), AccountCase::kEmptyText);
    }
    const auto marked =
        FromTree<Account>(Parent("<lastName encoding=\"base64\">R3LDvMOfZQ==</lastName>"));
    EXPECT_EQ(marked.lastName, "R3LDvMOfZQ==");
}

TEST(DataAccountProperties, LastNameIsCopied) {
    const auto account = FromTree<Account>(Parent("<lastName>Weiß</lastName>"));
    const Account copy(account);
    Account assigned;
    assigned = account;
    EXPECT_EQ(copy.lastName, "Weiß");
    EXPECT_EQ(assigned.lastName, "Weiß");
}

TEST(DataAccountProperties, LoneZipChangesNothingElse) {
    auto account = FullAccount();
    account.lastName = "stays";
    ReadNode(account, Parent("<zip>75001</zip>"));
    std::string expected = AccountCase::kText;
    expected.replace(expected.find("D-60311"), 7, "75001");
    EXPECT_EQ(account.ToString(), expected);
    EXPECT_EQ(account.lastName, "stays");
}

TEST(DataAccountProperties, IgnoresNamesThatDifferInLetterCase) {
    EXPECT_EQ(FromTree<Account>(Parent("<Zip>1</Zip><ZIP>2</ZIP><ziP>3</ziP>")).zip, "");
    EXPECT_EQ(FromTree<Account>("<P><accountProperties><zip>1</zip></accountProperties></P>").zip,
              "");
}

TEST(DataAccountProperties, ReadsTheFirstElementOnly) {
    const auto account = FromTree<Account>(
        "<Parent><zip>0</zip><Other><AccountProperties><zip>1</zip></AccountProperties></Other>"
        "<AccountProperties><zip>2</zip></AccountProperties>"
        "<AccountProperties><zip>3</zip><country>FR</country></AccountProperties></Parent>");
    EXPECT_EQ(account.zip, "2");
    EXPECT_EQ(account.country, "");
}

TEST(DataAccountProperties, OwnElementReadsNothing) {
    EXPECT_EQ(FromTree<Account>(AccountCase::kTree).ToString(), AccountCase::kEmptyText);
}

TEST(DataAccountProperties, MissingElementLeavesEveryField) {
    auto account = FullAccount();
    account.lastName = "stays";
    ReadNode(account, "<Parent><zip>1</zip><lastName>x</lastName><Account/></Parent>");
    EXPECT_EQ(account.ToString(), AccountCase::kText);
    EXPECT_EQ(account.lastName, "stays");
}

TEST(DataAccountProperties, DatesAreUnsignedNumbersBothWays) {
    for (const unsigned long date : kUnsignedDates) {
        Values values;
        Soap soap;
        soap.dateCreated = soap.quavera25MonthReset = soap.trialTerminationDate =
            values.Of(static_cast<unsigned int>(date));
        const std::string text = std::to_string(date);
        for (const char* name : {"dateCreated", "quavera25MonthReset", "trialTerminationDate"}) {
            EXPECT_EQ(Account::ToXML(&soap)->FindChild(name)->GetValue(), text);
        }
        auto account = Sent(soap);
        EXPECT_EQ(account.dateCreated, date);
        EXPECT_EQ(account.quavera25MonthReset, date);
        EXPECT_EQ(account.trialTerminationDate, date);
        EXPECT_TRUE(HasLine(account, "dateCreated = " + text));
        EXPECT_TRUE(HasLine(account, "quavera25MonthReset = " + text));
        EXPECT_TRUE(HasLine(account, "trialTerminationDate = " + text));
    }
}

TEST(DataAccountProperties, PlaysAreSignedNumbersBothWays) {
    for (const int plays : {0, 1, -1, INT_MAX, INT_MIN}) {
        Soap soap;
        soap.freePlaysAllowed = plays;
        soap.freePlaysRemaining = plays;
        auto account = Sent(soap);
        EXPECT_EQ(account.freePlaysAllowed, plays);
        EXPECT_EQ(account.freePlaysRemaining, plays);
        EXPECT_TRUE(HasLine(account, "freePlaysAllowed = " + std::to_string(plays)));
        EXPECT_TRUE(HasLine(account, "freePlaysRemaining = " + std::to_string(plays)));
    }
}

TEST(DataAccountProperties, TrialTimeTravelsWithItsLow32Bits) {
    const struct {
        LONG64 sent;
        std::uint64_t arrived;
    } times[] = {{0, 0},
                 {2147483647, 2147483647},
                 {2147483648, 2147483648},
                 {4294967295, 4294967295},
                 {4294967296, 0},
                 {4294967301, 5},
                 {0x4D80000001, 2147483649},
                 {-1, 4294967295}};
    for (const auto& time : times) {
        Soap soap;
        soap.freeTrialTimeLeftInMillis = time.sent;
        EXPECT_EQ(Account::ToXML(&soap)->FindChild("freeTrialTimeLeftInMillis")->GetValue(),
                  std::to_string(time.arrived));
        auto account = Sent(soap);
        EXPECT_EQ(account.freeTrialTimeLeftInMillis, time.arrived);
        EXPECT_TRUE(
            HasLine(account, "freeTrialTimeLeftInMillis = " + std::to_string(time.arrived)));
    }
}

TEST(DataAccountProperties, TrialTimeIsZeroExtendedWhenRead) {
    Account account;
    account.freeTrialTimeLeftInMillis = 0xABCDEF0123456789U;
    ReadNode(account, Parent("<freeTrialTimeLeftInMillis>4294967295</freeTrialTimeLeftInMillis>"));
    EXPECT_EQ(account.freeTrialTimeLeftInMillis, 4294967295U);
    ReadNode(account, Parent("<freeTrialTimeLeftInMillis>-2</freeTrialTimeLeftInMillis>"));
    EXPECT_EQ(account.freeTrialTimeLeftInMillis, 4294967294U);
}

TEST(DataAccountProperties, TrialTimePrintsItsLow32BitsOnly) {
    Account account;
    account.freeTrialTimeLeftInMillis = 4294967296U * 9U + 4294967290U;
    EXPECT_TRUE(HasLine(account, "freeTrialTimeLeftInMillis = 4294967290"));
    account.freeTrialTimeLeftInMillis = 4294967296U;
    EXPECT_TRUE(HasLine(account, "freeTrialTimeLeftInMillis = 0"));
}

TEST(DataAccountProperties, NamesThatAreNoBase64AreEmpty) {
    const auto account =
        FromTree<Account>(Parent("<email>?</email><firstName>?</firstName><userName>?</userName>"));
    EXPECT_EQ(account.email + account.firstName + account.userName, L"");
}

TEST(DataAccountProperties, DocumentArrives) {
    ExpectDocument<AccountCase>("DataAccountProperties/full.xml", "Quavera2:AccountMetaData",
                                TestData("DataAccountProperties/full.tree.xml"),
                                TestData("DataAccountProperties/full.txt"));
}

TEST(DataAccountProperties, MissingMembersOfADocumentAreAbsentButForTheNumbers) {
    ExpectDocument<AccountCase>("DataAccountProperties/no-members.xml", "Quavera2:AccountMetaData",
                                AccountCase::kEmptyTree, AccountCase::kEmptyText);
}

}  // namespace
