#ifndef QUAVERA_TOOLS_PASSWORD_H_
#define QUAVERA_TOOLS_PASSWORD_H_

#include <string>

#include "tools/Result.h"

namespace tool {

/// The password of a user: what QUAVERA_PASSWORD in the environment holds; without that, what
/// somebody enters at the terminal, which does not show it. No terminal, or no answer from it, is a
/// failure.
Result<std::string> PasswordOf(const std::string& user);

}  // namespace tool

#endif  // QUAVERA_TOOLS_PASSWORD_H_
