// The day on the calendar; no Qt.
#pragma once

#include "platform/tabella.h"

namespace platform {

/// Today, where the program runs.
Data oggi();

}  // namespace platform
