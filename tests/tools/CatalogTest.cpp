#include "tools/Catalog.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/tools/Files.h"

namespace {

using tool::Catalog;
using tool::Result;

/// A document's text, or what a failure says.
std::string Find(const Catalog& catalog, const std::string& id) {
    const Result<std::string> document = catalog.Find("track", id);
    return document ? *document : tool::Message(document.failure());
}

std::string Unknown(const std::string& id) {
    return "track: no such identifier: \"" + id + "\"";
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
    EXPECT_EQ(Find(catalog, ""), Unknown("default"));
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
        EXPECT_EQ(Find(catalog, id), Unknown(id));
    }
}

TEST(CatalogFolder, ZeroByteDoesNotEndAnIdentifier) {
    const tooltest::TempFolder folder;
    folder.Add("track/Tra.1.xml", "track");
    folder.Add("track/Tra.1", "without ending");
    const Catalog catalog(folder.path());
    // The message shows the zero byte as a blank.
    EXPECT_EQ(Find(catalog, std::string("Tra.1\0", 6)), Unknown("Tra.1 "));
    EXPECT_EQ(Find(catalog, std::string("Tra.1.xml\0", 10)), Unknown("Tra.1.xml "));
}

TEST(CatalogFolder, WhatCannotBeReadIsUnknown) {
    const tooltest::TempFolder folder;
    folder.Add("track/folder.xml/file", "");
    const Catalog catalog(folder.path());
    const std::string tooLong(300, 'x');
    for (const std::string& id : {std::string("folder"), std::string("missing"), tooLong}) {
        EXPECT_EQ(Find(catalog, id), Unknown(id));
    }
}

TEST(CatalogSamples, AreTheDocumentsToTheByte) {
    const Catalog samples;
    std::size_t count = 0;
    for (const std::string& path : tooltest::SampleDocuments()) {
        const std::string name = path.substr(std::string(QUAVERA_TEST_CATALOG).size() + 1);
        const std::size_t slash = name.find('/');
        const std::string id = name.substr(slash + 1, name.rfind(".xml") - slash - 1);
        const Result<std::string> document = samples.Find(name.substr(0, slash), id);
        ASSERT_TRUE(document) << name;
        EXPECT_EQ(*document, tooltest::Contents(path)) << name;
        ++count;
    }
    EXPECT_EQ(tool::kSampleDocumentCount, count);
}

TEST(CatalogSamples, UnknownIdentifierIsUnknown) {
    EXPECT_EQ(Find(Catalog(), "Tra.none"), Unknown("Tra.none"));
    EXPECT_EQ(Find(Catalog(), "../track/Tra.40013102"), Unknown("../track/Tra.40013102"));
}

}  // namespace
