// Removal of repeated combinations from a development.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "development/elaborazione.h"

namespace development {

/// Outcome of one removal.
struct SenzaRipetizioni {
    std::int32_t combinazioni = 0;  ///< lines kept
    std::int64_t byte = 0;          ///< size of the file written
};

/// Writes to `nuovo` the lines of the development `vecchio`, each once, at the place of its
/// first appearance; lines are compared with their ends, which the engine writes all alike.
/// `nuovo` is replaced and not synced. Nothing when `vecchio` cannot be read, the disk refuses
/// `nuovo`, or `avanzamento` (which may be empty) asks to stop.
std::optional<SenzaRipetizioni> togli_ripetizioni(const std::string& vecchio,
                                                  const std::string& nuovo,
                                                  const Avanzamento& avanzamento);

}  // namespace development
