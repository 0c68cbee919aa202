#include "records/DataAlbumLite.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstdint>
#include <initializer_list>
#include <set>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "soap/QuaveraStub.h"
#include "tests/records/RecordTesting.h"
#include "tests/records/SampleAlbumLite.h"

namespace {

struct AlbumLiteCase : RecordCase, SampleAlbumLite {
    using Record = DataAlbumLite;
    static constexpr char kEmptyTree[] = "<Album/>";
    static constexpr char kEmptyText[] =
        "albumArt162x162Url = \r\n"
        "albumId = \r\n"
        "albumType = 0\r\n"
        "compilation = false\r\n"
        "displayName = \r\n"
        "name = \r\n"
        "parentalAuthority = false\r\n"
        "primaryArtistDisplayName = \r\n"
        "primaryArtistId = \r\n"
        "primaryStyle = \r\n"
        "releaseYear = 0\r\n"
        "shortcut = \r\n";
    static std::set<std::string> RepeatedElements() { return {"DisplayableAlbumTypes"}; }
};

const RulesFor<AlbumLiteCase> kRules("DataAlbumLite");

using Soap = Quavera::Quavera2__LiteAlbumMetadata;
using ArrayOfString = Quavera::Quavera2__ArrayOfString;
using Texts = std::vector<std::string>;

DataAlbumLite Album(const std::string& content) {
    return FromTree<DataAlbumLite>(Wrapped("Album", content));
}

DataAlbumLite FromSample() {
    Values values;
    return values.Filled<SampleAlbumLite>();
}

DataAlbumLite OfYear(int year, const std::string& albumId) {
    DataAlbumLite album;
    album.releaseYear = year;
    album.albumId = albumId;
    return album;
}

std::string OwnTree(DataAlbumLite album) {
    return ZQXML::WriteXml(album.ToXML().get());
}

struct FlagRow {
    const char* element;
    const char* label;
    bool DataAlbumLite::*field;
    bool* Soap::*member;
};
const FlagRow kFlags[] = {
    {"Compilation", "compilation", &DataAlbumLite::compilation, &Soap::compilation},
    {"ParentalAuthority", "parentalAuthority", &DataAlbumLite::parentalAuthority,
     &Soap::parentalAuthority},
};

// The lists compile only with members of exactly these types.
TEST(DataAlbumLite, ListsTakeSoapRecordsAsTheyAre) {
    EXPECT_TRUE((std::is_convertible_v<Quavera::Quavera2__LiteAlbumMetadata*, DataAlbumLite>));
    Values values;
    Quavera::Quavera2__LiteAlbumMetadata soap;
    SampleAlbumLite::Fill(soap, values);
    std::vector<DataAlbumLite> albums;
    albums.push_back(&soap);  // NOLINT(modernize-use-emplace): that it compiles is the point
    EXPECT_EQ(albums.back().albumId, *soap.albumId);
}

TEST(DataAlbumLite, FieldsHaveTheirTypesAndDefaults) {
    const DataAlbumLite album;
    for (const auto field : std::initializer_list<std::string DataAlbumLite::*>{
             &DataAlbumLite::albumArt162x162Url, &DataAlbumLite::albumId,
             &DataAlbumLite::displayNameUtf8, &DataAlbumLite::nameUtf8,
             &DataAlbumLite::primaryArtistDisplayNameUtf8, &DataAlbumLite::primaryArtistId,
             &DataAlbumLite::primaryStyle, &DataAlbumLite::shortcut}) {
        EXPECT_EQ(album.*field, "");
    }
    for (const auto field : std::initializer_list<std::wstring DataAlbumLite::*>{
             &DataAlbumLite::displayName, &DataAlbumLite::name,
             &DataAlbumLite::primaryArtistDisplayName}) {
        EXPECT_EQ(album.*field, L"");
    }
    for (const auto field : std::initializer_list<int DataAlbumLite::*>{
             &DataAlbumLite::albumType, &DataAlbumLite::releaseYear}) {
        EXPECT_EQ(album.*field, 0);
    }
    for (const auto field : std::initializer_list<bool DataAlbumLite::*>{
             &DataAlbumLite::compilation, &DataAlbumLite::parentalAuthority}) {
        EXPECT_FALSE(album.*field);
    }
    EXPECT_TRUE((std::is_same_v<decltype(album.displayableAlbumTypes), Texts>));
    EXPECT_TRUE(album.displayableAlbumTypes.empty());
    EXPECT_EQ(sizeof album.reserved64, 8U);
    EXPECT_TRUE((std::is_base_of_v<QuavData, DataAlbumLite>));
}

TEST(DataAlbumLite, ReadsEachElementIntoItsField) {
    const auto album = FromTree<DataAlbumLite>(SampleAlbumLite::kTree);
    EXPECT_EQ(album.albumArt162x162Url, "http://art.example.com/162?id=41&x=1");
    EXPECT_EQ(album.albumId, "Alb.4102");
    EXPECT_EQ(album.albumType, 4103);
    EXPECT_TRUE(album.compilation);
    EXPECT_EQ(album.displayName,
              L"\u041D\u043E\u0447\u043D\u043E\u0439 "
              L"\u044D\u043A\u0441\u043F\u0440\u0435\u0441\u0441 "
              L"(\u0438\u0437\u0434\u0430\u043D\u0438\u0435 2)");
    EXPECT_EQ(album.name, L"Night Express \u2013 \u00C9dition Deux");
    EXPECT_FALSE(album.parentalAuthority);
    EXPECT_EQ(album.primaryArtistDisplayName, L"Ng\u1ECDc v\u00E0 B\u1EA1n b\u00E8");
    EXPECT_EQ(album.primaryArtistId, "Art.4106");
    EXPECT_EQ(album.primaryStyle, "Jazz & Blues");
    EXPECT_EQ(album.releaseYear, 2007);
    EXPECT_EQ(album.shortcut, "night-express");
    EXPECT_EQ(album.displayableAlbumTypes, (Texts{"ALBUM", "EP <2>"}));
}

TEST(DataAlbumLite, TextsAndNumbersAreReadInTheirForms) {
    ExpectReadsPlain("Album", "AlbumArt162x162Url", &DataAlbumLite::albumArt162x162Url);
    ExpectReadsPlain("Album", "AlbumId", &DataAlbumLite::albumId);
    ExpectReadsNumber("Album", "AlbumType", &DataAlbumLite::albumType);
    ExpectReadsDisplay("Album", "DisplayName", &DataAlbumLite::displayName);
    ExpectReadsDisplay("Album", "Name", &DataAlbumLite::name);
    ExpectReadsDisplay("Album", "PrimaryArtistDisplayName",
                       &DataAlbumLite::primaryArtistDisplayName);
    ExpectReadsPlain("Album", "PrimaryArtistId", &DataAlbumLite::primaryArtistId);
    ExpectReadsPlain("Album", "PrimaryStyle", &DataAlbumLite::primaryStyle);
    ExpectReadsNumber("Album", "ReleaseYear", &DataAlbumLite::releaseYear);
    ExpectReadsPlain("Album", "Shortcut", &DataAlbumLite::shortcut);
}

TEST(DataAlbumLite, ReadingLeavesTheUtf8NamesAsTheyAre) {
    DataAlbumLite album;
    album.displayNameUtf8 = "first";
    album.nameUtf8 = "second";
    album.primaryArtistDisplayNameUtf8 = "third";
    ReadNode(album, SampleAlbumLite::kTree);
    EXPECT_EQ(album.displayNameUtf8, "first");
    EXPECT_EQ(album.nameUtf8, "second");
    EXPECT_EQ(album.primaryArtistDisplayNameUtf8, "third");
}

// --- Flags -------------------------------------------------------------------------------------

TEST(DataAlbumLite, OnlyTrueTextSetsAFlag) {
    for (const FlagRow& flag : kFlags) {
        for (const char* text :
             {"", "false", "1", "TRUE", "True", " true", "true ", "truer", "tru", "yes"}) {
            EXPECT_FALSE(Album(Wrapped(flag.element, text)).*flag.field) << text;
        }
        EXPECT_TRUE(Album(Wrapped(flag.element, "true")).*flag.field) << flag.element;
    }
}

TEST(DataAlbumLite, NoTextClearsAFlag) {
    for (const FlagRow& flag : kFlags) {
        for (const char* text : {"false", "", "0", "anything"}) {
            const auto album = Album(Wrapped(flag.element, "true") + Wrapped(flag.element, text));
            EXPECT_TRUE(album.*flag.field) << flag.element << ": " << text;
        }
    }
}

TEST(DataAlbumLite, EachFlagTravelsAlone) {
    for (const FlagRow& flag : kFlags) {
        for (const bool value : {false, true}) {
            Values values;
            Soap soap;
            soap.*flag.member = values.Of(value);
            const std::string text = value ? "true" : "false";
            const std::string tree = TreeOf<DataAlbumLite>(soap);
            EXPECT_EQ(tree, Wrapped("Album", Wrapped(flag.element, text)));
            EXPECT_EQ(DataAlbumLite(&soap).*flag.field, value);

            auto album = FromTree<DataAlbumLite>(tree);
            for (const FlagRow& other : kFlags) {
                EXPECT_EQ(album.*other.field, value && other.field == flag.field) << other.element;
            }
            EXPECT_NE(album.ToString().find("\r\n" + std::string(flag.label) + " = " + text),
                      std::string::npos);
        }
    }
}

// --- The list of types -------------------------------------------------------------------------

TEST(DataAlbumLite, EveryChildOfTheTypesCountsWhateverItsName) {
    const auto album = Album(
        "<DisplayableAlbumTypes><Value>A</Value><value>B</value><Other>C</Other><Value/>"
        "<AlbumId>D</AlbumId></DisplayableAlbumTypes>"
        "<Value>E</Value><DisplayableAlbumTypes>F</DisplayableAlbumTypes>");
    EXPECT_EQ(album.displayableAlbumTypes, (Texts{"A", "B", "C", "", "D"}));
    EXPECT_EQ(album.albumId, "");
}

TEST(DataAlbumLite, TypesAreAppended) {
    DataAlbumLite album;
    album.displayableAlbumTypes = {"old"};
    const std::string types =
        "<Album><DisplayableAlbumTypes><Value>A</Value><Value>B</Value></DisplayableAlbumTypes>"
        "<DisplayableAlbumTypes><Value>C</Value></DisplayableAlbumTypes></Album>";
    ReadNode(album, types);
    EXPECT_EQ(album.displayableAlbumTypes, (Texts{"old", "A", "B", "C"}));
    ReadNode(album, types);
    EXPECT_EQ(album.displayableAlbumTypes, (Texts{"old", "A", "B", "C", "A", "B", "C"}));
}

TEST(DataAlbumLite, EmptyListOfTypesIsAnEmptyElement) {
    Values values;
    Soap soap;
    soap.displayableAlbumTypes = values.List<ArrayOfString>({});
    EXPECT_EQ(TreeOf<DataAlbumLite>(soap), "<Album><DisplayableAlbumTypes/></Album>");
}

TEST(DataAlbumLite, EmptyTypesAreWritten) {
    Values values;
    Soap soap;
    soap.displayableAlbumTypes = values.List<ArrayOfString>({"", "A", ""});
    EXPECT_EQ(TreeOf<DataAlbumLite>(soap),
              "<Album><DisplayableAlbumTypes><Value/><Value>A</Value><Value/>"
              "</DisplayableAlbumTypes></Album>");
}

// --- From and to the service's record ----------------------------------------------------------

TEST(DataAlbumLite, IsMadeFromASoapRecord) {
    const DataAlbumLite album = FromSample();
    EXPECT_EQ(album.albumArt162x162Url, "http://art.example.com/162?id=41&x=1");
    EXPECT_EQ(album.albumId, "Alb.4102");
    EXPECT_EQ(album.albumType, 4103);
    EXPECT_TRUE(album.compilation);
    EXPECT_EQ(album.displayNameUtf8, "Ночной экспресс (издание 2)");
    EXPECT_EQ(album.nameUtf8, "Night Express – Édition Deux");
    EXPECT_FALSE(album.parentalAuthority);
    EXPECT_EQ(album.primaryArtistDisplayNameUtf8, "Ngọc và Bạn bè");
    EXPECT_EQ(album.primaryArtistId, "Art.4106");
    EXPECT_EQ(album.primaryStyle, "Jazz & Blues");
    EXPECT_EQ(album.releaseYear, 2007);
    EXPECT_EQ(album.shortcut, "night-express");
    EXPECT_EQ(album.displayableAlbumTypes, (Texts{"ALBUM", "EP <2>"}));
    EXPECT_TRUE(album.displayName.empty() && album.name.empty() &&
                album.primaryArtistDisplayName.empty());
}

TEST(DataAlbumLite, AbsentMembersGiveTheDefaults) {
    Soap soap;
    DataAlbumLite album(&soap);
    EXPECT_EQ(album.ToString(), AlbumLiteCase::kEmptyText);
    EXPECT_TRUE(album.displayNameUtf8.empty() && album.nameUtf8.empty() &&
                album.primaryArtistDisplayNameUtf8.empty());
}

TEST(DataAlbumLite, CountBelowOneGivesNoTypes) {
    std::string unread = "unread";
    for (const int count : {0, -1, INT_MIN}) {
        ArrayOfString types;
        types.items = &unread;
        types.count = count;
        Soap soap;
        soap.displayableAlbumTypes = &types;
        EXPECT_TRUE(DataAlbumLite(&soap).displayableAlbumTypes.empty()) << count;
    }
}

TEST(DataAlbumLite, TheFirstCountTypesAreTaken) {
    Values values;
    Soap soap;
    soap.displayableAlbumTypes = values.List<ArrayOfString>({"A", "", "C", "D"});
    soap.displayableAlbumTypes->count = 3;
    EXPECT_EQ(DataAlbumLite(&soap).displayableAlbumTypes, (Texts{"A", "", "C"}));
}

TEST(DataAlbumLite, MadeFromASoapRecordItPrintsEmptyNames) {
    auto album = FromSample();
    std::string text = SampleAlbumLite::kText;
    for (const std::string name :
         {"Ночной экспресс (издание 2)", "Night Express – Édition Deux", "Ngọc và Bạn bè"}) {
        text.erase(text.find(name), name.size());
    }
    EXPECT_EQ(album.ToString(), text);
}

TEST(DataAlbumLite, MadeFromASoapRecordItWritesWhatTheSoapRecordWrites) {
    EXPECT_EQ(OwnTree(FromSample()), SampleAlbumLite::kTree);
}

TEST(DataAlbumLite, MembersWithoutAFieldAreNotWritten) {
    Values values;
    Soap soap;
    soap.numberOfDiscs = soap.numberOfTracks = soap.rightFlags = values.Of(1);
    soap.releaseDate = values.Of(2UL);
    EXPECT_EQ(TreeOf<DataAlbumLite>(soap), AlbumLiteCase::kEmptyTree);
}

TEST(DataAlbumLite, WritesEmptyTextsAndZeros) {
    Values values;
    Soap soap;
    soap.albumId = soap.name = values.Text("");
    soap.albumType = soap.releaseYear = values.Of(0);
    EXPECT_EQ(TreeOf<DataAlbumLite>(soap),
              "<Album><AlbumId/><AlbumType>0</AlbumType><Name encoding=\"base64\"/>"
              "<ReleaseYear>0</ReleaseYear></Album>");
}

TEST(DataAlbumLite, NumbersTravelOverTheirWholeRange) {
    for (const int number : {0, 1, -1, INT_MAX, INT_MIN}) {
        Values values;
        Soap soap;
        soap.albumType = values.Of(number);
        soap.releaseYear = values.Of(number / 2);
        const auto album = ThroughText<DataAlbumLite>(soap);
        EXPECT_EQ(album.albumType, number);
        EXPECT_EQ(album.releaseYear, number / 2);
    }
}

// --- Writing the object itself -----------------------------------------------------------------

TEST(DataAlbumLite, ObjectWritesEveryScalarButNoEmptyList) {
    EXPECT_EQ(OwnTree(DataAlbumLite()),
              "<Album><AlbumArt162x162Url/><AlbumId/><AlbumType>0</AlbumType>"
              "<Compilation>false</Compilation><DisplayName encoding=\"base64\"/>"
              "<Name encoding=\"base64\"/><ParentalAuthority>false</ParentalAuthority>"
              "<PrimaryArtistDisplayName encoding=\"base64\"/><PrimaryArtistId/><PrimaryStyle/>"
              "<ReleaseYear>0</ReleaseYear><Shortcut/></Album>");
}

TEST(DataAlbumLite, ReadFromATreeItWritesEmptyNames) {
    auto album = FromTree<DataAlbumLite>(SampleAlbumLite::kTree);
    const auto node = album.ToXML();
    for (const char* name : {"DisplayName", "Name", "PrimaryArtistDisplayName"}) {
        ZQXML::INode* const element = node->FindChild(name);
        ASSERT_NE(element, nullptr) << name;
        EXPECT_EQ(element->GetValue(), "") << name;
        EXPECT_TRUE(element->IsEncoded()) << name;
    }
    album.displayNameUtf8 = "Ночной экспресс (издание 2)";
    album.nameUtf8 = "Night Express – Édition Deux";
    album.primaryArtistDisplayNameUtf8 = "Ngọc và Bạn bè";
    EXPECT_EQ(OwnTree(album), SampleAlbumLite::kTree);
}

TEST(DataAlbumLite, ObjectsTextsKeepTheirZeroBytes) {
    const std::string text("a\0b", 3);
    Values values;
    Soap soap;
    soap.albumId = values.Text(text);
    soap.displayableAlbumTypes = values.List<ArrayOfString>({text});
    const auto cut = DataAlbumLite::ToXML(&soap);
    const auto whole = DataAlbumLite(&soap).ToXML();
    const auto type = [](const auto& node) {
        return node->FindChild("DisplayableAlbumTypes")->FindChild("Value")->GetValue();
    };
    EXPECT_EQ(cut->FindChild("AlbumId")->GetValue(), "a");
    EXPECT_EQ(type(cut), "a");
    EXPECT_EQ(whole->FindChild("AlbumId")->GetValue(), text);
    EXPECT_EQ(type(whole), text);
}

TEST(DataAlbumLite, WritingLeavesTheObjectAsItIs) {
    auto album = FromSample();
    const std::string first = OwnTree(album);
    EXPECT_EQ(ZQXML::WriteXml(album.ToXML().get()), first);
    EXPECT_EQ(ZQXML::WriteXml(album.ToXML().get()), first);
    EXPECT_EQ(album.nameUtf8, "Night Express – Édition Deux");
}

// --- Comparison --------------------------------------------------------------------------------

TEST(DataAlbumLite, AlbumsOfOneYearAreEqual) {
    EXPECT_TRUE(OfYear(2004, "Alb.1") == OfYear(2004, "Alb.2"));
    EXPECT_FALSE(OfYear(2004, "Alb.1") == OfYear(2005, "Alb.1"));
    auto other = FromTree<DataAlbumLite>(SampleAlbumLite::kTree);
    EXPECT_TRUE(other == OfYear(2007, ""));
}

TEST(DataAlbumLite, LaterYearIsLess) {
    const struct {
        int left;
        int right;
        bool isLess;
    } cases[] = {{2004, 1999, true},       {1999, 2004, false},
                 {2004, 2004, false},      {1, -1, true},
                 {-1, 1, false},           {0, INT_MIN, true},
                 {INT_MAX, INT_MIN, true}, {INT_MIN, INT_MAX, false},
                 {-2, -1, false}};
    for (const auto& each : cases) {
        EXPECT_EQ(OfYear(each.left, "Alb.1") < OfYear(each.right, "Alb.2"), each.isLess)
            << each.left << " < " << each.right;
    }
}

TEST(DataAlbumLite, SortingPutsTheNewestFirst) {
    std::vector<DataAlbumLite> albums = {OfYear(1999, "a"), OfYear(2004, "b"), OfYear(-1, "c"),
                                         OfYear(2004, "d"), OfYear(2010, "e"), OfYear(1999, "f")};
    std::stable_sort(albums.begin(), albums.end());
    std::string order;
    for (const DataAlbumLite& album : albums) {
        order += album.albumId;
    }
    EXPECT_EQ(order, "ebdafc");
}

// --- Copies ------------------------------------------------------------------------------------

TEST(DataAlbumLite, ConstructorsLeaveTheReservedFieldAsTheyFindIt) {
    Values values;
    ExpectConstructorLeaves<DataAlbumLite>(&DataAlbumLite::reserved64);
    ExpectConstructorLeaves<DataAlbumLite>(&DataAlbumLite::reserved64,
                                           values.Filled<SampleAlbumLite>());
}

TEST(DataAlbumLite, CopiesHoldTheFieldsThatAreNotRendered) {
    auto original = FromSample();
    original.reserved64 = 0xFEDCBA9876543210U;
    const DataAlbumLite copy(original);
    DataAlbumLite assigned;
    assigned = copy;
    std::vector<DataAlbumLite> grown;
    while (grown.size() < 5) {
        grown.push_back(original);
    }
    DataAlbumLite moveAssigned;
    moveAssigned = std::move(assigned);
    const DataAlbumLite moved(std::move(original));

    for (const DataAlbumLite* album : std::initializer_list<const DataAlbumLite*>{
             &copy, &moveAssigned, &grown.front(), &grown.back(), &moved}) {
        EXPECT_EQ(album->reserved64, 0xFEDCBA9876543210U);
        EXPECT_EQ(OwnTree(*album), SampleAlbumLite::kTree);
    }
}

TEST(DataAlbumLite, ReservedFieldStaysUnderEveryOtherOperation) {
    DataAlbumLite album;
    album.reserved64 = 77;
    ReadNode(album, SampleAlbumLite::kTree);
    album.ToString();
    album.ToXML();
    EXPECT_EQ(album.reserved64, 77U);
}

TEST(DataAlbumLite, CopyIsIndependent) {
    const auto original = FromTree<DataAlbumLite>(SampleAlbumLite::kTree);
    DataAlbumLite copy(original);
    ReadNode(copy, SampleAlbumLite::kTree);
    copy.albumId = "other";
    EXPECT_EQ(original.albumId, "Alb.4102");
    EXPECT_EQ(original.displayableAlbumTypes, (Texts{"ALBUM", "EP <2>"}));
}

// --- Documents of the service ------------------------------------------------------------------

TEST(DataAlbumLite, DocumentGoesAllTheWay) {
    ExpectDocument<AlbumLiteCase>("DataAlbumLite/full.xml", "Quavera2:LiteAlbumMetadata",
                                  TestData("DataAlbumLite/full.tree.xml"),
                                  TestData("DataAlbumLite/full.txt"));
}

TEST(DataAlbumLite, NilTypeOfADocumentIsAnEmptyText) {
    ExpectDocument<AlbumLiteCase>(
        "DataAlbumLite/nil-items.xml", "Quavera2:LiteAlbumMetadata",
        "<Album><AlbumId>Alb.7</AlbumId><DisplayableAlbumTypes><Value/><Value>EP</Value><Value/>"
        "</DisplayableAlbumTypes></Album>",
        SampleAlbumLite::TextOfId("Alb.7") + "  types = \r\n  types = EP\r\n  types = \r\n");
}

TEST(DataAlbumLite, EmptyTypesOfADocumentAreAnEmptyElement) {
    ExpectDocument<AlbumLiteCase>("DataAlbumLite/empty-types.xml", "Quavera2:LiteAlbumMetadata",
                                  "<Album><DisplayableAlbumTypes/></Album>",
                                  AlbumLiteCase::kEmptyText);
}

}  // namespace
