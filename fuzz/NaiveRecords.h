#ifndef QUAVERA_FUZZ_NAIVE_RECORDS_H_
#define QUAVERA_FUZZ_NAIVE_RECORDS_H_

#include <set>
#include <string>

#include "platform/zqshared.h"
#include "records/DataAccountProperties.h"
#include "records/DataAlbum.h"
#include "records/DataAlbumLite.h"
#include "records/DataAlbumReview.h"
#include "records/DataArtist.h"
#include "records/DataArtistLite.h"
#include "records/DataGenre.h"
#include "records/DataGenreLite.h"
#include "records/DataImage.h"
#include "records/DataIndex.h"
#include "records/DataLibraryModificationResult.h"
#include "records/DataMemberLibrary.h"
#include "records/DataMemberLibraryLite.h"
#include "records/DataPlaylist.h"
#include "records/DataPlaylistLite.h"
#include "records/DataStation.h"
#include "records/DataStationLite.h"
#include "records/DataTrackInfo.h"

/// A second reader of all records, in the plainest form: one field after the other, each by a look
/// at all children, with those operations alone that every node has.
namespace fuzz {

/// What `FromXML` is to do with a tree that is not null.
#define QUAVERA_RECORD(Record, soap, element, node, answer) \
    void NaiveRead(ZQXML::INode* tree, Record* record);
#include "records/Records.def"

/// The names of elements that readers have asked for since this was cleared.
std::set<std::string>& NamesAskedFor();

}  // namespace fuzz

#endif  // QUAVERA_FUZZ_NAIVE_RECORDS_H_
