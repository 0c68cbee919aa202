#include "records/DataGenreLite.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "soap/QuaveraStub.h"
#include "tests/records/RecordTesting.h"
#include "tests/records/SampleGenreLite.h"

namespace {

struct GenreLiteCase : RecordCase, SampleGenreLite {
    using Record = DataGenreLite;
    static constexpr bool kWritesIntoGivenNode = false;
    static constexpr const char* kTextReadTwice = kText;
    static constexpr char kEmptyTree[] = "<GenreLite/>";
    static constexpr char kEmptyText[] = "genreId = \r\nname = \r\nsubCount = 0\r\n";
};

const RulesFor<GenreLiteCase> kRules("DataGenreLite");

using Soap = Quavera::Quavera2__LiteGenreMetadata;

TEST(DataGenreLite, FieldsHaveTheirTypes) {
    EXPECT_TRUE(AreAll<std::string>(&DataGenreLite::genreId));
    EXPECT_TRUE(AreAll<std::wstring>(&DataGenreLite::name));
    EXPECT_TRUE(AreAll<int>(&DataGenreLite::subCount));
}

TEST(DataGenreLite, ReadsEachElementIntoItsField) {
    const auto genre = FromTree<DataGenreLite>(SampleGenreLite::kTree);
    EXPECT_EQ(genre.genreId, "g.101");
    EXPECT_EQ(genre.name, L"M\u00FAsica latina");
    EXPECT_EQ(genre.subCount, 404);
}

TEST(DataGenreLite, ReadsTextsAndNumbers) {
    ExpectReadsPlain("GenreLite", "GenreId", &DataGenreLite::genreId);
    ExpectReadsDisplay("GenreLite", "Name", &DataGenreLite::name);
    ExpectReadsNumber("GenreLite", "SubCount", &DataGenreLite::subCount);
}

TEST(DataGenreLite, WithoutTextsAndWithACountOfZeroTheElementIsEmpty) {
    Soap soap;
    ASSERT_EQ(soap.subCount, 0);
    EXPECT_EQ(TreeOf<DataGenreLite>(soap), "<GenreLite/>");
}

TEST(DataGenreLite, WritesNothingButTheMemberThatIsPresent) {
    const struct {
        std::string* Soap::*member;
        const char* tree;
    } cases[] = {
        {&Soap::genreId, "<GenreLite><GenreId>A</GenreId></GenreLite>"},
        {&Soap::name, "<GenreLite><Name encoding=\"base64\">QQ==</Name></GenreLite>"},
        {&Soap::shortcut, "<GenreLite/>"},
    };
    for (const auto& each : cases) {
        std::string text = "A";
        Soap soap;
        soap.*each.member = &text;
        EXPECT_EQ(TreeOf<DataGenreLite>(soap), each.tree);
    }
}

TEST(DataGenreLite, WritesEmptyTexts) {
    std::string empty;
    Soap soap;
    soap.genreId = soap.name = &empty;
    EXPECT_EQ(TreeOf<DataGenreLite>(soap),
              "<GenreLite><GenreId/><Name encoding=\"base64\"/></GenreLite>");
}

TEST(DataGenreLite, CountTravelsOverItsWholeRange) {
    for (const int count : {1, -1, INT_MAX, INT_MIN}) {
        Soap soap;
        soap.subCount = count;
        EXPECT_EQ(TreeOf<DataGenreLite>(soap),
                  Wrapped("GenreLite", Wrapped("SubCount", std::to_string(count))));
        auto genre = ThroughText<DataGenreLite>(soap);
        EXPECT_EQ(genre.subCount, count);
        EXPECT_EQ(genre.ToString(),
                  "genreId = \r\nname = \r\nsubCount = " + std::to_string(count) + "\r\n");
    }
}

TEST(DataGenreLite, NameTravelsAsBase64OfItsUtf8) {
    std::string name = "Größe 漢 🎵";
    Soap soap;
    soap.name = &name;
    const auto node = DataGenreLite::ToXML(&soap);
    EXPECT_EQ(node->FindChild("Name")->GetValue(), "R3LDtsOfZSDmvKIg8J+OtQ==");
    EXPECT_EQ(node->FindChild("Name")->GetValueDecoded(), name);
    EXPECT_EQ(ThroughText<DataGenreLite>(soap).name, L"Gr\u00F6\u00DFe \u6F22 \U0001F3B5");
}

// --- Documents of the service ------------------------------------------------------------------

constexpr char kType[] = "Quavera2:LiteGenreMetadata";

TEST(DataGenreLite, DocumentGivesItsTreeAndText) {
    ExpectDocument<GenreLiteCase>("DataGenreLite/full.xml", kType,
                                  TestData("DataGenreLite/full.tree.xml"),
                                  TestData("DataGenreLite/full.txt"));
}

TEST(DataGenreLite, NilAndMissingMembersOfADocumentAreAbsent) {
    ExpectDocument<GenreLiteCase>("DataGenreLite/nil-members.xml", kType,
                                  "<GenreLite><GenreId>g.8202</GenreId></GenreLite>",
                                  "genreId = g.8202\r\nname = \r\nsubCount = 0\r\n");
}

}  // namespace
