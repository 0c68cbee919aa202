#ifndef QUAVERA_TOOLS_AUTHORITIES_H_
#define QUAVERA_TOOLS_AUTHORITIES_H_

#include <string>

#include "tools/Result.h"

namespace tool {

/// Whether a file holds certificates in PEM, and nothing that only looks like one. libcurl takes a
/// file without any for one that trusts nobody.
Result<Done> CheckAuthorities(const std::string& path);

}  // namespace tool

#endif  // QUAVERA_TOOLS_AUTHORITIES_H_
