// Coverings under a group: positions that change places together.
#pragma once

#include <cstdint>
#include <vector>

#include "development/copertura_locale.h"
#include "development/coperture.h"

namespace development {

/// Where each position goes, both counted from 0.
using Permutazione = std::vector<std::uint8_t>;

/// Cycles of one length and fixed points, at random, and now and then a second permutation that
/// takes the first one's powers into each other.
std::vector<Permutazione> gruppo_a_caso(int n, Sorte& sorte);

/// The covering of a wish in which a table with a row has all its images under `gruppo`.
struct Orbite {
    Incidenza incidenza;
    std::vector<std::uint32_t> inizio{0};  ///< of the rows of each column, one more than columns
    std::vector<std::uint32_t> righe;      ///< rows of the table
    /// The rows of a table that the columns stand for.
    [[nodiscard]] std::vector<std::uint32_t> espandi(
        const std::vector<std::uint32_t>& colonne) const;
};
/// An empty group leaves each row on its own.
Orbite orbite(const Desiderio& desiderio, const std::vector<Permutazione>& gruppo);

/// Draws, or rows, that one row of the wish covers.
std::uint64_t coperti_da_una(const Desiderio& desiderio);

}  // namespace development
