// The clock by which jobs keep to the time that they were given.
#pragma once

namespace platform {

/// Seconds on a clock that never goes back.
double secondi();

}  // namespace platform
