#include "tools/TlsIdentity.h"

#include <gnutls/gnutls.h>
#include <gnutls/x509.h>

#include <algorithm>
#include <iterator>
#include <memory>
#include <new>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "tools/Files.h"

namespace tool {
namespace {

constexpr std::size_t kLongestFile = std::size_t{1} * 1024 * 1024;

template <class Handle, void (*kFree)(Handle)>
struct Free {
    using pointer = Handle;
    void operator()(Handle handle) const { kFree(handle); }
};
template <class Handle, void (*kFree)(Handle)>
using Owned = std::unique_ptr<std::remove_pointer_t<Handle>, Free<Handle, kFree>>;

using Certificate = Owned<gnutls_x509_crt_t, gnutls_x509_crt_deinit>;
using Key = Owned<gnutls_x509_privkey_t, gnutls_x509_privkey_deinit>;
using Credentials = Owned<gnutls_certificate_credentials_t, gnutls_certificate_free_credentials>;

Failure Unfit(const std::string& path, std::string_view what, int code) {
    std::string_view reason = gnutls_strerror(code);
    if (!reason.empty() && reason.back() == '.') {
        reason.remove_suffix(1);
    }
    return {path, std::string(what) + ": " + std::string(reason)};
}

gnutls_datum_t Borrow(const std::string& text) {
    // The library reads it only.
    auto* const bytes = reinterpret_cast<unsigned char*>(const_cast<char*>(text.data()));
    return {bytes, static_cast<unsigned>(text.size())};
}

Result<std::string> ReadPem(const std::string& path) {
    Result<std::string> text = ReadFile(path);
    if (text && text->size() > kLongestFile) {
        return Failure{path, "longer than any certificate or key"};
    }
    return text;
}

/// The certificates of a file, at least one.
Result<std::vector<Certificate>> ImportCertificates(const std::string& path,
                                                    const std::string& text) {
    const gnutls_datum_t pem = Borrow(text);
    gnutls_x509_crt_t* list = nullptr;
    unsigned count = 0;
    const int code = gnutls_x509_crt_list_import2(&list, &count, &pem, GNUTLS_X509_FMT_PEM, 0);
    if (code == GNUTLS_E_MEMORY_ERROR) {
        throw std::bad_alloc();
    }
    if (code < 0) {
        return Unfit(path, "no certificate in PEM", code);
    }
    std::vector<Certificate> certificates(list, list + count);
    gnutls_free(list);
    return certificates;
}

Result<Key> ImportKey(const std::string& path, const std::string& text) {
    const gnutls_datum_t pem = Borrow(text);
    gnutls_x509_privkey_t created = nullptr;
    int code = gnutls_x509_privkey_init(&created);
    Key key(created);
    if (code == 0) {
        code = gnutls_x509_privkey_import2(key.get(), &pem, GNUTLS_X509_FMT_PEM, nullptr, 0);
    }
    if (code != 0) {
        return Unfit(path, "no key in PEM without a password", code);
    }
    return key;
}

/// Whether the key is the first certificate's.
Result<Done> CheckPair(const std::vector<Certificate>& certificates, const Key& key,
                       const std::string& keyPath) {
    std::vector<gnutls_x509_crt_t> list;
    std::transform(certificates.begin(), certificates.end(), std::back_inserter(list),
                   [](const Certificate& each) { return each.get(); });
    gnutls_certificate_credentials_t allocated = nullptr;
    int code = gnutls_certificate_allocate_credentials(&allocated);
    const Credentials credentials(allocated);
    if (code == 0) {
        code = gnutls_certificate_set_x509_key(credentials.get(), list.data(),
                                               static_cast<int>(list.size()), key.get());
    }
    if (code < 0) {
        return Unfit(keyPath, "not the certificate's key", code);
    }
    return Done();
}

}  // namespace

Result<TlsIdentity> ReadTlsIdentity(const std::string& certificatePath,
                                    const std::string& keyPath) {
    Result<std::string> certificateText = ReadPem(certificatePath);
    if (!certificateText) {
        return certificateText.failure();
    }
    const Result<std::vector<Certificate>> certificates =
        ImportCertificates(certificatePath, *certificateText);
    if (!certificates) {
        return certificates.failure();
    }
    Result<std::string> keyText = ReadPem(keyPath);
    if (!keyText) {
        return keyText.failure();
    }
    const Result<Key> key = ImportKey(keyPath, *keyText);
    const Result<Done> checked =
        key ? CheckPair(*certificates, *key, keyPath) : Result<Done>(key.failure());
    if (!checked) {
        return checked.failure();
    }
    return TlsIdentity{std::move(*certificateText), std::move(*keyText)};
}

Result<Done> CheckAuthorities(const std::string& path) {
    const Result<std::string> text = ReadPem(path);
    const Result<std::vector<Certificate>> certificates =
        text ? ImportCertificates(path, *text) : text.failure();
    return certificates ? Result<Done>(Done()) : certificates.failure();
}

}  // namespace tool
