// The whole analysis of what a system plays.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "analysis/buchi.h"
#include "analysis/distribuzione.h"
#include "analysis/giocate.h"
#include "analysis/medie.h"
#include "analysis/minimo.h"

namespace analysis {

/// The smallest sets of numbers in play that leave less than `t` hits.
struct Buchi {
    int t = 0;
    int k = 0;  ///< numbers of such a set, at least t; 0 when no set of a draw is one
    std::uint64_t quanti = 0;  ///< how many there are
    std::vector<Numeri> primi;
};

/// Examples that `analizza` gives of each kind of set.
inline constexpr std::size_t buchi_massimi = 8;

struct Analisi {
    std::size_t combinazioni = 0;  ///< different ones
    std::size_t righe = 0;         ///< played, repeated ones each time
    std::int64_t guaste = 0;       ///< lines of the development that hold none
    Distribuzione distribuzione;
    /// [k]: the combinations that reach at least the hits that k numbers guarantee.
    std::array<Minimo, 7> minimi{};
    /// For each t from 2 to what the combinations and the draw allow, except for a whole draw.
    std::vector<Buchi> buchi;
    std::uint64_t cinque_piu_uno = 0;  ///< of `estrazioni_con_jolly`; 0 where there is no Jolly
    Medie medie;
};

/// Analyses for draws of `estratti` numbers, 6 or 5, on at most `esecutori` threads; false when
/// asked to stop.
bool analizza(const Giocate& giocate, int estratti, int esecutori, Analisi& analisi,
              const AvanzamentoConteggio& avanzamento = {});

}  // namespace analysis
