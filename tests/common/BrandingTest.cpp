#include <gtest/gtest.h>

#include <climits>
#include <locale>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "common/QuaveraCommon.h"
#include "tests/common/MessageConstants.h"

namespace {

using std::string_literals::operator""s;

constexpr auto kBrandingSeven = static_cast<QuaveraBranding>(7);
const char kDefaultMessage[] = "Unexpected error.  Please try again.";

// --- The header's constants --------------------------------------------------------------------

/// The constants' texts in their order. Which text names the audio stream format is left to the
/// header: it stands here as empty.
const std::vector<std::string> kTexts = {
    "Success",
    "End of track reached.",
    "Data not available.",
    "Communications error.",
    "Maximum number of {0} sessions for this account.",
    "Please close session and try again.",
    "The specified track is invalid.",
    "The input string was too large.",
    "{0} service connection failed.",
    kDefaultMessage,
    "Invalid data.",
    "Invalid {0} account name.",
    "Invalid {0} password.",
    kDefaultMessage,
    "Expired {0} account.",
    "{0} service error.",
    "Network error.",
    "{0} off line.",
    "Account in use on another device - this session will end.",
    "",
    "Ostinex",
    "Quavera",
};
constexpr std::size_t kStreamFormat = 19;

std::vector<std::string> TextsOf(const Constants& constants) {
    std::vector<std::string> texts;
    for (const std::string* const constant : constants) {
        texts.push_back(*constant);
    }
    return texts;
}

TEST(MessageConstants, HaveTheirTexts) {
    std::vector<std::string> texts = TextsOf(OwnConstants());
    ASSERT_EQ(texts.size(), kTexts.size());
    EXPECT_NE(texts[kStreamFormat], "");
    texts[kStreamFormat] = "";
    EXPECT_EQ(texts, kTexts);
}

TEST(MessageConstants, AreCopiesOfEachSourceFile) {
    const Constants own = OwnConstants();
    const Constants others = ConstantsElsewhere();
    ASSERT_EQ(own.size(), others.size());
    for (std::size_t at = 0; at < own.size(); ++at) {
        EXPECT_NE(own[at], others[at]) << *own[at];
        EXPECT_EQ(*own[at], *others[at]);
    }
}

TEST(MessageConstants, ThoseOfTheSameTextAreTwo) {
    EXPECT_NE(&kMessageUnexpectedError, &kMessageUnknownError);
    EXPECT_EQ(kMessageUnexpectedError, kMessageUnknownError);
}

// --- Brandings as texts ------------------------------------------------------------------------

TEST(QuaveraBranding, HasItsValues) {
    EXPECT_EQ(BrandingQuavera, 0);
    EXPECT_EQ(BrandingOstinex, 1);
}

TEST(QuaveraBrandingToString, NamesOstinexForOneAndQuaveraForAllElse) {
    EXPECT_EQ(QuaveraBrandingToString(BrandingOstinex), "Ostinex");
    for (const int value : {0, 2, 7, -1, 256 + 1, INT_MIN, INT_MAX}) {
        EXPECT_EQ(QuaveraBrandingToString(static_cast<QuaveraBranding>(value)), "Quavera") << value;
    }
}

TEST(QuaveraBrandingFromString, TakesOstinexInAnyCase) {
    for (const char* const name : {"Ostinex", "OSTINEX", "ostinex", "oSTINEX", "OsTiNeX"}) {
        EXPECT_EQ(QuaveraBrandingFromString(name), BrandingOstinex) << name;
    }
}

TEST(QuaveraBrandingFromString, TakesAllElseForQuavera) {
    for (const std::string& name :
         {""s, "Quavera"s, "QUAVERA"s, "Ostinex "s, " Ostinex"s, "Ostine"s, "stinex"s, "Ostinexx"s,
          "Ostinez"s, "O"s, "1"s, "Ostinex\0"s, "\0Ostinex"s, "\xC3\x96stinex"s, "Ost\xFFnex"s}) {
        EXPECT_EQ(QuaveraBrandingFromString(name), BrandingQuavera) << name;
    }
}

TEST(GetQuaveraBranding, IsQuaveraForTheEmptyCode) {
    EXPECT_EQ(GetQuaveraBranding(""), BrandingQuavera);
}

TEST(GetQuaveraBranding, IsQuaveraForUsInAnyCase) {
    for (const char* const country : {"us", "Us", "US", "uS"}) {
        EXPECT_EQ(GetQuaveraBranding(country), BrandingQuavera) << country;
    }
}

TEST(GetQuaveraBranding, IsOstinexForAllElse) {
    for (const std::string& country : {"USA"s, "usa"s, "U"s, "S"s, "GB"s, "DE"s, "SU"s, "US "s,
                                       " US"s, " "s, "U\0"s, "US\0"s, "\0"s, "\xFF\xFF"s}) {
        EXPECT_EQ(GetQuaveraBranding(country), BrandingOstinex) << country;
    }
}

// --- The locale's part in comparisons ----------------------------------------------------------

/// Upper-cases all characters as the "C" locale does, but for some of its own.
class OwnCase : public std::ctype<char> {
 public:
    OwnCase(std::string_view from, std::string_view to) : from_(from), to_(to) {}

 protected:
    char do_toupper(char character) const override {
        const std::size_t at = from_.find(character);
        return at == std::string::npos ? std::ctype<char>::do_toupper(character) : to_[at];
    }
    const char* do_toupper(char* begin, const char* end) const override {
        for (; begin != end; ++begin) {
            *begin = do_toupper(*begin);
        }
        return end;
    }

 private:
    std::string from_;
    std::string to_;
};

/// Has `from`'s characters upper-cased to those of `to` as long as it lives.
class CaseGuard {
 public:
    CaseGuard(std::string_view from, std::string_view to)
        : previous_(
              std::locale::global(std::locale(std::locale::classic(), new OwnCase(from, to)))) {}
    CaseGuard(const CaseGuard&) = delete;
    CaseGuard& operator=(const CaseGuard&) = delete;
    ~CaseGuard() { std::locale::global(previous_); }

 private:
    std::locale previous_;
};

TEST(BrandingComparison, UppercasesAsTheGlobalLocaleDoesAtTheTimeOfTheCall) {
    EXPECT_EQ(QuaveraBrandingFromString("0stinex"), BrandingQuavera);
    EXPECT_EQ(GetQuaveraBranding("u5"), BrandingOstinex);
    {
        const CaseGuard guard("05", "OS");
        EXPECT_EQ(QuaveraBrandingFromString("0stinex"), BrandingOstinex);
        EXPECT_EQ(GetQuaveraBranding("u5"), BrandingQuavera);
    }
    EXPECT_EQ(QuaveraBrandingFromString("0stinex"), BrandingQuavera);
    EXPECT_EQ(GetQuaveraBranding("u5"), BrandingOstinex);
}

TEST(BrandingComparison, KnowsNoCaseThatTheLocaleDoesNotKnow) {
    const CaseGuard guard("osu", "osu");
    EXPECT_EQ(QuaveraBrandingFromString("ostinex"), BrandingQuavera);
    EXPECT_EQ(QuaveraBrandingFromString("OsTINEX"), BrandingOstinex);
    EXPECT_EQ(GetQuaveraBranding("us"), BrandingOstinex);
    EXPECT_EQ(GetQuaveraBranding("US"), BrandingQuavera);
}

TEST(BrandingComparison, UppercasesBothSides) {
    // What upper-cases to the same is equal, even where it is not the name's own upper case.
    const CaseGuard guard("OSx", "QQQ");
    EXPECT_EQ(QuaveraBrandingFromString("QstineS"), BrandingOstinex);
    EXPECT_EQ(GetQuaveraBranding("ux"), BrandingQuavera);
    EXPECT_EQ(GetQuaveraBranding("uQ"), BrandingQuavera);
}

// --- Messages ----------------------------------------------------------------------------------

// Asked for while this program is still being initialised.
const std::string kEarlyMessage = QuavErrorToString(-2, BrandingOstinex);

struct Message {
    int code;
    std::string quavera;
    std::string ostinex = quavera;
};

const std::vector<Message> kMessages = {
    {-20, "Unexpected error.  Please try again."},
    {-19, "Unexpected error.  Please try again."},
    {-18, "Unexpected error.  Please try again."},
    {-17, "Unexpected error.  Please try again."},
    {-16, "Account in use on another device - this session will end."},
    {-15, "Quavera off line.", "Ostinex off line."},
    {-14, "Network error."},
    {-13, "Quavera service error.", "Ostinex service error."},
    {-12, "Expired Quavera account.", "Expired Ostinex account."},
    {-11, "Unexpected error.  Please try again."},
    {-10, "Invalid Quavera password.", "Invalid Ostinex password."},
    {-9, "Invalid Quavera account name.", "Invalid Ostinex account name."},
    {-8, "Invalid data."},
    {-7, "Unexpected error.  Please try again."},
    {-6, "Quavera service connection failed.", "Ostinex service connection failed."},
    {-5, "The input string was too large."},
    {-4, "The specified track is invalid."},
    {-3, "Please close session and try again."},
    {-2, "Maximum number of Quavera sessions for this account.",
     "Maximum number of Ostinex sessions for this account."},
    {-1, "Communications error."},
    {0, "Success"},
    {1, "End of track reached."},
    {2, "Data not available."},
    {3, "Unexpected error.  Please try again."},
    {4, "Unexpected error.  Please try again."},
    {5, "Unexpected error.  Please try again."},
};

TEST(QuavErrorToString, WordsEveryCodeForBothBrandings) {
    for (const Message& message : kMessages) {
        EXPECT_EQ(QuavErrorToString(message.code, BrandingQuavera), message.quavera)
            << message.code;
        EXPECT_EQ(QuavErrorToString(message.code, BrandingOstinex), message.ostinex)
            << message.code;
    }
}

TEST(QuavErrorToString, WordsBrandingsOutOfRangeAsQuavera) {
    for (const Message& message : kMessages) {
        for (const int branding : {7, 2, -1, INT_MIN, INT_MAX}) {
            EXPECT_EQ(QuavErrorToString(message.code, static_cast<QuaveraBranding>(branding)),
                      message.quavera)
                << message.code << " " << branding;
        }
    }
}

TEST(QuavErrorToString, ReadsSuccessWithoutAFullStop) {
    for (const QuaveraBranding branding : {BrandingQuavera, BrandingOstinex, kBrandingSeven}) {
        EXPECT_EQ(QuavErrorToString(0, branding), "Success");
    }
}

TEST(QuavErrorToString, HasTheDefaultForCodesWithoutAMessage) {
    for (const int code : {INT_MIN, -65536 - 16, -256, -17, -11, 3, 256, 65536, INT_MAX}) {
        for (const QuaveraBranding branding : {BrandingQuavera, BrandingOstinex, kBrandingSeven}) {
            EXPECT_EQ(QuavErrorToString(code, branding), kDefaultMessage) << code;
        }
    }
}

TEST(QuavErrorToString, WorksBeforeMain) {
    EXPECT_EQ(kEarlyMessage, "Maximum number of Ostinex sessions for this account.");
}

TEST(QuavResult, NamesTheCodes) {
    const std::vector<std::pair<int, int>> namesAndCodes = {
        {QuavResultAccountInUse, -16},       {QuavResultOffLine, -15},
        {QuavResultNetworkError, -14},       {QuavResultServiceError, -13},
        {QuavResultExpiredAccount, -12},     {QuavResultInvalidPassword, -10},
        {QuavResultInvalidAccountName, -9},  {QuavResultInvalidData, -8},
        {QuavResultUnexpectedError, -7},     {QuavResultConnectionFailed, -6},
        {QuavResultInputTooLarge, -5},       {QuavResultInvalidTrack, -4},
        {QuavResultCloseSession, -3},        {QuavResultTooManySessions, -2},
        {QuavResultCommunicationsError, -1}, {QuavResultSuccess, 0},
        {QuavResultEndOfTrack, 1},           {QuavResultDataNotAvailable, 2},
    };
    for (const auto& [name, code] : namesAndCodes) {
        EXPECT_EQ(name, code);
    }
}

}  // namespace
