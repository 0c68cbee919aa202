#ifndef QUAVERA_FUZZ_TARGET_H_
#define QUAVERA_FUZZ_TARGET_H_

#include <cstddef>
#include <cstdint>

/// Each target defines this one function, by the name under which libFuzzer calls it: it does with
/// an input what it is about, and ends the process (see `Expect.h`) where a rule does not hold.
/// Always 0. The input is a heap block of its exact size.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

#endif  // QUAVERA_FUZZ_TARGET_H_
