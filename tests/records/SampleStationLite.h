#ifndef QUAVERA_TESTS_RECORDS_SAMPLE_STATION_LITE_H_
#define QUAVERA_TESTS_RECORDS_SAMPLE_STATION_LITE_H_

#include "soap/QuaveraStub.h"
#include "tests/records/Values.h"

/// A station's summary with every member present and no value twice.
struct SampleStationLite {
    using Soap = Quavera::Quavera2__LiteStationMetadata;

    static void Fill(Soap& soap, Values& values) {
        soap.freeStation = true;
        soap.name = values.Text("Ночной эфир 📻");
        soap.shortcut = values.Text("sc.303");
        soap.stationId = values.Text("Sta.404");
        soap.type = values.Text("editorial");
    }

    /// The element that it gives.
    static constexpr char kTree[] =
        "<Station>"
        "<Name encoding=\"base64\">0J3QvtGH0L3QvtC5INGN0YTQuNGAIPCfk7s=</Name>"
        "<StationId>Sta.404</StationId>"
        "<Type>editorial</Type>"
        "<FreeStation>true</FreeStation>"
        "</Station>";

    /// The log text of the record that this element fills.
    static constexpr char kText[] =
        "name = Ночной эфир 📻\r\n"
        "stationId = Sta.404\r\n"
        "type = editorial\r\n"
        "freeStation = true\r\n";
};

/// The same as a result of its own.
struct SampleStation : SampleStationLite {
    using Soap = Quavera::Quavera2__StationMetadata;

    static void Fill(Soap& soap, Values& values) {
        SampleStationLite::Fill(soap, values);
        soap.description = values.Text("Musik bis zum Morgen");
    }
};

#endif  // QUAVERA_TESTS_RECORDS_SAMPLE_STATION_LITE_H_
