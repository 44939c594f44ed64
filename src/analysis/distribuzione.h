// How the best combination fares over every possible draw, counted and not estimated.
#pragma once

#include <array>
#include <cstdint>
#include <functional>

#include "analysis/giocate.h"
#include "analysis/insiemi.h"

namespace analysis {

/// Told of the share of the work done, 0 to 1, by the thread that asked; false asks to stop. May
/// be empty.
using AvanzamentoConteggio = std::function<bool(double)>;

/// Counts of sets of drawn numbers by the best result that they leave.
struct Distribuzione {
    int numeri = 6;    ///< of a combination
    int estratti = 6;  ///< of a draw
    int in_gioco = 0;  ///< different numbers played
    /// [k][t]: sets of k numbers in play whose best combination has exactly t of them; k and t
    /// from 0 to 6.
    std::array<std::array<std::uint64_t, 7>, 7> migliore{};

    /// The most that a combination can hit.
    [[nodiscard]] int massimo() const { return numeri < estratti ? numeri : estratti; }
    /// Hits that the best combination has at least, whichever k numbers in play come out.
    [[nodiscard]] int garantito(int k) const;
    /// Sets of k numbers in play that leave less than t hits.
    [[nodiscard]] std::uint64_t sotto(int k, int t) const;
    /// Draws of the whole game whose best combination has exactly t hits.
    [[nodiscard]] std::uint64_t estrazioni(int t) const;
    /// Draws whose best combination has t hits or more.
    [[nodiscard]] std::uint64_t estrazioni_almeno(int t) const;
    /// All draws of the game.
    [[nodiscard]] std::uint64_t estrazioni_possibili() const;
};

/// Counts draws of `estratti` numbers, 6 or 5, on at most `esecutori` threads, at least one; false
/// when asked to stop. `insiemi` knows the sets of up to four ranks, or of one less than a
/// combination has.
bool calcola_distribuzione(const Giocate& giocate, const Insiemi& insiemi, int estratti,
                           int esecutori, Distribuzione& distribuzione,
                           const AvanzamentoConteggio& avanzamento = {});

}  // namespace analysis
