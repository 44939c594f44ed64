// The crossword in a grid control.
#pragma once

#include "crossword/matrice.h"
#include "platform/qt/flexgrid.h"

namespace crossword {

/// Gives the grid so many cells and the size that shows them, at most ten rows at a time.
void forma_griglia(platform::MSFlexGrid* griglia, int colonne, int righe);

/// Writes the numbers that the cells of the grid hold; an empty cell shows nothing.
void scrivi_griglia(platform::MSFlexGrid* griglia, const Matrice& matrice);

}  // namespace crossword
