// The lines of a crossword: what bars a number from a cell, and what is developed.
#pragma once

#include <bitset>
#include <cstdint>
#include <vector>

#include "crossword/matrice.h"

namespace crossword {

/// Numbers that stand on a line through the cell of row `r`, column `c`, the cell itself left
/// out. Index 0 is set when an empty cell lies there.
std::bitset<91> numeri_sulle_linee(const Matrice& matrice, int r, int c);

enum class Gruppo { orizzontali, verticali, diagonali };

/// One developed line, its numbers in grid order.
struct Linea {
    Gruppo gruppo;
    std::vector<std::uint8_t> numeri;
};

/// All lines in the order of development. Adjacent diagonals come on square grids of 7 or more
/// columns, and never in Lotto.
std::vector<Linea> linee_sviluppo(const Matrice& matrice, bool lotto);

}  // namespace crossword
