#include "tools/Service.h"

#include <new>
#include <sstream>
#include <string_view>
#include <utility>

#include "tools/SoapContext.h"
#include "tools/SoapReader.h"

namespace tool {
namespace {

constexpr long kFirstSuccess = 200;
constexpr long kFirstRedirection = 300;
constexpr long kFirstError = 400;

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
Result<std::string> AnswerOf(const std::string& endpoint, HttpReply reply) {
    const std::string status = "HTTP status " + std::to_string(reply.status);
    const bool isSuccess = reply.status >= kFirstSuccess && reply.status < kFirstRedirection;
    const bool isFault =
        reply.status >= kFirstError && IsXml(reply.contentType) && IsFault(reply.body);
    if (!isSuccess && !isFault) {
        return Failure{endpoint, status};
    }
    if (reply.body.empty()) {
        return Failure{endpoint, "an empty answer with " + status};
    }
    return std::move(reply.body);
}

}  // namespace

bool IsFault(const std::string& answer) {
    const Result<SoapMessage> message = ReadSoap(answer, "answer");
    return message && message->recordElement == "Fault";
}

Result<std::string> Ask(const Service& service, const RecordClass& record, const std::string& id) {
    const HttpPost post = {service.endpoint, "text/xml; charset=utf-8", "", RequestFor(record, id)};
    Result<HttpReply> reply = Post(post, service.way);
    return reply ? AnswerOf(post.url, std::move(*reply)) : reply.failure();
}

Result<std::string> Fetch(const Service& service, const RecordClass& record, const std::string& id,
                          Form form) {
    const Result<std::string> answer = Ask(service, record, id);
    return answer ? PrintAnswer(*answer, service.endpoint, record, form) : answer;
}

}  // namespace tool
