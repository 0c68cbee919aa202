#ifndef QUAVERA_TOOLS_TRANSFER_FAILURE_H_
#define QUAVERA_TOOLS_TRANSFER_FAILURE_H_

#include <curl/curl.h>

#include <cstddef>
#include <string>

#include "tools/HttpClient.h"

namespace tool {

/// Why a transfer of libcurl's has failed, and in which phase: "Connection refused (connecting)".
/// `detail` is what libcurl has written into its buffer for errors.
std::string DescribeFailure(CURL* transfer, CURLcode code, const std::string& detail,
                            const HttpPost& post, const HttpWay& way);

/// Whether another try may succeed: the server could not be reached, was too slow, or broke off.
bool IsPassing(CURLcode code);

}  // namespace tool

#endif  // QUAVERA_TOOLS_TRANSFER_FAILURE_H_
