#include "records/DataStationLite.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "soap/QuaveraStub.h"
#include "tests/records/RecordTesting.h"
#include "tests/records/SampleStationLite.h"

namespace {

struct StationLiteCase : RecordCase, SampleStationLite {
    using Record = DataStationLite;
    static constexpr const char* kTextReadTwice = kText;
    static constexpr char kEmptyTree[] = "<Station/>";
    static constexpr char kEmptyText[] =
        "name = \r\n"
        "stationId = \r\n"
        "type = \r\n"
        "freeStation = false\r\n";
};

const RulesFor<StationLiteCase> kRules("DataStationLite");

using Soap = Quavera::Quavera2__LiteStationMetadata;

DataStationLite Station(const std::string& content) {
    return FromTree<DataStationLite>(Wrapped("Station", content));
}

TEST(DataStationLite, FieldsHaveTheirTypes) {
    EXPECT_TRUE(AreAll<std::wstring>(&DataStationLite::name));
    EXPECT_TRUE(AreAll<std::uint64_t>(&DataStationLite::reserved64));
    EXPECT_TRUE(AreAll<std::string>(&DataStationLite::stationId, &DataStationLite::type));
    EXPECT_TRUE(AreAll<bool>(&DataStationLite::freeStation));
}

TEST(DataStationLite, ReadsEachElementIntoItsField) {
    const auto station = FromTree<DataStationLite>(SampleStationLite::kTree);
    EXPECT_EQ(station.name,
              L"\u041D\u043E\u0447\u043D\u043E\u0439 \u044D\u0444\u0438\u0440 \U0001F4FB");
    EXPECT_EQ(station.stationId, "Sta.404");
    EXPECT_EQ(station.type, "editorial");
    EXPECT_TRUE(station.freeStation);
}

TEST(DataStationLite, ReadsTexts) {
    ExpectReadsDisplay("Station", "Name", &DataStationLite::name);
    ExpectReadsPlain("Station", "StationId", &DataStationLite::stationId);
    ExpectReadsPlain("Station", "Type", &DataStationLite::type);
}

TEST(DataStationLite, WritesNothingButTheMemberThatIsPresent) {
    const struct {
        std::string* Soap::*member;
        const char* tree;
    } cases[] = {
        {&Soap::name, "<Station><Name encoding=\"base64\">QQ==</Name></Station>"},
        {&Soap::shortcut, "<Station/>"},
        {&Soap::stationId, "<Station><StationId>A</StationId></Station>"},
        {&Soap::type, "<Station><Type>A</Type></Station>"},
    };
    for (const auto& each : cases) {
        std::string text = "A";
        Soap soap;
        soap.*each.member = &text;
        EXPECT_EQ(TreeOf<DataStationLite>(soap), each.tree);
    }
}

TEST(DataStationLite, WritesEmptyTexts) {
    std::string empty;
    Soap soap;
    soap.name = soap.stationId = soap.type = &empty;
    EXPECT_EQ(TreeOf<DataStationLite>(soap),
              "<Station><Name encoding=\"base64\"/><StationId/><Type/></Station>");
}

TEST(DataStationLite, WritesTheFlagOnlyIfItIsTrueAndLast) {
    Values values;
    Soap soap;
    SampleStationLite::Fill(soap, values);
    EXPECT_EQ(ElementsOf(TreeOf<DataStationLite>(soap)).back().name, "FreeStation");

    soap.freeStation = false;
    EXPECT_EQ(DataStationLite::ToXML(&soap)->FindChild("FreeStation"), nullptr);
}

TEST(DataStationLite, WithoutTextsAndFlagTheElementIsEmpty) {
    Soap soap;
    ASSERT_FALSE(soap.freeStation);
    EXPECT_EQ(TreeOf<DataStationLite>(soap), "<Station/>");
    soap.freeStation = true;
    EXPECT_EQ(TreeOf<DataStationLite>(soap), "<Station><FreeStation>true</FreeStation></Station>");
}

TEST(DataStationLite, OnlyTheExactTextOfTrueSetsTheFlag) {
    EXPECT_TRUE(Station("<FreeStation>true</FreeStation>").freeStation);
    for (const char* text : {"", "t", "tru", "truee", "True", "TRUE", "trux", "xrue", " true",
                             "true ", "1", "yes", "false", "true&#10;"}) {
        const std::string element = Wrapped("FreeStation", text);
        EXPECT_FALSE(Station(element).freeStation) << text;
        EXPECT_TRUE(Station("<FreeStation>true</FreeStation>" + element).freeStation) << text;
    }
}

TEST(DataStationLite, FlagIsRendered) {
    DataStationLite station;
    station.freeStation = true;
    EXPECT_EQ(station.ToString(), "name = \r\nstationId = \r\ntype = \r\nfreeStation = true\r\n");
}

TEST(DataStationLite, ConstructorLeavesReserved64AsItFindsIt) {
    ExpectConstructorLeaves(&DataStationLite::reserved64);
}

TEST(DataStationLite, OnlyCopyingCarriesReserved64) {
    constexpr std::uint64_t kValue = 0xFEDCBA9876543210U;
    DataStationLite original;
    original.reserved64 = kValue;
    ReadNode(original, "<Station><Reserved64>1</Reserved64><reserved64>2</reserved64></Station>");
    EXPECT_EQ(original.ToString(), StationLiteCase::kEmptyText);

    const DataStationLite copy(original);
    DataStationLite assigned;
    assigned = original;
    const std::vector<DataStationLite> grown(3, original);
    const DataStationLite moved(std::move(original));
    DataStationLite moveAssigned;
    moveAssigned = std::move(assigned);
    const std::vector<const DataStationLite*> copies = {&copy, &grown.back(), &moved,
                                                        &moveAssigned};
    for (const DataStationLite* station : copies) {
        EXPECT_EQ(station->reserved64, kValue);
    }
}

// --- Documents of the service ------------------------------------------------------------------

constexpr char kType[] = "Quavera2:LiteStationMetadata";

TEST(DataStationLite, DocumentGivesItsTreeAndText) {
    ExpectDocument<StationLiteCase>("DataStationLite/full.xml", kType,
                                    TestData("DataStationLite/full.tree.xml"),
                                    TestData("DataStationLite/full.txt"));
}

TEST(DataStationLite, NilAndMissingMembersOfADocumentAreAbsent) {
    ExpectDocument<StationLiteCase>(
        "DataStationLite/nil-members.xml", kType,
        "<Station><StationId>Sta.8102</StationId></Station>",
        "name = \r\nstationId = Sta.8102\r\ntype = \r\nfreeStation = false\r\n");
}

}  // namespace
