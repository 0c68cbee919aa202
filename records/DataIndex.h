#ifndef QUAVERA_RECORDS_DATA_INDEX_H_
#define QUAVERA_RECORDS_DATA_INDEX_H_

#include <string>

#include "platform/zqshared.h"
#include "records/QuavData.h"
#include "records/SoapRecords.h"

/// An entry of the alphabetic index over a long list: where a letter's items begin.
///
/// Element: "Index". `FromXML` expects that element itself.
/// Deliberate deviations: of the letter only the first byte is written, as the hexadecimal text of
/// `CharToHexString`, so that every byte survives; the position is written as a plain text.
class QUAVERA_API DataIndex : public QuavData {
 public:
    DataIndex();
    DataIndex(const DataIndex&);
    DataIndex(DataIndex&&) noexcept;
    DataIndex& operator=(const DataIndex&);
    DataIndex& operator=(DataIndex&&) noexcept;
    ~DataIndex() override;

    static void ToXML(ZQXML::INode* node, Quavera::Quavera2__AlphaIndexPosition* soap);
    static zq::auto_com<ZQXML::INode> ToXML(Quavera::Quavera2__AlphaIndexPosition* soap);
    void FromXML(ZQXML::INode* node) override;
    std::string ToString() override;

    std::string letter;  // one byte once read; any value, zero included
    int start = 0;       // position in the list
};

#endif  // QUAVERA_RECORDS_DATA_INDEX_H_
