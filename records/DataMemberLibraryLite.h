#ifndef QUAVERA_RECORDS_DATA_MEMBER_LIBRARY_LITE_H_
#define QUAVERA_RECORDS_DATA_MEMBER_LIBRARY_LITE_H_

#include <cstdint>
#include <string>

#include "platform/zqshared.h"
#include "records/QuavData.h"
#include "records/SoapRecords.h"

/// The header of a member's library: whose it is, and when it was last changed.
///
/// Element: "MemberLibraryLite". `FromXML` expects that element itself.
class QUAVERA_API DataMemberLibraryLite : public QuavData {
 public:
    DataMemberLibraryLite();
    DataMemberLibraryLite(const DataMemberLibraryLite&);
    DataMemberLibraryLite(DataMemberLibraryLite&&) noexcept;
    DataMemberLibraryLite& operator=(const DataMemberLibraryLite&);
    DataMemberLibraryLite& operator=(DataMemberLibraryLite&&) noexcept;
    ~DataMemberLibraryLite() override;

    static void ToXML(ZQXML::INode* node, Quavera::Quavera5__LiteMemberLibrary* soap);
    static zq::auto_com<ZQXML::INode> ToXML(Quavera::Quavera5__LiteMemberLibrary* soap);
    void FromXML(ZQXML::INode* node) override;
    std::string ToString() override;

    std::uint32_t lastModifiedDate = 0;  // the service's stamp
    std::wstring memberId;
};

#endif  // QUAVERA_RECORDS_DATA_MEMBER_LIBRARY_LITE_H_
