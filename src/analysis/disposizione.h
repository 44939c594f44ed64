// The numbers of a crossword laid anew, so that it wins more often at the same price.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "analysis/distribuzione.h"
#include "crossword/classi.h"
#include "crossword/matrice.h"
#include "systems/file_sistema.h"

namespace analysis {

/// What to lay anew, and for how long.
struct RichiestaDisposizione {
    /// Crossword, game and types; what it counts is not used.
    systems::Sistema sistema;
    /// Folder of the tables, without a final separator.
    std::string ridotti;
    /// Hits that a winning combination has: 2 to 5, no more than it has numbers.
    int scopo = 3;
    /// Cells that keep their number, row after row; may be empty.
    std::vector<bool> ferme;
    /// Lets numbers that stand more often give way to those that stand less.
    bool pareggia = false;
    /// Numbers take only the places of others of their group.
    crossword::Classi classi{};
    std::uint64_t seme = 1;
    /// The search ends after so many steps, about, or so many seconds; with neither, when told to.
    /// Steps alone make the same layout each time.
    std::uint64_t passi = 0;
    double secondi = 0;
    /// Threads for the exact counts.
    int esecutori = 1;
};

/// What is known at some moment; chances are shares of all draws, counted.
struct Andamento {
    double parte = 0;        ///< of the time or of the steps given, 0 to 1; 0 without either
    double prima = 0;        ///< chance of the old layout; 0 until it was counted
    double migliore = 0;     ///< the best so far
    bool conteggio = false;  ///< draws are being counted
};

enum class Ordine {
    continua,
    basta,    ///< ends with the best so far
    annulla,  ///< leaves all as it was
};

/// Called often; may be empty.
using SeguitoDisposizione = std::function<Ordine(const Andamento&)>;

enum class Disposta {
    migliorata,
    uguale,         ///< none was found that wins more often
    incompleta,     ///< some cell is empty
    fuori_regola,   ///< a number stands twice on a line, or is none, or the grid is too large
    senza_tabelle,  ///< none of its lines is played
    senza_scopo,    ///< no combination can have so many hits
    annullata,
};

/// What a layout wins.
struct Misura {
    Distribuzione distribuzione;
    std::size_t combinazioni = 0;  ///< different ones
    std::size_t righe = 0;         ///< all that the lines play, repeated ones each time
    /// Share of all draws in which some combination has `t` hits or more.
    [[nodiscard]] double almeno(int t) const;
};

struct Disposizione {
    Disposta esito = Disposta::annullata;
    /// Always the old crossword, unless `migliorata`.
    crossword::Matrice matrice;
    Misura prima;
    Misura dopo;  ///< of `matrice`; both are empty where nothing was counted
    std::uint64_t passi = 0;
};

/// Whole and under the rule: each number stands on its lines once.
bool regolare(const crossword::Matrice& matrice);

/// Searches; every layout on the way is whole and under the rule, and what is given back wins at
/// least as often as what was there, counted over all draws.
Disposizione disponi(const RichiestaDisposizione& richiesta,
                     const SeguitoDisposizione& seguito = {});

}  // namespace analysis
