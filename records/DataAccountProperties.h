#ifndef QUAVERA_RECORDS_DATA_ACCOUNT_PROPERTIES_H_
#define QUAVERA_RECORDS_DATA_ACCOUNT_PROPERTIES_H_

#include <cstdint>
#include <string>

#include "platform/zqshared.h"
#include "records/QuavData.h"
#include "records/SoapRecords.h"

/// What the service reports of a member's account. The numbers are the service's own; dates have an
/// epoch that only the service knows.
///
/// Element: "AccountProperties". `FromXML` expects the *parent* of that element, and reads the
/// first. Deliberate deviations: element names are in lower camel case; every number is written as
/// a plain text; the three plain numbers are always written; `lastName` is read, as it stands, but
/// neither written nor printed.
class QUAVERA_API DataAccountProperties : public QuavData {
 public:
    DataAccountProperties();
    DataAccountProperties(const DataAccountProperties&);
    DataAccountProperties(DataAccountProperties&&) noexcept;
    DataAccountProperties& operator=(const DataAccountProperties&);
    DataAccountProperties& operator=(DataAccountProperties&&) noexcept;
    ~DataAccountProperties() override;

    static void ToXML(ZQXML::INode* node, Quavera::Quavera2__AccountMetaData* soap);
    static zq::auto_com<ZQXML::INode> ToXML(Quavera::Quavera2__AccountMetaData* soap);
    void FromXML(ZQXML::INode* node) override;
    std::string ToString() override;

    std::string accountType;
    std::string cobrand;
    std::string country;
    std::uint32_t dateCreated = 0;
    std::wstring email;
    std::wstring firstName;
    int freePlaysAllowed = 0;
    int freePlaysRemaining = 0;
    std::uint64_t freeTrialTimeLeftInMillis = 0;  // of which 32 bits are read and printed
    std::string lastName;
    std::uint32_t quavera25MonthReset = 0;
    std::uint32_t trialTerminationDate = 0;
    std::wstring userName;
    std::string zip;
};

#endif  // QUAVERA_RECORDS_DATA_ACCOUNT_PROPERTIES_H_
