#ifndef QUAVERA_TOOLS_REQUEST_LOG_H_
#define QUAVERA_TOOLS_REQUEST_LOG_H_

#include <cstddef>
#include <string>

#include "tools/HttpServer.h"

namespace tool {

/// Writes a line for each exchange of a server to standard error:
///
///     2026-11-22T15:04:05+01:00 127.0.0.1:40000 getAlbum Alb.1 200 1432 3
///
/// which is the local time, the client, the operation, the identifier, the HTTP status, the bytes
/// of the answer's body and the milliseconds that all took. What is not known is "-".
class RequestLog {
 public:
    RequestLog();
    RequestLog(const RequestLog&) = delete;
    RequestLog& operator=(const RequestLog&) = delete;
    ~RequestLog();

    /// Never waits: lines that nobody takes are lost, and counted.
    void Write(const HttpExchange& exchange);

 private:
    bool WriteLine(const std::string& line) const;

    int descriptor_;  // of its own; negative: there is none to write to
    std::size_t lost_ = 0;
};

}  // namespace tool

#endif  // QUAVERA_TOOLS_REQUEST_LOG_H_
