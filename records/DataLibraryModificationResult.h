#ifndef QUAVERA_RECORDS_DATA_LIBRARY_MODIFICATION_RESULT_H_
#define QUAVERA_RECORDS_DATA_LIBRARY_MODIFICATION_RESULT_H_

#include <string>
#include <vector>

#include "platform/zqshared.h"
#include "records/QuavData.h"
#include "records/SoapRecords.h"

/// The answer to a change of a member's library: what it touched, and the library's new stamp.
///
/// Element: "LibraryModification". `FromXML` expects that element itself.
/// Deliberate deviations: "SubCount" is always written beside a list, zero included, and never
/// read; the values stand directly in the element, and one that is marked as encoded is read
/// decoded; the log text begins with the stamp, and has a line "id = " for each identifier.
class QUAVERA_API DataLibraryModificationResult : public QuavData {
 public:
    DataLibraryModificationResult();
    DataLibraryModificationResult(const DataLibraryModificationResult&);
    DataLibraryModificationResult(DataLibraryModificationResult&&) noexcept;
    DataLibraryModificationResult& operator=(const DataLibraryModificationResult&);
    DataLibraryModificationResult& operator=(DataLibraryModificationResult&&) noexcept;
    ~DataLibraryModificationResult() override;

    /// Adds the elements of `soap` to `node`; neither may be null.
    static void ToXML(ZQXML::INode* node, Quavera::Quavera2__LibraryModificationResult* soap);
    /// The element of `soap`, which must not be null; it is the caller's.
    static zq::auto_com<ZQXML::INode> ToXML(Quavera::Quavera2__LibraryModificationResult* soap);
    void FromXML(ZQXML::INode* node) override;
    std::string ToString() override;

    std::vector<std::string> ids;  ///< of what the change made or touched, in the order of the tree
    unsigned long libraryLastDateModified = 0;  ///< the library's new stamp, 32 bits
};

#endif  // QUAVERA_RECORDS_DATA_LIBRARY_MODIFICATION_RESULT_H_
