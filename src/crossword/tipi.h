// System types per line length, and the combinations each gives.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "crossword/gioco.h"

namespace crossword {

/// Which list of types: that of the rows, the columns or the diagonals.
enum class Elenco : std::uint8_t { orizzontali = 1, verticali = 2, diagonali = 3 };

/// Texts of the types for lines of `n` numbers, in order of type number; empty for an `n` that
/// no list has and for a game that plays nothing.
std::vector<std::string> tipi_sistema(Gioco gioco, Elenco quale, int n);

/// Combinations per line and type; 0 where nothing was written.
class Matsis {
public:
    /// Writes the places of one game and leaves the others as they were.
    void INIZIZLAIZZA_MATSIS(Gioco gioco);
    /// Value for list row `i` (N - 6, or N - 5 in Lotto) and type `t`; nothing outside 11 x 8.
    [[nodiscard]] std::optional<std::int16_t> operator()(int i, int t) const;

private:
    std::array<std::array<std::int16_t, 8>, 11> valori_{};
};

/// Text of the cell "Combinazioni x Sistema" of the diagonals for a SuperEnalotto grid of side
/// `n` and type `t`; nothing when the table has no place for it.
std::optional<std::string> testo_diagonali(const Matsis& matsis, int n, int t);

/// The same of a grid that has adjacent diagonals, from the combinations of a diagonal and of an
/// adjacent one.
std::string testo_diagonali(std::int32_t intere, std::int32_t corte);

/// Combinations of all diagonals of a SuperEnalotto grid of side `n` with type `t`.
std::optional<std::int32_t> combinazioni_diagonali(const Matsis& matsis, int n, int t);

}  // namespace crossword
