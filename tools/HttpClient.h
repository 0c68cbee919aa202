#ifndef QUAVERA_TOOLS_HTTP_CLIENT_H_
#define QUAVERA_TOOLS_HTTP_CLIENT_H_

#include <cstddef>
#include <string>
#include <vector>

#include "tools/Result.h"
#include "tools/WireTrace.h"

namespace tool {

/// The longest body of an answer that is taken, in bytes, when nothing compresses it any more.
inline constexpr std::size_t kLongestAnswer = std::size_t{64} * 1024 * 1024;

/// How a client speaks to a server, and for how long it waits.
struct HttpWay {
    int seconds = 60;  // for all of it, from the first look-up of the host to the last byte
    int secondsToConnect = 10;         // of these, up to the end of TLS's handshake
    std::vector<std::string> headers;  // further ones, "NAME: VALUE"
    std::string user;                  // empty: nobody
    std::string password;
    std::string authorities;  // a file of trusted certificates in PEM; empty: the system's
    bool takesAnyCertificate = false;
    WireTrace* trace = nullptr;  // shown the exchange, where it is not null
};

/// What a client sends.
struct HttpPost {
    std::string url;
    std::string contentType;
    std::string soapAction;  // unless a further header gives it
    std::string body;
};

struct HttpReply {
    long status = 0;
    std::string contentType;
    std::string body;
    long secondsToWait = 0;  // that the server asks for ahead of another request
};

/// What came of a request.
struct HttpOutcome {
    Result<HttpReply> reply;
    bool isPassing = false;  // a failure that another try may not meet
};

/// Sends and returns the answer, of whatever status; a redirection is not followed. An answer that
/// is cut short or too long, an unreachable host, a refused certificate and a time that has run out
/// are failures, which name the phase in which they happened. Proxies that the environment names
/// are not used.
HttpOutcome Post(const HttpPost& post, const HttpWay& way);

}  // namespace tool

#endif  // QUAVERA_TOOLS_HTTP_CLIENT_H_
