#include "tests/tools/TlsServer.h"

#include <arpa/inet.h>
#include <gnutls/x509.h>
#include <gtest/gtest.h>

#include <array>
#include <ctime>
#include <memory>
#include <type_traits>
#include <utility>

namespace tooltest {
namespace {

constexpr std::time_t kDay = 86400;  // seconds

struct Free {
    void operator()(gnutls_x509_crt_t certificate) const { gnutls_x509_crt_deinit(certificate); }
    void operator()(gnutls_x509_privkey_t key) const { gnutls_x509_privkey_deinit(key); }
};
using Certificate = std::unique_ptr<std::remove_pointer_t<gnutls_x509_crt_t>, Free>;
using Key = std::unique_ptr<std::remove_pointer_t<gnutls_x509_privkey_t>, Free>;

void ExpectDone(int code) {
    EXPECT_GE(code, 0) << gnutls_strerror(code);
}

gnutls_datum_t Borrow(const std::string& text) {
    // It is only read.
    auto* const bytes = reinterpret_cast<unsigned char*>(const_cast<char*>(text.data()));
    return {bytes, static_cast<unsigned>(text.size())};
}

std::string Take(gnutls_datum_t text) {
    std::string taken(reinterpret_cast<const char*>(text.data), text.size);
    gnutls_free(text.data);
    return taken;
}

Key NewKey() {
    gnutls_x509_privkey_t key = nullptr;
    ExpectDone(gnutls_x509_privkey_init(&key));
    ExpectDone(gnutls_x509_privkey_generate(key, GNUTLS_PK_ECDSA,
                                            GNUTLS_CURVE_TO_BITS(GNUTLS_ECC_CURVE_SECP256R1), 0));
    return Key(key);
}

Certificate EmptyCertificate() {
    gnutls_x509_crt_t certificate = nullptr;
    ExpectDone(gnutls_x509_crt_init(&certificate));
    return Certificate(certificate);
}

void AddHost(const Certificate& certificate, const std::string& host) {
    std::array<unsigned char, 4> address = {};
    if (inet_pton(AF_INET, host.c_str(), address.data()) == 1) {
        ExpectDone(gnutls_x509_crt_set_subject_alt_name(certificate.get(), GNUTLS_SAN_IPADDRESS,
                                                        address.data(), address.size(),
                                                        GNUTLS_FSAN_APPEND));
    } else {
        ExpectDone(gnutls_x509_crt_set_subject_alt_name(
            certificate.get(), GNUTLS_SAN_DNSNAME, host.data(), static_cast<unsigned>(host.size()),
            GNUTLS_FSAN_APPEND));
    }
}

/// A certificate that lacks an issuer.
Certificate NewCertificate(const Key& key, const std::string& name, const Claims& claims,
                           bool isAuthority) {
    static unsigned char serial = 0;
    ++serial;
    const std::time_t now = std::time(nullptr);
    Certificate certificate = EmptyCertificate();
    ExpectDone(gnutls_x509_crt_set_version(certificate.get(), 3));
    ExpectDone(gnutls_x509_crt_set_serial(certificate.get(), &serial, sizeof serial));
    ExpectDone(
        gnutls_x509_crt_set_activation_time(certificate.get(), now + claims.firstDay * kDay));
    ExpectDone(gnutls_x509_crt_set_expiration_time(certificate.get(), now + claims.lastDay * kDay));
    ExpectDone(gnutls_x509_crt_set_key(certificate.get(), key.get()));
    ExpectDone(gnutls_x509_crt_set_dn_by_oid(certificate.get(), GNUTLS_OID_X520_COMMON_NAME, 0,
                                             name.data(), static_cast<unsigned>(name.size())));
    ExpectDone(gnutls_x509_crt_set_ca_status(certificate.get(), isAuthority ? 1 : 0));
    ExpectDone(gnutls_x509_crt_set_key_usage(
        certificate.get(), isAuthority ? GNUTLS_KEY_KEY_CERT_SIGN | GNUTLS_KEY_DIGITAL_SIGNATURE
                                       : GNUTLS_KEY_DIGITAL_SIGNATURE));
    for (const std::string& host : claims.hosts) {
        AddHost(certificate, host);
    }
    return certificate;
}

Identity Sign(const Certificate& certificate, const Key& key, gnutls_x509_crt_t issuer,
              gnutls_x509_privkey_t issuerKey) {
    ExpectDone(gnutls_x509_crt_sign2(certificate.get(), issuer, issuerKey, GNUTLS_DIG_SHA256, 0));
    gnutls_datum_t certificateText = {};
    gnutls_datum_t keyText = {};
    ExpectDone(gnutls_x509_crt_export2(certificate.get(), GNUTLS_X509_FMT_PEM, &certificateText));
    ExpectDone(gnutls_x509_privkey_export2(key.get(), GNUTLS_X509_FMT_PEM, &keyText));
    return {Take(certificateText), Take(keyText)};
}

}  // namespace

Authority::Authority(const std::string& name, const Claims& claims) {
    const Key key = NewKey();
    const Certificate certificate = NewCertificate(key, name, claims, true);
    own_ = Sign(certificate, key, certificate.get(), key.get());
}

Identity Authority::Issue(const Claims& claims) const {
    const gnutls_datum_t certificateText = Borrow(own_.certificate);
    const gnutls_datum_t keyText = Borrow(own_.key);
    const Certificate issuer = EmptyCertificate();
    ExpectDone(gnutls_x509_crt_import(issuer.get(), &certificateText, GNUTLS_X509_FMT_PEM));
    gnutls_x509_privkey_t imported = nullptr;
    ExpectDone(gnutls_x509_privkey_init(&imported));
    const Key issuerKey(imported);
    ExpectDone(gnutls_x509_privkey_import(imported, &keyText, GNUTLS_X509_FMT_PEM));
    const Key key = NewKey();
    return Sign(NewCertificate(key, "Quavera test server", claims, false), key, issuer.get(),
                issuerKey.get());
}

TlsConnection::TlsConnection(Descriptor connection, const Identity& identity,
                             const char* priorities)
    : connection_(std::move(connection)) {
    const gnutls_datum_t certificate = Borrow(identity.certificate);
    const gnutls_datum_t key = Borrow(identity.key);
    ExpectDone(gnutls_certificate_allocate_credentials(&credentials_));
    ExpectDone(
        gnutls_certificate_set_x509_key_mem(credentials_, &certificate, &key, GNUTLS_X509_FMT_PEM));
    ExpectDone(gnutls_init(&session_, GNUTLS_SERVER | GNUTLS_NO_SIGNAL));
    ExpectDone(gnutls_priority_set_direct(session_, priorities, nullptr));
    ExpectDone(gnutls_credentials_set(session_, GNUTLS_CRD_CERTIFICATE, credentials_));
    gnutls_transport_set_int(session_, connection_.get());
    int code = gnutls_handshake(session_);
    while (code < 0 && gnutls_error_is_fatal(code) == 0 && code != GNUTLS_E_AGAIN) {
        code = gnutls_handshake(session_);
    }
    isSecure_ = code == GNUTLS_E_SUCCESS;
}

TlsConnection::~TlsConnection() {
    if (isSecure_) {
        gnutls_bye(session_, GNUTLS_SHUT_WR);
    }
    gnutls_deinit(session_);
    gnutls_certificate_free_credentials(credentials_);
}

std::string TlsConnection::ReceiveRequest() {
    std::array<char, 4096> buffer;
    std::string request;
    ssize_t size = isSecure_ ? 1 : 0;
    while (size > 0 && request.find("</SOAP-ENV:Envelope>") == std::string::npos) {
        size = gnutls_record_recv(session_, buffer.data(), buffer.size());
        request.append(buffer.data(), static_cast<std::size_t>(size > 0 ? size : 0));
    }
    return request;
}

void TlsConnection::Send(const std::string& bytes) {
    std::size_t sent = 0;
    ssize_t size = isSecure_ ? 1 : 0;
    while (size > 0 && sent < bytes.size()) {
        size = gnutls_record_send(session_, bytes.data() + sent, bytes.size() - sent);
        sent += static_cast<std::size_t>(size > 0 ? size : 0);
    }
}

}  // namespace tooltest
