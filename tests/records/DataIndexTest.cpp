#include "records/DataIndex.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "soap/QuaveraStub.h"
#include "tests/records/RecordTesting.h"
#include "tests/records/SampleIndex.h"

namespace {

struct IndexCase : RecordCase, SampleIndex {
    using Record = DataIndex;
    static constexpr const char* kTextReadTwice = kText;
    static constexpr char kEmptyTree[] = "<Index/>";
    static constexpr char kEmptyText[] = "letter = \r\nstart = 0\r\n";
};

const RulesFor<IndexCase> kRules("DataIndex");

using Soap = Quavera::Quavera2__AlphaIndexPosition;

TEST(DataIndex, FieldsHaveTheirTypes) {
    EXPECT_TRUE(AreAll<std::string>(&DataIndex::letter));
    EXPECT_TRUE(AreAll<int>(&DataIndex::start));
}

TEST(DataIndex, ReadsEachElementIntoItsField) {
    const auto index = FromTree<DataIndex>(SampleIndex::kTree);
    EXPECT_EQ(index.letter, "B");
    EXPECT_EQ(index.start, 120);
}

TEST(DataIndex, FirstByteOfTheLetterTravelsAsItsCode) {
    using namespace std::string_literals;
    const struct {
        std::string sent;
        const char* code;
        std::string received;
    } cases[] = {
        {"B", "42", "B"},       {"Bx", "42", "B"},      {" B", "20", " "},
        {"0", "30", "0"},       {"\t", " 9", "\t"},     {"\n", " A", "\n"},
        {"\x01", " 1", "\x01"}, {"\x0F", " F", "\x0F"}, {"\x10", "10", "\x10"},
        {"\x7F", "7F", "\x7F"}, {"\x80", "80", "\x80"}, {"\xFF", "FF", "\xFF"},
        {"Ä", "C3", "\xC3"},    {"漢", "E6", "\xE6"},   {"", " 0", "\0"s},
        {"\0B"s, " 0", "\0"s},
    };
    for (const auto& each : cases) {
        std::string letter = each.sent;
        Soap soap;
        soap.letter = &letter;
        EXPECT_EQ(TreeOf<DataIndex>(soap), Wrapped("Index", Wrapped("Letter", each.code)));
        auto index = ThroughText<DataIndex>(soap);
        EXPECT_EQ(index.letter, each.received) << each.code;
        EXPECT_EQ(index.ToString(), "letter = " + each.received + "\r\nstart = 0\r\n");
    }
}

TEST(DataIndex, EveryByteSurvives) {
    for (int code = 0; code < 256; ++code) {
        std::string letter(1, static_cast<char>(code));
        Soap soap;
        soap.letter = &letter;
        EXPECT_EQ(ThroughText<DataIndex>(soap).letter, letter) << code;
    }
}

TEST(DataIndex, LetterIsReplacedByTheByteOfAnyText) {
    using namespace std::string_literals;
    ExpectFieldReads<DataIndex, std::string>("Index", "Letter", &DataIndex::letter, "before",
                                             {{"42", "B"},
                                              {"6a", "j"},
                                              {"6A", "j"},
                                              {"9", "\t"},
                                              {" 9", "\t"},
                                              {"4142", "A"},
                                              {"4x", "\x04"},
                                              {"", "\0"s},
                                              {"x", "\0"s},
                                              {"-1", "\0"s}});
}

TEST(DataIndex, StartTravelsOverItsWholeRange) {
    for (int start : {0, 1, -1, 120, INT_MAX, INT_MIN}) {
        Soap soap;
        soap.start = &start;
        EXPECT_EQ(TreeOf<DataIndex>(soap),
                  Wrapped("Index", Wrapped("Start", std::to_string(start))));
        auto index = ThroughText<DataIndex>(soap);
        EXPECT_EQ(index.start, start);
        EXPECT_EQ(index.letter, "");
        EXPECT_EQ(index.ToString(), "letter = \r\nstart = " + std::to_string(start) + "\r\n");
    }
}

TEST(DataIndex, StartIsReadAsANumber) {
    ExpectReadsNumber("Index", "Start", &DataIndex::start);
}

TEST(DataIndex, WithoutMembersTheElementIsEmptyAndFillsNothing) {
    Soap soap;
    EXPECT_EQ(TreeOf<DataIndex>(soap), "<Index/>");
    const auto index = ThroughText<DataIndex>(soap);
    EXPECT_EQ(index.letter, "");
    EXPECT_EQ(index.start, 0);
}

// --- Documents of the service ------------------------------------------------------------------

constexpr char kType[] = "Quavera2:AlphaIndexPosition";

TEST(DataIndex, DocumentGivesItsTreeAndText) {
    ExpectDocument<IndexCase>("DataIndex/full.xml", kType, TestData("DataIndex/full.tree.xml"),
                              TestData("DataIndex/full.txt"));
}

TEST(DataIndex, NilAndMissingMembersOfADocumentAreAbsent) {
    ExpectDocument<IndexCase>("DataIndex/nil-members.xml", kType, "<Index/>",
                              IndexCase::kEmptyText);
}

}  // namespace
