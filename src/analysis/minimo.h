// How many combinations win at least, whichever numbers come out.
#pragma once

#include <cstdint>
#include <optional>

#include "analysis/giocate.h"
#include "analysis/insiemi.h"

namespace analysis {

/// The fewest combinations that win.
struct Minimo {
    std::int64_t combinazioni = 0;
    bool esatto = true;  ///< otherwise there may be more, and are not less
};

/// Ranks of the sets that `Insiemi` must know for `minimo_vincenti`, where combinations have five
/// or six.
inline constexpr int insiemi_per_minimo = 4;

/// The fewest combinations with `t` hits or more over the sets of `k` numbers in play, each of
/// which must leave one such, k being 6 at most. Nothing when asked to stop.
std::optional<Minimo> minimo_vincenti(const Giocate& giocate, const Insiemi& insiemi, int k, int t,
                                      const Continua& continua = {});

}  // namespace analysis
