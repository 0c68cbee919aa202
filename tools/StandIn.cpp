#include "tools/StandIn.h"

#include <optional>
#include <sstream>
#include <string_view>
#include <utility>

#include "tools/RecordClasses.h"
#include "tools/SoapDocument.h"

namespace tool {
namespace {

constexpr char kMalformed[] = "malformed request";
constexpr unsigned kOk = 200;
constexpr unsigned kBadRequest = 400;
constexpr unsigned kMethodNotAllowed = 405;
constexpr unsigned kTooLong = 413;
constexpr unsigned kServerError = 500;

/// What the entry points need beside the request, and tell of it.
struct Source {
    const Catalog& catalog;
    EvenShare* failed;
    EvenShare* cutShort;
    SoapVersion version;            // of the request
    SoapContext reader;             // holds what an answer points to until it is written
    std::optional<std::string> id;  // that was asked for
    bool isCutShort = false;
};

/// Opens a document of the catalogue, which has to hold what requests of the kind are answered
/// with.
Result<SoapDocument> OpenAnswer(const std::string& text, const char* kind,
                                const std::string& where) {
    Result<SoapDocument> document = SoapDocument::Open(text, where);
    const RecordClass& record = *FindClass(&RecordClass::kind, kind);
    if (document && document->RecordElement() != record.answerElement) {
        return Failure{where, "the catalogue holds a \"" + document->RecordElement() + "\" there"};
    }
    return document;
}

void SetVersion(SoapVersion version, struct soap* soap) {
    soap_set_version(soap, version == SoapVersion::k12 ? 2 : 1);
}

/// Fills an answer from the catalogue's document, which is called `where`.
template <class Answer>
Result<Done> Decode(const std::string& text, const char* kind, const std::string& where,
                    SoapContext* reader, Answer* answer) {
    const Result<SoapDocument> document = OpenAnswer(text, kind, where);
    return document ? document->Decode(reader, answer) : document.failure();
}

/// Answers the request of a kind ("album") that the context holds. For the entry points.
template <class Answer>
int Respond(struct soap* soap, const char* kind, const std::string& id, Answer& answer) {
    auto* const source = static_cast<Source*>(soap->user);
    // Not before: with a version, the context would have waited for the end of an envelope.
    SetVersion(source->version, soap);
    source->id = id;
    if (source->failed->PicksNext()) {
        return soap_receiver_fault(soap, "a failure that was asked for", nullptr);
    }
    source->isCutShort = source->cutShort->PicksNext();
    const std::string name = Catalog::NameOf(id);
    const Result<std::optional<std::string>> text = source->catalog.Find(kind, id);
    if (text && !*text) {
        const Failure unknown = {kind, "no such identifier: \"" + name + "\""};
        return soap_sender_fault(soap, Message(unknown).c_str(), nullptr);
    }
    const std::string where = std::string(kind) + "/" + name;
    const Result<Done> decoded =
        text ? Decode(**text, kind, where, &source->reader, &answer) : text.failure();
    if (!decoded) {
        return soap_receiver_fault(soap, Message(decoded.failure()).c_str(), nullptr);
    }
    return SOAP_OK;
}

/// Lets a context write to a stream, without a head of HTTP.
void WriteTo(std::ostringstream* stream, struct soap* soap) {
    soap->os = stream;
    soap_set_omode(soap, SOAP_ENC_PLAIN);
}

HttpAnswer AnswerWith(unsigned status, SoapVersion version, std::string body) {
    const char* const type = version == SoapVersion::k12 ? "application/soap+xml" : "text/xml";
    return {status, std::string(type) + "; charset=utf-8", "", std::move(body), {}};
}

/// Writes the fault that the context holds.
bool PutFault(struct soap* soap) {
    return soap_begin_send(soap) == SOAP_OK && soap_envelope_begin_out(soap) == SOAP_OK &&
           soap_body_begin_out(soap) == SOAP_OK && soap_putfault(soap) == SOAP_OK &&
           soap_body_end_out(soap) == SOAP_OK && soap_envelope_end_out(soap) == SOAP_OK &&
           soap_end_send(soap) == SOAP_OK;
}

/// An answer with the fault that the context holds. SOAP 1.1 has one status for all of them.
HttpAnswer FaultAnswer(struct soap* soap, SoapVersion version) {
    std::ostringstream out;
    WriteTo(&out, soap);
    SetVersion(version, soap);
    soap_set_fault(soap);
    soap_serializefault(soap);
    const char* const code = *soap_faultcode(soap);
    const bool isSenders = code != nullptr && std::string_view(code) == "SOAP-ENV:Sender";
    const bool isWritten = PutFault(soap);
    return AnswerWith(isSenders ? kBadRequest : kServerError, version,
                      isWritten ? out.str() : std::string());
}

/// An answer to what is no request of any version.
HttpAnswer Refusal(const std::string& reason) {
    SoapContext context;
    SetVersion(SoapVersion::k11, context.get());
    soap_sender_fault(context.get(), reason.c_str(), nullptr);
    return FaultAnswer(context.get(), SoapVersion::k11);
}

HttpAnswer Refusal(unsigned status, const std::string& reason) {
    HttpAnswer answer = Refusal(reason);
    answer.status = status;
    return answer;
}

HttpAnswer AnswerDocument(const SoapDocument& request, Source* source) {
    SoapContext context;
    struct soap* const soap = context.get();
    soap->user = source;
    std::istringstream in;
    std::ostringstream out;
    WriteTo(&out, soap);
    const bool isServed = request.Enter(soap, &in) && Quavera::soap_serve_request(soap) == SOAP_OK;
    HttpAnswer answer = isServed ? AnswerWith(kOk, request.version(), out.str())
                                 : FaultAnswer(soap, request.version());
    answer.subject = {request.RecordElement(), source->id};
    answer.isCutShort = source->isCutShort;
    return answer;
}

/// An answer to a request by another method than POST.
HttpAnswer AnswerOther() {
    HttpAnswer answer = Refusal(kMethodNotAllowed, "requests come by POST");
    answer.allow = "POST";
    return answer;
}

}  // namespace

StandIn::StandIn(Catalog catalog, const Mischief& mischief)
    : catalog_(std::move(catalog)),
      delay_(mischief.delay),
      failed_(mischief.failed),
      cutShort_(mischief.cutShort) {}

Result<Done> StandIn::Start(const std::string& host, int port, HttpServerOptions options) {
    const auto answer = [this](const HttpRequest& request) { return Answer(request); };
    return server_.Start(host, port, answer, std::move(options));
}

HttpAnswer StandIn::Answer(const HttpRequest& request) {
    HttpAnswer answer = request.method == "POST" ? AnswerPost(request) : AnswerOther();
    answer.delay = delay_;
    return answer;
}

HttpAnswer StandIn::AnswerPost(const HttpRequest& request) {
    if (request.isTooLong) {
        return Refusal(kTooLong, std::string(kMalformed) + ": longer than " +
                                     std::to_string(HttpServer::kLongestRequest) + " bytes");
    }
    if (request.body.empty()) {
        return Refusal(std::string(kMalformed) + ": empty");
    }
    const Result<SoapDocument> document = SoapDocument::Open(request.body, kMalformed);
    if (!document) {
        return Refusal(Message(document.failure()));
    }
    Source source{catalog_, &failed_, &cutShort_, document->version(), {}, std::nullopt};
    return AnswerDocument(*document, &source);
}

namespace {

/// What an entry point answers with, by its declaration.
template <class Answer>
Answer AnswerOf(int (*entryPoint)(struct soap*, std::string, Answer&));

}  // namespace
}  // namespace tool

// The entry points that the generated server calls, one for each request.
namespace Quavera {

#define QUAVERA_RECORD(Class, Soap, element, node, answer) answer
#define NONE
#define ONE(kind, request)                                                           \
    int Quavera2__##request(struct soap* soap, std::string id,                       \
                            decltype(tool::AnswerOf(Quavera2__##request))& answer) { \
        return tool::Respond(soap, #kind, id, answer);                               \
    }
#define LIST(kind, request, List, items) ONE(kind, request)
#include "records/Records.def"

}  // namespace Quavera
