// A crossword as a search sees it: which lines each cell lies on, and what is played of them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "analysis/giocate.h"
#include "systems/file_sistema.h"

namespace analysis {

/// A number for each cell, row after row; 0 is an empty one.
using Celle = std::vector<std::uint8_t>;

/// What is played of lines of one length and type, the positions of a row going by rank.
struct TipoLinea {
    int n = 0;                         ///< numbers of a line, at most 15
    std::vector<std::uint16_t> righe;  ///< different rows, position i being bit i - 1
    /// For each set of positions, as bits, whether some row holds `t` of it or more.
    [[nodiscard]] std::vector<bool> raggiunge(int t) const;
};

/// A line that is played.
struct LineaGiocata {
    std::size_t tipo = 0;  ///< index among the types of the schema
    std::vector<std::uint8_t> celle;
};

/// The lines of a crossword of at most 15 by 15 cells, whatever its numbers.
struct Schema {
    /// Tables stand in the folder `ridotti`; lines whose type has none are not played.
    Schema(const systems::Sistema& sistema, const std::string& ridotti);

    int colonne = 0;
    int righe = 0;
    int numeri = 6;                     ///< of a combination
    int estratti = 6;                   ///< of a draw
    std::vector<std::uint64_t> regola;  ///< for each cell the lines on which no number stands twice
    std::vector<std::uint64_t> giocate;  ///< for each cell the `linee` that it is on, as bits
    std::vector<TipoLinea> tipi;
    std::vector<LineaGiocata> linee;
};

/// The combinations that full cells play.
Giocate sviluppa(const Schema& schema, std::span<const std::uint8_t> celle);

}  // namespace analysis
