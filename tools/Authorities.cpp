#include "tools/Authorities.h"

#include <gnutls/gnutls.h>
#include <gnutls/x509.h>

#include <new>

#include "tools/Files.h"

namespace tool {

Result<Done> CheckAuthorities(const std::string& path) {
    Result<std::string> text = ReadFile(path);
    if (!text) {
        return text.failure();
    }
    const gnutls_datum_t pem = {reinterpret_cast<unsigned char*>(text->data()),
                                static_cast<unsigned>(text->size())};
    gnutls_x509_crt_t* certificates = nullptr;
    unsigned count = 0;
    const int code =
        gnutls_x509_crt_list_import2(&certificates, &count, &pem, GNUTLS_X509_FMT_PEM, 0);
    if (code == GNUTLS_E_MEMORY_ERROR) {
        throw std::bad_alloc();
    }
    if (code < 0) {
        return Failure{path, "holds no certificates in PEM"};
    }
    for (unsigned at = 0; at < count; ++at) {
        gnutls_x509_crt_deinit(certificates[at]);
    }
    gnutls_free(certificates);
    return Done();
}

}  // namespace tool
