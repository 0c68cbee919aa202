// What `tree`, `text` and `show` print of good input.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/tools/Files.h"
#include "tests/tools/Process.h"

namespace {

using tooltest::Arguments;
using tooltest::Contents;
using tooltest::DataPath;
using tooltest::Printed;
using tooltest::RunTool;

const char kSoap[] = "track/full.xml";
const char kTree[] = "track/full.tree.xml";
const char kText[] = "track/full.txt";

/// Breaks a tree whose elements hold either texts or elements into lines, as `--indent` has to.
std::string Indented(const std::string& tree) {
    std::string lines;
    std::size_t depth = 0;
    for (std::size_t at = 0; at < tree.size();) {
        const bool isEnd = tree.compare(at, 2, "</") == 0;
        depth -= isEnd ? 1 : 0;
        lines.append(depth * 2, ' ');
        std::size_t end = tree.find('>', at) + 1;
        if (!isEnd && tree[end] != '<') {
            end = tree.find('>', end) + 1;
        } else if (!isEnd) {
            ++depth;
        }
        lines += tree.substr(at, end - at) + "\n";
        at = end;
    }
    return lines;
}

/// A command, the file that it reads, and what it has to print of it.
struct Case {
    std::string name;
    Arguments command;
    std::string input;
    std::string output;
};

std::string TestName(const testing::TestParamInfo<Case>& info) {
    return info.param.name;
}

void PrintTo(const Case& printed, std::ostream* out) {
    *out << printed.name;
}

class Output : public testing::TestWithParam<Case> {
 public:
    static Arguments With(const Arguments& first, const Arguments& second) {
        Arguments all = first;
        all.insert(all.end(), second.begin(), second.end());
        return all;
    }
};

TEST_P(Output, OfAFile) {
    EXPECT_TRUE(Printed(RunTool(With(GetParam().command, {DataPath(GetParam().input)})),
                        GetParam().output));
}

TEST_P(Output, OfStandardInput) {
    EXPECT_TRUE(Printed(RunTool(GetParam().command, Contents(DataPath(GetParam().input))),
                        GetParam().output));
}

TEST_P(Output, OfStandardInputByItsName) {
    EXPECT_TRUE(
        Printed(RunTool(With(GetParam().command, {"-"}), Contents(DataPath(GetParam().input))),
                GetParam().output));
}

TEST_P(Output, WithTheClassNamed) {
    const Arguments arguments = With(GetParam().command, {"--record", "DataTrackInfo"});
    EXPECT_TRUE(Printed(RunTool(With(arguments, {DataPath(GetParam().input)})), GetParam().output));
}

INSTANTIATE_TEST_SUITE_P(
    Track, Output,
    testing::Values(
        Case{"Tree", {"tree"}, kSoap, Contents(DataPath(kTree)) + "\n"},
        Case{"IndentedTree", {"tree", "--indent"}, kSoap, Indented(Contents(DataPath(kTree)))},
        Case{"Text", {"text"}, kTree, Contents(DataPath(kText))},
        Case{"Show", {"show"}, kSoap, Contents(DataPath(kText))}),
    TestName);

struct RecordDocuments {
    const char* recordClass;
    const char* folder;
};

class OutputOfEveryClass : public testing::TestWithParam<RecordDocuments> {};

TEST_P(OutputOfEveryClass, IsTheRecordsTreeAndText) {
    const std::string folder = DataPath(std::string(GetParam().folder));
    const std::string soap = folder + "/full.xml";
    const std::string text = Contents(folder + "/full.txt");
    const std::string tree = Contents(folder + "/full.tree.xml");
    const Arguments named = {"--record", GetParam().recordClass};
    EXPECT_TRUE(Printed(RunTool({"show", named[0], named[1], soap}), text));
    EXPECT_TRUE(Printed(RunTool({"tree", named[0], named[1], soap}), tree + "\n"));
    EXPECT_TRUE(Printed(RunTool({"text", named[0], named[1]}, tree + "\n"), text));
    EXPECT_TRUE(Printed(RunTool({"show", soap}), text)) << "found by its element";
}

INSTANTIATE_TEST_SUITE_P(
    All, OutputOfEveryClass,
    testing::Values(
        RecordDocuments{"DataAccountProperties", "account"}, RecordDocuments{"DataAlbum", "album"},
        RecordDocuments{"DataAlbumLite", "album-lite"},
        RecordDocuments{"DataAlbumReview", "review"}, RecordDocuments{"DataArtist", "artist"},
        RecordDocuments{"DataArtistLite", "artist-lite"}, RecordDocuments{"DataGenre", "genre"},
        RecordDocuments{"DataGenreLite", "genre-lite"}, RecordDocuments{"DataImage", "image"},
        RecordDocuments{"DataIndex", "index"},
        RecordDocuments{"DataLibraryModificationResult", "modification"},
        RecordDocuments{"DataMemberLibrary", "library"},
        RecordDocuments{"DataMemberLibraryLite", "library-lite"},
        RecordDocuments{"DataPlaylist", "playlist"},
        RecordDocuments{"DataPlaylistLite", "playlist-lite"},
        RecordDocuments{"DataStation", "station"},
        RecordDocuments{"DataStationLite", "station-lite"},
        RecordDocuments{"DataTrackInfo", "track"}),
    [](const testing::TestParamInfo<RecordDocuments>& one) { return one.param.recordClass; });

TEST(Output, OfBareRecordElementIsThatOfItsEnvelope) {
    const std::string soap = Contents(DataPath(kSoap));
    const std::string name = "Quavera2:LiteTrackMetadata";
    const std::size_t begin = soap.find("<" + name);
    std::string record = soap.substr(begin, soap.find("</SOAP-ENV:Body>") - begin);
    record.replace(1, name.size(), name + " xmlns:Quavera2=\"urn:quavera:v2\"");
    EXPECT_TRUE(Printed(RunTool({"show"}, record), Contents(DataPath(kText))));
}

TEST(Output, IsTheSameForEveryWayToWriteADocument) {
    for (const char* const document : {"bare", "cdata", "character-references", "compact",
                                       "default-namespace", "prefixes", "soap12"}) {
        EXPECT_TRUE(Printed(RunTool({"show", DataPath(std::string("track/") + document + ".xml")}),
                            Contents(DataPath(kText))))
            << document;
    }
}

TEST(Output, OfTextReadsIndentedTreesToo) {
    EXPECT_TRUE(
        Printed(RunTool({"text"}, Indented(Contents(DataPath(kTree)))), Contents(DataPath(kText))));
}

TEST(Output, OfTreePipedIntoTextIsThatOfShow) {
    const tooltest::Descriptor input = tooltest::InputFile(Contents(DataPath(kSoap)));
    tooltest::Pipe pipe;
    tooltest::Process tree({"tree"}, input.get(), pipe.writer.get());
    pipe.writer.Close();
    tooltest::Process text({"text"}, pipe.reader.get());
    pipe.reader.Close();
    EXPECT_TRUE(Printed(text.Finish(), Contents(DataPath(kText))));
    EXPECT_TRUE(Printed(tree.Finish(), ""));
}

TEST(Output, OfRecordWithoutMembersIsAnEmptyElement) {
    EXPECT_TRUE(Printed(RunTool({"tree"}, tooltest::Envelope(tooltest::Track(""))), "<Track/>\n"));
}

TEST(Output, OfTextsKeepsMarkupBlanksAndReferences) {
    const std::vector<std::pair<std::string, std::string>> texts = {
        {"a &lt; b &amp; c", "a &lt; b &amp; c"},
        {"<![CDATA[a<b]]>", "a&lt;b"},
        {"  two blanks  ", "  two blanks  "},
        {"&#233;&#xE9;", "éé"},
        {"&#x20AC;&#8364;", "€€"},
        {"&#x1F600;", "😀"},
        {"&#128512;!", "😀!"},
        {"&#x000000E9;", "é"},
        {"&#x0001F600;", "😀"},
        {"<![CDATA[&#x1F600;]]>", "&amp;#x1F600;"},
        {"😀", "😀"},
    };
    for (const auto& [written, printed] : texts) {
        const std::string soap = tooltest::Track("<trackId>" + written + "</trackId>");
        EXPECT_TRUE(Printed(RunTool({"tree"}, tooltest::Envelope(soap)),
                            "<Track><TrackId>" + printed + "</TrackId></Track>\n"))
            << written;
    }
}

TEST(Output, OfNilMembersIsThatOfAbsentOnes) {
    const std::string soap = tooltest::Track(
        R"(<albumId xsi:nil="true"/><discIndex xsi:nil="true"/><trackId>1</trackId>)");
    EXPECT_TRUE(Printed(RunTool({"tree"}, tooltest::Envelope(soap)),
                        "<Track><TrackId>1</TrackId></Track>\n"));
}

}  // namespace
