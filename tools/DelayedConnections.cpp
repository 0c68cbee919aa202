#include "tools/DelayedConnections.h"

namespace tool {

bool DelayedConnections::Delay(MHD_Connection* connection, std::chrono::milliseconds delay) {
    const std::lock_guard<std::mutex> lock(mutex_);
    if (isOver_) {
        return false;
    }
    if (!thread_.joinable()) {
        thread_ = std::thread([this] { WakeInTime(); });
    }
    sleeping_.emplace(Clock::now() + delay, connection);
    MHD_suspend_connection(connection);
    change_.notify_one();
    return true;
}

void DelayedConnections::WakeAll() {
    {
        const std::lock_guard<std::mutex> lock(mutex_);
        isOver_ = true;
        change_.notify_one();
    }
    if (thread_.joinable()) {
        thread_.join();
    }
}

void DelayedConnections::WakeInTime() {
    std::unique_lock<std::mutex> lock(mutex_);
    while (!isOver_ || !sleeping_.empty()) {
        const auto next = sleeping_.begin();
        if (next == sleeping_.end()) {
            change_.wait(lock);
        } else if (!isOver_ && Clock::now() < next->first) {
            change_.wait_until(lock, Clock::time_point(next->first));
        } else {
            MHD_resume_connection(next->second);
            sleeping_.erase(next);
        }
    }
}

}  // namespace tool
