// Lists of SOAP records that count items but have none, as a reader without memory leaves them.

#include <gtest/gtest.h>

#include <new>

#include "platform/zqshared.h"
#include "records/DataAlbum.h"
#include "records/DataArtist.h"
#include "records/DataGenre.h"
#include "records/DataLibraryModificationResult.h"
#include "records/DataMemberLibrary.h"
#include "records/DataPlaylist.h"
#include "soap/QuaveraStub.h"
#include "tests/support/AllocationFailure.h"

namespace {

using namespace Quavera;

/// Does `work` with a SOAP record that has a list in that member, without any items. Fails unless
/// the list counts as a failed allocation where it counts items, and as an empty one where not.
template <class Soap, class Wrapper, class Base, class Work>
void ExpectThrowsForItems(Wrapper* Base::*member, Work work) {
    Soap soap;
    Wrapper list;
    soap.*member = &list;
    for (const int count : {1, 2147483647}) {
        list.count = count;
        const long before = allocation::LiveBlocks();
        EXPECT_THROW(work(&soap), std::bad_alloc);
        EXPECT_EQ(allocation::LiveBlocks(), before);
    }
    for (const int count : {0, -1, -2147483647 - 1}) {
        list.count = count;
        EXPECT_NO_THROW(work(&soap));
    }
}

template <class Record, class Soap, class Wrapper, class Base>
void ExpectWritingThrowsForItems(Wrapper* Base::*member) {
    ExpectThrowsForItems<Soap>(member, [](Soap* soap) { Record::ToXML(soap); });
}

TEST(MissingItems, OfAnAlbumAreAFailedAllocation) {
    using Soap = Quavera2__AlbumMetadata;
    ExpectWritingThrowsForItems<DataAlbum, Soap>(&Soap::tracks);
    ExpectWritingThrowsForItems<DataAlbum, Soap>(&Soap::displayableAlbumTypes);
    ExpectWritingThrowsForItems<DataAlbum, Soap>(&Soap::nonDisplayableAlbumTypes);
}

TEST(MissingItems, OfAShortAlbumAreAFailedAllocation) {
    using Soap = Quavera2__LiteAlbumMetadata;
    ExpectWritingThrowsForItems<DataAlbumLite, Soap>(&Soap::displayableAlbumTypes);
    ExpectThrowsForItems<Soap>(&Soap::displayableAlbumTypes, [](Soap* soap) {
        EXPECT_TRUE(DataAlbumLite(soap).displayableAlbumTypes.empty());
    });
}

TEST(MissingItems, OfAnArtistAreAFailedAllocation) {
    using Soap = Quavera2__ArtistMetadata;
    ExpectWritingThrowsForItems<DataArtist, Soap>(&Soap::albums);
    ExpectWritingThrowsForItems<DataArtist, Soap>(&Soap::genres);
}

TEST(MissingItems, OfAGenreAreAFailedAllocation) {
    using Soap = Quavera2__GenreMetadata;
    ExpectWritingThrowsForItems<DataGenre, Soap>(&Soap::childGenres);
    ExpectWritingThrowsForItems<DataGenre, Soap>(&Soap::parentGenres);
}

TEST(MissingItems, OfAPlaylistAreAFailedAllocation) {
    using Soap = Quavera2__PlaylistMetadata;
    ExpectWritingThrowsForItems<DataPlaylist, Soap>(&Soap::tracks);
}

TEST(MissingItems, OfALibraryAreAFailedAllocation) {
    using Soap = Quavera2__MemberLibrary;
    ExpectWritingThrowsForItems<DataMemberLibrary, Soap>(&Soap::tracks);
    ExpectWritingThrowsForItems<DataMemberLibrary, Soap>(&Soap::playlists);
    ExpectWritingThrowsForItems<DataMemberLibrary, Soap>(&Soap::stations);
}

TEST(MissingItems, OfAModificationAreAFailedAllocation) {
    using Soap = Quavera2__LibraryModificationResult;
    ExpectWritingThrowsForItems<DataLibraryModificationResult, Soap>(&Soap::values);
}

}  // namespace
