// `--strict`: what records leave aside is refused, with its place, what was expected and the
// nearest name.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/tools/Files.h"
#include "tests/tools/Process.h"
#include "tools/ElementTypes.h"
#include "tools/NearestName.h"

namespace {

using tooltest::Arguments;
using tooltest::Contents;
using tooltest::DataPath;
using tooltest::Envelope;
using tooltest::Refused;
using tooltest::RunTool;
using tooltest::Track;

std::vector<std::string> Classes() {
    return {
#define QUAVERA_RECORD(Class, Soap, element, node, answer) #Class,
#include "records/Records.def"
    };
}

/// A document and what the message has to say of it.
struct Case {
    std::string document;
    std::vector<std::string> message;
};

void ExpectRefused(const std::string& command, const std::vector<Case>& cases) {
    for (const Case& each : cases) {
        std::vector<std::string> message = each.message;
        message.insert(message.begin(), "standard input: ");
        EXPECT_TRUE(Refused(RunTool({command, "--strict"}, each.document), 1, message))
            << each.document;
        EXPECT_EQ(RunTool({command}, each.document).status, 0) << each.document;
    }
}

void ExpectTaken(const std::string& command, const std::vector<std::string>& documents) {
    for (const std::string& document : documents) {
        const tooltest::Outcome outcome = RunTool({command, "--strict"}, document);
        EXPECT_EQ(outcome.status, 0) << document << outcome.errors;
        EXPECT_EQ(outcome.output, RunTool({command}, document).output) << document;
    }
}

TEST(Strict, GoodDocumentsPrintAsEver) {
    for (const std::string& name : Classes()) {
        for (const auto& file : std::filesystem::directory_iterator(DataPath(name))) {
            const std::string path = file.path();
            if (path.find(".txt") != std::string::npos) {
                continue;
            }
            const bool isTree = path.find(".tree.xml") != std::string::npos;
            const Arguments command = {isTree ? "text" : "show", "--record", name, path};
            Arguments strict = command;
            strict.emplace_back("--strict");
            const tooltest::Outcome outcome = RunTool(strict);
            EXPECT_EQ(outcome.status, 0) << outcome.errors;
            EXPECT_EQ(outcome.output, RunTool(command).output) << path;
        }
    }
    for (const std::string& path : tooltest::SampleDocuments()) {
        EXPECT_EQ(RunTool({"tree", "--strict", path}).status, 0) << path;
    }
}

TEST(Strict, UnknownElementOfASoapRecordIsNamedWithTheNearest) {
    ExpectRefused(
        "show",
        {
            {Envelope(Track("\n <trackld>Tra.1</trackld>")),
             {"line 2, column 2: ", R"("trackld" is no element of "LiteTrackMetadata")",
              "the nearest is \"trackId\""}},
            {Envelope(Track("<name>a<b/></name>")),
             {R"("b" is no element of "name", which holds a text)"}},
            {"<AlbumMetadata><primaryArtist><artistID>1</artistID></primaryArtist></AlbumMetadata>",
             {"line 1, column 31: ", R"("artistID" is no element of "primaryArtist")",
              "\"artistId\""}},
            {"<AlbumMetadata><tracks><item/></tracks></AlbumMetadata>",
             {R"("item" is no element of "tracks")", "\"items\""}},
        });
}

TEST(Strict, MembersThatTheClassDoesNotWriteAreTheSoapRecordsAllTheSame) {
    ExpectTaken("show", {
                            "<AlbumMetadata><numberOfDiscs>2</numberOfDiscs></AlbumMetadata>",
                            "<AlbumMetadata><releaseDate>4294967295</releaseDate></AlbumMetadata>",
                            Envelope(Track("<popularity> +7 </popularity>")),
                        });
}

TEST(Strict, ValueThatASoapRecordReadsAnotherWayIsRefused) {
    ExpectRefused("show", {
                              {"<AlbumMetadata><tracks>none</tracks></AlbumMetadata>",
                               {R"("tracks" holds "none", where elements are expected)"}},
                          });
    const std::vector<Case> refused = {
        {Envelope(Track("<discIndex>zwei</discIndex>")),
         {R"("discIndex" holds "zwei")", "a number from -2147483648 to 2147483647"}},
        {"<AlbumMetadata><compilation>yes</compilation></AlbumMetadata>",
         {"line 1, column 16: ", "\"yes\"", R"("true" or "false")"}},
        {"<LitePlaylistMetadata><createdDate>4294967296</createdDate></LitePlaylistMetadata>",
         {"\"4294967296\"", "a number from 0 to 4294967295"}},
        {"<AccountMetaData><freeTrialTimeLeftInMillis>9223372036854775808"
         "</freeTrialTimeLeftInMillis></AccountMetaData>",
         {"a number of 64 bits"}},
    };
    for (const Case& each : refused) {
        EXPECT_TRUE(Refused(RunTool({"show", "--strict"}, each.document), 1, each.message));
    }
}

TEST(Strict, NilAndDerivedElementsOfSoapRecordsAreTaken) {
    const std::string xsi = " xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\"";
    ExpectTaken("show", {
                            Envelope(Track("<discIndex" + xsi + " xsi:nil=\"true\"/>")),
                            "<AlbumMetadata" + xsi +
                                "><primaryArtist xsi:type=\"ArtistMetadata\"><bio>b"
                                "</bio></primaryArtist></AlbumMetadata>",
                        });
}

TEST(Strict, UnknownElementOfATreeIsNamedWithTheNearest) {
    ExpectRefused(
        "text",
        {
            {"<Image>\n  <Heigth>7</Heigth>\n</Image>",
             {"line 2, column 3: ", R"("Heigth" is no element of "Image")", "\"Height\""}},
            {"<Album><Tracks><Trak/></Tracks></Album>",
             {R"("Trak" is no element of "Tracks")", "\"Track\""}},
            {"<Album><Artist><AlbumId>1</AlbumId></Artist></Album>",
             {R"("AlbumId" is no element of "Artist")", "\"ArtistId\""}},
            {"<Album><DisplayableAlbumTypes><V>1</V></DisplayableAlbumTypes></Album>",
             {"\"V\"", "\"Value\""}},
            {"<Track><" + std::string(100000, 'n') + "/></Track>", {"nnnn...\" is no element"}},
        });
}

TEST(Strict, ValueOfATreeThatIsNotOfItsTypeIsRefused) {
    ExpectRefused(
        "text",
        {
            {"<Image><Height>7 px</Height></Image>",
             {"line 1, column 8: ", R"("Height" holds "7 px")", "a number from -2147483648"}},
            {"<Image><Height/></Image>", {R"("Height" holds "")"}},
            {"<Image><Width>2147483648</Width></Image>", {"\"2147483648\""}},
            {"<AlbumReview><PublishDate>-1</PublishDate></AlbumReview>",
             {"a number from 0 to 4294967295"}},
            {"<Station><FreeStation>TRUE</FreeStation></Station>",
             {"\"TRUE\"", R"("true" or "false")"}},
            {"<Image><Title>Vm9y*</Title></Image>", {"\"Vm9y*\"", "base64 of UTF-8"}},
            {"<Image><Title>/w==</Title></Image>", {"base64 of UTF-8"}},
            {"<Index><Letter>4</Letter></Index>", {"two hexadecimal digits"}},
            {"<Album><Tracks>none</Tracks></Album>", {"\"none\", where elements are expected"}},
            {"<Album>text</Album>", {R"("Album" holds "text")"}},
        });
}

TEST(Strict, ElementsThatAreReadAndNeverWrittenAreTheRecords) {
    ExpectTaken("text", {
                            "<Track><UserData>mine</UserData></Track>",
                            "<AccountProperties><lastName>Z</lastName></AccountProperties>",
                            "<Index><Letter> 9</Letter></Index>",
                            "<Image><Title encoding=\"base64\"/></Image>",
                        });
}

TEST(Strict, PlaceInAListIsThatInTheText) {
    const std::string first = "<Image>\n <Width>1</Width>\n</Image>\n";
    ExpectTaken("text", {first + first});
    EXPECT_TRUE(Refused(RunTool({"text", "--strict"}, first + "<Image>\n <Wdth/></Image>\n"), 1,
                        {"line 5, column 2: ", "\"Wdth\"", "\"Width\""}));
}

TEST(Strict, OtherFailuresAreToldAsEver) {
    for (const char* const file : {"bad/mismatched-tag.xml", "bad/unknown-record.xml",
                                   "bad/fault-1.1.xml", "bad/empty-body.xml", "bad/empty.xml"}) {
        const tooltest::Outcome strict = RunTool({"show", "--strict", DataPath(file)});
        EXPECT_EQ(strict.status, 1) << file;
        EXPECT_EQ(strict.errors, RunTool({"show", DataPath(file)}).errors) << file;
    }
    const std::string path = DataPath("bad/unknown-root.tree.xml");
    EXPECT_EQ(RunTool({"text", "--strict", path}).errors, RunTool({"text", path}).errors);
}

TEST(Strict, SoapRecordsHaveTheMembersOfTheirBases) {
    const auto& types = tool::SoapTypes();
    const auto count = [&types](const std::string& name) {
        return types.count(name) == 0 ? 0 : types.at(name).members.size();
    };
    // Counted in the interface file.
    EXPECT_EQ(count("LiteAlbumMetadata"), 17U);
    EXPECT_EQ(count("AlbumMetadata"), 26U);
    EXPECT_EQ(count("MemberLibrary"), 5U);
    EXPECT_EQ(count("AccountMetaData"), 21U);
    EXPECT_EQ(count("Images"), 1U);
}

TEST(Strict, DistanceOfNamesIsTheirEdits) {
    EXPECT_EQ(tool::EditDistance("", ""), 0U);
    EXPECT_EQ(tool::EditDistance("", "abc"), 3U);
    EXPECT_EQ(tool::EditDistance("abc", ""), 3U);
    EXPECT_EQ(tool::EditDistance("Track", "tRACK"), 0U);
    EXPECT_EQ(tool::EditDistance("Trak", "Track"), 1U);
    EXPECT_EQ(tool::EditDistance("Heigth", "Height"), 2U);
    EXPECT_EQ(tool::EditDistance("kitten", "sitting"), 3U);
}

}  // namespace
