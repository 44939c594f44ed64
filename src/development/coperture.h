// Small tables of a wanted guarantee: what is possible, and the search for them.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "development/tabella_rigorosa.h"

namespace development {

/// Longest line that a table is searched for.
inline constexpr int numeri_cercati = 30;

/// A table to be found: rows of `k` of the positions 1 to `n`, such that any `p` positions have a
/// row that holds `t` of them.
struct Desiderio {
    int n = 0;
    int k = 0;
    int p = 0;
    int t = 0;
    /// So many rows at most, missing as few draws as they can; 0 for the fewest that miss none.
    int righe = 0;
};

/// No table of that guarantee has fewer rows; 1 at least.
int limite_inferiore(const Desiderio& desiderio);
/// Why there is no such table, or none that this search could hold in memory; empty when there is
/// nothing against it.
std::string impossibile(const Desiderio& desiderio);

/// "7 colonne".
std::string colonne_in_parole(std::size_t quante);
/// "12 scoperti", of the draws that a table misses.
std::string scoperti_in_parole(std::uint64_t quanti);
/// "4 o più nel 12,3 % dei casi", of a table that misses nothing: the draws that have more than its
/// guarantee. Empty where no row could have more.
std::string oltre_in_parole(const Desiderio& desiderio, const std::vector<Maschera>& righe);

/// Orders rows by their positions, as the files have them.
bool riga_precede(Maschera a, Maschera b);

/// What a walk holds.
struct Ricerca;

/// One walk through the tables of a wish, on one thread: the same seed, start and steps give the
/// same tables. The wish must be possible.
class Cercatore {
public:
    Cercatore(const Desiderio& desiderio, std::uint64_t seme);
    Cercatore(const Cercatore&) = delete;
    Cercatore& operator=(const Cercatore&) = delete;
    ~Cercatore();

    /// Goes on from a table, whose rows must be sets of k positions; missing rows are added.
    void parti_da(const std::vector<Maschera>& righe);
    /// Swaps rows so many times, or fewer when nothing better is possible.
    void passi(std::uint64_t quanti);
    /// True when no table can be better than the one found.
    [[nodiscard]] bool finito() const;
    /// The best table so far, in the order of the files; empty before the first step.
    [[nodiscard]] const std::vector<Maschera>& migliore() const;
    /// Draws that it misses; 0 unless a number of rows was asked for.
    [[nodiscard]] std::uint64_t scoperti() const;

private:
    std::unique_ptr<Ricerca> interno_;
};

/// How a search on several threads is led.
struct Condotta {
    std::uint64_t seme = 1;
    int fili = 2;                  ///< 1 or more
    std::vector<Maschera> inizio;  ///< a table to go on from; empty for none
    std::function<bool()> fermo;   ///< true ends the search within some ms; called on one thread
    /// Told of each better table, on the calling thread.
    std::function<void(const std::vector<Maschera>&, std::uint64_t scoperti)> trovata;
};

/// Searches until nothing better is possible or it is told to end, and then has a table all the
/// same; for a wish that is not possible it does nothing. With a number of rows, those that a table
/// without a miss does not need are then spent on what it wins above its guarantee.
void cerca(const Desiderio& desiderio, const Condotta& condotta);

}  // namespace development
