#ifndef QUAVERA_TESTS_SUPPORT_MALLOC_FAILURE_H_
#define QUAVERA_TESTS_SUPPORT_MALLOC_FAILURE_H_

#include "tests/support/AllocationFailure.h"

/// For a program that links MallocFailure.cpp: the functions of AllocationFailure.h then act on
/// `malloc` and its relatives, and with them on `operator new`. A sanitizer has a `malloc` of its
/// own that must stay: the program's tests are skipped there.
#define QUAVERA_SKIP_WITHOUT_MALLOC_FAILURE()                          \
    do {                                                               \
        if (!allocation::IsAvailable()) {                              \
            GTEST_SKIP() << "malloc cannot be replaced in this build"; \
        }                                                              \
    } while (false)

#endif  // QUAVERA_TESTS_SUPPORT_MALLOC_FAILURE_H_
