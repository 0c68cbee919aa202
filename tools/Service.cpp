#include "tools/Service.h"

namespace tool {
namespace {

/// Reads an answer's body as it comes. The generated receiver would read an empty body as an empty
/// record and pass over malformed XML.
Result<std::string> ReadBody(struct soap* soap, const std::string& endpoint) {
    const bool isChunked = (soap->mode & SOAP_IO) == SOAP_IO_CHUNK;
    if (soap->length == 0 && !isChunked) {
        // Of unknown length: it ends with the connection.
        std::string body;
        for (soap_wchar byte = soap_getchar(soap); byte != EOF; byte = soap_getchar(soap)) {
            body.push_back(static_cast<char>(byte));
        }
        return body;
    }
    std::size_t size = 0;
    const char* const text = soap_http_get_body(soap, &size);
    if (text == nullptr) {
        return Failure{endpoint, DescribeTransportError(soap)};
    }
    soap_end_recv(soap);
    return std::string(text, size);
}

}  // namespace

Result<std::string> Ask(const RecordClass& record, const std::string& endpoint,
                        const std::string& id) {
    SoapContext context;
    struct soap* const soap = context.get();
    const bool isAnswered = record.send(soap, endpoint.c_str(), nullptr, id) == SOAP_OK &&
                            soap_begin_recv(soap) == SOAP_OK;
    Result<std::string> answer =
        isAnswered ? ReadBody(soap, endpoint) : Failure{endpoint, DescribeTransportError(soap)};
    soap_closesock(soap);
    return answer;
}

}  // namespace tool
