#include "tools/Catalog.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <optional>
#include <string>

#include "tests/tools/Files.h"

namespace {

using tool::Catalog;
using tool::Result;

constexpr char kUnknown[] = "unknown";

/// A document's text, that there is none, or what a failure says.
std::string Find(const Catalog& catalog, const std::string& id) {
    const Result<std::optional<std::string>> document = catalog.Find("track", id);
    return document ? document->value_or(kUnknown) : tool::Message(document.failure());
}

TEST(CatalogFolder, HoldsADocumentForEachIdentifier) {
    const tooltest::TempFolder folder;
    const Catalog catalog(folder.path());
    for (const std::string id :
         {"Tra.1", "a b", "-", "~", "two..dots", "dot.", "back\\slash", "Grüße", "a.xml"}) {
        folder.Add("track/" + id + ".xml", "document of " + id);
        EXPECT_EQ(Find(catalog, id), "document of " + id);
    }
}

TEST(CatalogFolder, EmptyIdentifierIsTheDefault) {
    const tooltest::TempFolder folder;
    const Catalog catalog(folder.path());
    EXPECT_EQ(Find(catalog, ""), kUnknown);
    folder.Add("track/default.xml", "the default");
    EXPECT_EQ(Find(catalog, ""), "the default");
    EXPECT_EQ(Find(catalog, "default"), "the default");
}

// Each of these names a file that exists.
TEST(CatalogFolder, IdentifierThatIsNoPlainFileNameIsUnknown) {
    const tooltest::TempFolder folder;
    folder.Add("track/Tra.1.xml", "track");
    folder.Add("track/.xml", "nameless");
    folder.Add("track/..xml", "dot");
    folder.Add("track/...xml", "two dots");
    folder.Add("track/.hidden.xml", "hidden");
    folder.Add("track/sub/Tra.1.xml", "sub");
    folder.Add("album/Alb.1.xml", "album");
    folder.Add("outside.xml", "outside");
    const Catalog catalog(folder.path());
    for (const std::string& id :
         {std::string("."), std::string(".."), std::string(".hidden"), std::string("../outside"),
          std::string("../album/Alb.1"), std::string("./Tra.1"), std::string("/Tra.1"),
          std::string("sub/Tra.1"), std::string("sub/../Tra.1"), folder.path() + "/outside"}) {
        EXPECT_EQ(Find(catalog, id), kUnknown);
    }
}

TEST(CatalogFolder, ZeroByteDoesNotEndAnIdentifier) {
    const tooltest::TempFolder folder;
    folder.Add("track/Tra.1.xml", "track");
    folder.Add("track/Tra.1", "without ending");
    const Catalog catalog(folder.path());
    EXPECT_EQ(Find(catalog, std::string("Tra.1\0", 6)), kUnknown);
    EXPECT_EQ(Find(catalog, std::string("Tra.1.xml\0", 10)), kUnknown);
}

TEST(CatalogFolder, WhatIsMissingIsUnknown) {
    const tooltest::TempFolder folder;
    const Catalog catalog(folder.path());
    const std::string tooLong(300, 'x');
    EXPECT_EQ(Find(catalog, "missing"), kUnknown);
    folder.Add("track/Tra.1.xml", "track");
    EXPECT_EQ(Find(catalog, "missing"), kUnknown);
    EXPECT_EQ(Find(catalog, tooLong), kUnknown);
}

TEST(CatalogFolder, WhatIsThereButCannotBeReadIsAFailure) {
    const tooltest::TempFolder folder;
    folder.Add("track/folder.xml/file", "");
    const std::string tracks = folder.path() + "/track/";
    ASSERT_EQ(symlink("loop.xml", (tracks + "loop.xml").c_str()), 0);
    // Opened as a file is, it would wait for somebody to write.
    ASSERT_EQ(mkfifo((tracks + "pipe.xml").c_str(), 0600), 0);
    const std::string large = folder.Add("track/large.xml", "");
    std::filesystem::resize_file(large, Catalog::kLongestDocument + 1);  // takes no room
    const Catalog catalog(folder.path());
    EXPECT_EQ(Find(catalog, "folder"), "track/folder: Is a directory");
    EXPECT_EQ(Find(catalog, "loop"), "track/loop: Too many levels of symbolic links");
    EXPECT_EQ(Find(catalog, "pipe"), "track/pipe: not a file");
    EXPECT_EQ(Find(catalog, "large"), "track/large: longer than 67108864 bytes");
    if (geteuid() == 0) {
        return;  // may read everything
    }
    const std::string secret = folder.Add("track/secret.xml", "secret");
    ASSERT_EQ(chmod(secret.c_str(), 0), 0);
    EXPECT_EQ(Find(catalog, "secret"), "track/secret: Permission denied");
}

TEST(CatalogSamples, AreTheDocumentsToTheByte) {
    const Catalog samples;
    std::size_t count = 0;
    for (const std::string& path : tooltest::SampleDocuments()) {
        const std::string name = path.substr(std::string(QUAVERA_TEST_CATALOG).size() + 1);
        const std::size_t slash = name.find('/');
        const std::string id = name.substr(slash + 1, name.rfind(".xml") - slash - 1);
        const Result<std::optional<std::string>> document = samples.Find(name.substr(0, slash), id);
        ASSERT_TRUE(document && *document) << name;
        EXPECT_EQ(**document, tooltest::Contents(path)) << name;
        ++count;
    }
    EXPECT_EQ(tool::kSampleDocumentCount, count);
}

TEST(CatalogSamples, UnknownIdentifierIsUnknown) {
    EXPECT_EQ(Find(Catalog(), "Tra.none"), kUnknown);
    EXPECT_EQ(Find(Catalog(), "../track/Tra.40013102"), kUnknown);
}

}  // namespace
