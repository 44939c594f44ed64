// The day on the calendar; no Qt.
#pragma once

#include "platform/data.h"

namespace platform {

/// Today, where the program runs.
Data oggi();

}  // namespace platform
