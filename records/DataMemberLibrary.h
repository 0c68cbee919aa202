#ifndef QUAVERA_RECORDS_DATA_MEMBER_LIBRARY_H_
#define QUAVERA_RECORDS_DATA_MEMBER_LIBRARY_H_

#include <string>
#include <vector>

#include "platform/zqshared.h"
#include "records/DataMemberLibraryLite.h"
#include "records/DataPlaylistLite.h"
#include "records/DataStationLite.h"
#include "records/DataTrackInfo.h"
#include "records/SoapRecords.h"

/// A member's library: the header with tracks, playlists and stations.
///
/// Element: "MemberLibrary". `FromXML` expects the *parent* of that element, and merges every
/// "MemberLibrary" in it.
/// Deliberate deviations: the lists are written as tracks, playlists, stations, which is not the
/// SOAP record's order; in the log text they come first, without line breaks of their own.
class QUAVERA_API DataMemberLibrary : public DataMemberLibraryLite {
 public:
    DataMemberLibrary();
    DataMemberLibrary(const DataMemberLibrary&);
    DataMemberLibrary(DataMemberLibrary&&) noexcept;
    DataMemberLibrary& operator=(const DataMemberLibrary&);
    DataMemberLibrary& operator=(DataMemberLibrary&&) noexcept;
    ~DataMemberLibrary() override;

    /// The element of `soap`, which must not be null; it is the caller's.
    static zq::auto_com<ZQXML::INode> ToXML(Quavera::Quavera2__MemberLibrary* soap);
    void FromXML(ZQXML::INode* node) override;
    std::string ToString() override;

    std::vector<DataPlaylistLite> playlists;  ///< the member's playlists, in the order of the tree
    std::vector<DataStationLite> stations;    ///< the member's stations, in the order of the tree
    std::vector<DataTrackInfo> tracks;        ///< the member's tracks, in the order of the tree
};

#endif  // QUAVERA_RECORDS_DATA_MEMBER_LIBRARY_H_
