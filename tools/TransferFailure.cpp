#include "tools/TransferFailure.h"

#include <gnutls/gnutls.h>

#include <algorithm>
#include <cstring>
#include <string_view>

namespace tool {
namespace {

bool HasCome(CURL* transfer, CURLINFO time) {
    curl_off_t microseconds = 0;
    curl_easy_getinfo(transfer, time, &microseconds);
    return microseconds != 0;
}

bool IsConnected(CURL* transfer) {
    long port = 0;
    curl_easy_getinfo(transfer, CURLINFO_LOCAL_PORT, &port);
    return port != 0;
}

bool IsSent(CURL* transfer, std::size_t size) {
    curl_off_t sent = 0;
    curl_easy_getinfo(transfer, CURLINFO_SIZE_UPLOAD_T, &sent);
    return sent >= static_cast<curl_off_t>(size);
}

/// What a transfer has been at last.
std::string PhaseOf(CURL* transfer, CURLcode code, const HttpPost& post) {
    if (!HasCome(transfer, CURLINFO_NAMELOOKUP_TIME_T)) {
        return "looking up the host";
    }
    if (!IsConnected(transfer)) {
        return "connecting";
    }
    if (post.url.rfind("https:", 0) == 0 && !HasCome(transfer, CURLINFO_APPCONNECT_TIME_T)) {
        return "TLS";
    }
    if (!IsSent(transfer, post.body.size())) {
        return "sending";
    }
    // libcurl takes the end of a connection for the answer's first byte.
    const bool isWaiting =
        code == CURLE_GOT_NOTHING || !HasCome(transfer, CURLINFO_STARTTRANSFER_TIME_T);
    return isWaiting ? "waiting for the answer" : "receiving";
}

/// What GnuTLS has found wrong with a certificate.
const struct {
    unsigned status;
    const char* fault;
} kFaults[] = {
    {GNUTLS_CERT_EXPIRED, "it has expired"},
    {GNUTLS_CERT_NOT_ACTIVATED, "it is not valid yet"},
    {GNUTLS_CERT_REVOKED, "it has been revoked"},
    {GNUTLS_CERT_SIGNER_NOT_FOUND, "it is from no authority that is trusted"},
    {GNUTLS_CERT_SIGNER_NOT_CA, "it is from somebody who is no authority"},
    {GNUTLS_CERT_SIGNATURE_FAILURE, "its signature is wrong"},
    {GNUTLS_CERT_INSECURE_ALGORITHM, "it is signed in a way that is no longer safe"},
    {GNUTLS_CERT_PURPOSE_MISMATCH, "it is not meant for servers"},
};

/// libcurl itself tells no more of a certificate than that it is refused, but for one of another
/// host. What it passes on is GnuTLS's only where it is built on that.
std::string DescribeCertificate(CURL* transfer, const std::string& detail) {
    const char* const library = curl_version_info(CURLVERSION_NOW)->ssl_version;
    long status = 0;
    curl_easy_getinfo(transfer, CURLINFO_SSL_VERIFYRESULT, &status);
    if (library == nullptr || std::strncmp(library, "GnuTLS", 6) != 0) {
        status = 0;
    }
    std::string faults;
    for (const auto& each : kFaults) {
        if ((static_cast<unsigned long>(status) & each.status) != 0) {
            faults += (faults.empty() ? "" : ", ") + std::string(each.fault);
        }
    }
    return "the certificate is refused: " + (faults.empty() ? detail : faults);
}

/// libcurl keeps to itself why a host was not reached, and takes a line that is longer than it
/// allows for a want of memory.
std::string ReasonOf(CURL* transfer, CURLcode code, const std::string& detail, const HttpWay& way) {
    long number = 0;
    switch (code) {
        case CURLE_OUT_OF_MEMORY:
            return "a header of the answer is too long, or memory has run out";
        case CURLE_OPERATION_TIMEDOUT:
            return (detail.find("timed out") == std::string::npos ? "timed out: " : "") + detail;
        case CURLE_PEER_FAILED_VERIFICATION:
            return DescribeCertificate(transfer, detail);
        case CURLE_SSL_CACERT_BADFILE:
            return "no certificates can be read from " +
                   (way.authorities.empty() ? "the system's file" : way.authorities);
        case CURLE_COULDNT_CONNECT:
            curl_easy_getinfo(transfer, CURLINFO_OS_ERRNO, &number);
            return number == 0 ? detail : detail + ": " + std::strerror(static_cast<int>(number));
        default:
            return detail;
    }
}

}  // namespace

std::string DescribeFailure(CURL* transfer, CURLcode code, const std::string& detail,
                            const HttpPost& post, const HttpWay& way) {
    std::string known = detail.empty() ? curl_easy_strerror(code) : detail;
    if (known.back() == '.') {
        known.pop_back();
    }
    return ReasonOf(transfer, code, known, way) + " (" + PhaseOf(transfer, code, post) + ")";
}

bool IsPassing(CURLcode code) {
    constexpr CURLcode kPassing[] = {
        CURLE_COULDNT_RESOLVE_HOST, CURLE_COULDNT_CONNECT, CURLE_OPERATION_TIMEDOUT,
        CURLE_SEND_ERROR,           CURLE_RECV_ERROR,      CURLE_GOT_NOTHING,
        CURLE_PARTIAL_FILE,
    };
    return std::find(std::begin(kPassing), std::end(kPassing), code) != std::end(kPassing);
}

}  // namespace tool
