#ifndef QUAVERA_TESTS_RECORDS_RECORDED_CALLS_H_
#define QUAVERA_TESTS_RECORDS_RECORDED_CALLS_H_

#include <gtest/gtest.h>

#include <string>

#include "tests/records/RecordingPlatform.h"
#include "tests/records/Values.h"
#include "tests/support/AllocationFailure.h"

/// The calls that writing a sample makes, the release of the tree included.
template <class Record, class Sample>
std::string CallsOfWriting() {
    Values values;
    typename Sample::Soap soap;
    Sample::Fill(soap, values);
    RecordingPlatform::TakeCalls();
    Record::ToXML(&soap);
    EXPECT_EQ(RecordingPlatform::LiveNodes(), 0);
    return RecordingPlatform::TakeCalls();
}

/// Lets every allocation of writing and reading a sample fail in turn: no node may stay behind.
template <class Record, class Sample>
void ExpectNoNodeLost() {
    Values values;
    typename Sample::Soap soap;
    Sample::Fill(soap, values);
    EXPECT_TRUE(allocation::Sweep(1, [&soap](allocation::Attempt& attempt) {
        attempt.RunTolerantly([&soap] {
            const auto node = Record::ToXML(&soap);
            Record record;
            record.FromXML(node.get());
        });
        EXPECT_EQ(RecordingPlatform::LiveNodes(), 0);
        RecordingPlatform::TakeCalls();
    }));
}

#endif  // QUAVERA_TESTS_RECORDS_RECORDED_CALLS_H_
