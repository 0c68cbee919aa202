#include "tools/StandIn.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <sstream>
#include <utility>

#include "platform/zqshared.h"
#include "tools/SoapDocument.h"

namespace tool {
namespace {

constexpr int kBacklog = 16;
// A request holds an identifier. gSOAP takes long over much larger hostile ones.
constexpr std::size_t kLongestRequest = std::size_t{64} * 1024;
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

bool ReadBody(struct soap* soap, std::string* body, std::string* error) {
    if (soap->length > kLongestRequest) {
        *error = "too long";
        return false;
    }
    std::size_t size = 0;
    const char* const text = soap_http_get_body(soap, &size);
    if (text == nullptr || soap_end_recv(soap) != SOAP_OK) {
        *error = DescribeTransportError(soap);
        return false;
    }
    body->assign(text, size);
    return true;
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

bool StandIn::Listen(const std::string& host, int port, Failure* failure) {
    struct soap* const soap = server_.get();
    if (!soap_valid_socket(soap_bind(soap, host.c_str(), port, kBacklog))) {
        *failure = {host + ":" + std::to_string(port), DescribeTransportError(soap)};
        return false;
    }
    const bool isIpv6 = host.find(':') != std::string::npos;
    endpoint_ = "http://" + (isIpv6 ? "[" + host + "]" : host) + ":" +
                std::to_string(BoundPort(soap->master));
    return true;
}

/// Answers the request of the connection that was just accepted.
void StandIn::ServeRequest(struct soap* soap) {
    // The request is taken as it comes and checked first: gSOAP reads on over malformed XML, and
    // leaves a request that is cut off without an answer.
    if (soap_begin_recv(soap) != SOAP_OK) {
        SendFault(soap);
        return;
    }
    std::string request;
    std::string error;
    if (!ReadBody(soap, &request, &error) || !ZQXML::ParseXml(request, &error)) {
        soap_set_version(soap, 1);
        soap_sender_fault(soap, ("malformed request: " + error).c_str(), nullptr);
        SendFault(soap);
        return;
    }
    std::istringstream stream(request);
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

template <class Record>
int StandIn::Answer(struct soap* soap, const char* kind, const char* element, const std::string& id,
                    Record* record) {
    std::string text;
    Failure failure;
    if (!catalog_.Find(kind, id, &text, &failure)) {
        return soap_sender_fault(soap, Message(failure).c_str(), nullptr);
    }
    SoapDocument document;
    bool isReadable = document.Open(std::move(text), kind, &failure);
    if (isReadable && document.RecordElement() != element) {
        failure = {kind, "the catalogue holds a \"" + document.RecordElement() + "\" there"};
        isReadable = false;
    }
    if (!isReadable || !document.Decode(&reader_, record, &failure)) {
        return soap_receiver_fault(soap, Message(failure).c_str(), nullptr);
    }
    return SOAP_OK;
}

}  // namespace tool

// The entry points that the generated server calls, one for each operation.
namespace Quavera {
namespace {

template <class Record>
int Answer(struct soap* soap, const char* kind, const char* element, const std::string& id,
           Record& record) {
    return static_cast<tool::StandIn*>(soap->user)->Answer(soap, kind, element, id, &record);
}

}  // namespace

int Quavera2__getTrack(struct soap* soap, std::string id, Quavera2__LiteTrackMetadata& record) {
    return Answer(soap, "track", "LiteTrackMetadata", id, record);
}
int Quavera2__getAlbum(struct soap* soap, std::string id, Quavera2__AlbumMetadata& record) {
    return Answer(soap, "album", "AlbumMetadata", id, record);
}
int Quavera2__getArtist(struct soap* soap, std::string id, Quavera2__ArtistMetadata& record) {
    return Answer(soap, "artist", "ArtistMetadata", id, record);
}
int Quavera2__getGenre(struct soap* soap, std::string id, Quavera2__GenreMetadata& record) {
    return Answer(soap, "genre", "GenreMetadata", id, record);
}
int Quavera2__getPlaylist(struct soap* soap, std::string id, Quavera2__PlaylistMetadata& record) {
    return Answer(soap, "playlist", "PlaylistMetadata", id, record);
}
int Quavera2__getStation(struct soap* soap, std::string id, Quavera2__StationMetadata& record) {
    return Answer(soap, "station", "StationMetadata", id, record);
}
int Quavera2__getLibrary(struct soap* soap, std::string id, Quavera2__MemberLibrary& record) {
    return Answer(soap, "library", "MemberLibrary", id, record);
}
int Quavera2__getAccount(struct soap* soap, std::string id, Quavera2__AccountMetaData& record) {
    return Answer(soap, "account", "AccountMetaData", id, record);
}
int Quavera2__getReview(struct soap* soap, std::string id, Quavera2__AlbumReviewMetadata& record) {
    return Answer(soap, "review", "AlbumReviewMetadata", id, record);
}
int Quavera2__getImages(struct soap* soap, std::string id, Quavera2__Images& record) {
    return Answer(soap, "images", "Images", id, record);
}
int Quavera2__getIndex(struct soap* soap, std::string id, Quavera2__AlphaIndex& record) {
    return Answer(soap, "index", "AlphaIndex", id, record);
}
int Quavera2__getModification(struct soap* soap, std::string id,
                              Quavera2__LibraryModificationResult& record) {
    return Answer(soap, "modification", "LibraryModificationResult", id, record);
}

}  // namespace Quavera
