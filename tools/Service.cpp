#include "tools/Service.h"

#include <chrono>
#include <new>
#include <optional>
#include <sstream>
#include <string_view>
#include <thread>
#include <utility>

#include "tools/Files.h"
#include "tools/Patience.h"
#include "tools/SoapContext.h"
#include "tools/SoapReader.h"

namespace tool {
namespace {

constexpr long kFirstSuccess = 200;
constexpr long kFirstRedirection = 300;
constexpr long kFirstError = 400;
constexpr long kTooMany = 429;  // requests in a while
constexpr long kFirstServerError = 500;

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

/// What came of a try.
struct Verdict {
    Result<std::string> answer;
    bool isPassing = false;
    long secondsToWait = 0;
};

/// Faults come with a status of failure.
Verdict JudgeReply(const std::string& endpoint, HttpReply reply) {
    std::string status = "HTTP status " + std::to_string(reply.status);
    const bool isSuccess = reply.status >= kFirstSuccess && reply.status < kFirstRedirection;
    const bool isFault =
        reply.status >= kFirstError && IsXml(reply.contentType) && IsFault(reply.body);
    if (!isSuccess && !isFault) {
        const bool isPassing = reply.status >= kFirstServerError || reply.status == kTooMany;
        if (reply.secondsToWait > 0) {
            status += "; it asks to wait " + std::to_string(reply.secondsToWait) + " s";
        }
        return {Failure{endpoint, status}, isPassing, reply.secondsToWait};
    }
    if (reply.body.empty()) {
        return {Failure{endpoint, "an empty answer with " + status}};
    }
    return {std::move(reply.body)};
}

Verdict Try(const HttpPost& post, const HttpWay& way) {
    HttpOutcome outcome = Post(post, way);
    return outcome.reply ? JudgeReply(post.url, std::move(*outcome.reply))
                         : Verdict{outcome.reply.failure(), outcome.isPassing};
}

void Pause(const Failure& failure, int seconds) {
    Report({failure.where, failure.what + "; trying again in " + std::to_string(seconds) + " s"});
    std::this_thread::sleep_for(std::chrono::seconds(seconds));
}

}  // namespace

bool IsFault(const std::string& answer) {
    const Result<SoapMessage> message = ReadSoap(answer, "answer");
    return message && message->recordElement == "Fault";
}

Result<std::string> Ask(const Service& service, const RecordClass& record, const std::string& id) {
    const HttpPost post = {service.endpoint, "text/xml; charset=utf-8", "", RequestFor(record, id)};
    Patience patience(service.retries);
    Verdict verdict = Try(post, service.way);
    while (!verdict.answer && verdict.isPassing) {
        const std::optional<int> seconds = patience.Next(verdict.secondsToWait);
        if (!seconds) {
            break;
        }
        Pause(verdict.answer.failure(), *seconds);
        verdict = Try(post, service.way);
    }
    return std::move(verdict.answer);
}

Result<std::string> Fetch(const Service& service, const RecordClass& record, const std::string& id,
                          Form form) {
    const Result<std::string> answer = Ask(service, record, id);
    return answer ? PrintAnswer(*answer, service.endpoint, record, form) : answer;
}

}  // namespace tool
