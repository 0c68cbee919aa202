#include "tools/StandIn.h"

#include <algorithm>
#include <optional>
#include <regex>
#include <sstream>
#include <string_view>
#include <utility>

#include "tools/RecordClasses.h"
#include "tools/ServiceDescription.h"
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

/// Whether a target's query has a part of that name, in any case.
bool HasQuery(std::string_view target, std::string_view name) {
    while (target.find_first_of("?&") != std::string_view::npos) {
        target.remove_prefix(target.find_first_of("?&") + 1);
        const std::string_view part = target.substr(0, target.find_first_of("&="));
        const auto equal = [](char left, char right) {
            return (left >= 'A' && left <= 'Z' ? left - 'A' + 'a' : left) == right;
        };
        if (std::equal(part.begin(), part.end(), name.begin(), name.end(), equal)) {
            return true;
        }
    }
    return false;
}

/// The address that a client has used, as far as it can stand in a document as it is; else the
/// server's own.
std::string AddressOf(const HttpRequest& request, const std::string& endpoint) {
    static const std::regex harmlessHost(
        R"((\[[0-9A-Fa-f:.]{2,45}\]|[A-Za-z0-9._-]{1,253})(:[0-9]{1,5})?)");
    static const std::regex harmlessPath(R"(/[A-Za-z0-9._~/-]{0,200})");
    constexpr std::size_t kLongestHost = 300;
    const std::string path = request.target.substr(0, request.target.find('?'));
    const bool isHarmless =
        request.host.size() <= kLongestHost && std::regex_match(request.host, harmlessHost);
    const std::string scheme = endpoint.substr(0, endpoint.find("://") + 3);
    const bool hasPath = path.size() <= kLongestHost && std::regex_match(path, harmlessPath);
    return (isHarmless ? scheme + request.host : endpoint) + (hasPath ? path : "/");
}

/// The service's description, with an address in place of the one that stands there.
std::string Describe(const std::string& address) {
    constexpr std::string_view kBegin = "<SOAP:address location=\"";
    const std::size_t begin = kServiceDescription.find(kBegin) + kBegin.size();
    std::string text(kServiceDescription);
    return text.replace(begin, text.find('"', begin) - begin, address);
}

/// An answer to a request by another method than POST.
HttpAnswer AnswerOther(const HttpRequest& request, const std::string& endpoint) {
    const bool isGet = request.method == "GET" || request.method == "HEAD";
    const std::string address = AddressOf(request, endpoint);
    if (isGet && HasQuery(request.target, "wsdl")) {
        return {kOk, "text/xml; charset=utf-8", "", Describe(address), {"wsdl", std::nullopt}};
    }
    const std::string reason = "requests come by POST";
    HttpAnswer answer = Refusal(kMethodNotAllowed, reason);
    if (isGet) {  // maybe by somebody with a browser
        answer.contentType = "text/plain; charset=utf-8";
        answer.body = reason + "; the service is described at " + address + "?wsdl\n";
    }
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
    HttpAnswer answer =
        request.method == "POST" ? AnswerPost(request) : AnswerOther(request, server_.Endpoint());
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
