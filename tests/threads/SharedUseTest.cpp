// What several threads may share: a record that none of them changes. A tree belongs to one thread
// at a time, but not to the one that made it.

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <vector>

#include "platform/zqshared.h"
#include "records/DataAlbum.h"
#include "tests/records/RecordTesting.h"
#include "tests/records/SampleAlbum.h"
#include "tests/threads/Threads.h"

namespace {

using Tree = zq::auto_com<ZQXML::INode>;

std::string AlbumText() {
    return Wrapped("Parent", SampleAlbum::kTree);
}

TEST(SharedUse, ARecordIsCopiedByAllThreadsAtOnce) {
    const auto shared = FromTree<DataAlbum>(AlbumText());
    InThreads([&shared](int /*thread*/) {
        for (int trip = 0; trip < kTrips / 10; ++trip) {
            DataAlbum copy(shared);
            DataAlbum assigned;
            assigned = shared;
            EXPECT_EQ(copy.ToString(), SampleAlbum::kText);
            EXPECT_EQ(assigned.tracks.size(), shared.tracks.size());
        }
    });
}

// ToString is no const function, but changes nothing.
TEST(SharedUse, ARecordIsPrintedByAllThreadsAtOnce) {
    auto shared = FromTree<DataAlbum>(AlbumText());
    InThreads([&shared](int /*thread*/) {
        for (int trip = 0; trip < kTrips / 10; ++trip) {
            EXPECT_EQ(shared.ToString(), SampleAlbum::kText);
        }
    });
}

TEST(SharedUse, TreesAreReadAndDroppedByOtherThreads) {
    std::vector<std::vector<Tree>> trees(kThreads);
    InThreads([&trees](int thread) {
        for (int trip = 0; trip < kTrips / 10; ++trip) {
            trees[static_cast<std::size_t>(thread)].push_back(ZQXML::ParseXml(AlbumText()));
        }
    });
    InThreads([&trees](int thread) {
        auto& taken = trees[static_cast<std::size_t>((thread + 1) % kThreads)];
        while (!taken.empty()) {
            DataAlbum album;
            album.FromXML(taken.back().get());
            taken.pop_back();
            EXPECT_EQ(album.ToString(), SampleAlbum::kText);
        }
    });
}

std::atomic<int> reports = 0;

void CountReport(const char* /*path*/, int /*line*/, const zq::StackTrace& /*trace*/) {
    ++reports;
}

TEST(SharedUse, ReportsReachTheHandlerThatOtherThreadsInstall) {
    zq::AssertHandler const original = zq::SetAssertHandler(CountReport);
    InThreads([](int /*thread*/) {
        for (int trip = 0; trip < kTrips / 10; ++trip) {
            zq::SetAssertHandler(CountReport);
            zq::AssertWrite("tests/threads", trip, zq::StackTrace());
        }
    });
    zq::SetAssertHandler(original);
    EXPECT_EQ(reports, kThreads * (kTrips / 10));
}

}  // namespace
