#include "records/DataGenre.h"

#include <gtest/gtest.h>

#include <climits>
#include <set>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "soap/QuaveraStub.h"
#include "tests/records/RecordTesting.h"
#include "tests/records/SampleGenre.h"

namespace {

struct GenreCase : RecordCase, SampleGenre {
    using Record = DataGenre;
    static constexpr bool kWritesIntoGivenNode = false;
    inline static const std::string kTextReadTwice = Text(2);
    static constexpr char kEmptyTree[] = "<Genre><ChildGenres/><ParentGenres/></Genre>";
    static constexpr char kEmptyText[] =
        "abbreviation = \r\n"
        "displayName = \r\n"
        "genreId = \r\n"
        "name = \r\n"
        "subGenreCount = 0\r\n"
        "parentGenreCount = 0\r\n"
        "primaryParentGenreId = \r\n";
    static std::set<std::string> RepeatedElements() { return {"ChildGenres", "ParentGenres"}; }
};

const RulesFor<GenreCase> kRules("DataGenre");

using Soap = SampleGenre::Soap;
using Summary = SampleGenre::Summary;
using Summaries = SampleGenre::Summaries;

DataGenre Genre(const std::string& content) {
    return FromTree<DataGenre>(Wrapped("Genre", content));
}

/// A genre's element with empty lists, and other elements ahead of the first and between them.
std::string TreeWith(const std::string& ahead, const std::string& between) {
    return Wrapped("Genre", ahead + "<ChildGenres/>" + between + "<ParentGenres/>");
}

TEST(DataGenre, FieldsHaveTheirTypes) {
    EXPECT_TRUE(AreAll<std::wstring>(&DataGenre::abbreviation, &DataGenre::displayName,
                                     &DataGenre::name, &DataGenre::description));
    EXPECT_TRUE(AreAll<std::string>(&DataGenre::genreId, &DataGenre::primaryParentGenreId));
    EXPECT_TRUE(AreAll<int>(&DataGenre::subGenreCount, &DataGenre::parentGenreCount));
    EXPECT_TRUE(
        AreAll<std::vector<DataGenreLite>>(&DataGenre::childGenres, &DataGenre::parentGenres));
    EXPECT_TRUE((std::is_base_of_v<DataGenreLite, DataGenre>));
}

void ExpectSummaries(const std::vector<DataGenreLite>& genres,
                     const std::vector<std::string>& texts) {
    ASSERT_EQ(genres.size(), texts.size());
    for (std::size_t at = 0; at < texts.size(); ++at) {
        EXPECT_EQ(DataGenreLite(genres[at]).ToString(), texts[at]);
    }
}

TEST(DataGenre, ReadsEachElementIntoItsField) {
    const auto genre = FromTree<DataGenre>(SampleGenre::kTree);
    EXPECT_EQ(genre.abbreviation, L"\u0424-\u0414\u0436");
    EXPECT_EQ(genre.displayName, L"\u0424\u044C\u044E\u0436\u043D-\u0434\u0436\u0430\u0437");
    EXPECT_EQ(genre.genreId, "g.303");
    EXPECT_EQ(genre.name, L"\u30D5\u30E5\u30FC\u30B8\u30E7\u30F3");
    EXPECT_EQ(genre.subGenreCount, 606);
    EXPECT_EQ(genre.description, L"Jazz \u266A");
    EXPECT_EQ(genre.primaryParentGenreId, "g.1011");
    ExpectSummaries(genre.childGenres,
                    {"genreId = g.711\r\nname = Funk é groove 🎸\r\nsubCount = 713\r\n",
                     "genreId = g.721\r\nname = Élektrik\r\nsubCount = 723\r\n"});
    ExpectSummaries(genre.parentGenres,
                    {"genreId = g.911\r\nname = Jazz\r\nsubCount = 913\r\n",
                     "genreId = g.921\r\nname = Rock 岩\r\nsubCount = 923\r\n"});
}

TEST(DataGenre, ReadsTextsAndNumbers) {
    ExpectReadsDisplay("Genre", "Abbreviation", &DataGenre::abbreviation);
    ExpectReadsDisplay("Genre", "DisplayName", &DataGenre::displayName);
    ExpectReadsDisplay("Genre", "Name", &DataGenre::name);
    ExpectReadsDisplay("Genre", "Description", &DataGenre::description);
    ExpectReadsPlain("Genre", "GenreId", &DataGenre::genreId);
    ExpectReadsPlain("Genre", "PrimaryParentGenreId", &DataGenre::primaryParentGenreId);
    ExpectReadsNumber("Genre", "SubGenreCount", &DataGenre::subGenreCount);
}

TEST(DataGenre, LeavesTheFieldsOfItsBaseAlone) {
    auto genre = FromTree<DataGenre>(SampleGenre::kTree);
    ReadNode(genre, "<Genre><SubCount>5</SubCount></Genre>");
    const DataGenreLite& base = genre;
    EXPECT_EQ(base.genreId, "");
    EXPECT_EQ(base.name, L"");
    EXPECT_EQ(base.subCount, 0);

    DataGenre other;
    other.DataGenreLite::genreId = "base";
    other.DataGenreLite::name = L"base";
    other.subCount = 7;
    EXPECT_EQ(other.ToString(), GenreCase::kEmptyText);
}

TEST(DataGenre, TextOfItsBaseIsItsOwn) {
    auto genre = FromTree<DataGenre>(SampleGenre::kTree);
    DataGenreLite& base = genre;
    EXPECT_EQ(base.ToString(), SampleGenre::kText);
    EXPECT_EQ(genre.DataGenreLite::ToString(), "genreId = \r\nname = \r\nsubCount = 0\r\n");
}

// --- Writing -----------------------------------------------------------------------------------

TEST(DataGenre, WritesNothingButListsAndTheMemberThatIsPresent) {
    const struct {
        std::string* Soap::*member;
        std::string tree;
    } cases[] = {
        {&Soap::abbreviation,
         TreeWith("<Abbreviation encoding=\"base64\">QQ==</Abbreviation>", "")},
        {&Soap::displayName, TreeWith("<DisplayName encoding=\"base64\">QQ==</DisplayName>", "")},
        {&Soap::genreId, TreeWith("<GenreId>A</GenreId>", "")},
        {&Soap::name, TreeWith("<Name encoding=\"base64\">QQ==</Name>", "")},
        {&Soap::shortcut, TreeWith("", "")},
        {&Soap::description, TreeWith("", "<Description encoding=\"base64\">QQ==</Description>")},
    };
    for (const auto& each : cases) {
        std::string text = "A";
        Soap soap;
        soap.*each.member = &text;
        EXPECT_EQ(TreeOf<DataGenre>(soap), each.tree);
    }
}

TEST(DataGenre, WritesEmptyTexts) {
    std::string empty;
    Summary primary;
    primary.genreId = &empty;
    Soap soap;
    soap.abbreviation = soap.displayName = soap.genreId = soap.name = soap.description = &empty;
    soap.primaryParentGenre = &primary;
    EXPECT_EQ(TreeOf<DataGenre>(soap),
              TreeWith("<Abbreviation encoding=\"base64\"/><DisplayName encoding=\"base64\"/>"
                       "<GenreId/><Name encoding=\"base64\"/>",
                       "<Description encoding=\"base64\"/><PrimaryParentGenreId/>"));
}

TEST(DataGenre, SubGenreCountIsTheMembersAndNotTheLists) {
    for (const int count : {1, -1, INT_MAX, INT_MIN}) {
        Values values;
        Soap soap;
        soap.subGenreCount = count;
        soap.childGenres = values.List<Summaries>({values.Of(Summary()), values.Of(Summary())});
        const std::string lists =
            "<ChildGenres><GenreLite/><GenreLite/></ChildGenres><ParentGenres/>";
        EXPECT_EQ(TreeOf<DataGenre>(soap),
                  Wrapped("Genre", Wrapped("SubGenreCount", std::to_string(count)) + lists));
        auto genre = ThroughText<DataGenre>(soap);
        EXPECT_EQ(genre.subGenreCount, count);
        EXPECT_NE(genre.ToString().find("\r\nsubGenreCount = " + std::to_string(count) + "\r\n"),
                  std::string::npos);

        soap.subGenreCount = 0;
        EXPECT_EQ(TreeOf<DataGenre>(soap), Wrapped("Genre", lists));
    }
}

TEST(DataGenre, ListsWithoutItemsAreWrittenEmpty) {
    Values values;
    Soap soap;
    soap.childGenres = values.List<Summaries>({});
    soap.parentGenres = values.List<Summaries>({});
    EXPECT_EQ(TreeOf<DataGenre>(soap), GenreCase::kEmptyTree);
    soap.primaryParentGenre = values.Of(Summary());
    EXPECT_EQ(TreeOf<DataGenre>(soap), GenreCase::kEmptyTree) << "with a primary parent";
}

// A document may lack either list.
TEST(DataGenre, NullListsCountAsEmpty) {
    Values values;
    for (const bool hasChildren : {false, true}) {
        Soap soap;
        auto& list = hasChildren ? soap.childGenres : soap.parentGenres;
        list = values.List<Summaries>({SampleGenre::NewSummary(values, "g.1", "A", "s", 0)});
        const std::string items =
            "<GenreLite><GenreId>g.1</GenreId><Name encoding=\"base64\">QQ==</Name></GenreLite>";
        EXPECT_EQ(TreeOf<DataGenre>(soap),
                  hasChildren
                      ? Wrapped("Genre", Wrapped("ChildGenres", items) + "<ParentGenres/>")
                      : Wrapped("Genre", "<ChildGenres/>" + Wrapped("ParentGenres", items)));
    }
}

TEST(DataGenre, ParentGenreCountNeedsAPrimaryParentAndAParent) {
    std::string id = "g.9";
    Summary named;
    named.genreId = &id;
    Summary unnamed;
    const std::string idElement = "<PrimaryParentGenreId>g.9</PrimaryParentGenreId>";
    const std::string countElement = "<ParentGenreCount>2</ParentGenreCount>";
    const std::string countOfOne = "<ParentGenreCount>1</ParentGenreCount>";
    const std::string empty = "<ParentGenres/>";
    const std::string one = "<ParentGenres><GenreLite/></ParentGenres>";
    const std::string two = "<ParentGenres><GenreLite/><GenreLite/></ParentGenres>";
    const struct {
        const char* meaning;
        Summary* primary;
        std::vector<Summary*> parents;
        std::string elements;
    } cases[] = {
        {"neither", nullptr, {}, empty},
        {"parents only", nullptr, {&unnamed, &unnamed}, two},
        {"named primary parent only", &named, {}, idElement + empty},
        {"unnamed primary parent only", &unnamed, {}, empty},
        {"both", &named, {&unnamed, &unnamed}, idElement + countElement + two},
        {"the fewest of both", &unnamed, {&unnamed}, countOfOne + one},
        {"both, unnamed", &unnamed, {&unnamed, &unnamed}, countElement + two},
        {"a nil item, which the count holds", &unnamed, {nullptr, &unnamed}, countElement + one},
        {"nil items only", &unnamed, {nullptr, nullptr}, countElement + empty},
    };
    for (const auto& each : cases) {
        Values values;
        Soap soap;
        soap.primaryParentGenre = each.primary;
        soap.parentGenres = values.List<Summaries>(each.parents);
        EXPECT_EQ(TreeOf<DataGenre>(soap), Wrapped("Genre", "<ChildGenres/>" + each.elements))
            << each.meaning;
    }
}

TEST(DataGenre, PrimaryParentGivesNothingButItsIdentifierWithoutAParentsList) {
    Values values;
    Soap soap;
    soap.primaryParentGenre = SampleGenre::NewSummary(values, "g.9", "A", "s", 5);
    EXPECT_EQ(TreeOf<DataGenre>(soap),
              TreeWith("", "<PrimaryParentGenreId>g.9</PrimaryParentGenreId>"));
}

TEST(DataGenre, NilItemsOfListsAreSkipped) {
    Values values;
    Soap soap;
    Summary* const item = SampleGenre::NewSummary(values, "g.1", "A", "s", 2);
    soap.childGenres = values.List<Summaries>({nullptr, item, nullptr});
    soap.parentGenres = values.List<Summaries>({item, nullptr, item});
    const std::string element =
        "<GenreLite><GenreId>g.1</GenreId><Name encoding=\"base64\">QQ==</Name>"
        "<SubCount>2</SubCount></GenreLite>";
    EXPECT_EQ(TreeOf<DataGenre>(soap),
              Wrapped("Genre", Wrapped("ChildGenres", element) +
                                   Wrapped("ParentGenres", element + element)));
}

// --- Reading -----------------------------------------------------------------------------------

TEST(DataGenre, ParentGenreCountIsNeverRead) {
    auto genre = Genre("<ParentGenreCount>3</ParentGenreCount>");
    EXPECT_EQ(genre.parentGenreCount, 0);
    EXPECT_NE(genre.ToString().find("\r\nparentGenreCount = 0\r\n"), std::string::npos);

    genre.parentGenreCount = 5;
    ReadNode(genre, SampleGenre::kTree);
    EXPECT_EQ(genre.parentGenreCount, 5);
    EXPECT_NE(genre.ToString().find("\r\nparentGenreCount = 5\r\n"), std::string::npos);
}

TEST(DataGenre, ListsTakeOnlyChildrenOfTheExactName) {
    const std::string items =
        "<GenreLite><SubCount>1</SubCount></GenreLite><Other><SubCount>2</SubCount></Other>"
        "<Genre/><genreLite/><GENRELITE/><GenreLites/><Other><GenreLite/></Other>"
        "<GenreLite><SubCount>3</SubCount></GenreLite>";
    const std::string first = "genreId = \r\nname = \r\nsubCount = 1\r\n";
    const std::string second = "genreId = \r\nname = \r\nsubCount = 3\r\n";
    const struct {
        const char* element;
        std::vector<DataGenreLite> DataGenre::*list;
        std::vector<DataGenreLite> DataGenre::*other;
    } cases[] = {{"ChildGenres", &DataGenre::childGenres, &DataGenre::parentGenres},
                 {"ParentGenres", &DataGenre::parentGenres, &DataGenre::childGenres}};
    for (const auto& each : cases) {
        const std::string tree = Wrapped("Genre", Wrapped(each.element, items));
        auto genre = FromTree<DataGenre>(tree);
        ExpectSummaries(genre.*each.list, {first, second});
        ReadNode(genre, tree);
        ExpectSummaries(genre.*each.list, {first, second, first, second});
        ExpectSummaries(genre.*each.other, {});
    }
}

TEST(DataGenre, GenresBesideTheListsAreNotTaken) {
    const auto genre = Genre("<GenreLite><SubCount>1</SubCount></GenreLite>");
    EXPECT_TRUE(genre.childGenres.empty());
    EXPECT_TRUE(genre.parentGenres.empty());
}

// --- Rendering and copying ---------------------------------------------------------------------

TEST(DataGenre, ItemsTextsFollowTheirLabelDirectly) {
    DataGenre genre;
    genre.childGenres.resize(1);
    genre.childGenres[0].genreId = "g.5";
    EXPECT_EQ(genre.ToString(),
              "abbreviation = \r\ndisplayName = \r\ngenreId = \r\nname = \r\n"
              "subGenreCount = 0\r\nparentGenreCount = 0\r\n"
              "childGenres genreId = g.5\r\nname = \r\nsubCount = 0\r\n"
              "primaryParentGenreId = \r\n");
}

TEST(DataGenre, DescriptionIsNotRendered) {
    auto genre = Genre("<Description>R3LDvMOfZQ==</Description>");
    EXPECT_EQ(genre.description, L"Gr\u00FC\u00DFe");
    EXPECT_EQ(genre.ToString(), GenreCase::kEmptyText);
}

TEST(DataGenre, CopiesHoldTheFieldsThatAreNotRendered) {
    DataGenre original;
    original.description = L"description";
    original.DataGenreLite::genreId = "base id";
    original.DataGenreLite::name = L"base name";
    original.subCount = 7;
    const DataGenre copy(original);
    DataGenre assigned;
    assigned = original;
    const DataGenre moved(std::move(original));
    DataGenre moveAssigned;
    moveAssigned = std::move(assigned);
    const std::vector<const DataGenre*> copies = {&copy, &moved, &moveAssigned};
    for (const DataGenre* genre : copies) {
        EXPECT_EQ(genre->description, L"description");
        EXPECT_EQ(genre->DataGenreLite::genreId, "base id");
        EXPECT_EQ(genre->DataGenreLite::name, L"base name");
        EXPECT_EQ(genre->subCount, 7);
    }
}

// --- Documents of the service ------------------------------------------------------------------

void ExpectGenreDocument(const std::string& file, const std::string& tree,
                         const std::string& text) {
    ExpectDocument<GenreCase>("DataGenre/" + file, "Quavera2:GenreMetadata", tree, text);
}

TEST(DataGenre, DocumentGivesItsTreeAndText) {
    ExpectGenreDocument("full.xml", TestData("DataGenre/full.tree.xml"),
                        TestData("DataGenre/full.txt"));
}

TEST(DataGenre, MissingListsOfADocumentAreEmpty) {
    ExpectGenreDocument("missing-lists.xml",
                        TreeWith("<GenreId>g.8301</GenreId>",
                                 "<PrimaryParentGenreId>g.8300</PrimaryParentGenreId>"),
                        "abbreviation = \r\ndisplayName = \r\ngenreId = g.8301\r\nname = \r\n"
                        "subGenreCount = 0\r\nparentGenreCount = 0\r\n"
                        "primaryParentGenreId = g.8300\r\n");
}

TEST(DataGenre, NilItemsOfADocumentAreSkipped) {
    ExpectGenreDocument(
        "nil-items.xml",
        "<Genre><ChildGenres><GenreLite><GenreId>g.8311</GenreId></GenreLite></ChildGenres>"
        "<PrimaryParentGenreId>g.8300</PrimaryParentGenreId>"
        "<ParentGenreCount>3</ParentGenreCount>"
        "<ParentGenres><GenreLite><GenreId>g.8321</GenreId></GenreLite></ParentGenres></Genre>",
        "abbreviation = \r\ndisplayName = \r\ngenreId = \r\nname = \r\n"
        "subGenreCount = 0\r\nparentGenreCount = 0\r\n"
        "childGenres genreId = g.8311\r\nname = \r\nsubCount = 0\r\n"
        "parentGenres genreId = g.8321\r\nname = \r\nsubCount = 0\r\n"
        "primaryParentGenreId = g.8300\r\n");
}

}  // namespace
