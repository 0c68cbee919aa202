// Our own nodes keep an encoded element as the bytes that it stands for; whatever reads it sees
// what it would see of the text.

#include <gtest/gtest.h>

#include <string>

#include "common/QuaveraCommon.h"
#include "platform/zqshared.h"
#include "records/DataTrackInfo.h"

namespace {

DataTrackInfo TrackWith(const std::string& name, const std::string& bytes) {
    const auto node = ZQXML::CreateXmlNode();
    node->Initialize("Track", "");
    node->AddEncoded(name, bytes);
    DataTrackInfo track;
    track.FromXML(node.get());
    return track;
}

TEST(ElementsInBytes, FillDisplayFieldsAsTheirTextDoes) {
    const std::string longText(300, 'l');
    for (const std::string& bytes :
         {std::string("plain"), std::string("Gr\xC3\xBC\xC3\x9F"), std::string(), longText,
          std::string("cut\0here", 8), std::string("\0", 1), std::string("bad \xFF byte"),
          longText + '\xFF', std::string("zero\0 and \xFF", 11), std::string("cut \xC3"),
          std::string("\xF5\x80\x80\x80 beyond")}) {
        EXPECT_EQ(TrackWith("Name", bytes).name,
                  DecodeAndConvertFromUtf8(base64EncodeString(bytes)))
            << base64EncodeString(bytes);
    }
}

TEST(ElementsInBytes, FillPlainFieldsWithTheText) {
    EXPECT_EQ(TrackWith("AlbumId", "foo").albumId, "Zm9v");
    EXPECT_EQ(TrackWith("AlbumId", "").albumId, "");
}

TEST(ElementsInBytes, FillNumbersFromTheText) {
    // The text is "100=".
    EXPECT_EQ(TrackWith("DiscIndex", "\xD7\x4D").discIndex, 100);
}

}  // namespace
