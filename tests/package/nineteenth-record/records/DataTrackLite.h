#ifndef QUAVERA_RECORDS_DATA_TRACK_LITE_H_
#define QUAVERA_RECORDS_DATA_TRACK_LITE_H_

#include <string>

#include "platform/zqshared.h"
#include "records/QuavData.h"
#include "records/SoapRecords.h"

/// A track's title and place, for lists that show no more.
///
/// Element: "TrackLite". `FromXML` expects that element itself.
class QUAVERA_API DataTrackLite : public QuavData {
 public:
    DataTrackLite();
    DataTrackLite(const DataTrackLite&);
    DataTrackLite(DataTrackLite&&) noexcept;
    DataTrackLite& operator=(const DataTrackLite&);
    DataTrackLite& operator=(DataTrackLite&&) noexcept;
    ~DataTrackLite() override;

    static void ToXML(ZQXML::INode* node, Quavera::Quavera2__LiteTrackMetadata* soap);
    static zq::auto_com<ZQXML::INode> ToXML(Quavera::Quavera2__LiteTrackMetadata* soap);
    void FromXML(ZQXML::INode* node) override;
    std::string ToString() override;

    std::wstring name;
    std::string trackId;
    int trackIndex = 0;  // position of the track on its disc
};

#endif  // QUAVERA_RECORDS_DATA_TRACK_LITE_H_
