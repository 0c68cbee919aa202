#ifndef QUAVERA_BENCH_SHARED_STEPS_H_
#define QUAVERA_BENCH_SHARED_STEPS_H_

#include <string>

#include "bench/shared/Contender.h"

namespace bench {

/// Does steps in turn, given by their letters: W write, S save, P parse, R read, T log text, F free
/// the tree, D drop the record.
void DoSteps(const std::string& steps, SoapAlbum* soap, Contender* contender);

/// Brings a fresh contender into the state in which `steps` can be done any number of times.
void Prepare(const std::string& steps, SoapAlbum* soap, Contender* contender);

/// Does the steps a number of times.
void RepeatSteps(const std::string& steps, SoapAlbum* soap, Contender* contender, int repeats);

}  // namespace bench

#endif  // QUAVERA_BENCH_SHARED_STEPS_H_
