#ifndef QUAVERA_RECORDS_DATA_INDEX_H_
#define QUAVERA_RECORDS_DATA_INDEX_H_

#include <string>

#include "platform/zqshared.h"
#include "records/QuavData.h"
#include "records/SoapRecords.h"

/// An entry of the alphabetic index over a long list: where a letter's items begin.
///
/// Element: "Index". `FromXML` expects that element itself.
/// Deliberate deviations: of the letter only the first byte is written (of an empty one, a zero
/// byte), as the hexadecimal text of `CharToHexString`, so that every byte survives; the position
/// is written as a plain text.
class QUAVERA_API DataIndex : public QuavData {
 public:
    DataIndex();
    DataIndex(const DataIndex&);
    DataIndex(DataIndex&&) noexcept;
    DataIndex& operator=(const DataIndex&);
    DataIndex& operator=(DataIndex&&) noexcept;
    ~DataIndex() override;

    /// Adds the elements of `soap` to `node`; neither may be null.
    static void ToXML(ZQXML::INode* node, Quavera::Quavera2__AlphaIndexPosition* soap);
    /// The element of `soap`, which must not be null; it is the caller's.
    static zq::auto_com<ZQXML::INode> ToXML(Quavera::Quavera2__AlphaIndexPosition* soap);
    void FromXML(ZQXML::INode* node) override;
    std::string ToString() override;

    std::string letter;  ///< the letter: one byte once read, of any value, zero included
    int start = 0;       ///< position of the letter's first item, as the service counts
};

#endif  // QUAVERA_RECORDS_DATA_INDEX_H_
