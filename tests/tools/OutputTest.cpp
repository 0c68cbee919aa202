// What `tree`, `text` and `show` print of good input.

#include <gtest/gtest.h>

#include <algorithm>
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

const char kSoap[] = "DataTrackInfo/full.xml";
const char kTree[] = "DataTrackInfo/full.tree.xml";
const char kText[] = "DataTrackInfo/full.txt";

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

/// A record class and its SOAP record.
struct Record {
    std::string name;
    std::string soap;
};

void PrintTo(const Record& printed, std::ostream* out) {
    *out << printed.name;
}

/// All that are registered.
const std::vector<Record>& Records() {
#define QUAVERA_RECORD(Class, Soap, element, node, answer) {#Class, #Soap},
    static const std::vector<Record> records = {
#include "records/Records.def"
    };
    return records;
}

class OutputOfEveryClass : public testing::TestWithParam<Record> {
 public:
    /// Whether a document is taken for this class without its name: it is the first that is made of
    /// the SOAP record.
    static bool IsFoundByItsElement() {
        const auto& records = Records();
        const auto first = std::find_if(records.begin(), records.end(), [](const Record& each) {
            return each.soap == GetParam().soap;
        });
        return first->name == GetParam().name;
    }
};

// The sample documents of a record are in the folder that is named after its class.
TEST_P(OutputOfEveryClass, IsTheRecordsTreeAndText) {
    const std::string& name = GetParam().name;
    const std::string soap = DataPath(name + "/full.xml");
    const std::string text = Contents(DataPath(name + "/full.txt"));
    const std::string tree = Contents(DataPath(name + "/full.tree.xml"));
    EXPECT_TRUE(Printed(RunTool({"show", "--record", name, soap}), text));
    EXPECT_TRUE(Printed(RunTool({"tree", "--record", name, soap}), tree + "\n"));
    EXPECT_TRUE(Printed(RunTool({"text", "--record", name}, tree + "\n"), text));
    if (IsFoundByItsElement()) {
        EXPECT_TRUE(Printed(RunTool({"show", soap}), text));
    }
}

INSTANTIATE_TEST_SUITE_P(All, OutputOfEveryClass, testing::ValuesIn(Records()),
                         [](const testing::TestParamInfo<Record>& one) { return one.param.name; });

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
        EXPECT_TRUE(
            Printed(RunTool({"show", DataPath(std::string("DataTrackInfo/") + document + ".xml")}),
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
