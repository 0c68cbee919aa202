#include "records/DataPlaylistLite.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>

#include "soap/QuaveraStub.h"
#include "tests/records/RecordTesting.h"
#include "tests/records/SamplePlaylistLite.h"

namespace {

struct PlaylistLiteCase : RecordCase, SamplePlaylistLite {
    using Record = DataPlaylistLite;
    static constexpr const char* kTextReadTwice = kText;
};

const RulesFor<PlaylistLiteCase> kRules("DataPlaylistLite");

static_assert(AreAll<std::string>(&DataPlaylistLite::createdDate,
                                  &DataPlaylistLite::lastModifiedDate, &DataPlaylistLite::name,
                                  &DataPlaylistLite::playlistId, &DataPlaylistLite::type));
static_assert(std::is_base_of_v<QuavData, DataPlaylistLite>);

using Soap = Quavera::Quavera2__LitePlaylistMetadata;

DataPlaylistLite Playlist(const std::string& content) {
    return FromTree<DataPlaylistLite>(Wrapped("Playlist", content));
}

TEST(DataPlaylistLite, ReadsEachElementIntoItsField) {
    const auto playlist = FromTree<DataPlaylistLite>(SamplePlaylistLite::kTree);
    EXPECT_EQ(playlist.createdDate, "1199145600");
    EXPECT_EQ(playlist.lastModifiedDate, "3000000007");
    EXPECT_EQ(playlist.name, "Été & <Hiver> 冬");
    EXPECT_EQ(playlist.playlistId, "Pll.4401");
    EXPECT_EQ(playlist.type, "MEMBER");
}

TEST(DataPlaylistLite, SummaryOfOnlyANameHasOneChild) {
    Values values;
    Soap soap;
    soap.name = values.Text("Nur ein Name");
    EXPECT_EQ(TreeOf<DataPlaylistLite>(soap), "<Playlist><Name>Nur ein Name</Name></Playlist>");
}

TEST(DataPlaylistLite, NameIsNeitherEncodedNorDecoded) {
    Values values;
    Soap soap;
    soap.name = values.Text("R3LDvMOfZQ==");
    const std::string tree = TreeOf<DataPlaylistLite>(soap);
    EXPECT_EQ(tree, "<Playlist><Name>R3LDvMOfZQ==</Name></Playlist>");
    EXPECT_EQ(FromTree<DataPlaylistLite>(tree).name, "R3LDvMOfZQ==");
    EXPECT_EQ(Playlist("<Name encoding=\"base64\">R3LDvMOfZQ==</Name>").name, "R3LDvMOfZQ==");
}

TEST(DataPlaylistLite, DatesAreWrittenAsUnsignedNumbers) {
    for (const unsigned long date : kUnsignedDates) {
        Values values;
        Soap soap;
        soap.createdDate = soap.lastModifiedDate = values.Of(date);
        const auto playlist = FromTree<DataPlaylistLite>(TreeOf<DataPlaylistLite>(soap));
        EXPECT_EQ(playlist.createdDate, std::to_string(date));
        EXPECT_EQ(playlist.lastModifiedDate, std::to_string(date));
    }
}

TEST(DataPlaylistLite, DatesAreReadAsTheTextThatTheyAre) {
    for (const char* text : {"", "007", "-1", "4294967296", " 12 ", "Frühling 2008"}) {
        auto playlist = Playlist(Wrapped("CreatedDate", std::string("x") + text) +
                                 Wrapped("LastModifiedDate", std::string("y") + text));
        EXPECT_EQ(playlist.createdDate, std::string("x") + text);
        EXPECT_EQ(playlist.lastModifiedDate, std::string("y") + text);
    }
    EXPECT_EQ(Playlist("<CreatedDate>007</CreatedDate>").createdDate, "007");
}

TEST(DataPlaylistLite, MembersWithoutAFieldAreNotWritten) {
    Values values;
    Soap soap;
    soap.author = values.Text("author");
    soap.collaborative = values.Of(true);
    soap.description = values.Text("description");
    soap.trackCount = values.Of(1);
    EXPECT_EQ(TreeOf<DataPlaylistLite>(soap), PlaylistLiteCase::kEmptyTree);
}

TEST(DataPlaylistLite, EmptyTextsAndZeroDatesArePresent) {
    Values values;
    Soap soap;
    soap.createdDate = values.Of(0UL);
    soap.type = values.Text("");
    EXPECT_EQ(TreeOf<DataPlaylistLite>(soap),
              "<Playlist><CreatedDate>0</CreatedDate><Type/></Playlist>");
}

TEST(DataPlaylistLite, IgnoresNamesThatDifferInLetterCase) {
    EXPECT_EQ(Playlist("<Name>right</Name><name>wrong</name><NAME>wrong</NAME>").name, "right");
}

TEST(DataPlaylistLite, DocumentArrives) {
    ExpectDocument<PlaylistLiteCase>("DataPlaylistLite/full.xml", "Quavera2:LitePlaylistMetadata",
                                     TestData("DataPlaylistLite/full.tree.xml"),
                                     TestData("DataPlaylistLite/full.txt"));
}

}  // namespace
