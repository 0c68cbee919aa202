// The version of the headers is that of the package.

#include "common/Version.h"

#include <string>

constexpr int kParts[] = {PACKAGE_VERSION_PARTS};
static_assert(QUAVERA_VERSION_MAJOR == kParts[0]);
static_assert(QUAVERA_VERSION_MINOR == kParts[1]);
static_assert(QUAVERA_VERSION_PATCH == kParts[2]);

#if QUAVERA_VERSION_NUMBER < 10000 || QUAVERA_VERSION_NUMBER >= 20000
#error "the number is not that of a version 1"
#endif
static_assert(QUAVERA_VERSION_NUMBER == kParts[0] * 10000 + kParts[1] * 100 + kParts[2]);

int main() {
    return std::string(QUAVERA_VERSION) == PACKAGE_VERSION ? 0 : 1;
}
