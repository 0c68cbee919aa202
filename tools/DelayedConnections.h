#ifndef QUAVERA_TOOLS_DELAYED_CONNECTIONS_H_
#define QUAVERA_TOOLS_DELAYED_CONNECTIONS_H_

#include <microhttpd.h>

#include <chrono>
#include <condition_variable>
#include <map>
#include <mutex>
#include <thread>

namespace tool {

/// Connections of an HTTP server whose answers are not to be sent yet. The server does not look at
/// them meanwhile; a thread of this object's own wakes them when it is time.
class DelayedConnections {
 public:
    DelayedConnections() = default;
    DelayedConnections(const DelayedConnections&) = delete;
    DelayedConnections& operator=(const DelayedConnections&) = delete;
    ~DelayedConnections() { WakeAll(); }

    /// Puts a connection to sleep; to be called by the handler of its request. False: there are no
    /// delays any more.
    bool Delay(MHD_Connection* connection, std::chrono::milliseconds delay);

    /// Wakes all, and lets none sleep from here on. The server must not be stopped before.
    void WakeAll();

 private:
    using Clock = std::chrono::steady_clock;

    void WakeInTime();

    std::mutex mutex_;
    std::condition_variable change_;
    std::multimap<Clock::time_point, MHD_Connection*> sleeping_;  // by when they are woken
    bool isOver_ = false;
    std::thread thread_;  // from the first delay on
};

}  // namespace tool

#endif  // QUAVERA_TOOLS_DELAYED_CONNECTIONS_H_
