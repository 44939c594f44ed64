// Numbers that change places in a crossword, under the rule, for a better layout.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <random>
#include <vector>

#include "analysis/schema.h"
#include "analysis/stima.h"
#include "crossword/classi.h"

namespace analysis {

/// Simulated annealing over the layouts of one set of numbers. Whatever it does, no number stands
/// twice on a line of the rule, fixed cells keep theirs, each number stands as often as before
/// (`pareggia`: or more evenly often), and changes places within its group only. The same seed
/// makes the same steps.
class Ricerca {
public:
    /// `celle` is full and keeps the rule; `ferme` tells the fixed cells and may be empty. The
    /// schema outlives the search.
    Ricerca(const Schema& schema, const Celle& celle, const std::vector<bool>& ferme, bool pareggia,
            std::uint64_t seme, const crossword::Classi& classi = {});

    /// Told now and then; the share of the round done, from 1 on its end.
    using Parte = std::function<double()>;
    /// One round, from hot to cold, with a `stima` of the cells as they stand. A `calore` of 1
    /// begins by shuffling.
    void giro(Stima& stima, double calore, const Parte& parte);
    /// Goes on from these cells, which hold the same numbers.
    void riparti(const Celle& celle);

    [[nodiscard]] const Celle& celle() const { return celle_; }
    /// The best of the last round, and its value.
    [[nodiscard]] const Celle& migliori() const { return migliori_; }
    [[nodiscard]] std::int64_t valore_migliore() const { return valore_migliore_; }
    /// Steps made, those that the rule forbade too.
    [[nodiscard]] std::uint64_t passi() const { return passi_; }
    /// False when no cell can change.
    [[nodiscard]] bool mobile() const { return libere_.size() > 1; }
    /// Makes one step, whatever it is worth; false when the rule forbade it.
    bool passo(Stima& stima);

private:
    std::uint32_t a_caso(std::size_t quanti) {
        return static_cast<std::uint32_t>((sorte_() >> 32) * quanti >> 32);
    }
    bool proponi();
    bool scambio(std::uint8_t p, std::uint8_t q);
    bool catena(std::uint8_t p, std::uint8_t q);
    bool anello(std::uint8_t inizio, std::uint8_t a, std::uint8_t b, int& eccesso);
    bool sostituzione(std::uint8_t p);
    void applica();
    void indietro(Stima& stima);
    double temperatura(Stima& stima);

    const Schema& schema_;
    Celle celle_;
    Celle migliori_;
    std::int64_t valore_migliore_ = 0;
    std::vector<std::uint8_t> libere_;
    std::vector<bool> ferme_;
    bool pareggia_;
    crossword::Classi classi_;
    std::vector<std::uint8_t> in_gioco_;
    std::array<std::uint64_t, numeri_del_gioco + 1> regola_di_{};  ///< lines of the rule, by number
    std::array<int, numeri_del_gioco + 1> volte_{};
    std::vector<Cambio> mosse_;
    std::uint64_t passi_ = 0;
    std::mt19937_64 sorte_;
};

}  // namespace analysis
