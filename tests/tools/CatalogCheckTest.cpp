// The check of a catalogue ahead of serving, and what of it comes up later.

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/tools/Files.h"
#include "tests/tools/Server.h"
#include "tests/tools/Socket.h"

namespace {

using tooltest::Contents;
using tooltest::DataPath;
using tooltest::Envelope;
using tooltest::Server;
using tooltest::TempFolder;
using tooltest::Track;

std::string GoodTrack() {
    return Envelope(Track("<trackId>1</trackId>"));
}

/// Whether a catalogue is refused, with exactly these lines, each behind the tool's name and the
/// folder's.
testing::AssertionResult IsRefused(const TempFolder& folder,
                                   const std::vector<std::string>& lines) {
    const tooltest::Outcome outcome =
        tooltest::RunTool({"serve", "--port", "0", "--catalog", folder.path()});
    std::string expected;
    for (const std::string& line : lines) {
        expected += "quavera: " + folder.path() + line + "\n";
    }
    if (outcome.status == 1 && outcome.output.empty() && outcome.errors == expected) {
        return testing::AssertionSuccess();
    }
    return testing::AssertionFailure()
           << "status " << outcome.status << ", output " << outcome.output << "\n"
           << outcome.errors << "expected\n"
           << expected;
}

TEST(CatalogCheck, GoodCatalogIsServed) {
    EXPECT_NE(Server(QUAVERA_TEST_CATALOG).Port(), 0);
    const TempFolder empty;
    EXPECT_NE(Server(empty.path()).Port(), 0);
}

TEST(CatalogCheck, EachBadDocumentHasALineWithItsPlace) {
    const TempFolder folder;
    folder.Add("track/good.xml", GoodTrack());
    folder.Add("album/a.xml", "<AlbumMetadata>\n  <name>x</name>\n</Album>");
    folder.Add("album/b.xml", "");
    folder.Add("index/pages.xml", "<a>&bad;</a>");
    folder.Add("track/number.xml", Contents(DataPath("bad/number-is-text.xml")));
    EXPECT_TRUE(IsRefused(folder, {"/album/a.xml: line 3, column 3: mismatched tag",
                                   "/album/b.xml: line 1, column 1: the text is empty",
                                   "/index/pages.xml: line 1, column 4: undefined entity",
                                   "/track/number.xml: element \"discIndex\": a value that does "
                                   "not fit its type"}));
}

TEST(CatalogCheck, DocumentHasToFitItsFolder) {
    const TempFolder folder;
    folder.Add("album/track.xml", GoodTrack());
    folder.Add("images/one.xml", "<ImageMetadata/>");
    folder.Add("index/list.xml", "<AlphaIndex/>");
    folder.Add("track/empty.xml", Envelope(""));
    EXPECT_TRUE(IsRefused(
        folder, {"/album/track.xml: the record is \"LiteTrackMetadata\", but the folder is for "
                 "\"AlbumMetadata\"",
                 "/images/one.xml: the record is \"ImageMetadata\", but the folder is for "
                 "\"Images\"",
                 "/track/empty.xml: the SOAP envelope holds no record"}));
}

TEST(CatalogCheck, WhatNoRequestLeadsToIsMentioned) {
    const TempFolder folder;
    folder.Add("albums/Alb.1.xml", "<AlbumMetadata/>");
    folder.Add("readme.txt", "hello");
    folder.Add("track/Tra.1.xml~", GoodTrack());
    folder.Add("track/Tra.2.XML", GoodTrack());
    folder.Add("track/Tra.3.xml/file", GoodTrack());
    folder.Add("station", "not a folder");
    EXPECT_TRUE(IsRefused(
        folder,
        {"/albums: no kind of record is called so", "/readme.txt: no kind of record is called so",
         "/station: Not a directory", "/track/Tra.1.xml~: not named ID.xml",
         "/track/Tra.2.XML: not named ID.xml", "/track/Tra.3.xml: Is a directory"}));
}

TEST(CatalogCheck, HiddenFilesDoNotCount) {
    const TempFolder folder;
    folder.Add("track/Tra.1.xml", GoodTrack());
    folder.Add("track/.Tra.1.xml.swp", "x");
    folder.Add(".git/config", "x");
    EXPECT_NE(Server(folder.path()).Port(), 0);
}

TEST(CatalogCheck, WhatCannotBeReadIsMentioned) {
    const TempFolder folder;
    const std::string large = folder.Add("track/large.xml", "");
    std::filesystem::resize_file(large, 64 * 1024 * 1024 + 1);  // takes no room
    const std::string tracks = folder.path() + "/track/";
    ASSERT_EQ(symlink("loop.xml", (tracks + "loop.xml").c_str()), 0);
    ASSERT_EQ(symlink("nowhere", (tracks + "nowhere.xml").c_str()), 0);
    // Opened as a file is, it would wait for somebody to write.
    ASSERT_EQ(mkfifo((tracks + "pipe.xml").c_str(), 0600), 0);
    EXPECT_TRUE(IsRefused(
        folder, {"/track/large.xml: longer than 67108864 bytes",
                 "/track/loop.xml: Too many levels of symbolic links",
                 "/track/nowhere.xml: No such file or directory", "/track/pipe.xml: not a file"}));
}

TEST(CatalogCheck, StopsAfterTwentyFindings) {
    const TempFolder folder;
    std::vector<std::string> lines;
    for (int at = 10; at < 40; ++at) {
        const std::string name = "/track/" + std::to_string(at) + ".xml";
        folder.Add(name.substr(1), "<a>");
        if (at < 30) {
            lines.push_back(name + ": line 1, column 4: no element found");
        }
    }
    lines.emplace_back(": not looked at any further");
    EXPECT_TRUE(IsRefused(folder, lines));
}

/// A service that has been started with a good track, and the answer to a request for one.
class ChangedCatalog : public testing::Test {
 protected:
    ChangedCatalog() : server_(Filled(folder_)) {}

    std::string Ask(const std::string& id) const {
        const std::string body = Envelope("<q:getTrack><id>" + id + "</id></q:getTrack>");
        const tooltest::Descriptor connection = tooltest::Connect(server_.Port());
        tooltest::Send(connection,
                       "POST / HTTP/1.1\r\nHost: here\r\nConnection: close\r\nContent-Length: " +
                           std::to_string(body.size()) + "\r\n\r\n" + body);
        return tooltest::ReceiveAll(connection);
    }

    /// Whether a request is answered with a fault of the receiver that says this, and nothing of
    /// where the catalogue is.
    testing::AssertionResult Fails(const std::string& id, const std::string& why) const {
        const std::string answer = Ask(id);
        const bool isFault = answer.rfind("HTTP/1.1 500 ", 0) == 0 &&
                             answer.find("SOAP-ENV:Server") != std::string::npos &&
                             answer.find("<faultstring>" + why) != std::string::npos;
        return isFault && answer.find(folder_.path()) == std::string::npos
                   ? testing::AssertionSuccess()
                   : testing::AssertionFailure() << answer;
    }

    const TempFolder folder_;

 private:
    static const std::string& Filled(const TempFolder& folder) {
        folder.Add("track/Tra.1.xml", GoodTrack());
        return folder.path();
    }

 protected:
    const Server server_;
};

TEST_F(ChangedCatalog, DocumentsAreReadAnewForEachRequest) {
    EXPECT_NE(Ask("Tra.1").find("<trackId>1</trackId>"), std::string::npos);
    folder_.Add("track/Tra.1.xml", Envelope(Track("<trackId>2</trackId>")));
    folder_.Add("track/Tra.3.xml", Envelope(Track("<trackId>3</trackId>")));
    EXPECT_NE(Ask("Tra.1").find("<trackId>2</trackId>"), std::string::npos);
    EXPECT_NE(Ask("Tra.3").find("<trackId>3</trackId>"), std::string::npos);
}

TEST_F(ChangedCatalog, DocumentThatHasGoneBadIsTheReceiversFault) {
    folder_.Add("track/Tra.1.xml", "<a>");
    EXPECT_TRUE(Fails("Tra.1", "track/Tra.1: line 1, column 4: no element found"));
    folder_.Add("track/Tra.1.xml", Contents(DataPath("bad/number-is-text.xml")));
    EXPECT_TRUE(Fails("Tra.1", "track/Tra.1: element \"discIndex\": a value that does not fit"));
    folder_.Add("track/Tra.1.xml", "<AlbumMetadata/>");
    EXPECT_TRUE(Fails("Tra.1", "track/Tra.1: the catalogue holds a \"AlbumMetadata\" there"));
}

TEST_F(ChangedCatalog, DocumentThatCannotBeReadIsTheReceiversFault) {
    folder_.Add("track/folder.xml/file", "");
    EXPECT_TRUE(Fails("folder", "track/folder: Is a directory"));
    const std::string loop = folder_.path() + "/track/loop.xml";
    ASSERT_EQ(symlink("loop.xml", loop.c_str()), 0);
    EXPECT_TRUE(Fails("loop", "track/loop: Too many levels of symbolic links"));
    const std::string large = folder_.Add("track/large.xml", "");
    std::filesystem::resize_file(large, 64 * 1024 * 1024 + 1);
    EXPECT_TRUE(Fails("large", "track/large: longer than 67108864 bytes"));
    const std::string answer = Ask("none");
    EXPECT_NE(answer.find("SOAP-ENV:Client"), std::string::npos) << answer;
    EXPECT_NE(answer.find("track: no such identifier: \"none\""), std::string::npos) << answer;
}

}  // namespace
