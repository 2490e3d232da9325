#pragma once

#include "Foundation/Date.h"

#include <algorithm>

namespace orvelle {

/// How long to wait before a failed save is tried again: longer each time, up to a minute.
class RetryPause {
public:
    static constexpr Seconds first = 1;
    static constexpr Seconds longest = 60;

    Seconds next() {
        const auto pause = next_;
        next_ = std::min(next_ * 2, longest);
        return pause;
    }

private:
    Seconds next_ = first;
};

} // namespace orvelle
