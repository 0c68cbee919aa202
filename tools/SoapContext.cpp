#include "tools/SoapContext.h"

#include <sys/socket.h>

#include "common/QuaveraCommon.h"
#include "platform/zqshared.h"

namespace tool {

// UTFSTRING: texts are UTF-8. TREE: no links between elements of a document, which hostile ones
// could use.
SoapContext::SoapContext() : soap_(SOAP_C_UTFSTRING | SOAP_XML_TREE) {
    // A peer that goes away is an error of that connection, not the end of this process.
    soap_.socket_flags = MSG_NOSIGNAL;
    SetSoapTimeouts(&soap_);
    // A peer that sends byte by byte, or without end, is not waited for.
    soap_.transfer_timeout = 120;
    soap_.recv_maxlength = ZQXML::kMaxXmlSize;
}

SoapContext::~SoapContext() {
    Clear();
}

void SoapContext::Clear() {
    soap_destroy(&soap_);
    soap_end(&soap_);
}

std::string DescribeTransportError(struct soap* soap) {
    constexpr int kFirstHttpStatus = 200;
    constexpr int kLastHttpStatus = 599;
    if (soap->error >= kFirstHttpStatus && soap->error <= kLastHttpStatus) {
        return "HTTP status " + std::to_string(soap->error);
    }
    soap_set_fault(soap);
    const char* const reason = *soap_faultstring(soap);
    const char* const detail = soap_fault_detail(soap);
    std::string text = reason == nullptr ? "unknown error" : reason;
    return detail == nullptr ? text : text + " (" + detail + ")";
}

}  // namespace tool
