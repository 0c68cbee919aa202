#include <gtest/gtest.h>

#include "platform/zqshared.h"
#include "records/DataAlbum.h"
#include "tests/support/AllocationFailure.h"

namespace {

/// A tree keeps lists of children for those who ask for them; a record must not be the one to ask.
TEST(EmptyList, IsReadWithoutMemory) {
    const auto root = ZQXML::CreateXmlNode();
    root->Initialize("Root", "");
    const auto node = root->CreateNode("Album");
    root->AppendChild(node.get());
    for (int count = 0; count < 2000; ++count) {
        node->AddChild("Tracks", "");
    }
    DataAlbum album;
    EXPECT_EQ(allocation::CountAllocations([&] { album.FromXML(root.get()); }), 0U);
    EXPECT_TRUE(album.tracks.empty());

    node->AddChild("Copyright", "reached");
    album.FromXML(root.get());
    EXPECT_EQ(album.copyright, "reached");
}

}  // namespace
