#ifndef QUAVERA_TESTS_TOOLS_TLS_SERVER_H_
#define QUAVERA_TESTS_TOOLS_TLS_SERVER_H_

#include <gnutls/gnutls.h>

#include <string>
#include <vector>

#include "tests/tools/Descriptor.h"
#include "tests/tools/TlsPeer.h"

// Certificates as a service has them, good ones and others, and the server's side of TLS.
namespace tooltest {

/// What a certificate states.
struct Claims {
    std::vector<std::string> hosts = {"127.0.0.1", "localhost"};
    int firstDay = -2;  // from today
    int lastDay = 2;
};

/// Issues certificates.
class Authority {
 public:
    explicit Authority(const std::string& name = "Quavera test authority",
                       const Claims& claims = {{}});

    /// Its own, in PEM.
    const std::string& certificate() const { return own_.certificate; }

    /// As a server that vouches for itself has it.
    const Identity& own() const { return own_; }

    Identity Issue(const Claims& claims) const;

 private:
    Identity own_;
};

/// The server's side of a connection. Handshake, sending and receiving give up after a minute.
class TlsConnection {
 public:
    /// `priorities` are GnuTLS's: which versions and ciphers it takes part in.
    TlsConnection(Descriptor connection, const Identity& identity,
                  const char* priorities = "NORMAL");
    TlsConnection(const TlsConnection&) = delete;
    TlsConnection& operator=(const TlsConnection&) = delete;
    ~TlsConnection();

    /// The request; empty where the client does not trust this server so far that it sends one.
    std::string ReceiveRequest();
    void Send(const std::string& bytes);

 private:
    Descriptor connection_;
    gnutls_certificate_credentials_t credentials_ = nullptr;
    gnutls_session_t session_ = nullptr;
    bool isSecure_ = false;
};

}  // namespace tooltest

#endif  // QUAVERA_TESTS_TOOLS_TLS_SERVER_H_
