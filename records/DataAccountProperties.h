#ifndef QUAVERA_RECORDS_DATA_ACCOUNT_PROPERTIES_H_
#define QUAVERA_RECORDS_DATA_ACCOUNT_PROPERTIES_H_

#include <cstdint>
#include <string>

#include "platform/zqshared.h"
#include "records/QuavData.h"
#include "records/SoapRecords.h"

/// What the service reports of a member's account; the library only carries it.
///
/// Element: "AccountProperties". `FromXML` expects the *parent* of that element, and reads the
/// first. Deliberate deviations: element names are in lower camel case; every number is written as
/// a plain text, and those that a SOAP record cannot leave out (`freePlaysAllowed`,
/// `freePlaysRemaining`, `freeTrialTimeLeftInMillis`) always; `lastName` is read, as it stands, but
/// neither written nor printed.
class QUAVERA_API DataAccountProperties : public QuavData {
 public:
    DataAccountProperties();
    DataAccountProperties(const DataAccountProperties&);
    DataAccountProperties(DataAccountProperties&&) noexcept;
    DataAccountProperties& operator=(const DataAccountProperties&);
    DataAccountProperties& operator=(DataAccountProperties&&) noexcept;
    ~DataAccountProperties() override;

    /// Adds the elements of `soap` to `node`; neither may be null.
    static void ToXML(ZQXML::INode* node, Quavera::Quavera2__AccountMetaData* soap);
    /// The element of `soap`, which must not be null; it is the caller's.
    static zq::auto_com<ZQXML::INode> ToXML(Quavera::Quavera2__AccountMetaData* soap);
    void FromXML(ZQXML::INode* node) override;
    std::string ToString() override;

    std::string accountType;                      ///< the service's name of the type
    std::string cobrand;                          ///< identifier of the co-brand
    std::string country;                          ///< country code
    std::uint32_t dateCreated = 0;                ///< the service's date of the account's creation
    std::wstring email;                           ///< e-mail address
    std::wstring firstName;                       ///< first name
    int freePlaysAllowed = 0;                     ///< number of free plays granted
    int freePlaysRemaining = 0;                   ///< number of free plays left
    std::uint64_t freeTrialTimeLeftInMillis = 0;  ///< in milliseconds; the low 32 bits travel
    std::string lastName;                         ///< last name, as the element has it
    std::uint32_t quavera25MonthReset = 0;        ///< the service's monthly reset value
    std::uint32_t trialTerminationDate = 0;       ///< the service's date of the trial's end
    std::wstring userName;                        ///< the member's user name
    std::string zip;                              ///< postal code
};

#endif  // QUAVERA_RECORDS_DATA_ACCOUNT_PROPERTIES_H_
