#ifndef QUAVERA_TOOLS_STAND_IN_H_
#define QUAVERA_TOOLS_STAND_IN_H_

#include <atomic>
#include <string>

#include "tools/Catalog.h"
#include "tools/Result.h"
#include "tools/SoapContext.h"

namespace tool {

/// A stand-in for the service: answers its request operations from a catalogue, one connection
/// after the other. Unknown identifiers and malformed requests get a SOAP fault.
class StandIn {
 public:
    explicit StandIn(Catalog catalog);

    /// Starts to listen; `port` 0 takes a free one.
    Result<Done> Listen(const std::string& host, int port);

    /// Where it listens: "http://127.0.0.1:8080".
    const std::string& Endpoint() const { return endpoint_; }

    /// Serves until `stop` turns true, which is looked at several times a second.
    void Serve(const std::atomic<bool>& stop);

    /// Answers the request of a kind ("album") that the context holds. For the entry points.
    template <class Answer>
    static int Respond(struct soap* soap, const char* kind, const std::string& id, Answer& answer);

 private:
    static void ServeRequest(struct soap* soap);

    Catalog catalog_;
    std::string endpoint_;
    SoapContext server_;
    SoapContext reader_;  // holds what an answer points to until it is sent
};

}  // namespace tool

#endif  // QUAVERA_TOOLS_STAND_IN_H_
