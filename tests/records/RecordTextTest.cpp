#include "records/RecordText.h"

#include <gtest/gtest.h>

#include <string>

#include "records/RecordHeaders.h"
#include "soap/QuaveraStub.h"
#include "tests/soap/SoapDocument.h"

// Every class, by its documents in tests/data, and the four that read a parent with nothing but
// this one call.

namespace {

using quavera::ReadRecord;
using quavera::WriteRecord;

/// A class with its SOAP record and the name of that one's element.
template <class Class, class SoapClass>
struct Case {
    using Record = Class;
    using Soap = SoapClass;
    const char* name;
    const char* element;
    const char* type;
};

/// "Quavera2:AlbumMetadata" of "Quavera2__AlbumMetadata".
std::string ElementType(std::string soapClass) {
    return soapClass.replace(soapClass.find("__"), 2, ":");
}

template <class Work>
void ForEachClass(const Work& work) {
#define QUAVERA_RECORD(Class, SoapClass, element, node, answer) \
    work(Case<Class, Quavera::SoapClass>{#Class, element, #SoapClass});
#include "records/Records.def"
}

TEST(RecordText, ReadsWhatEveryClassWrites) {
    ForEachClass([](auto each) {
        typename decltype(each)::Record record;
        std::string error = "as it was";
        const std::string folder = each.name;
        EXPECT_TRUE(ReadRecord(TestData(folder + "/full.tree.xml"), &record, &error)) << folder;
        EXPECT_EQ(record.ToString(), TestData(folder + "/full.txt"));
        EXPECT_EQ(error, "as it was") << folder;
    });
}

TEST(RecordText, WritesWhatEveryClassReads) {
    ForEachClass([](auto each) {
        using Class = decltype(each);
        const std::string folder = each.name;
        const std::string type = ElementType(each.type);
        SoapDocument<typename Class::Soap> soap(TestData(folder + "/full.xml"), type.c_str());
        EXPECT_EQ(WriteRecord<typename Class::Record>(&*soap), TestData(folder + "/full.tree.xml"));
    });
}

TEST(RecordText, WritesOneElementALine) {
    Quavera::Quavera2__LiteTrackMetadata track;
    std::string id = "Tra.1";
    track.trackId = &id;
    EXPECT_EQ(WriteRecord<DataTrackInfo>(&track, true),
              "<Track>\n  <TrackId>Tra.1</TrackId>\n</Track>");
}

TEST(RecordText, RootThatIsNotTheClassesOwnIsNamedBesideIt) {
    ForEachClass([](auto each) {
        typename decltype(each)::Record record;
        const std::string before = record.ToString();
        std::string error;
        EXPECT_FALSE(ReadRecord("<Concert><Name/></Concert>", &record, &error)) << each.name;
        EXPECT_EQ(error, "the root is \"Concert\", but " + std::string(each.name) + " reads \"" +
                             each.element + "\"");
        EXPECT_EQ(record.ToString(), before);
    });
}

TEST(RecordText, ParentOfTheElementIsNotItsRoot) {
    DataAlbum album;
    std::string error;
    EXPECT_FALSE(ReadRecord("<r><Album><AlbumId>Alb.1</AlbumId></Album></r>", &album, &error));
    EXPECT_EQ(error, "the root is \"r\", but DataAlbum reads \"Album\"");
    EXPECT_EQ(album.albumId, "");
}

TEST(RecordText, ClassesThatReadAParentReadTheirElement) {
    DataAlbum album;
    EXPECT_TRUE(ReadRecord("<Album><Label>Mond</Label></Album>", &album));
    EXPECT_EQ(album.label, "Mond");
    DataAlbumReview review;
    EXPECT_TRUE(ReadRecord("<AlbumReview><BlurbSize>7</BlurbSize></AlbumReview>", &review));
    EXPECT_EQ(review.blurbSize, 7);
    DataMemberLibrary library;
    EXPECT_TRUE(
        ReadRecord("<MemberLibrary><LastModified>8</LastModified></MemberLibrary>", &library));
    EXPECT_EQ(library.lastModifiedDate, 8U);
    DataAccountProperties account;
    EXPECT_TRUE(ReadRecord("<AccountProperties><zip>9</zip></AccountProperties>", &account));
    EXPECT_EQ(account.zip, "9");
}

TEST(RecordText, MalformedTextIsRefusedWithItsPlace) {
    DataAlbum album;
    album.label = "before";
    std::string error;
    EXPECT_FALSE(ReadRecord("<Album>\n<Label>after</Label></Albun>", &album, &error));
    EXPECT_EQ(error.rfind("line 2, column ", 0), 0U) << error;
    EXPECT_EQ(album.label, "before");
    EXPECT_FALSE(ReadRecord("", &album, &error));
    EXPECT_FALSE(ReadRecord("<Album/><Album/>", &album, nullptr));
}

TEST(RecordText, ReadingTwiceGoesOn) {
    DataAlbum album;
    EXPECT_TRUE(ReadRecord("<Album><Label>a</Label><Tracks><Track/></Tracks></Album>", &album));
    EXPECT_TRUE(ReadRecord("<Album><Upccode>b</Upccode><Tracks><Track/></Tracks></Album>", &album));
    EXPECT_EQ(album.label, "a");
    EXPECT_EQ(album.upccode, "b");
    EXPECT_EQ(album.tracks.size(), 2U);
}

}  // namespace
