#include "records/DataLibraryModificationResult.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <type_traits>
#include <vector>

#include "soap/QuaveraStub.h"
#include "tests/records/RecordTesting.h"
#include "tests/records/SampleLibraryModificationResult.h"

namespace {

using Result = DataLibraryModificationResult;

struct ModificationCase : RecordCase, SampleLibraryModificationResult {
    using Record = Result;
    static constexpr char kTextReadTwice[] =
        "libraryLastDateModified = 3987654321\r\n"
        "id = Tra.1\r\n"
        "id = <Größe & 漢>\r\n"
        "id = Tra.3\r\n"
        "id = Tra.4\r\n"
        "id = Tra.1\r\n"
        "id = <Größe & 漢>\r\n"
        "id = Tra.3\r\n"
        "id = Tra.4\r\n";
    static constexpr char kEmptyTree[] = "<LibraryModification/>";
    static constexpr char kEmptyText[] = "libraryLastDateModified = 0\r\n";
    static std::set<std::string> RepeatedElements() { return {"Value"}; }
};

const RulesFor<ModificationCase> kRules("DataLibraryModificationResult");

static_assert(AreAll<std::vector<std::string>>(&Result::ids));
static_assert(AreAll<unsigned long>(&Result::libraryLastDateModified));
static_assert(std::is_base_of_v<QuavData, Result>);

using Soap = Quavera::Quavera2__LibraryModificationResult;
using Texts = Quavera::Quavera2__ArrayOfString;
using Ids = std::vector<std::string>;

Result Modification(const std::string& content) {
    return FromTree<Result>(Wrapped("LibraryModification", content));
}

TEST(DataLibraryModificationResult, ReadsEachElementIntoItsField) {
    const auto result = FromTree<Result>(ModificationCase::kTree);
    EXPECT_EQ(result.ids, (Ids{"Tra.1", "<Größe & 漢>", "Tra.3", "Tra.4"}));
    EXPECT_EQ(result.libraryLastDateModified, 3987654321U);
}

TEST(DataLibraryModificationResult, OneValueAndItsStampArrive) {
    Values values;
    Soap soap;
    soap.values = values.List<Texts>({"12345"});
    soap.libraryLastDateModified = values.Of(1300000000UL);
    const std::string tree = TreeOf<Result>(soap);
    EXPECT_EQ(tree,
              "<LibraryModification><SubCount>1</SubCount><Value>12345</Value>"
              "<LibraryLastDateModified>1300000000</LibraryLastDateModified>"
              "</LibraryModification>");
    auto result = FromTree<Result>(tree);
    EXPECT_EQ(result.ids, Ids{"12345"});
    EXPECT_EQ(result.libraryLastDateModified, 1300000000U);
    EXPECT_EQ(result.ToString(), "libraryLastDateModified = 1300000000\r\nid = 12345\r\n");
}

TEST(DataLibraryModificationResult, EachValueIsThatOfItsPlaceInTheArray) {
    Values values;
    Soap soap;
    const Ids ids = {"a", "b", "", "a", "c"};
    soap.values = values.List<Texts>(ids);
    const std::string tree = TreeOf<Result>(soap);
    EXPECT_EQ(tree,
              "<LibraryModification><SubCount>5</SubCount><Value>a</Value><Value>b</Value><Value/>"
              "<Value>a</Value><Value>c</Value></LibraryModification>");
    EXPECT_EQ(FromTree<Result>(tree).ids, ids);
}

TEST(DataLibraryModificationResult, ValueEndsAtItsFirstZeroByte) {
    Values values;
    Soap soap;
    soap.values = values.List<Texts>({std::string("ab\0c", 4)});
    EXPECT_EQ(TreeOf<Result>(soap),
              "<LibraryModification><SubCount>1</SubCount><Value>ab</Value></LibraryModification>");
}

TEST(DataLibraryModificationResult, EmptyWrapperGivesItsCountOnly) {
    Values values;
    Soap soap;
    soap.values = values.List<Texts>({});
    EXPECT_EQ(TreeOf<Result>(soap),
              "<LibraryModification><SubCount>0</SubCount></LibraryModification>");
    soap.libraryLastDateModified = values.Of(0UL);
    EXPECT_EQ(TreeOf<Result>(soap),
              "<LibraryModification><SubCount>0</SubCount>"
              "<LibraryLastDateModified>0</LibraryLastDateModified></LibraryModification>");
}

TEST(DataLibraryModificationResult, NullWrapperGivesNoCount) {
    Values values;
    Soap soap;
    soap.libraryLastDateModified = values.Of(5UL);
    EXPECT_EQ(TreeOf<Result>(soap),
              "<LibraryModification><LibraryLastDateModified>5</LibraryLastDateModified>"
              "</LibraryModification>");
}

TEST(DataLibraryModificationResult, SubCountIsNotRead) {
    const auto result = Modification("<SubCount>7</SubCount><Value>a</Value>");
    EXPECT_EQ(result.ids, Ids{"a"});
    EXPECT_EQ(result.libraryLastDateModified, 0U);
}

TEST(DataLibraryModificationResult, IdsAddUpInDocumentOrder) {
    constexpr char kContent[] =
        "<Value>1</Value><Value>2</Value><LibraryLastDateModified>9</LibraryLastDateModified>"
        "<Value>3</Value>";
    auto result = Modification(kContent);
    EXPECT_EQ(result.ids, (Ids{"1", "2", "3"}));
    ReadNode(result, Wrapped("LibraryModification", kContent));
    EXPECT_EQ(result.ids, (Ids{"1", "2", "3", "1", "2", "3"}));
    EXPECT_EQ(result.libraryLastDateModified, 9U);
}

// Unlike other texts, an id is read as what the element carries.
TEST(DataLibraryModificationResult, IdOfAnEncodedElementIsDecoded) {
    const auto result =
        Modification("<Value encoding=\"base64\">R3LDvMOfZQ==</Value><Value>R3LDvMOfZQ==</Value>");
    EXPECT_EQ(result.ids, (Ids{"Grüße", "R3LDvMOfZQ=="}));
}

TEST(DataLibraryModificationResult, StampIsAnUnsignedNumberBothWays) {
    for (const unsigned long stamp : kUnsignedDates) {
        Values values;
        Soap soap;
        soap.libraryLastDateModified = values.Of(stamp);
        const std::string tree = TreeOf<Result>(soap);
        EXPECT_EQ(tree, Wrapped("LibraryModification",
                                Wrapped("LibraryLastDateModified", std::to_string(stamp))));
        auto result = FromTree<Result>(tree);
        EXPECT_EQ(result.libraryLastDateModified, stamp);
        EXPECT_EQ(result.ToString(), "libraryLastDateModified = " + std::to_string(stamp) + "\r\n");
    }
}

TEST(DataLibraryModificationResult, IdsAreRenderedBehindTheStamp) {
    EXPECT_EQ(Modification("<Value>x</Value><Value/>").ToString(),
              "libraryLastDateModified = 0\r\nid = x\r\nid = \r\n");
}

TEST(DataLibraryModificationResult, DocumentArrives) {
    ExpectDocument<ModificationCase>("DataLibraryModificationResult/full.xml",
                                     "Quavera2:LibraryModificationResult",
                                     TestData("DataLibraryModificationResult/full.tree.xml"),
                                     TestData("DataLibraryModificationResult/full.txt"));
}

TEST(DataLibraryModificationResult, NilValuesOfADocumentAreEmpty) {
    ExpectDocument<ModificationCase>(
        "DataLibraryModificationResult/nil-values.xml", "Quavera2:LibraryModificationResult",
        "<LibraryModification><SubCount>3</SubCount><Value/><Value>Tra.2</Value><Value/>"
        "</LibraryModification>",
        "libraryLastDateModified = 0\r\nid = \r\nid = Tra.2\r\nid = \r\n");
}

}  // namespace
