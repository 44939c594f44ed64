// The chance of "5 + 1": five numbers of a combination, and its sixth drawn as Jolly.
#pragma once

#include <cstdint>

#include "analysis/giocate.h"

namespace analysis {

/// Draws with their Jolly (84 for each draw) whose best combination has five of the numbers drawn
/// and the Jolly on top; a draw that makes a whole combination is none of them. `giocate` has six
/// numbers a combination.
std::uint64_t conta_cinque_piu_uno(const Giocate& giocate);

/// Draws of the game, each with every Jolly.
inline constexpr std::uint64_t estrazioni_con_jolly = std::uint64_t{622614630} * 84;

}  // namespace analysis
