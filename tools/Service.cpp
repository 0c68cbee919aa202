#include "tools/Service.h"

#include <new>
#include <sstream>
#include <string_view>

#include "tools/HttpClient.h"
#include "tools/SoapContext.h"

namespace tool {
namespace {

constexpr long kFirstError = 400;
constexpr long kFirstSuccess = 200;
constexpr long kFirstRedirection = 300;

/// The request's envelope, by the generated client.
std::string RequestFor(const RecordClass& record, const std::string& id) {
    SoapContext context;
    std::ostringstream request;
    struct soap* const soap = context.get();
    soap->os = &request;
    soap_set_omode(soap, SOAP_ENC_PLAIN);  // no head of HTTP
    if (record.send(soap, "", nullptr, id) != SOAP_OK) {
        throw std::bad_alloc();  // to a stream, nothing else can fail
    }
    return request.str();
}

bool IsXml(const std::string& contentType) {
    for (const std::string_view type : {"text/xml", "application/soap+xml", "application/xml"}) {
        if (contentType.compare(0, type.size(), type) == 0) {
            return true;
        }
    }
    return false;
}

/// Faults come with a status of failure.
bool IsSoap(const HttpReply& reply) {
    const bool isSuccess = reply.status >= kFirstSuccess && reply.status < kFirstRedirection;
    return isSuccess || (reply.status >= kFirstError && IsXml(reply.contentType));
}

}  // namespace

Result<std::string> Ask(const Service& service, const RecordClass& record, const std::string& id) {
    Result<HttpReply> reply = Post(
        {service.endpoint, "text/xml; charset=utf-8", "", RequestFor(record, id), service.seconds});
    if (!reply) {
        return reply.failure();
    }
    if (!IsSoap(*reply)) {
        return Failure{service.endpoint, "HTTP status " + std::to_string(reply->status)};
    }
    if (reply->body.empty()) {
        return Failure{service.endpoint,
                       "an empty answer with HTTP status " + std::to_string(reply->status)};
    }
    return std::move(reply->body);
}

Result<std::string> Fetch(const Service& service, const RecordClass& record, const std::string& id,
                          Form form) {
    const Result<std::string> answer = Ask(service, record, id);
    return answer ? PrintAnswer(*answer, service.endpoint, record, form) : answer;
}

}  // namespace tool
