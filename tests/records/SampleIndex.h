#ifndef QUAVERA_TESTS_RECORDS_SAMPLE_INDEX_H_
#define QUAVERA_TESTS_RECORDS_SAMPLE_INDEX_H_

#include "soap/QuaveraStub.h"
#include "tests/records/Values.h"

/// An entry of the alphabetic index with both members present.
struct SampleIndex {
    using Soap = Quavera::Quavera2__AlphaIndexPosition;

    static void Fill(Soap& soap, Values& values) {
        soap.letter = values.Text("B");
        soap.start = values.Of(120);
    }

    /// The element that it gives.
    static constexpr char kTree[] = "<Index><Letter>42</Letter><Start>120</Start></Index>";

    /// The log text of the record that this element fills.
    static constexpr char kText[] = "letter = B\r\nstart = 120\r\n";
};

#endif  // QUAVERA_TESTS_RECORDS_SAMPLE_INDEX_H_
