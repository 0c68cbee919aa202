// Reads the SOAP record of a track on standard input and prints the track's log text. On the way it
// becomes a tree, of nodes of the platform library that Quavera was built on.

#include <iostream>

#include "platform/zqshared.h"
#include "records/DataTrackInfo.h"
#include "soap/QuaveraH.h"

namespace {

bool PrintTrack(struct soap* context) {
    Quavera::Quavera2__LiteTrackMetadata soap;
    if (Quavera::soap_read_Quavera2__LiteTrackMetadata(context, &soap) != SOAP_OK) {
        soap_set_fault(context);  // words for failures that came without
        const char* const reason = soap_fault_string(context);
        std::cerr << "track-text: " << (reason != nullptr ? reason : "no reason given") << '\n';
        return false;
    }
    const zq::auto_com<ZQXML::INode> tree = DataTrackInfo::ToXML(&soap);
    DataTrackInfo track;
    track.FromXML(tree.get());
    std::cout << track.ToString() << std::flush;
    return std::cout.good();
}

}  // namespace

int main() {
    struct soap context(SOAP_C_UTFSTRING);  // the library's texts are UTF-8
    context.is = &std::cin;
    const bool isPrinted = PrintTrack(&context);
    soap_destroy(&context);
    soap_end(&context);
    return isPrinted ? 0 : 1;
}
