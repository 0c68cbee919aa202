// Answers that hold a list of records, images and index: what the commands print of them, one
// record after the other, and that their trees can be read again.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/tools/Files.h"
#include "tests/tools/Process.h"

namespace {

using tooltest::Envelope;
using tooltest::Printed;
using tooltest::Refused;
using tooltest::RunTool;

/// A list, its records, and what is printed of them.
struct Case {
    const char* name;
    std::string soap;
    std::string tree;
    std::string text;
    std::string json;
};

void PrintTo(const Case& printed, std::ostream* out) {
    *out << printed.name;
}

const Case kImages = {
    "Images",
    Envelope("<q:Images><images>"
             "<items><copyright>c</copyright><height>162</height><imageFormat>PNG</imageFormat>"
             "<imageId>Img.1</imageId><title>Süß</title><url>http://x/?a&amp;b</url>"
             "<width>170</width></items>"
             "<items><url>2</url></items></images></q:Images>"),
    "<Image><Copyright>c</Copyright><Height>162</Height><ImageFormat>PNG</ImageFormat>"
    "<Title encoding=\"base64\">U8O8w58=</Title><Url>http://x/?a&amp;b</Url><Width>170</Width>"
    "</Image>\n"
    "<Image><Url>2</Url></Image>\n",
    "copyright = c\r\nheight = 162\r\nimageFormat = PNG\r\nimageId = \r\ntitle = Süß\r\n"
    "url = http://x/?a&b\r\nwidth = 170\r\n"
    "copyright = \r\nheight = 0\r\nimageFormat = \r\nimageId = \r\ntitle = \r\nurl = 2\r\n"
    "width = 0\r\n",
    R"([{"Copyright":"c","Height":162,"ImageFormat":"PNG","Title":"Süß","Url":"http://x/?a&b",)"
    R"("Width":170},{"Url":"2"}])"
    "\n"};

const Case kIndex = {"Index",
                     Envelope("<q:AlphaIndex><positions><items><letter>A</letter><start>0</start>"
                              "</items><items><letter>M</letter><start>1204</start></items>"
                              "<items/></positions></q:AlphaIndex>"),
                     "<Index><Letter>41</Letter><Start>0</Start></Index>\n"
                     "<Index><Letter>4D</Letter><Start>1204</Start></Index>\n<Index/>\n",
                     "letter = A\r\nstart = 0\r\nletter = M\r\nstart = 1204\r\n"
                     "letter = \r\nstart = 0\r\n",
                     R"([{"Letter":"A","Start":0},{"Letter":"M","Start":1204},{}])"
                     "\n"};

class ListAnswer : public testing::TestWithParam<Case> {};

TEST_P(ListAnswer, IsPrintedRecordByRecord) {
    EXPECT_TRUE(Printed(RunTool({"tree"}, GetParam().soap), GetParam().tree));
    EXPECT_TRUE(Printed(RunTool({"show"}, GetParam().soap), GetParam().text));
    EXPECT_TRUE(Printed(RunTool({"show", "--json"}, GetParam().soap), GetParam().json));
}

TEST_P(ListAnswer, IsReadAsItsTreesArePrinted) {
    for (const std::string& tree :
         {GetParam().tree, RunTool({"tree", "--indent"}, GetParam().soap).output}) {
        EXPECT_TRUE(Printed(RunTool({"text"}, tree), GetParam().text));
        EXPECT_TRUE(Printed(RunTool({"text", "--json"}, tree), GetParam().json));
    }
}

INSTANTIATE_TEST_SUITE_P(Of, ListAnswer, testing::Values(kImages, kIndex),
                         [](const auto& test) { return test.param.name; });

TEST(ListAnswers, ThatAreEmptyPrintNothing) {
    for (const char* const answer :
         {"<q:Images/>", "<q:Images><images/></q:Images>", "<q:AlphaIndex/>",
          "<q:AlphaIndex><positions/></q:AlphaIndex>",
          R"(<q:Images><images><items xsi:nil="true"/></images></q:Images>)"}) {
        EXPECT_TRUE(Printed(RunTool({"tree"}, Envelope(answer)), "")) << answer;
        EXPECT_TRUE(Printed(RunTool({"show"}, Envelope(answer)), "")) << answer;
        EXPECT_TRUE(Printed(RunTool({"show", "--json"}, Envelope(answer)), "[]\n")) << answer;
    }
}

TEST(ListAnswers, SkipNilItems) {
    const std::string nil = R"(<items xsi:nil="true"/>)";
    const std::string soap =
        Envelope("<q:AlphaIndex><positions>" + nil + "<items><start>1</start></items>" + nil + nil +
                 "<items><start>2</start></items></positions></q:AlphaIndex>");
    EXPECT_TRUE(Printed(RunTool({"show", "--json"}, soap), "[{\"Start\":1},{\"Start\":2}]\n"));
    EXPECT_TRUE(Printed(RunTool({"tree"}, soap),
                        "<Index><Start>1</Start></Index>\n<Index><Start>2</Start></Index>\n"));
}

TEST(ListAnswers, OfOneRecordAreListsToo) {
    const std::string soap =
        Envelope("<q:Images><images><items><url>1</url></items></images></q:Images>");
    EXPECT_TRUE(Printed(RunTool({"show", "--json"}, soap), "[{\"Url\":\"1\"}]\n"));
    EXPECT_TRUE(Printed(RunTool({"tree"}, soap), "<Image><Url>1</Url></Image>\n"));
}

TEST(ListAnswers, AreOfTheClassOfTheirRecords) {
    EXPECT_TRUE(Printed(RunTool({"show", "--record", "DataImage"}, kImages.soap), kImages.text));
    EXPECT_TRUE(Printed(RunTool({"text", "--record", "DataImage"}, kImages.tree), kImages.text));
    for (const char* const command : {"show", "tree"}) {
        EXPECT_TRUE(Refused(RunTool({command, "--record", "DataIndex"}, kImages.soap), 1,
                            {"standard input", "\"Images\"", "DataIndex"}));
    }
    EXPECT_TRUE(Refused(RunTool({"text", "--record", "DataIndex"}, kImages.tree), 1,
                        {"standard input: line 2"}));
}

TEST(ListAnswers, AloneMayBeSeveralTrees) {
    const std::string track = "<Track><TrackId>1</TrackId></Track>\n";
    EXPECT_TRUE(Refused(RunTool({"text"}, track + track), 1, {"standard input: line 2, column 1"}));
    EXPECT_TRUE(Refused(RunTool({"text"}, "<Image/>\n<Index/>\n"), 1,
                        {"standard input: line 2, column 1"}));
    EXPECT_TRUE(Refused(RunTool({"text"}, "<Image/>\n<Images/>\n"), 1,
                        {"standard input: line 2, column 1"}));
}

TEST(ListAnswers, WithABadTreeAreRefusedWithItsPlace) {
    const std::string tree = kImages.tree + "<Image>\n<Url>1</Ur>\n</Image>\n<Image/>\n";
    EXPECT_TRUE(
        Refused(RunTool({"text"}, tree), 1, {"standard input: line 4, column", "mismatched"}));
    EXPECT_TRUE(Refused(RunTool({"diff", "-", "-"}, tree), 2, {"standard input: line 4, column"}));
}

TEST(ListAnswers, AmongSeveralFilesAreEachOneDocument) {
    const tooltest::TempFolder folder;
    const std::string images = folder.Add("images.xml", kImages.soap);
    const std::string index = folder.Add("index.xml", kIndex.soap);
    EXPECT_TRUE(Printed(RunTool({"show", "--json", images, index}), kImages.json + kIndex.json));
    EXPECT_TRUE(Printed(
        RunTool({"tree", images, index}),
        "==> " + images + " <==\n" + kImages.tree + "\n==> " + index + " <==\n" + kIndex.tree));
}

}  // namespace
