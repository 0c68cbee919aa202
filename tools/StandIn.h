#ifndef QUAVERA_TOOLS_STAND_IN_H_
#define QUAVERA_TOOLS_STAND_IN_H_

#include <chrono>
#include <string>

#include "tools/Catalog.h"
#include "tools/HttpServer.h"
#include "tools/Result.h"

namespace tool {

/// What a stand-in does for clients to show how they take it. The shares are of the requests for a
/// record, in percent.
struct Mischief {
    std::chrono::milliseconds delay{0};  // of each answer
    int failed = 0;                      // are answered with a fault
    int cutShort = 0;                    // of the others: half of the answer is sent
};

/// Picks a share of what it is asked about, spread evenly: of 25 percent, every fourth.
class EvenShare {
 public:
    explicit EvenShare(int percent) : percent_(percent) {}

    bool PicksNext() {
        due_ += percent_;
        const bool isPicked = due_ >= kAll;
        due_ -= isPicked ? kAll : 0;
        return isPicked;
    }

 private:
    static constexpr int kAll = 100;

    int percent_;
    int due_ = 0;
};

/// A stand-in for the service: answers its request operations from a catalogue, by the generated
/// server. Unknown identifiers and malformed requests get a SOAP fault. GET with the query "wsdl"
/// gets the service's description.
class StandIn {
 public:
    explicit StandIn(Catalog catalog, const Mischief& mischief = {});

    /// Starts to serve, from a thread of its own; `port` 0 takes a free one.
    Result<Done> Start(const std::string& host, int port, HttpServerOptions options = {});

    HttpServer* server() { return &server_; }

 private:
    HttpAnswer Answer(const HttpRequest& request);
    HttpAnswer AnswerPost(const HttpRequest& request);

    const Catalog catalog_;
    const std::chrono::milliseconds delay_;
    EvenShare failed_;
    EvenShare cutShort_;
    HttpServer server_;  // last: it uses the others
};

}  // namespace tool

#endif  // QUAVERA_TOOLS_STAND_IN_H_
