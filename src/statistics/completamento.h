// The empty cells of a crossword filled from the ranking; the numbers that are in it already.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "crossword/matrice.h"
#include "statistics/generatore.h"
#include "statistics/statistica.h"

namespace statistics {

/// The numbers of the grid, column after column; one that stands twice is listed twice.
std::vector<int> numeri_scelti(const crossword::Matrice& matrice);

/// Greedy filling of the empty cells of a working grid. No number is ever taken back: what the
/// search accepts widens instead.
class Ricerca {
public:
    /// `statistica` is marked as the work goes on.
    Ricerca(Graduatoria& statistica, crossword::Matrice griglia);

    /// Fills the grid. `abbandonata` means a table that breaks its own rules, or a cell for which
    /// the search would go on for ever.
    EsitoRiempimento riempi_griglia(const Posata& posata);
    [[nodiscard]] const crossword::Matrice& griglia() const { return griglia_; }

    /// Bars the entries that the lines through a cell exclude; true when the last twenty are not
    /// among the reasons. May raise `livello`. Nothing when the table breaks its own rules.
    std::optional<bool> vincoli_cella(int r, int c, int& livello);
    /// Bars a number and counts its band; false when its band is none.
    bool segna_numero(int n);

private:
    struct Casella {
        int x;
        int y;
        bool per_posto;  ///< bars the entry at the place that the number names, too
    };
    enum class Scorsa { trovata, esaurita, guasta };

    bool linea(int quale, int r, int c, std::vector<Casella>& caselle) const;
    bool segna_linea(const std::vector<Casella>& caselle);
    bool limita_coda(int livello, bool& ok);
    void limita_fasce(int livello);
    Scorsa scorri(int& j);
    void libera_prime();
    std::optional<int> cerca(int riga, int colonna);
    bool posa(int riga, int colonna, int j);
    void chiudi_riga();

    Voce& voce(int i) { return statistica_[static_cast<std::size_t>(i)]; }
    std::int16_t& conta(int banda) { return conta_fasce_[static_cast<std::size_t>(banda)]; }

    Graduatoria& statistica_;
    crossword::Matrice griglia_;
    std::array<std::int16_t, 10> conta_fasce_{};
    int scan_ = 1;
    int tail_ = 71;
    int level_ = 1;
};

/// Fills the crossword from the frequencies: those of `file` when no draw is later, and then over
/// the numbers already laid; else counted anew, and then over an empty grid. The crossword
/// changes only when every cell has its number.
EsitoRiempimento completa(Statistico& statistico, LettoreEstrazioni& draws, const std::string& file,
                          crossword::Matrice& matrice, const Seguito& seguito);

}  // namespace statistics
