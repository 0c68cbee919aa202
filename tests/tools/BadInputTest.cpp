// Input that is refused: one line that says what is wrong, and where; nothing is printed.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "platform/XmlText.h"
#include "tests/tools/Files.h"
#include "tests/tools/Process.h"

namespace {

using tooltest::Arguments;
using tooltest::Contents;
using tooltest::DataPath;
using tooltest::Refused;
using tooltest::RunTool;

constexpr int kFailed = 1;

/// A document below tests/data/bad and what the message has to say of it.
struct Case {
    std::string file;
    std::vector<std::string> message;
};

void PrintTo(const Case& printed, std::ostream* out) {
    *out << printed.file;
}

std::string TestName(const testing::TestParamInfo<Case>& info) {
    std::string name = info.param.file.substr(0, info.param.file.find(".xml"));
    for (char& character : name) {
        character = character == '-' || character == '.' ? '_' : character;
    }
    return name;
}

/// The message's parts, and where they are to be found.
std::vector<std::string> At(const std::string& where, std::vector<std::string> parts) {
    parts.push_back(where + ": ");
    return parts;
}

class BadSoap : public testing::TestWithParam<Case> {};

TEST_P(BadSoap, IsRefusedByTree) {
    const std::string path = DataPath("bad/" + GetParam().file);
    EXPECT_TRUE(Refused(RunTool({"tree", path}), kFailed, At(path, GetParam().message)));
}

TEST_P(BadSoap, IsRefusedByShowWithTheClassNamed) {
    const std::string soap = Contents(DataPath("bad/" + GetParam().file));
    EXPECT_TRUE(Refused(RunTool({"show", "--record", "DataTrackInfo"}, soap), kFailed,
                        At("standard input", GetParam().message)));
}

INSTANTIATE_TEST_SUITE_P(
    Malformed, BadSoap,
    testing::Values(
        Case{"bare-ampersand.xml", {"line 5, column"}}, Case{"blank.xml", {"line 3, column"}},
        Case{"control-character.xml", {"line 5, column"}}, Case{"cut-off.xml", {"line 6, column"}},
        Case{"document-type.xml", {"line 1, column", "document type"}},
        Case{"duplicate-attribute.xml", {"line 5, column", "duplicate attribute"}},
        Case{"empty.xml", {"line 1, column 1"}},
        Case{"mismatched-tag.xml", {"line 5, column", "mismatched tag"}},
        Case{"not-utf8.xml", {"line 5, column"}}, Case{"second-root.xml", {"line 9, column 1"}},
        Case{"unknown-entity.xml", {"line 5, column", "entity"}}),
    TestName);

INSTANTIATE_TEST_SUITE_P(
    NoRecord, BadSoap,
    testing::Values(Case{"empty-body.xml", {"no record"}}, Case{"no-body.xml", {"no record"}},
                    Case{"text-in-body.xml", {"no record"}},
                    Case{"unknown-record.xml", {"\"Concert\""}},
                    Case{"fault-1.1.xml", {"fault", "no such", "track: Tra.1 – gelöscht"}},
                    Case{"fault-1.2.xml", {"fault", "no such track: Tra.2"}},
                    Case{"fault-without-reason.xml", {"fault"}}),
    TestName);

INSTANTIATE_TEST_SUITE_P(ValueDoesNotFit, BadSoap,
                         testing::Values(Case{"number-is-empty.xml", {"\"trackIndex\""}},
                                         Case{"number-is-fraction.xml", {"\"popularity\""}},
                                         Case{"number-is-text.xml", {"\"discIndex\""}},
                                         Case{"number-too-large.xml", {"\"playbackSeconds\""}}),
                         TestName);

TEST(BadInput, OtherRecordThanAskedForIsRefused) {
    const std::string path = DataPath("bad/other-record.xml");
    const std::vector<std::string> message = At(path, {"\"AlbumMetadata\"", "DataTrackInfo"});
    for (const char* const command : {"tree", "show"}) {
        EXPECT_TRUE(
            Refused(RunTool({command, "--record", "DataTrackInfo", path}), kFailed, message));
    }
}

class BadTree : public testing::TestWithParam<Case> {};

TEST_P(BadTree, IsRefusedByText) {
    const std::string path = DataPath("bad/" + GetParam().file);
    EXPECT_TRUE(Refused(RunTool({"text", "--record", "DataTrackInfo", path}), kFailed,
                        At(path, GetParam().message)));
}

INSTANTIATE_TEST_SUITE_P(
    All, BadTree,
    testing::Values(Case{"empty.xml", {"line 1, column 1"}},
                    Case{"mismatched-tag.tree.xml", {"line 1, column 27", "mismatched tag"}},
                    Case{"other-record.tree.xml", {"\"Album\"", "DataTrackInfo"}},
                    Case{"unknown-root.tree.xml", {"\"Concert\""}}),
    TestName);

TEST(BadInput, UnknownRootIsRefusedWithoutAClassToo) {
    const std::string path = DataPath("bad/unknown-root.tree.xml");
    EXPECT_TRUE(Refused(RunTool({"text", path}), kFailed, At(path, {"\"Concert\""})));
}

TEST(BadInput, SoapIsNoTreeAndATreeIsNoSoap) {
    const std::string soap = DataPath("DataTrackInfo/full.xml");
    const std::string tree = DataPath("DataTrackInfo/full.tree.xml");
    EXPECT_TRUE(Refused(RunTool({"text", soap}), kFailed, At(soap, {"\"SOAP-ENV:Envelope\""})));
    EXPECT_TRUE(Refused(RunTool({"show", tree}), kFailed, At(tree, {"\"Track\""})));
}

TEST(BadInput, UnreadableFileIsNamedWithTheReason) {
    const tooltest::TempFolder folder;
    const std::string missing = folder.path() + "/missing.xml";
    for (const char* const command : {"tree", "text", "show"}) {
        EXPECT_TRUE(Refused(RunTool({command, missing}), kFailed,
                            At(missing, {"No such file or directory"})));
        EXPECT_TRUE(Refused(RunTool({command, folder.path()}), kFailed,
                            At(folder.path(), {"Is a directory"})));
    }
}

TEST(BadInput, FileThatIsLongerThanAnyDocumentIsRefused) {
    const tooltest::TempFolder folder;
    const std::string path = folder.Add("long.xml", "");
    std::filesystem::resize_file(path, ZQXML::kMaxXmlSize + 1);  // takes no room
    EXPECT_TRUE(Refused(RunTool({"text", path}), kFailed, At(path, {"longer than any document"})));
}

TEST(BadInput, FullDeviceIsAnError) {
    const std::string soap = DataPath("DataTrackInfo/full.xml");
    const std::string tree = DataPath("DataTrackInfo/full.tree.xml");
    const std::vector<Arguments> commands = {
        {"tree", soap}, {"show", soap}, {"text", tree},     {"serve", "--port", "0"},
        {"records"},    {"--help"},     {"show", "--help"}, {"--version"},
    };
    for (const Arguments& command : commands) {
        EXPECT_TRUE(Refused(tooltest::RunToolInto("/dev/full", command), kFailed,
                            At("standard output", {"No space left on device"})))
            << command.front();
    }
    // Of a comparison, 1 would mean that the documents are different.
    EXPECT_TRUE(Refused(tooltest::RunToolInto("/dev/full", {"diff", "--json", soap, tree}), 2,
                        At("standard output", {"No space left on device"})));
    // It says first what it does.
    const tooltest::Outcome demo = tooltest::RunToolInto("/dev/full", {"demo"});
    EXPECT_EQ(demo.status, kFailed);
    EXPECT_NE(demo.errors.find("\nquavera: standard output: No space left on device\n"),
              std::string::npos)
        << demo.errors;
}

// Control characters of a document would break the line, or the terminal.
TEST(BadInput, MessageHasNoControlCharacters) {
    const std::string soap =
        "<Fault><faultstring>one&#10;two&#13;&#9;three\xC2\x9B"
        "4m</faultstring></Fault>";
    const tooltest::Outcome outcome = RunTool({"show"}, soap);
    EXPECT_TRUE(Refused(outcome, kFailed, {"one", "two", "three"}));
    for (const char* const control : {"\r", "\t", "\xC2\x9B"}) {
        EXPECT_EQ(outcome.errors.find(control), std::string::npos);
    }
}

// Of a character of two bytes, the second one would be the first that is cut off.
TEST(BadInput, LongMessageIsCutBetweenCharacters) {
    const std::string character = "\xC3\xA9";
    std::string path = "x";
    std::string expected = "quavera: x";
    for (int count = 0; count < 1500; ++count) {
        path += character;
        expected += count < 999 ? character : "";
    }
    const tooltest::Outcome outcome = RunTool({"show", path});
    EXPECT_EQ(outcome.status, kFailed);
    EXPECT_EQ(outcome.errors, expected + "...\n");
}

}  // namespace
