#include "records/DataArtistLite.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <vector>

#include "soap/QuaveraStub.h"
#include "tests/records/RecordTesting.h"
#include "tests/records/SampleArtistLite.h"

namespace {

struct ArtistLiteCase : RecordCase, SampleArtistLite {
    using Record = DataArtistLite;
    static constexpr const char* kTextReadTwice = kText;
    static constexpr char kEmptyTree[] = "<Artist/>";
    static constexpr char kEmptyText[] =
        "artistId = \r\n"
        "name = \r\n"
        "shortcut = \r\n";
};

const RulesFor<ArtistLiteCase> kRules("DataArtistLite");

using Soap = Quavera::Quavera2__LiteArtistMetadata;

TEST(DataArtistLite, FieldsHaveTheirTypes) {
    EXPECT_TRUE((std::is_same_v<decltype(DataArtistLite::artistId), std::string>));
    EXPECT_TRUE((std::is_same_v<decltype(DataArtistLite::name), std::wstring>));
    EXPECT_TRUE((std::is_same_v<decltype(DataArtistLite::shortcut), std::string>));
    EXPECT_TRUE((std::is_base_of_v<QuavData, DataArtistLite>));
}

TEST(DataArtistLite, ReadsEachElementIntoItsField) {
    const auto artist = FromTree<DataArtistLite>(SampleArtistLite::kTree);
    EXPECT_EQ(artist.artistId, "Art.3101");
    EXPECT_EQ(artist.name, L"\u03A3\u03BF\u03C6\u03AF\u03B1 & \u0394\u03AC\u03C6\u03BD\u03B7");
    EXPECT_EQ(artist.shortcut, "sofia-dafni");
}

TEST(DataArtistLite, TextsAreReadInTheirForms) {
    ExpectReadsPlain("Artist", "ArtistId", &DataArtistLite::artistId);
    ExpectReadsDisplay("Artist", "Name", &DataArtistLite::name);
    ExpectReadsPlain("Artist", "Shortcut", &DataArtistLite::shortcut);
}

TEST(DataArtistLite, NullRecordWritesNothing) {
    Soap* const none = nullptr;
    const auto node = Parse("<Other><Kept>1</Kept></Other>");
    DataArtistLite::ToXML(node.get(), none);
    EXPECT_EQ(ZQXML::WriteXml(node.get()), "<Other><Kept>1</Kept></Other>");
    EXPECT_EQ(ZQXML::WriteXml(DataArtistLite::ToXML(none).get()), ArtistLiteCase::kEmptyTree);
}

TEST(DataArtistLite, EachMemberIsWrittenAlone) {
    const struct {
        std::string* Soap::*member;
        const char* tree;
    } cases[] = {
        {&Soap::artistId, "<Artist><ArtistId>\xC3\xBC</ArtistId></Artist>"},
        {&Soap::name, "<Artist><Name encoding=\"base64\">w7w=</Name></Artist>"},
        {&Soap::shortcut, "<Artist><Shortcut>\xC3\xBC</Shortcut></Artist>"},
    };
    for (const auto& each : cases) {
        Values values;
        Soap soap;
        soap.*each.member = values.Text("ü");
        EXPECT_EQ(TreeOf<DataArtistLite>(soap), each.tree);
    }
}

TEST(DataArtistLite, WritesEmptyTexts) {
    Values values;
    Soap soap;
    soap.artistId = soap.name = soap.shortcut = values.Text("");
    EXPECT_EQ(TreeOf<DataArtistLite>(soap),
              "<Artist><ArtistId/><Name encoding=\"base64\"/><Shortcut/></Artist>");
}

TEST(DataArtistLite, MemberWithoutAFieldIsNotWritten) {
    Values values;
    Soap soap;
    soap.rightFlags = values.Of(7);
    EXPECT_EQ(TreeOf<DataArtistLite>(soap), ArtistLiteCase::kEmptyTree);
}

TEST(DataArtistLite, PlainTextsEndAtTheirFirstZeroByte) {
    Values values;
    Soap soap;
    soap.artistId = soap.shortcut = values.Text(std::string("a\0b", 3));
    EXPECT_EQ(TreeOf<DataArtistLite>(soap),
              "<Artist><ArtistId>a</ArtistId><Shortcut>a</Shortcut></Artist>");
}

TEST(DataArtistLite, DocumentGoesAllTheWay) {
    const char* const type = "Quavera2:LiteArtistMetadata";
    ExpectDocument<ArtistLiteCase>("DataArtistLite/full.xml", type,
                                   TestData("DataArtistLite/full.tree.xml"),
                                   TestData("DataArtistLite/full.txt"));
    ExpectDocument<ArtistLiteCase>("DataArtistLite/nil-members.xml", type,
                                   "<Artist><Shortcut>wer-auch-immer</Shortcut></Artist>",
                                   "artistId = \r\nname = \r\nshortcut = wer-auch-immer\r\n");
}

}  // namespace
