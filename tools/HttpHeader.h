#ifndef QUAVERA_TOOLS_HTTP_HEADER_H_
#define QUAVERA_TOOLS_HTTP_HEADER_H_

#include <string>

namespace tool {

/// The name of a header, "NAME: VALUE", in lower case; all of it where it has no value.
std::string HeaderName(const std::string& header);

/// Why a text cannot be a further header of a request; empty if it can be.
std::string CheckHeader(const std::string& text);

}  // namespace tool

#endif  // QUAVERA_TOOLS_HTTP_HEADER_H_
