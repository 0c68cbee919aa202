#ifndef QUAVERA_RECORDS_DATA_PLAYLIST_H_
#define QUAVERA_RECORDS_DATA_PLAYLIST_H_

#include <string>
#include <vector>

#include "platform/zqshared.h"
#include "records/DataPlaylistLite.h"
#include "records/DataTrackInfo.h"
#include "records/SoapRecords.h"

/// The full playlist: the summary with the tracks.
///
/// Element: "Playlist". `FromXML` expects that element itself.
/// Deliberate deviation: in the log text the tracks come first, without line breaks of their own.
class QUAVERA_API DataPlaylist : public DataPlaylistLite {
 public:
    DataPlaylist();
    DataPlaylist(const DataPlaylist&);
    DataPlaylist(DataPlaylist&&) noexcept;
    DataPlaylist& operator=(const DataPlaylist&);
    DataPlaylist& operator=(DataPlaylist&&) noexcept;
    ~DataPlaylist() override;

    /// The element of `soap`, which must not be null; it is the caller's.
    static zq::auto_com<ZQXML::INode> ToXML(Quavera::Quavera2__PlaylistMetadata* soap);
    void FromXML(ZQXML::INode* node) override;
    std::string ToString() override;

    std::vector<DataTrackInfo> tracks;  ///< the tracks, in the order of the tree
};

#endif  // QUAVERA_RECORDS_DATA_PLAYLIST_H_
