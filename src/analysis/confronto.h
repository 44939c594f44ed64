// A new layout beside the old one, in words.
#pragma once

#include <string>

#include "analysis/disposizione.h"
#include "analysis/relazione.h"

namespace analysis {

/// What a system costs.
struct Costo {
    double combinazione = 0;       ///< price of one, in euro
    bool con_ripetizioni = false;  ///< one that stands twice is paid twice
    [[nodiscard]] double di(const Misura& misura) const {
        return combinazione *
               static_cast<double>(con_ripetizioni ? misura.righe : misura.combinazioni);
    }
};

/// What became of a search for `scopo` hits or more, as a sentence without its full stop.
std::string frase_disposta(const Disposizione& disposizione, crossword::Gioco gioco, int scopo);
/// Chances, combinations and cost of the two layouts that were counted.
Tavola tavola_confronto(const Misura& prima, const Misura& dopo, crossword::Gioco gioco, int scopo,
                        const Costo& costo);

}  // namespace analysis
