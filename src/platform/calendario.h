// The day on the calendar; no Qt.
#pragma once

#include <optional>

#include "platform/tabella.h"

namespace platform {

/// Today, where the program runs.
Data oggi();
/// Puts a day in the place of the clock's; nothing brings the clock back.
void oggi_sia(std::optional<Data> giorno);

}  // namespace platform
