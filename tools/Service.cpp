#include "tools/Service.h"

namespace tool {

const std::vector<Operation>& Operations() {
    static const std::vector<Operation> operations = {
        {"track", "DataTrackInfo", Quavera::soap_send_Quavera2__getTrack},
        {"album", "DataAlbum", Quavera::soap_send_Quavera2__getAlbum},
        {"artist", "DataArtist", Quavera::soap_send_Quavera2__getArtist},
        {"genre", "DataGenre", Quavera::soap_send_Quavera2__getGenre},
        {"playlist", "DataPlaylist", Quavera::soap_send_Quavera2__getPlaylist},
        {"station", "DataStation", Quavera::soap_send_Quavera2__getStation},
        {"library", "DataMemberLibrary", Quavera::soap_send_Quavera2__getLibrary},
        {"account", "DataAccountProperties", Quavera::soap_send_Quavera2__getAccount},
        {"review", "DataAlbumReview", Quavera::soap_send_Quavera2__getReview},
        {"images", "DataImage", Quavera::soap_send_Quavera2__getImages},
        {"index", "DataIndex", Quavera::soap_send_Quavera2__getIndex},
        {"modification", "DataLibraryModificationResult",
         Quavera::soap_send_Quavera2__getModification},
    };
    return operations;
}

const Operation* FindOperation(std::string_view record) {
    for (const Operation& operation : Operations()) {
        if (operation.record == record) {
            return &operation;
        }
    }
    return nullptr;
}

namespace {

/// Reads an answer's body as it comes. The generated receiver would read an empty body as an empty
/// record and pass over malformed XML.
bool ReadBody(struct soap* soap, std::string* body) {
    const bool isChunked = (soap->mode & SOAP_IO) == SOAP_IO_CHUNK;
    if (soap->length == 0 && !isChunked) {
        // Of unknown length: it ends with the connection.
        body->clear();
        for (soap_wchar byte = soap_getchar(soap); byte != EOF; byte = soap_getchar(soap)) {
            body->push_back(static_cast<char>(byte));
        }
        return true;
    }
    std::size_t size = 0;
    const char* const text = soap_http_get_body(soap, &size);
    if (text != nullptr) {
        body->assign(text, size);
        soap_end_recv(soap);
    }
    return text != nullptr;
}

}  // namespace

bool Ask(const Operation& operation, const std::string& endpoint, const std::string& id,
         std::string* answer, Failure* failure) {
    SoapContext context;
    struct soap* const soap = context.get();
    const bool isAnswered = operation.send(soap, endpoint.c_str(), nullptr, id) == SOAP_OK &&
                            soap_begin_recv(soap) == SOAP_OK && ReadBody(soap, answer);
    if (!isAnswered) {
        *failure = {endpoint, DescribeTransportError(soap)};
    }
    soap_closesock(soap);
    return isAnswered;
}

}  // namespace tool
