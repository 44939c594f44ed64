// What a table guarantees, proven over every possible draw: win tables and holes.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "development/tabella_rigorosa.h"

namespace development {

/// Everything about the draws of p numbers out of the n; the vectors go by level, 0 to k.
struct Vincite {
    int p = 0;
    std::uint64_t gruppi = 0;                    ///< p-subsets of the n numbers
    std::vector<std::uint64_t> migliore;         ///< p-subsets whose best row is of that level
    std::vector<std::uint64_t> righe;            ///< rows of that level, over all p-subsets
    std::vector<std::uint64_t> minime;           ///< fewest rows of that level or more
    std::vector<std::uint64_t> senza_superiori;  ///< the same among p-subsets with none above
    /// Highest level that every draw reaches.
    [[nodiscard]] int garantito() const;
    /// True when the guarantee, which must be for this p, holds.
    [[nodiscard]] bool vale(const Garanzia& garanzia) const;
};

/// Told now and then of the work done and the work in all; may be empty.
using AvanzamentoProva = std::function<void(std::uint64_t, std::uint64_t)>;

/// The draws of p numbers, by plain enumeration.
Vincite vincite(const Tabella& tabella, int p, const AvanzamentoProva& avanzamento = {});
/// The draws of 1 number, 2 numbers and so on, up to the first p that makes a whole row certain;
/// on more than 20 positions, up to 6.
std::vector<Vincite> tutte_le_vincite(const Tabella& tabella,
                                      const AvanzamentoProva& avanzamento = {});

/// The p-subsets that the guarantee misses, in lexicographic order.
struct Buchi {
    std::uint64_t quanti = 0;
    std::vector<Maschera> primi;  ///< at most as many as asked for
};
Buchi buchi(const Tabella& tabella, const Garanzia& garanzia, std::size_t limite,
            const AvanzamentoProva& avanzamento = {});

/// "con 6 estratti almeno una riga con 5 numeri indovinati (cinquina)".
std::string in_parole(const Garanzia& garanzia);

/// Subsets of k things out of n, at most the largest 64-bit number.
std::uint64_t binomiale(int n, int k);

}  // namespace development
