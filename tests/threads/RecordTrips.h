#ifndef QUAVERA_TESTS_THREADS_RECORD_TRIPS_H_
#define QUAVERA_TESTS_THREADS_RECORD_TRIPS_H_

#include <string>
#include <vector>

/// The way of a record of one class, from the service's record to the log text.
struct RecordTrip {
    const char* name;
    /// Makes the way with a record that holds `number`, and expects the log text of that record.
    void (*make)(int number);
    /// The text of such a record, as the service's record is written.
    std::string (*write)(int number);
    /// Reads that text, and expects the log text.
    void (*read)(const std::string& xml, int number);
};

/// The trips of all classes.
const std::vector<RecordTrip>& RecordTrips();

#endif  // QUAVERA_TESTS_THREADS_RECORD_TRIPS_H_
