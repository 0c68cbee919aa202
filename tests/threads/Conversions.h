#ifndef QUAVERA_TESTS_THREADS_CONVERSIONS_H_
#define QUAVERA_TESTS_THREADS_CONVERSIONS_H_

#include <vector>

/// A call of one of the library's functions, and its expectation.
struct Conversion {
    const char* name;
    void (*expect)();
};

/// The conversions of text, the brandings and the messages.
const std::vector<Conversion>& Conversions();

#endif  // QUAVERA_TESTS_THREADS_CONVERSIONS_H_
