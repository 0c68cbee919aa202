#ifndef QUAVERA_TESTS_SUPPORT_ALLOCATION_FAILURE_H_
#define QUAVERA_TESTS_SUPPORT_ALLOCATION_FAILURE_H_

#include <gtest/gtest.h>

#include <cstddef>
#include <limits>
#include <new>
#include <string>

/// Makes allocations fail on demand, to see what the code under test does then.
///
/// A test program links one of two sources. AllocationFailure.cpp replaces `operator new`, which
/// reaches C++ code; MallocFailure.cpp replaces `malloc` and its relatives, which reaches the C
/// libraries too. A sanitizer has a `malloc` of its own that must stay: tests that a program with
/// the latter has are skipped there. All counts are those of the calling thread.
namespace allocation {

enum class Mode { kOnce, kFromThereOn };

inline constexpr std::size_t kNever = std::numeric_limits<std::size_t>::max();

/// Whether this program's allocations can be made to fail; false for `malloc` under a sanitizer.
bool IsAvailable();
#define QUAVERA_SKIP_WITHOUT_ALLOCATION_FAILURE()                      \
    do {                                                               \
        if (!allocation::IsAvailable()) {                              \
            GTEST_SKIP() << "malloc cannot be replaced in this build"; \
        }                                                              \
    } while (false)

/// From now on allocations are counted, and the one with this index (0 is the next one) fails.
void Arm(std::size_t index, Mode mode);
/// Ends counting and failing. Nothing else may be done between `Arm` and `Disarm` than the work
/// under test: a test's own expectations allocate, too.
void Disarm();
/// The number of allocations tried since `Arm`, and of those that failed, up to `Disarm`.
std::size_t TriedCount();
std::size_t FailedCount();
/// Blocks allocated less blocks freed since the thread began.
long LiveBlocks();

/// The number of allocations that `work` makes.
template <class Work>
std::size_t CountAllocations(Work&& work) {
    Arm(kNever, Mode::kOnce);
    work();
    Disarm();
    return TriedCount();
}

/// One run of a sweep's body.
class Attempt {
 public:
    Attempt(std::size_t index, Mode mode) : index_(index), mode_(mode) {}

    /// Runs `work` with failures armed and reports whether it ended without `std::bad_alloc`. Work
    /// that ends normally although an allocation failed is taken for a swallowed failure.
    template <class Work>
    bool Run(Work&& work) {
        const bool isComplete = RunTolerantly(work);
        swallowed_ = isComplete && hasFailed_;
        return isComplete;
    }

    /// The same for work that may turn a failure into a result, which the caller has to check.
    template <class Work>
    bool RunTolerantly(Work&& work) {
        bool isComplete = true;
        Arm(index_, mode_);
        try {
            work();
        } catch (const std::bad_alloc&) {
            isComplete = false;
        } catch (...) {
            Disarm();
            throw;
        }
        Disarm();
        hasRun_ = true;
        hasFailed_ = FailedCount() > 0;
        tried_ = TriedCount();
        return isComplete;
    }

    /// Whether an allocation of the work was made to fail.
    bool HasFailed() const { return hasFailed_; }
    bool HasRun() const { return hasRun_; }
    bool HasSwallowed() const { return swallowed_; }
    std::size_t tried() const { return tried_; }

 private:
    std::size_t index_;
    Mode mode_;
    bool hasRun_ = false;
    bool hasFailed_ = false;
    bool swallowed_ = false;
    std::size_t tried_ = 0;
};

/// Notes, in the test's report, how many failures its sweeps have gone over so far.
void AddSites(std::size_t count);

/// Calls `body(attempt)` with the n-th allocation failing, for n = 0, 1, ... until none is left to
/// fail, first each alone, then each with all after it. The body prepares, calls `attempt.Run`
/// once with the work under test, checks what is left, and drops everything.
///
/// Fails where the work has fewer allocations than `minimumSites` (a sweep over nothing shows
/// nothing), where a failure comes out other than as `std::bad_alloc`, or where a block is lost.
template <class Body>
testing::AssertionResult Sweep(std::size_t minimumSites, Body body) {
    constexpr std::size_t kMostSites = 1000000;
    const auto fail = [](std::size_t index, Mode mode) {
        return testing::AssertionFailure()
               << "allocation " << index << " failing "
               << (mode == Mode::kOnce ? "once" : "from there on") << ": ";
    };
    std::size_t sites = 0;
    // Without failure at first: what is allocated once for the whole program is no loss.
    Attempt rehearsal(kNever, Mode::kOnce);
    body(rehearsal);
    if (!rehearsal.HasRun() || rehearsal.tried() < minimumSites) {
        return testing::AssertionFailure() << "only " << rehearsal.tried() << " allocations";
    }
    for (const Mode mode : {Mode::kOnce, Mode::kFromThereOn}) {
        for (std::size_t index = 0;; ++index) {
            const long before = LiveBlocks();
            Attempt attempt(index, mode);
            body(attempt);
            if (const long lost = LiveBlocks() - before; lost != 0) {
                return fail(index, mode) << lost << " blocks lost";
            }
            if (attempt.HasSwallowed()) {
                return fail(index, mode) << "not reported";
            }
            if (!attempt.HasFailed()) {
                if (index < minimumSites) {
                    return fail(index, mode) << "only so many allocations";
                }
                break;
            }
            ++sites;
            if (index == kMostSites) {
                return fail(index, mode) << "no end";
            }
        }
    }
    AddSites(sites);
    return testing::AssertionSuccess();
}

}  // namespace allocation

#endif  // QUAVERA_TESTS_SUPPORT_ALLOCATION_FAILURE_H_
