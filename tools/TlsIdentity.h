#ifndef QUAVERA_TOOLS_TLS_IDENTITY_H_
#define QUAVERA_TOOLS_TLS_IDENTITY_H_

#include <string>

#include "tools/Result.h"

namespace tool {

/// What a TLS server shows its clients, and the key that proves it to be its own. Both are texts in
/// PEM.
struct TlsIdentity {
    std::string certificates;  // the server's own, then those that it was issued by
    std::string key;           // of the first, not encrypted
};

/// The identity that two files hold. A file that cannot be read or used, and a key of another
/// certificate, are failures that name the file.
Result<TlsIdentity> ReadTlsIdentity(const std::string& certificatePath, const std::string& keyPath);

/// Whether a file holds certificates in PEM, those of authorities that a client is to trust.
/// libcurl takes a file without any for one that trusts nobody.
Result<Done> CheckAuthorities(const std::string& path);

}  // namespace tool

#endif  // QUAVERA_TOOLS_TLS_IDENTITY_H_
