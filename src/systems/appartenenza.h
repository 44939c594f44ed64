// Whether a development is that of the system beside it: a development bears, as its word, the mark
// of the system that it was made from. One without a mark is taken on trust.
#pragma once

#include <cstdint>
#include <string>

#include "development/elaborazione.h"
#include "systems/file_sistema.h"
#include "systems/operazioni.h"

namespace systems {

/// Mark of what decides the combinations of a system: crossword, types and numbers of a
/// combination.
std::string impronta(const Sistema& sistema);

/// Mark that the development of a pair bears, or that its copy is to bear when it has none.
std::string marca_sviluppo(const Coppia& coppia);

/// Gives an unmarked development the mark of the system that stands beside it, before that one
/// changes.
void ricorda_origine(const Coppia& coppia);

/// False when the development is marked as that of another system, or the system, saved since,
/// counts no combinations of it. True for a development that is not there.
bool sviluppo_proprio(const Coppia& coppia);

/// Saves a system that is being elaborated: unless the file holds just this already, the
/// development beside it goes first. False when the disk refused.
bool salva_per_elaborare(const Coppia& coppia, const Sistema& sistema);

/// Puts the development of `sistema`, if it is `intero`, beside its file, if that holds this
/// system; else none stands there afterwards, and no working file either.
bool concludi_sviluppo(const Coppia& coppia, const Sistema& sistema,
                       const development::Elaborazione& lavoro, bool intero);

}  // namespace systems
