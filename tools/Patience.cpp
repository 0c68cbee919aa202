#include "tools/Patience.h"

#include <algorithm>

namespace tool {
namespace {

constexpr int kLongestPause = 30;
constexpr long kLongestAsked = 60;
constexpr int kLongestOfAll = 300;

}  // namespace

// Whoever asks for more than it gets is left alone: a try ahead of its time would be in vain.
std::optional<int> Patience::Next(long asked) {
    if (left_ == 0 || asked > kLongestAsked) {
        return std::nullopt;
    }
    const int pause = std::max(pause_, static_cast<int>(asked));
    if (pause > kLongestOfAll - waited_) {
        return std::nullopt;
    }
    --left_;
    waited_ += pause;
    pause_ = std::min(2 * pause_, kLongestPause);
    return pause;
}

}  // namespace tool
