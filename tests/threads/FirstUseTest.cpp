// The first use of everything, by all threads at once: what is set up on first use is set up for
// all of them. A program of the tests of this source alone uses nothing before.

#include <gtest/gtest.h>

#include "tests/threads/Conversions.h"
#include "tests/threads/RecordTrips.h"
#include "tests/threads/Threads.h"

namespace {

TEST(FirstUse, WorksInAllThreadsAtOnce) {
    MeetingPoint before;
    InThreads([&before](int thread) {
        for (const Conversion& conversion : Conversions()) {
            SCOPED_TRACE(conversion.name);
            before.Meet();
            conversion.expect();
        }
        for (const RecordTrip& trip : RecordTrips()) {
            SCOPED_TRACE(trip.name);
            before.Meet();
            trip.make(thread);
        }
    });
}

}  // namespace
