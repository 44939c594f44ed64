// The combinations that a development plays, each once, ready to be analysed.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace analysis {

inline constexpr int numeri_del_gioco = 90;
/// Combinations that an analysis takes at most.
inline constexpr std::size_t combinazioni_massime = std::size_t{1} << 20;

/// Ascending ranks of a combination's numbers among those in play, from 0; as many as it has.
using Ranghi = std::array<std::uint8_t, 6>;

/// The different combinations, in the order of their first appearance.
struct Giocate {
    int numeri = 6;  ///< numbers of a combination, 3 to 6
    std::vector<std::uint8_t>
        in_gioco;  ///< the numbers in play, ascending; a rank is an index here
    std::vector<Ranghi> combinazioni;
    std::vector<Ranghi> ripetute;  ///< those played again, each time that they are
    std::int64_t guaste = 0;       ///< lines that hold no combination, passed over
    /// Combinations played, repeated ones each time.
    [[nodiscard]] std::size_t righe() const { return combinazioni.size() + ripetute.size(); }
    /// How many numbers are in play.
    [[nodiscard]] int quanti() const { return static_cast<int>(in_gioco.size()); }
};

enum class Lettura {
    letta,
    assente,        ///< the file cannot be read
    vuota,          ///< no line holds a combination
    troppo_grande,  ///< more combinations than `combinazioni_massime`
    cambiata,       ///< another program wrote to the file meanwhile
    interrotta,     ///< asked to stop
};

/// Why there is nothing to analyse, as the player is told it.
std::string_view parola(Lettura lettura);

/// Called now and then; false asks the job to stop. May be empty.
using Continua = std::function<bool()>;

/// Reads a development of `numeri` numbers a combination; `giocate` is whole only when `letta`.
Lettura leggi_giocate(const std::string& file, int numeri, Giocate& giocate,
                      const Continua& continua = {});
/// The same from rows of ascending numbers; one that is no combination counts as damaged.
Lettura prepara_giocate(std::span<const std::array<std::int16_t, 6>> righe, int numeri,
                        Giocate& giocate);

}  // namespace analysis
