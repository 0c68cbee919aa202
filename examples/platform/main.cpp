// Reads the SOAP record of an album on standard input and prints the album's log text. On the way
// it becomes a tree, of nodes of the platform library that Quavera was built on.

#include <iostream>

#include "platform/zqshared.h"
#include "records/DataAlbum.h"
#include "soap/QuaveraH.h"

namespace {

bool PrintAlbum(struct soap* context) {
    Quavera::Quavera2__AlbumMetadata soap;
    if (Quavera::soap_read_Quavera2__AlbumMetadata(context, &soap) != SOAP_OK) {
        soap_set_fault(context);  // words for failures that came without
        const char* const reason = soap_fault_string(context);
        std::cerr << "album-text: " << (reason != nullptr ? reason : "no reason given") << '\n';
        return false;
    }
    const zq::auto_com<ZQXML::INode> parent = ZQXML::CreateXmlNode();
    parent->AppendChild(DataAlbum::ToXML(&soap).get());
    DataAlbum album;
    album.FromXML(parent.get());
    std::cout << album.ToString() << std::flush;
    return std::cout.good();
}

}  // namespace

int main() {
    struct soap context(SOAP_C_UTFSTRING);  // the library's texts are UTF-8
    context.is = &std::cin;
    const bool isPrinted = PrintAlbum(&context);
    soap_destroy(&context);
    soap_end(&context);
    return isPrinted ? 0 : 1;
}
