#ifndef QUAVERA_TESTS_THREADS_THREADS_H_
#define QUAVERA_TESTS_THREADS_THREADS_H_

#include <atomic>
#include <thread>
#include <vector>

/// More than the machine has processors: some are stopped in the middle of what they do.
inline constexpr int kThreads = 8;

/// How often each thread does what a test repeats.
inline constexpr int kTrips = QUAVERA_TRIPS;

/// A place where threads wait for one another. They leave it at once, as far as there are
/// processors for them.
class MeetingPoint {
 public:
    void Meet() {
        const int meeting = arrived_++ / kThreads;
        while (arrived_ / kThreads == meeting) {
            std::this_thread::yield();
        }
    }

 private:
    std::atomic<int> arrived_ = 0;
};

/// Calls `work(thread)`, for 0 to kThreads - 1, in as many threads, and waits for their end. None
/// begins before all are there.
template <class Work>
void InThreads(const Work& work) {
    MeetingPoint start;
    std::vector<std::thread> threads;
    threads.reserve(kThreads);
    for (int thread = 0; thread < kThreads; ++thread) {
        threads.emplace_back([&start, &work, thread] {
            start.Meet();
            work(thread);
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

#endif  // QUAVERA_TESTS_THREADS_THREADS_H_
