#ifndef QUAVERA_TESTS_TOOLS_SOCKET_H_
#define QUAVERA_TESTS_TOOLS_SOCKET_H_

#include <string>

#include "tests/tools/Descriptor.h"

// Bytes over loopback connections. Whatever waits for the other side gives up after a minute;
// what receives fails the test then.
namespace tooltest {

/// A connection to a port of this machine.
Descriptor Connect(int port);

/// As much as the other side takes.
void Send(const Descriptor& connection, const std::string& bytes);

/// The same. False: the other side takes no more.
bool TrySend(const Descriptor& connection, const std::string& bytes);

/// Waits for the other side's end, or bytes, but no longer than this. False: none has come.
bool WaitForEnd(const Descriptor& connection, int milliseconds);

/// Says that nothing more comes, and still reads.
void EndSending(const Descriptor& connection);

/// Everything up to the end of the other side's bytes.
std::string ReceiveAll(const Descriptor& connection);

/// A whole HTTP request, by its Content-Length.
std::string ReceiveRequest(const Descriptor& connection);

/// A free port of this machine, held as long as the object lives.
class Port {
 public:
    Port();

    int Number() const { return number_; }
    std::string Endpoint() const { return "http://127.0.0.1:" + std::to_string(number_); }

    /// From here on, clients can connect; before, they are refused.
    void Listen() const;
    Descriptor Accept() const;

 private:
    Descriptor socket_;
    int number_ = 0;
};

}  // namespace tooltest

#endif  // QUAVERA_TESTS_TOOLS_SOCKET_H_
