#include "tests/tools/TlsPeer.h"

#include <gnutls/x509.h>
#include <gtest/gtest.h>

#include <array>
#include <ctime>
#include <utility>

namespace tooltest {
namespace {

template <class Object>
std::string Pem(int (*exportPem)(Object, gnutls_x509_crt_fmt_t, gnutls_datum_t*), Object object) {
    gnutls_datum_t text = {nullptr, 0};
    EXPECT_EQ(exportPem(object, GNUTLS_X509_FMT_PEM, &text), 0);
    std::string pem(reinterpret_cast<const char*>(text.data), text.size);
    gnutls_free(text.data);
    return pem;
}

}  // namespace

Identity MakeIdentity() {
    constexpr char kName[] = "localhost";
    constexpr unsigned char kSerial = 1;
    constexpr std::time_t kDay = 86400;
    const std::time_t now = std::time(nullptr);
    gnutls_x509_privkey_t key = nullptr;
    gnutls_x509_crt_t certificate = nullptr;
    gnutls_x509_privkey_init(&key);
    gnutls_x509_crt_init(&certificate);
    EXPECT_EQ(gnutls_x509_privkey_generate(key, GNUTLS_PK_ECDSA,
                                           GNUTLS_CURVE_TO_BITS(GNUTLS_ECC_CURVE_SECP256R1), 0),
              0);
    gnutls_x509_crt_set_version(certificate, 3);
    gnutls_x509_crt_set_serial(certificate, &kSerial, sizeof kSerial);
    gnutls_x509_crt_set_activation_time(certificate, now - kDay);
    gnutls_x509_crt_set_expiration_time(certificate, now + kDay);
    gnutls_x509_crt_set_dn_by_oid(certificate, GNUTLS_OID_X520_COMMON_NAME, 0, kName,
                                  sizeof kName - 1);
    gnutls_x509_crt_set_key(certificate, key);
    EXPECT_EQ(gnutls_x509_crt_sign2(certificate, certificate, key, GNUTLS_DIG_SHA256, 0), 0);
    Identity identity = {Pem(gnutls_x509_crt_export2, certificate),
                         Pem(gnutls_x509_privkey_export2, key)};
    gnutls_x509_crt_deinit(certificate);
    gnutls_x509_privkey_deinit(key);
    return identity;
}

TlsPeer::TlsPeer(Descriptor connection, const char* priorities)
    : connection_(std::move(connection)) {
    gnutls_init(&session_, GNUTLS_CLIENT | GNUTLS_NO_SIGNAL);
    gnutls_certificate_allocate_credentials(&credentials_);
    gnutls_credentials_set(session_, GNUTLS_CRD_CERTIFICATE, credentials_);
    EXPECT_EQ(gnutls_priority_set_direct(session_, priorities, nullptr), 0);
    gnutls_transport_set_int(session_, connection_.get());
    int code = GNUTLS_E_AGAIN;
    while (code < 0 && gnutls_error_is_fatal(code) == 0) {
        code = gnutls_handshake(session_);
    }
    isReady_ = code == 0;
}

TlsPeer::~TlsPeer() {
    gnutls_deinit(session_);
    gnutls_certificate_free_credentials(credentials_);
}

bool TlsPeer::Send(const std::string& bytes) {
    std::size_t sent = 0;
    ssize_t size = 0;
    while (sent < bytes.size() && size >= 0) {
        size = gnutls_record_send(session_, bytes.data() + sent, bytes.size() - sent);
        sent += static_cast<std::size_t>(size > 0 ? size : 0);
    }
    return sent == bytes.size();
}

std::string TlsPeer::ReceiveAll() {
    std::array<char, 16384> buffer;
    std::string bytes;
    ssize_t size = 1;
    while (size > 0 || size == GNUTLS_E_INTERRUPTED) {
        size = gnutls_record_recv(session_, buffer.data(), buffer.size());
        bytes.append(buffer.data(), static_cast<std::size_t>(size > 0 ? size : 0));
    }
    EXPECT_NE(size, GNUTLS_E_AGAIN) << "neither bytes nor an end for a minute";
    return bytes;
}

}  // namespace tooltest
