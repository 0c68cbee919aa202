// Records of their own in each thread.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/threads/RecordTrips.h"
#include "tests/threads/Threads.h"

namespace {

/// A number that no other trip has, and the class whose turn it is.
int NumberOf(int thread, int trip) {
    return 1000000 + thread * kTrips + trip;
}
const RecordTrip& TripOf(int number) {
    return RecordTrips()[static_cast<std::size_t>(number) % RecordTrips().size()];
}

TEST(RecordTrip, HoldsInAllThreadsAtOnce) {
    InThreads([](int thread) {
        for (int trip = 0; trip < kTrips; ++trip) {
            const int number = NumberOf(thread, trip);
            TripOf(number).make(number);
        }
    });
}

TEST(RecordTrip, TextsArePassedOnToOtherThreads) {
    std::vector<std::vector<std::string>> texts(kThreads);
    InThreads([&texts](int thread) {
        for (int trip = 0; trip < kTrips / 10; ++trip) {
            const int number = NumberOf(thread, trip);
            texts[static_cast<std::size_t>(thread)].push_back(TripOf(number).write(number));
        }
    });
    InThreads([&texts](int thread) {
        const int writer = (thread + 1) % kThreads;
        for (int trip = 0; trip < kTrips / 10; ++trip) {
            const int number = NumberOf(writer, trip);
            const auto at = static_cast<std::size_t>(trip);
            TripOf(number).read(texts[static_cast<std::size_t>(writer)][at], number);
        }
    });
}

}  // namespace
