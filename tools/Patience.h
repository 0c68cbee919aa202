#ifndef QUAVERA_TOOLS_PATIENCE_H_
#define QUAVERA_TOOLS_PATIENCE_H_

#include <optional>

namespace tool {

/// How often and after which pauses something is tried again. All pauses together are no longer
/// than five minutes.
class Patience {
 public:
    explicit Patience(int retries) : left_(retries) {}

    /// The seconds to wait ahead of the next try: more each time, up to half a minute. The other
    /// side may have asked for more (0: it has not), which it gets up to a minute. Nothing where
    /// there is no further try.
    std::optional<int> Next(long asked);

 private:
    int left_;
    int pause_ = 1;
    int waited_ = 0;
};

}  // namespace tool

#endif  // QUAVERA_TOOLS_PATIENCE_H_
