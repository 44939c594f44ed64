// The command as it is typed.
#pragma once

#include <string>
#include <vector>

#include "sistema/contesto.h"

namespace sistema {

/// Runs a verb; the exit code.
int comando(const std::vector<std::string>& parole, const Mezzi& ambiente);

}  // namespace sistema
