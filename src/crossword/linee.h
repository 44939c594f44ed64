// The lines of a crossword: what bars a number from a cell, and what is developed.
#pragma once

#include <array>
#include <bitset>
#include <cstdint>
#include <vector>

#include "crossword/gioco.h"
#include "crossword/matrice.h"

namespace crossword {

/// Which lines through a cell hold a number: any of these together, or none.
enum Sbarra : std::uint8_t { nessuna = 0, sulla_colonna = 1, sulla_riga = 2, sulla_diagonale = 4 };

/// For each number what bars it from the cell of row `r`, column `c`, the cell itself left out;
/// place 0 stands for the empty cells.
std::array<std::uint8_t, 91> sbarre(const Matrice& matrice, int r, int c);

/// Numbers that stand on a line through the cell of row `r`, column `c`, the cell itself left
/// out. Index 0 is set when an empty cell lies there.
std::bitset<91> numeri_sulle_linee(const Matrice& matrice, int r, int c);

/// A cell by its column and row.
struct Incrocio {
    int x;
    int y;
    friend bool operator==(const Incrocio&, const Incrocio&) = default;
};

/// The cells of all lines through the cell of row `r`, column `c`, in the order in which they bar a
/// number, the cell itself left out; none for a cell outside.
std::vector<Incrocio> celle_sulle_linee(const Matrice& matrice, int r, int c);

/// Lays a number from 1 to 90 at column `x`, row `y`; false, and nothing changes, where there is no
/// such cell or a line through it holds the number. The one way for what a player lays.
bool posa(Matrice& matrice, int x, int y, int numero);

enum class Gruppo { orizzontali, verticali, diagonali };

/// One developed line, its numbers in grid order.
struct Linea {
    Gruppo gruppo;
    std::vector<std::uint8_t> numeri;
};

/// All lines in the order of development, the adjacent diagonals where the game has them.
std::vector<Linea> linee_sviluppo(const Matrice& matrice, Gioco gioco);

}  // namespace crossword
