#ifndef QUAVERA_TESTS_TOOLS_TLS_PEER_H_
#define QUAVERA_TESTS_TOOLS_TLS_PEER_H_

#include <gnutls/gnutls.h>

#include <string>

#include "tests/tools/Descriptor.h"

// The client's side of TLS over a connection, and what a server's side needs.
namespace tooltest {

/// Texts in PEM.
struct Identity {
    std::string certificate;  // for "localhost", issued by itself
    std::string key;
};

/// A new one each time.
Identity MakeIdentity();

/// TLS by these priorities over a connection. Nobody's certificate is looked at.
class TlsPeer {
 public:
    explicit TlsPeer(Descriptor connection, const char* priorities = "NORMAL");
    TlsPeer(const TlsPeer&) = delete;
    TlsPeer& operator=(const TlsPeer&) = delete;
    ~TlsPeer();

    const Descriptor& connection() const { return connection_; }

    /// Whether both sides have agreed.
    bool IsReady() const { return isReady_; }

    /// False: the other side takes no more.
    bool Send(const std::string& bytes);

    /// Everything up to the end of the other side's bytes.
    std::string ReceiveAll();

 private:
    Descriptor connection_;
    gnutls_session_t session_ = nullptr;
    gnutls_certificate_credentials_t credentials_ = nullptr;
    bool isReady_ = false;
};

}  // namespace tooltest

#endif  // QUAVERA_TESTS_TOOLS_TLS_PEER_H_
