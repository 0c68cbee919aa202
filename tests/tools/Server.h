#ifndef QUAVERA_TESTS_TOOLS_SERVER_H_
#define QUAVERA_TESTS_TOOLS_SERVER_H_

#include <string>

#include "tests/tools/Process.h"

namespace tooltest {

/// `quavera serve` on a free port, until its owner goes.
class Server {
 public:
    /// Answers from the sample catalogue, or from a folder, and logs no requests.
    explicit Server(const std::string& catalog = {});

    /// With these arguments, and none but the port beside.
    explicit Server(const Arguments& arguments);

    const std::string& Endpoint() const { return endpoint_; }
    int Port() const;

    /// `quavera fetch` from it.
    Outcome Fetch(const Arguments& arguments) const;

    Process* process() { return &process_; }

 private:
    Process process_;
    std::string endpoint_;
};

}  // namespace tooltest

#endif  // QUAVERA_TESTS_TOOLS_SERVER_H_
