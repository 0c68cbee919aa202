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
/// Deliberate deviation: the stamp's element is "LastModified", its label `lastModifiedDate`.
class QUAVERA_API DataMemberLibraryLite : public QuavData {
 public:
    DataMemberLibraryLite();
    DataMemberLibraryLite(const DataMemberLibraryLite&);
    DataMemberLibraryLite(DataMemberLibraryLite&&) noexcept;
    DataMemberLibraryLite& operator=(const DataMemberLibraryLite&);
    DataMemberLibraryLite& operator=(DataMemberLibraryLite&&) noexcept;
    ~DataMemberLibraryLite() override;

    /// Adds the elements of `soap` to `node`; neither may be null.
    static void ToXML(ZQXML::INode* node, Quavera::Quavera5__LiteMemberLibrary* soap);
    /// The element of `soap`, which must not be null; it is the caller's.
    static zq::auto_com<ZQXML::INode> ToXML(Quavera::Quavera5__LiteMemberLibrary* soap);
    void FromXML(ZQXML::INode* node) override;
    std::string ToString() override;

    std::uint32_t lastModifiedDate = 0;  ///< the service's stamp of the last change
    std::wstring memberId;               ///< the service's identifier of the member
};

#endif  // QUAVERA_RECORDS_DATA_MEMBER_LIBRARY_LITE_H_
