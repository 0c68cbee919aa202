#include "tools/HttpServer.h"

#include <microhttpd.h>
#include <netdb.h>
#include <netinet/in.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <new>
#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

#include "tools/DelayedConnections.h"

namespace tool {
namespace {

using Clock = std::chrono::steady_clock;

constexpr unsigned kMostConnections = 2048;
constexpr unsigned kMostSecondsOfSilence = 5;
constexpr std::size_t kMemoryOfConnection = std::size_t{16} * 1024;  // for the request's head
// Of a request that is too long, so much is read past its limit for the client to see the answer.
constexpr std::size_t kMostThrownAway = std::size_t{16} * 1024 * 1024;
constexpr std::size_t kMostSentAtOnce = std::size_t{64} * 1024;
constexpr rlim_t kOtherDescriptors = 64;

/// Lets this process have as many descriptors as there may be connections, if it is allowed to.
void RaiseDescriptorLimit() {
    rlimit limit{};
    if (getrlimit(RLIMIT_NOFILE, &limit) == 0) {
        limit.rlim_cur = std::max(limit.rlim_cur,
                                  std::min(limit.rlim_max, kMostConnections + kOtherDescriptors));
        setrlimit(RLIMIT_NOFILE, &limit);
    }
}

/// A socket that is closed with its owner.
class Socket {
 public:
    explicit Socket(int descriptor) : descriptor_(descriptor) {}
    Socket(const Socket&) = delete;
    Socket& operator=(const Socket&) = delete;
    ~Socket() {
        if (descriptor_ >= 0) {
            close(descriptor_);
        }
    }

    int get() const { return descriptor_; }
    int Release() { return std::exchange(descriptor_, -1); }

 private:
    int descriptor_;
};

std::string HostAndPort(const std::string& host, const std::string& port) {
    const bool isIpv6 = host.find(':') != std::string::npos;
    return (isIpv6 ? "[" + host + "]" : host) + ":" + port;
}

struct FreeAddresses {
    void operator()(addrinfo* addresses) const { freeaddrinfo(addresses); }
};
using Addresses = std::unique_ptr<addrinfo, FreeAddresses>;

Result<Addresses> LookUp(const std::string& host, int port, const std::string& where) {
    addrinfo hints{};
    hints.ai_flags = AI_PASSIVE;
    hints.ai_socktype = SOCK_STREAM;
    addrinfo* found = nullptr;
    const int code = getaddrinfo(host.c_str(), std::to_string(port).c_str(), &hints, &found);
    if (code != 0) {
        return Failure{where, gai_strerror(code)};
    }
    return Addresses(found);
}

/// A listening socket's descriptor.
Result<int> Listen(const std::string& host, int port) {
    const std::string where = host + ":" + std::to_string(port);
    const Result<Addresses> addresses = LookUp(host, port, where);
    if (!addresses) {
        return addresses.failure();
    }
    const addrinfo& address = **addresses;
    Socket listener(socket(address.ai_family, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    // The side that closes first would hold the port for a while.
    const int on = 1;
    if (listener.get() < 0 ||
        setsockopt(listener.get(), SOL_SOCKET, SO_REUSEADDR, &on, sizeof on) != 0 ||
        bind(listener.get(), address.ai_addr, address.ai_addrlen) != 0 ||
        listen(listener.get(), SOMAXCONN) != 0) {
        return Failure{where, std::strerror(errno)};
    }
    return listener.Release();
}

int BoundPort(int listener) {
    sockaddr_storage address{};
    socklen_t size = sizeof address;
    if (getsockname(listener, reinterpret_cast<sockaddr*>(&address), &size) != 0) {
        return 0;
    }
    // The port stands at the same place in both families' addresses.
    return ntohs(reinterpret_cast<const sockaddr_in&>(address).sin_port);
}

/// A request as far as it has come, and its answer as far as it has gone.
struct Exchange {
    const Clock::time_point began = Clock::now();
    HttpRequest request;
    std::size_t thrownAway = 0;
    bool hasBegun = false;
    std::optional<HttpAnswer> answer;
    std::size_t sent = 0;  // of its body
};

/// Takes more of a body. False: it is not worth going on.
bool TakeBody(Exchange* exchange, const char* data, std::size_t size) {
    std::string* const body = &exchange->request.body;
    const std::size_t kept = std::min(size, HttpServer::kLongestRequest - body->size());
    body->append(data, kept);
    exchange->thrownAway += size - kept;
    exchange->request.isTooLong = exchange->thrownAway > 0;
    return exchange->thrownAway <= kMostThrownAway;
}

/// A value of a request's head; empty where there is none.
const char* HeadValue(MHD_Connection* connection, const char* name) {
    const char* const value = MHD_lookup_connection_value(connection, MHD_HEADER_KIND, name);
    return value == nullptr ? "" : value;
}

/// The length that a request's head gives; 0 where it gives none.
unsigned long long AnnouncedLength(MHD_Connection* connection) {
    return std::strtoull(HeadValue(connection, MHD_HTTP_HEADER_CONTENT_LENGTH), nullptr, 10);
}

/// Gives the library the next piece of an answer's body.
ssize_t ReadBody(void* self, std::uint64_t /*position*/, char* buffer, std::size_t size) {
    auto* const exchange = static_cast<Exchange*>(self);
    const std::string& body = exchange->answer->body;
    const std::size_t end = exchange->answer->isCutShort ? body.size() / 2 : body.size();
    if (exchange->sent == end) {
        return MHD_CONTENT_READER_END_WITH_ERROR;  // closes the connection
    }
    const std::size_t taken = std::min(size, end - exchange->sent);
    std::memcpy(buffer, body.data() + exchange->sent, taken);
    exchange->sent += taken;
    return static_cast<ssize_t>(taken);
}

struct FreeResponse {
    void operator()(MHD_Response* response) const { MHD_destroy_response(response); }
};

/// Sends the answer of an exchange, which has to stay until it is over.
MHD_Result Send(MHD_Connection* connection, Exchange* exchange) {
    const HttpAnswer& answer = *exchange->answer;
    const std::unique_ptr<MHD_Response, FreeResponse> response(MHD_create_response_from_callback(
        answer.body.size(), kMostSentAtOnce, ReadBody, exchange, nullptr));
    const auto add = [&response](const char* name, const std::string& value) {
        return value.empty() || MHD_add_response_header(response.get(), name, value.c_str());
    };
    return response != nullptr && add(MHD_HTTP_HEADER_CONTENT_TYPE, answer.contentType) &&
                   add(MHD_HTTP_HEADER_ALLOW, answer.allow)
               ? MHD_queue_response(connection, answer.status, response.get())
               : MHD_NO;
}

/// What is known of a connection.
struct Connection {
    Clock::time_point began;   // its present exchange
    bool hasExchange = false;  // it has had one, or more
};

/// The open connections, by their descriptors.
class Connections {
 public:
    /// One for which there is no memory may grow as old as it likes.
    void Begin(int descriptor, bool hasExchange) {
        const std::lock_guard<std::mutex> lock(mutex_);
        try {
            open_[descriptor] = {Clock::now(), hasExchange};
        } catch (const std::bad_alloc&) {
            open_.erase(descriptor);
        }
    }
    /// Returns what was known.
    std::optional<Connection> Forget(int descriptor) {
        const std::lock_guard<std::mutex> lock(mutex_);
        const auto found = open_.find(descriptor);
        if (found == open_.end()) {
            return std::nullopt;
        }
        const Connection known = found->second;
        open_.erase(found);
        return known;
    }
    void EndOld(std::chrono::milliseconds age) {
        const std::lock_guard<std::mutex> lock(mutex_);
        const Clock::time_point now = Clock::now();
        for (const auto& [descriptor, connection] : open_) {
            if (now - connection.began >= age) {
                shutdown(descriptor, SHUT_RDWR);  // the server's thread sees it, and closes
            }
        }
    }

 private:
    std::mutex mutex_;
    std::unordered_map<int, Connection> open_;
};

/// Older versions of TLS than 1.2 are not offered.
constexpr char kTlsPriorities[] = "NORMAL:-VERS-ALL:+VERS-TLS1.3:+VERS-TLS1.2";

/// What TLS adds to a server's options. It points to the identity.
std::vector<MHD_OptionItem> TlsOptions(const std::optional<TlsIdentity>& identity) {
    const auto text = [](MHD_OPTION option, const char* value) {
        return MHD_OptionItem{option, 0, const_cast<char*>(value)};
    };
    std::vector<MHD_OptionItem> items;
    if (identity) {
        items = {text(MHD_OPTION_HTTPS_MEM_CERT, identity->certificates.c_str()),
                 text(MHD_OPTION_HTTPS_MEM_KEY, identity->key.c_str()),
                 text(MHD_OPTION_HTTPS_PRIORITIES, kTlsPriorities)};
    }
    items.push_back(text(MHD_OPTION_END, nullptr));
    return items;
}

int DescriptorOf(MHD_Connection* connection) {
    return MHD_get_connection_info(connection, MHD_CONNECTION_INFO_CONNECTION_FD)->connect_fd;
}

/// The other side's address and port.
std::string ClientOf(MHD_Connection* connection) {
    const sockaddr* const address =
        MHD_get_connection_info(connection, MHD_CONNECTION_INFO_CLIENT_ADDRESS)->client_addr;
    const bool isIpv6 = address->sa_family == AF_INET6;
    const socklen_t size = isIpv6 ? sizeof(sockaddr_in6) : sizeof(sockaddr_in);
    std::array<char, NI_MAXHOST> host{};
    std::array<char, NI_MAXSERV> port{};
    if (getnameinfo(address, size, host.data(), host.size(), port.data(), port.size(),
                    NI_NUMERICHOST | NI_NUMERICSERV) != 0) {
        return {};
    }
    return HostAndPort(host.data(), port.data());
}

/// The status that the connection's latest request is answered with, by the handler or by the
/// library itself.
std::optional<unsigned> StatusOf(MHD_Connection* connection) {
    const MHD_ConnectionInfo* const info =
        MHD_get_connection_info(connection, MHD_CONNECTION_INFO_HTTP_STATUS);
    return info == nullptr || info->http_status == 0 ? std::nullopt
                                                     : std::optional<unsigned>(info->http_status);
}

std::chrono::milliseconds Since(Clock::time_point time) {
    return std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - time);
}

/// Runs a callback's work; exceptions must not pass through the server's frames.
template <class Work>
auto Guarded(Work work) -> decltype(work()) {
    try {
        return work();
    } catch (...) {
        return decltype(work())();  // MHD_NO, which closes the connection, or a null pointer
    }
}

}  // namespace

class HttpServer::Implementation {
 public:
    ~Implementation() {
        isEnding_ = true;
        delayed_.WakeAll();
        if (daemon_ != nullptr) {
            MHD_stop_daemon(daemon_);
        }
    }

    Result<Done> Start(const std::string& host, int port, Handler handler,
                       HttpServerOptions options) {
        const Result<int> listener = Listen(host, port);
        if (!listener) {
            return listener.failure();
        }
        handler_ = std::move(handler);
        options_ = std::move(options);
        endpoint_ = (options_.tls ? "https://" : "http://") +
                    HostAndPort(host, std::to_string(BoundPort(*listener)));
        RaiseDescriptorLimit();
        const unsigned tls = options_.tls ? MHD_USE_TLS : MHD_NO_FLAG;
        std::vector<MHD_OptionItem> tlsOptions = TlsOptions(options_.tls);
        daemon_ = MHD_start_daemon(MHD_USE_POLL_INTERNAL_THREAD | MHD_ALLOW_SUSPEND_RESUME | tls, 0,
                                   nullptr, nullptr, OnData, this,                        //
                                   MHD_OPTION_ARRAY, tlsOptions.data(),                   //
                                   MHD_OPTION_LISTEN_SOCKET, *listener,                   //
                                   MHD_OPTION_NOTIFY_CONNECTION, OnConnection, this,      //
                                   MHD_OPTION_URI_LOG_CALLBACK, OnRequest, this,          //
                                   MHD_OPTION_NOTIFY_COMPLETED, OnCompleted, this,        //
                                   MHD_OPTION_CONNECTION_LIMIT, kMostConnections,         //
                                   MHD_OPTION_CONNECTION_TIMEOUT, kMostSecondsOfSilence,  //
                                   MHD_OPTION_CONNECTION_MEMORY_LIMIT, kMemoryOfConnection,
                                   MHD_OPTION_END);
        if (daemon_ == nullptr) {
            close(*listener);
            return Failure{endpoint_, "the server does not start"};
        }
        return Done();
    }

    const std::string& Endpoint() const { return endpoint_; }

    void EndOldConnections(std::chrono::milliseconds age) { connections_.EndOld(age); }

 private:
    /// Called with a request's first line. What it returns is the state of the other callbacks.
    static void* OnRequest(void* /*self*/, const char* target, MHD_Connection* /*connection*/) {
        return Guarded([target] {
            auto exchange = std::make_unique<Exchange>();
            exchange->request.target = target;
            return static_cast<void*>(exchange.release());
        });
    }

    /// Called first with a request's head, then with each piece of its body, then without one, and
    /// once more when its answer's delay is over.
    static MHD_Result OnData(void* self, MHD_Connection* connection, const char* /*url*/,
                             const char* method, const char* /*version*/, const char* data,
                             std::size_t* size, void** state) {
        return Guarded([=] {
            auto* const exchange = static_cast<Exchange*>(*state);
            if (exchange == nullptr) {
                return MHD_NO;
            }
            if (!std::exchange(exchange->hasBegun, true)) {
                exchange->request.method = method;
                exchange->request.host = HeadValue(connection, MHD_HTTP_HEADER_HOST);
                exchange->request.isTooLong = AnnouncedLength(connection) > kMostThrownAway;
                return exchange->request.isTooLong ? Answer(self, connection, exchange) : MHD_YES;
            }
            if (exchange->answer) {
                // At the end of the server, those that are delayed are woken too early.
                const bool isEnding = static_cast<Implementation*>(self)->isEnding_;
                return isEnding ? MHD_NO : Send(connection, exchange);
            }
            if (*size > 0) {
                const std::size_t taken = std::exchange(*size, 0);
                return TakeBody(exchange, data, taken) ? MHD_YES : MHD_NO;
            }
            return Answer(self, connection, exchange);
        });
    }

    static MHD_Result Answer(void* self, MHD_Connection* connection, Exchange* exchange) {
        auto* const server = static_cast<Implementation*>(self);
        exchange->answer = server->handler_(exchange->request);
        const std::chrono::milliseconds delay = exchange->answer->delay;
        if (delay.count() > 0) {
            return server->delayed_.Delay(connection, delay) ? MHD_YES : MHD_NO;
        }
        return Send(connection, exchange);
    }

    /// Called at a request's end, however it ends.
    static void OnCompleted(void* self, MHD_Connection* connection, void** state,
                            MHD_RequestTerminationCode /*code*/) {
        const std::unique_ptr<Exchange> exchange(
            static_cast<Exchange*>(std::exchange(*state, nullptr)));
        auto* const server = static_cast<Implementation*>(self);
        server->connections_.Begin(DescriptorOf(connection), true);
        if (exchange != nullptr) {
            server->Tell(connection, exchange->began, exchange.get());
        }
    }

    static void OnConnection(void* self, MHD_Connection* connection, void** /*context*/,
                             MHD_ConnectionNotificationCode code) {
        auto* const server = static_cast<Implementation*>(self);
        const int descriptor = DescriptorOf(connection);
        if (code != MHD_CONNECTION_NOTIFY_CLOSED) {
            server->connections_.Begin(descriptor, false);
            return;
        }
        const std::optional<Connection> known = server->connections_.Forget(descriptor);
        // That the server itself ends says nothing about a connection.
        if (known && !known->hasExchange && !server->isEnding_) {
            server->Tell(connection, known->began, nullptr);
        }
    }

    /// Tells of an exchange, or of a connection without one.
    void Tell(MHD_Connection* connection, Clock::time_point began, const Exchange* exchange) {
        Guarded([=] {
            if (options_.onExchange) {
                HttpExchange told;
                told.client = ClientOf(connection);
                told.status = StatusOf(connection);
                told.duration = Since(began);
                if (exchange != nullptr && exchange->answer) {
                    told.subject = exchange->answer->subject;
                    told.bodySize = exchange->sent;
                }
                options_.onExchange(told);
            }
        });
    }

    Handler handler_;
    HttpServerOptions options_;
    std::string endpoint_;
    Connections connections_;
    DelayedConnections delayed_;
    std::atomic<bool> isEnding_ = false;
    MHD_Daemon* daemon_ = nullptr;
};

HttpServer::HttpServer() : implementation_(std::make_unique<Implementation>()) {}
HttpServer::~HttpServer() = default;

Result<Done> HttpServer::Start(const std::string& host, int port, Handler handler,
                               HttpServerOptions options) {
    return implementation_->Start(host, port, std::move(handler), std::move(options));
}

const std::string& HttpServer::Endpoint() const {
    return implementation_->Endpoint();
}

void HttpServer::EndOldConnections(std::chrono::milliseconds age) {
    implementation_->EndOldConnections(age);
}

}  // namespace tool
