// Sets of numbers that leave the player with less than he hopes for.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "analysis/giocate.h"
#include "analysis/insiemi.h"

namespace analysis {

/// Numbers, ascending.
using Numeri = std::vector<std::uint8_t>;

/// The first `limite` sets of `k` numbers in play, in lexicographic order, whose best combination
/// has less than `t` hits; `insiemi` knows the sets of t - 1 ranks. Nothing when asked to stop.
std::optional<std::vector<Numeri>> insiemi_sotto(const Giocate& giocate, const Insiemi& insiemi,
                                                 int k, int t, std::size_t limite,
                                                 const Continua& continua = {});

}  // namespace analysis
