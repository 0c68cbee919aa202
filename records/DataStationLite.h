#ifndef QUAVERA_RECORDS_DATA_STATION_LITE_H_
#define QUAVERA_RECORDS_DATA_STATION_LITE_H_

#include <cstdint>
#include <string>

#include "platform/zqshared.h"
#include "records/QuavData.h"
#include "records/SoapRecords.h"

/// A station's summary, as artists and member libraries carry it.
///
/// Element: "Station". `FromXML` expects that element itself.
/// Deliberate deviation: the flag, first in the SOAP record, is written last, and only if it is
/// true.
class QUAVERA_API DataStationLite : public QuavData {
 public:
    DataStationLite();
    DataStationLite(const DataStationLite&);
    DataStationLite(DataStationLite&&) noexcept;
    DataStationLite& operator=(const DataStationLite&);
    DataStationLite& operator=(DataStationLite&&) noexcept;
    ~DataStationLite() override;

    /// Adds the elements of `soap` to `node`; neither may be null.
    static void ToXML(ZQXML::INode* node, Quavera::Quavera2__LiteStationMetadata* soap);
    /// The element of `soap`, which must not be null; it is the caller's.
    static zq::auto_com<ZQXML::INode> ToXML(Quavera::Quavera2__LiteStationMetadata* soap);
    void FromXML(ZQXML::INode* node) override;
    std::string ToString() override;

    std::wstring name;         ///< the station's name
    std::uint64_t reserved64;  ///< copied, else untouched; no value until it is given one
    std::string stationId;     ///< the service's identifier of the station
    std::string type;          ///< the service's name of the type
    bool freeStation = false;  ///< whether it can be played free of charge
};

#endif  // QUAVERA_RECORDS_DATA_STATION_LITE_H_
