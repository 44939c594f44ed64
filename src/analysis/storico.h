// What the system would have won in every past draw.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "analysis/distribuzione.h"
#include "analysis/giocate.h"

namespace analysis {

/// A past draw; numbers that are 0 were not drawn or are not known.
struct Estrazione {
    std::int32_t concorso = 0;
    std::string data;   ///< as it is shown
    std::string ruota;  ///< name of the wheel, empty in SuperEnalotto
    std::array<std::uint8_t, 6> numeri{};
    std::uint8_t jolly = 0;
};

/// The winning combinations of one draw.
struct EsitoEstrazione {
    /// By hits, 0 to 6; five with the Jolly are not among the fives.
    std::array<std::uint32_t, 7> combinazioni{};
    std::uint32_t cinque_piu_uno = 0;
    /// The most hits of a combination.
    [[nodiscard]] int migliore() const;
    /// Orders draws by what they give: the higher category first, then how many of it.
    [[nodiscard]] bool meglio_di(const EsitoEstrazione& altro) const;
};

/// For each number in play the combinations that hold it, a bit each.
class Mappe {
public:
    explicit Mappe(const Giocate& giocate);
    /// Counts one draw.
    [[nodiscard]] EsitoEstrazione conta(const Estrazione& estrazione) const;

private:
    /// One behind the last for a number that is not in play.
    [[nodiscard]] std::size_t rango(std::uint8_t numero) const;
    [[nodiscard]] const std::uint64_t* mappa(std::uint8_t numero) const;

    std::size_t righe_;
    std::size_t parole_;  ///< words of a map, a multiple of four
    /// The maps by rank, and one of zeros behind them.
    std::vector<std::uint64_t> bit_;
    std::vector<std::uint32_t> gradi_;  ///< combinations that hold each
    std::array<std::uint8_t, numeri_del_gioco + 1> rango_{};
};

/// All draws together.
struct Storico {
    /// One for each draw, in their order.
    std::vector<EsitoEstrazione> esiti;
    /// Sums over the draws.
    std::array<std::uint64_t, 7> combinazioni{};
    std::uint64_t cinque_piu_uno = 0;
    std::uint64_t vincenti = 0;  ///< draws with a win
    /// The same with the wheels of one day as one draw: they follow each other and bear its number.
    std::size_t concorsi = 0;
    std::size_t concorsi_vincenti = 0;
    std::size_t digiuno = 0;          ///< longest run of such days without a win
    std::size_t digiuno_da = 0;       ///< index of the first draw of that run
    std::size_t digiuno_a = 0;        ///< index of its last draw
    std::size_t digiuno_attuale = 0;  ///< days without a win since the last one that had it
    /// Indexes of the ten best draws, the best first; of equal ones the later first.
    std::vector<std::size_t> migliori;
};

/// Counts the draws, in the order of time, on at most `esecutori` threads. A win takes `minimo`
/// hits. False when asked to stop.
bool calcola_storico(const Mappe& mappe, std::span<const Estrazione> estrazioni, int minimo,
                     int esecutori, Storico& storico, const AvanzamentoConteggio& avanzamento = {});

}  // namespace analysis
