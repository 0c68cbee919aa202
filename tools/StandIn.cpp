#include "tools/StandIn.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <sstream>
#include <utility>

#include "tools/RecordClasses.h"
#include "tools/SoapDocument.h"

namespace tool {
namespace {

constexpr int kBacklog = 16;
// A request holds an identifier. gSOAP takes long over much larger hostile ones.
constexpr std::size_t kLongestRequest = std::size_t{64} * 1024;
constexpr char kMalformed[] = "malformed request";
constexpr int kSecondsForRequest = 5;
constexpr int kMicrosecondsBetweenChecks = 100000;

int BoundPort(SOAP_SOCKET socket) {
    sockaddr_storage address{};
    socklen_t size = sizeof(address);
    if (getsockname(socket, reinterpret_cast<sockaddr*>(&address), &size) != 0) {
        return 0;
    }
    // The port stands at the same place in both families' addresses.
    return ntohs(reinterpret_cast<const sockaddr_in&>(address).sin_port);
}

Result<std::string> ReadBody(struct soap* soap) {
    if (soap->length > kLongestRequest) {
        return Failure{kMalformed, "too long"};
    }
    std::size_t size = 0;
    const char* const text = soap_http_get_body(soap, &size);
    if (text == nullptr || soap_end_recv(soap) != SOAP_OK) {
        return Failure{kMalformed, DescribeTransportError(soap)};
    }
    return std::string(text, size);
}

/// Opens a document of the catalogue, which has to hold what requests of the kind are answered
/// with.
Result<SoapDocument> OpenAnswer(const std::string& text, const char* kind) {
    Result<SoapDocument> document = SoapDocument::Open(text, kind);
    const RecordClass& record = *FindClass(&RecordClass::kind, kind);
    if (document && document->RecordElement() != record.answerElement) {
        return Failure{kind, "the catalogue holds a \"" + document->RecordElement() + "\" there"};
    }
    return document;
}

/// Writes the fault that the context holds.
bool PutFault(struct soap* soap) {
    return soap_envelope_begin_out(soap) == SOAP_OK && soap_body_begin_out(soap) == SOAP_OK &&
           soap_putfault(soap) == SOAP_OK && soap_body_end_out(soap) == SOAP_OK &&
           soap_envelope_end_out(soap) == SOAP_OK;
}

/// Answers with the fault that the context holds. soap_send_fault() does not when the caller has
/// said that it sends no more.
void SendFault(struct soap* soap) {
    const int status = soap->error;
    soap->keep_alive = 0;
    soap_set_fault(soap);
    soap_serializefault(soap);
    soap_begin_count(soap);
    if ((soap->mode & SOAP_IO_LENGTH) != 0) {
        PutFault(soap);
    }
    if (soap_end_count(soap) == SOAP_OK && soap_response(soap, status) == SOAP_OK &&
        PutFault(soap)) {
        soap_end_send(soap);
    }
    soap_closesock(soap);
}

}  // namespace

StandIn::StandIn(Catalog catalog) : catalog_(std::move(catalog)) {
    struct soap* const soap = server_.get();
    soap->user = this;
    soap->bind_flags = SO_REUSEADDR;
    soap->accept_timeout = -kMicrosecondsBetweenChecks;  // gSOAP: negative values are microseconds
    soap->recv_timeout = kSecondsForRequest;
    soap->send_timeout = kSecondsForRequest;
    soap->transfer_timeout = kSecondsForRequest;
    soap->recv_maxlength = kLongestRequest;
}

Result<Done> StandIn::Listen(const std::string& host, int port) {
    struct soap* const soap = server_.get();
    if (!soap_valid_socket(soap_bind(soap, host.c_str(), port, kBacklog))) {
        return Failure{host + ":" + std::to_string(port), DescribeTransportError(soap)};
    }
    const bool isIpv6 = host.find(':') != std::string::npos;
    endpoint_ = "http://" + (isIpv6 ? "[" + host + "]" : host) + ":" +
                std::to_string(BoundPort(soap->master));
    return Done();
}

/// Answers the request of the connection that was just accepted.
void StandIn::ServeRequest(struct soap* soap) {
    // The request is taken as it comes and checked first: gSOAP reads on over malformed XML, and
    // leaves a request that is cut off without an answer.
    if (soap_begin_recv(soap) != SOAP_OK) {
        SendFault(soap);
        return;
    }
    const Result<std::string> request = ReadBody(soap);
    const Result<Tree> tree = request ? ParseTree(*request, kMalformed) : request.failure();
    if (!tree) {
        soap_set_version(soap, 1);
        soap_sender_fault(soap, Message(tree.failure()).c_str(), nullptr);
        SendFault(soap);
        return;
    }
    std::istringstream stream(*request);
    soap->is = &stream;
    if (soap_begin_serve(soap) == SOAP_OK && Quavera::soap_serve_request(soap) != SOAP_OK) {
        SendFault(soap);
    }
    soap->is = nullptr;
}

void StandIn::Serve(const std::atomic<bool>& stop) {
    struct soap* const soap = server_.get();
    while (!stop) {
        if (soap_valid_socket(soap_accept(soap))) {
            ServeRequest(soap);
            // Whatever the request was, it has been answered; the next one starts afresh.
            server_.Clear();
            reader_.Clear();
        } else if (soap->errnum != 0) {
            // Not for want of callers: out of descriptors, for example, which may pass.
            usleep(kMicrosecondsBetweenChecks);
        }
    }
}

template <class Answer>
int StandIn::Respond(struct soap* soap, const char* kind, const std::string& id, Answer& answer) {
    auto* const self = static_cast<StandIn*>(soap->user);
    const Result<std::string> text = self->catalog_.Find(kind, id);
    if (!text) {
        return soap_sender_fault(soap, Message(text.failure()).c_str(), nullptr);
    }
    const Result<SoapDocument> document = OpenAnswer(*text, kind);
    const Result<Done> decoded =
        document ? document->Decode(&self->reader_, &answer) : document.failure();
    if (!decoded) {
        return soap_receiver_fault(soap, Message(decoded.failure()).c_str(), nullptr);
    }
    return SOAP_OK;
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
        return tool::StandIn::Respond(soap, #kind, id, answer);                      \
    }
#define LIST(kind, request, List, items) ONE(kind, request)
#include "records/Records.def"

}  // namespace Quavera
