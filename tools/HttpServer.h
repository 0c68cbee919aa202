#ifndef QUAVERA_TOOLS_HTTP_SERVER_H_
#define QUAVERA_TOOLS_HTTP_SERVER_H_

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "tools/Result.h"
#include "tools/TlsIdentity.h"

namespace tool {

struct HttpRequest {
    std::string method;
    std::string target;  // "/service?wsdl", as the client has sent it
    std::string host;    // what the client calls this server, "127.0.0.1:8080"; may be anything
    std::string body;
    bool isTooLong = false;  // the body has more bytes than are kept
};

/// What is asked for, in the words of the application.
struct HttpSubject {
    std::string operation;          // empty: unknown
    std::optional<std::string> id;  // without one, unknown
};

struct HttpAnswer {
    unsigned status = 0;
    std::string contentType;
    std::string allow;  // the methods that are allowed, where the request's is not; else empty
    std::string body;

    HttpSubject subject;
    std::chrono::milliseconds delay{0};  // to be waited before it is sent
    bool isCutShort = false;             // half of the body is sent, then the connection is closed
};

/// A request and its answer, when they are over.
struct HttpExchange {
    std::string client;  // "127.0.0.1:40000"
    HttpSubject subject;
    std::optional<unsigned> status;       // none: it was not answered
    std::optional<std::size_t> bodySize;  // as far as it was sent; none: it is not known
    std::chrono::milliseconds duration{0};
};

struct HttpServerOptions {
    std::optional<TlsIdentity> tls;  // without it, all is sent in the clear

    /// Called from the server's thread for each exchange, and for each connection that ends without
    /// one.
    std::function<void(const HttpExchange& exchange)> onExchange;
};

/// An HTTP server with a thread of its own, which serves all connections as their bytes come: a
/// slow client delays no other, and neither does an answer that is delayed. Bounded are a
/// connection's silence, its age without a whole request, a request's size and the number of
/// connections.
class HttpServer {
 public:
    using Handler = std::function<HttpAnswer(const HttpRequest& request)>;

    /// What a request's body may have, in bytes. Of a longer one the rest is thrown away.
    static constexpr std::size_t kLongestRequest = std::size_t{64} * 1024;

    /// For how long a client may be at one request and its answer, if it is never silent.
    static constexpr std::chrono::seconds kLongestExchange{60};

    HttpServer();
    HttpServer(const HttpServer&) = delete;
    HttpServer& operator=(const HttpServer&) = delete;
    /// Closes all connections.
    ~HttpServer();

    /// Starts to serve, with the answers of the handler, which is called from another thread, for
    /// one request after the other. A request for which it throws is left without an answer. Port 0
    /// takes a free one. To be called once.
    Result<Done> Start(const std::string& host, int port, Handler handler,
                       HttpServerOptions options = {});

    /// Where it listens: "http://127.0.0.1:8080", or with "https".
    const std::string& Endpoint() const;

    /// Ends connections on which no whole request has come, or no whole answer gone, for so long.
    /// To be called once in a while.
    void EndOldConnections(std::chrono::milliseconds age = kLongestExchange);

 private:
    class Implementation;
    std::unique_ptr<Implementation> implementation_;
};

}  // namespace tool

#endif  // QUAVERA_TOOLS_HTTP_SERVER_H_
