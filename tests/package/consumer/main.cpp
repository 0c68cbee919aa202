// A track's way through the library, outside of its source tree.

#include <cstdio>
#include <sstream>
#include <string>

#include "common/QuaveraCommon.h"
#include "platform/zqshared.h"
#include "records/DataTrackInfo.h"
#include "soap/QuaveraH.h"
#include "soap/QuaveraStub.h"

namespace {

int failures = 0;

void Check(bool isTrue, const char* what) {
    if (!isTrue) {
        std::fprintf(stderr, "not true: %s\n", what);
        ++failures;
    }
}

/// The SOAP text of a track that is made by hand.
std::string WriteSoap() {
    Quavera::Quavera2__LiteTrackMetadata record;
    std::string name = "Straße 夜";
    std::string trackId = "Tra.1";
    int trackIndex = 7;
    record.name = &name;
    record.trackId = &trackId;
    record.trackIndex = &trackIndex;

    std::ostringstream text;
    struct soap context(SOAP_C_UTFSTRING);
    context.os = &text;
    Check(Quavera::soap_write_Quavera2__LiteTrackMetadata(&context, &record) == SOAP_OK,
          "gSOAP writes the record");
    return text.str();
}

/// The tree, as text, of a track that gSOAP reads.
std::string Send(const std::string& soapText) {
    std::istringstream text(soapText);
    struct soap context(SOAP_C_UTFSTRING);
    context.is = &text;
    Quavera::Quavera2__LiteTrackMetadata record;
    Check(Quavera::soap_read_Quavera2__LiteTrackMetadata(&context, &record) == SOAP_OK,
          "gSOAP reads the record");
    const std::string tree = ZQXML::WriteXml(DataTrackInfo::ToXML(&record).get());
    soap_destroy(&context);
    soap_end(&context);
    return tree;
}

}  // namespace

int main() {
    const std::string text = Send(WriteSoap());
    Check(text ==
              "<Track><Name encoding=\"base64\">U3RyYcOfZSDlpJw=</Name>"
              "<TrackId>Tra.1</TrackId><TrackIndex>7</TrackIndex></Track>",
          "the tree is the track's");

    const auto tree = ZQXML::ParseXml(text);
    Check(static_cast<bool>(tree), "the tree can be read back");
    DataTrackInfo track;
    track.FromXML(tree.get());
    Check(track.name == L"Straße 夜", "the name arrives");
    Check(track.trackId == "Tra.1", "the identifier arrives");
    Check(track.trackIndex == 7, "the number arrives");
    Check(convertToUtf8(track.name) == "Straße 夜", "the name converts");
    Check(track.ToString().find("TrackIndex = 7\r\n") != std::string::npos, "the record prints");
    return failures;
}
