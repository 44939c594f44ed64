// The crossword: a grid of numbers, column first.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace crossword {

/// Cells hold 0 (empty) or 1 to 90; sizes up to 256 x 256. An erased grid has no cells and
/// upper bounds of -1.
class Matrice {
public:
    Matrice() = default;
    /// Grid of empty cells; a size outside 1 to 256 gives an erased one.
    Matrice(int colonne, int righe);

    [[nodiscard]] int ubound(int dimensione) const {
        return (dimensione == 1 ? colonne_ : righe_) - 1;
    }
    [[nodiscard]] int colonne() const { return colonne_; }
    [[nodiscard]] int righe() const { return righe_; }
    [[nodiscard]] bool quadrata() const { return colonne_ == righe_ && colonne_ > 0; }
    [[nodiscard]] bool contiene(int x, int y) const {
        return x >= 0 && x < colonne_ && y >= 0 && y < righe_;
    }
    /// Number at column `x`, row `y`; 0 outside the grid.
    [[nodiscard]] std::int16_t operator()(int x, int y) const {
        return contiene(x, y) ? celle_[posto(x, y)] : std::int16_t{0};
    }
    /// Sets a cell; false outside the grid.
    bool scrivi(int x, int y, std::int16_t numero);

    friend bool operator==(const Matrice&, const Matrice&) = default;

private:
    [[nodiscard]] std::size_t posto(int x, int y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(colonne_) +
               static_cast<std::size_t>(x);
    }
    int colonne_ = 0;
    int righe_ = 0;
    std::vector<std::int16_t> celle_;
};

/// True when no cell is 0.
bool cruciverba_completo(const Matrice& matrice);

/// The different numbers of the grid, ascending.
std::vector<int> numeri_in_gioco(const Matrice& matrice);

/// Text of a number in the list of numbers in play: three characters wide or more.
std::string testo_lista(int numero);

}  // namespace crossword
