// The clock by which jobs keep to the time that they were given.
#pragma once

#include <chrono>

namespace platform {

/// Seconds on a clock that never goes back.
inline double secondi() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

}  // namespace platform
