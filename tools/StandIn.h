#ifndef QUAVERA_TOOLS_STAND_IN_H_
#define QUAVERA_TOOLS_STAND_IN_H_

#include <string>

#include "tools/Catalog.h"
#include "tools/HttpServer.h"
#include "tools/Result.h"

namespace tool {

/// A stand-in for the service: answers its request operations from a catalogue, by the generated
/// server. Unknown identifiers and malformed requests get a SOAP fault.
class StandIn {
 public:
    explicit StandIn(Catalog catalog);

    /// Starts to serve, from a thread of its own; `port` 0 takes a free one.
    Result<Done> Start(const std::string& host, int port, HttpServerOptions options = {});

    HttpServer* server() { return &server_; }

 private:
    const Catalog catalog_;
    HttpServer server_;  // last: it uses the catalogue
};

}  // namespace tool

#endif  // QUAVERA_TOOLS_STAND_IN_H_
