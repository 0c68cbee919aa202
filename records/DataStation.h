#ifndef QUAVERA_RECORDS_DATA_STATION_H_
#define QUAVERA_RECORDS_DATA_STATION_H_

#include <string>

#include "platform/zqshared.h"
#include "records/DataStationLite.h"
#include "records/SoapRecords.h"

/// A station as a result of its own: the summary's fields, elements and text.
///
/// Element: "Station". `FromXML` expects that element, or a parent, in which it merges every
/// "Station".
class QUAVERA_API DataStation : public DataStationLite {
 public:
    DataStation();
    DataStation(const DataStation&);
    DataStation(DataStation&&) noexcept;
    DataStation& operator=(const DataStation&);
    DataStation& operator=(DataStation&&) noexcept;
    ~DataStation() override;

    /// The element of `soap`, which must not be null; it is the caller's.
    static zq::auto_com<ZQXML::INode> ToXML(Quavera::Quavera2__StationMetadata* soap);
    void FromXML(ZQXML::INode* node) override;
    std::string ToString() override;
};

#endif  // QUAVERA_RECORDS_DATA_STATION_H_
