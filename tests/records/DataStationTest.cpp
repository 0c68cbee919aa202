#include "records/DataStation.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <type_traits>

#include "soap/QuaveraStub.h"
#include "tests/records/RecordTesting.h"
#include "tests/records/SampleStationLite.h"

namespace {

/// The reader is given the "Station" element.
struct StationCase : RecordCase, SampleStation {
    using Record = DataStation;
    static constexpr bool kGoesByName = true;
    static constexpr bool kWritesIntoGivenNode = false;
    static constexpr const char* kTextReadTwice = kText;
    static constexpr char kEmptyTree[] = "<Station/>";
    static constexpr char kEmptyText[] =
        "name = \r\nstationId = \r\ntype = \r\nfreeStation = false\r\n";
};

/// The reader is given its parent.
struct StationParentCase : StationCase {
    static constexpr bool kReadsParent = true;
};

const RulesFor<StationCase> kRules("DataStation");
const RulesFor<StationParentCase> kRulesBelowParent("DataStation_BelowParent");

TEST(DataStation, AddsNoFieldsToTheSummary) {
    EXPECT_TRUE((std::is_base_of_v<DataStationLite, DataStation>));
    EXPECT_EQ(sizeof(DataStation), sizeof(DataStationLite));
    std::uint64_t DataStation::*const reserved64 = &DataStationLite::reserved64;
    ExpectConstructorLeaves(reserved64);
}

TEST(DataStation, WritesTheSummarysElementWhateverElseTheRecordHolds) {
    Values values;
    SampleStation::Soap soap;
    SampleStation::Fill(soap, values);
    ASSERT_NE(soap.description, nullptr);
    EXPECT_EQ(TreeOf<DataStation>(soap), TreeOf<DataStationLite>(soap));
    EXPECT_EQ(TreeOf<DataStation>(soap), SampleStationLite::kTree);
}

TEST(DataStation, MergesTheStationsOfAParentInOrder) {
    const auto station = FromTree<DataStation>(
        "<Stations><Station><Name>R3LDvMOfZQ==</Name><Type>first</Type>"
        "<FreeStation>true</FreeStation></Station>"
        "<Other><Type>other</Type></Other>"
        "<Station><Type>second</Type><FreeStation>false</FreeStation></Station></Stations>");
    EXPECT_EQ(station.name, L"Gr\u00FC\u00DFe");
    EXPECT_EQ(station.type, "second");
    EXPECT_EQ(station.stationId, "");
    EXPECT_TRUE(station.freeStation);
}

TEST(DataStation, IgnoresStationsWithinAStation) {
    const std::string inner = "<Station><Type>inner</Type><StationId>inner</StationId></Station>";
    const std::string outer = Wrapped("Station", inner + "<Type>outer</Type>" + inner);
    for (const std::string& xml : {outer, Wrapped("Parent", outer)}) {
        const auto station = FromTree<DataStation>(xml);
        EXPECT_EQ(station.type, "outer") << xml;
        EXPECT_EQ(station.stationId, "") << xml;
    }
}

TEST(DataStation, StaysAsItIsWithoutAStation) {
    for (const char* xml : {"<Parent/>", "<Parent><StationId>new</StationId></Parent>",
                            "<Parent><X><Station><StationId>new</StationId></Station></X></Parent>",
                            "<station><StationId>new</StationId></station>",
                            "<Stations><STATION><StationId>new</StationId></STATION></Stations>"}) {
        auto station = FromTree<DataStation>(SampleStation::kTree);
        ReadNode(station, xml);
        EXPECT_EQ(station.ToString(), SampleStation::kText) << xml;
    }
}

TEST(DataStation, TextIsThatOfTheSummary) {
    const struct {
        std::wstring name;
        std::string stationId;
        std::string type;
        bool isFree;
    } cases[] = {{L"", "", "", false}, {L"Gr\u00FC\u00DFe", "Sta.1", "user", true}};
    for (const auto& each : cases) {
        DataStation station;
        station.name = each.name;
        station.stationId = each.stationId;
        station.type = each.type;
        station.freeStation = each.isFree;
        DataStationLite summary(station);
        EXPECT_EQ(station.ToString(), summary.ToString());
    }
}

TEST(DataStation, DocumentGivesItsTreeAndText) {
    const std::string tree = TestData("DataStation/full.tree.xml");
    const std::string text = TestData("DataStation/full.txt");
    ExpectDocument<StationCase>("DataStation/full.xml", "Quavera2:StationMetadata", tree, text);
    ExpectDocument<StationParentCase>("DataStation/full.xml", "Quavera2:StationMetadata", tree,
                                      text);
}

}  // namespace
