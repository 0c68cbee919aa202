#include "tools/HttpServer.h"

#include <microhttpd.h>
#include <netdb.h>
#include <netinet/in.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <new>
#include <unordered_map>
#include <utility>
#include <vector>

namespace tool {
namespace {

using Clock = std::chrono::steady_clock;

constexpr unsigned kMostConnections = 2048;
constexpr unsigned kMostSecondsOfSilence = 5;
constexpr std::size_t kMemoryOfConnection = std::size_t{16} * 1024;  // for the request's head
// Of a request that is too long, so much is read past its limit for the client to see the answer.
constexpr std::size_t kMostThrownAway = std::size_t{16} * 1024 * 1024;
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

/// A request as far as it has come.
struct Incoming {
    HttpRequest request;
    std::size_t thrownAway = 0;
};

/// Takes more of a body. False: it is not worth going on.
bool TakeBody(Incoming* incoming, const char* data, std::size_t size) {
    std::string* const body = &incoming->request.body;
    const std::size_t kept = std::min(size, HttpServer::kLongestRequest - body->size());
    body->append(data, kept);
    incoming->thrownAway += size - kept;
    incoming->request.isTooLong = incoming->thrownAway > 0;
    return incoming->thrownAway <= kMostThrownAway;
}

/// The length that a request's head gives; 0 where it gives none.
unsigned long long AnnouncedLength(MHD_Connection* connection) {
    const char* const length =
        MHD_lookup_connection_value(connection, MHD_HEADER_KIND, MHD_HTTP_HEADER_CONTENT_LENGTH);
    return length == nullptr ? 0 : std::strtoull(length, nullptr, 10);
}

struct FreeResponse {
    void operator()(MHD_Response* response) const { MHD_destroy_response(response); }
};

MHD_Result Send(MHD_Connection* connection, const HttpAnswer& answer) {
    const std::unique_ptr<MHD_Response, FreeResponse> response(MHD_create_response_from_buffer(
        answer.body.size(), const_cast<char*>(answer.body.data()), MHD_RESPMEM_MUST_COPY));
    const auto add = [&response](const char* name, const std::string& value) {
        return value.empty() || MHD_add_response_header(response.get(), name, value.c_str());
    };
    return response != nullptr && add(MHD_HTTP_HEADER_CONTENT_TYPE, answer.contentType) &&
                   add(MHD_HTTP_HEADER_ALLOW, answer.allow)
               ? MHD_queue_response(connection, answer.status, response.get())
               : MHD_NO;
}

/// The open connections, with the time since when each has been at its present exchange.
class Connections {
 public:
    /// One for which there is no memory may grow as old as it likes.
    void Begin(int descriptor) {
        const std::lock_guard<std::mutex> lock(mutex_);
        try {
            began_[descriptor] = Clock::now();
        } catch (const std::bad_alloc&) {
            began_.erase(descriptor);
        }
    }
    void Forget(int descriptor) {
        const std::lock_guard<std::mutex> lock(mutex_);
        began_.erase(descriptor);
    }
    void EndOld(std::chrono::seconds age) {
        const std::lock_guard<std::mutex> lock(mutex_);
        const Clock::time_point now = Clock::now();
        for (const auto& [descriptor, began] : began_) {
            if (now - began >= age) {
                shutdown(descriptor, SHUT_RDWR);  // the server's thread sees it, and closes
            }
        }
    }

 private:
    std::mutex mutex_;
    std::unordered_map<int, Clock::time_point> began_;
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

}  // namespace

class HttpServer::Implementation {
 public:
    ~Implementation() {
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
        const bool isIpv6 = host.find(':') != std::string::npos;
        handler_ = std::move(handler);
        options_ = std::move(options);
        endpoint_ = (options_.tls ? "https://" : "http://") + (isIpv6 ? "[" + host + "]" : host) +
                    ":" + std::to_string(BoundPort(*listener));
        RaiseDescriptorLimit();
        const unsigned tls = options_.tls ? MHD_USE_TLS : MHD_NO_FLAG;
        std::vector<MHD_OptionItem> tlsOptions = TlsOptions(options_.tls);
        daemon_ = MHD_start_daemon(MHD_USE_POLL_INTERNAL_THREAD | tls, 0, nullptr, nullptr, OnData,
                                   this, MHD_OPTION_ARRAY, tlsOptions.data(),             //
                                   MHD_OPTION_LISTEN_SOCKET, *listener,                   //
                                   MHD_OPTION_NOTIFY_CONNECTION, OnConnection, this,      //
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

    void EndOldConnections(std::chrono::seconds age) { connections_.EndOld(age); }

 private:
    /// Runs a callback's work; exceptions must not pass through the server's frames.
    template <class Work>
    static MHD_Result Guarded(Work work) {
        try {
            return work();
        } catch (...) {
            return MHD_NO;  // closes the connection
        }
    }

    /// Called first with a request's head, then with each piece of its body, then without one.
    static MHD_Result OnData(void* self, MHD_Connection* connection, const char* /*url*/,
                             const char* method, const char* /*version*/, const char* data,
                             std::size_t* size, void** state) {
        return Guarded([=] {
            auto* const incoming = static_cast<Incoming*>(*state);
            if (incoming == nullptr) {
                return Begin(self, connection, method, state);
            }
            if (*size > 0) {
                const std::size_t taken = std::exchange(*size, 0);
                return TakeBody(incoming, data, taken) ? MHD_YES : MHD_NO;
            }
            return Answer(self, connection, incoming->request);
        });
    }

    static MHD_Result Begin(void* self, MHD_Connection* connection, const char* method,
                            void** state) {
        auto incoming = std::make_unique<Incoming>();
        incoming->request.method = method;
        incoming->request.isTooLong = AnnouncedLength(connection) > kMostThrownAway;
        const bool isRefused = incoming->request.isTooLong;
        *state = incoming.release();
        return isRefused ? Answer(self, connection, static_cast<Incoming*>(*state)->request)
                         : MHD_YES;
    }

    static MHD_Result Answer(void* self, MHD_Connection* connection, const HttpRequest& request) {
        return Send(connection, static_cast<Implementation*>(self)->handler_(request));
    }

    static void OnCompleted(void* self, MHD_Connection* connection, void** state,
                            MHD_RequestTerminationCode /*code*/) {
        delete static_cast<Incoming*>(std::exchange(*state, nullptr));
        static_cast<Implementation*>(self)->connections_.Begin(DescriptorOf(connection));
    }

    static void OnConnection(void* self, MHD_Connection* connection, void** /*context*/,
                             MHD_ConnectionNotificationCode code) {
        Connections& connections = static_cast<Implementation*>(self)->connections_;
        const int descriptor = DescriptorOf(connection);
        if (code == MHD_CONNECTION_NOTIFY_CLOSED) {
            connections.Forget(descriptor);
        } else {
            connections.Begin(descriptor);
        }
    }

    Handler handler_;
    HttpServerOptions options_;
    std::string endpoint_;
    Connections connections_;
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

void HttpServer::EndOldConnections(std::chrono::seconds age) {
    implementation_->EndOldConnections(age);
}

}  // namespace tool
