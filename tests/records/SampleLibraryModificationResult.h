#ifndef QUAVERA_TESTS_RECORDS_SAMPLE_LIBRARY_MODIFICATION_RESULT_H_
#define QUAVERA_TESTS_RECORDS_SAMPLE_LIBRARY_MODIFICATION_RESULT_H_

#include "soap/QuaveraStub.h"
#include "tests/records/Values.h"

/// The answer to a change of the library with every member present and no value twice.
struct SampleLibraryModificationResult {
    using Soap = Quavera::Quavera2__LibraryModificationResult;

    static void Fill(Soap& soap, Values& values) {
        soap.values = values.List<Quavera::Quavera2__ArrayOfString>(
            {"Tra.1", "<Größe & 漢>", "Tra.3", "Tra.4"});
        soap.libraryLastDateModified = values.Of(3987654321UL);
    }

    /// The element that it gives.
    static constexpr char kTree[] =
        "<LibraryModification>"
        "<SubCount>4</SubCount>"
        "<Value>Tra.1</Value>"
        "<Value>&lt;Größe &amp; 漢&gt;</Value>"
        "<Value>Tra.3</Value>"
        "<Value>Tra.4</Value>"
        "<LibraryLastDateModified>3987654321</LibraryLastDateModified>"
        "</LibraryModification>";

    /// The log text of the record that this element fills.
    static constexpr char kText[] =
        "libraryLastDateModified = 3987654321\r\n"
        "id = Tra.1\r\n"
        "id = <Größe & 漢>\r\n"
        "id = Tra.3\r\n"
        "id = Tra.4\r\n";
};

#endif  // QUAVERA_TESTS_RECORDS_SAMPLE_LIBRARY_MODIFICATION_RESULT_H_
