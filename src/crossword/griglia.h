// The crossword in a grid control.
#pragma once

#include "crossword/matrice.h"
#include "platform/qt/flexgrid.h"

namespace crossword {

/// Gives the grid so many cells and the size that shows them, at most ten rows at a time where
/// there is not room for more.
void forma_griglia(platform::MSFlexGrid* griglia, int colonne, int righe);

/// Gives the grid the size that its frame has room for: the told one at 100 %, more in a larger
/// window, where it shows all rows as soon as its cells need not be smaller than the told ones.
void adatta_griglia(platform::MSFlexGrid* griglia);

/// Writes the numbers that the cells of the grid hold; an empty cell shows nothing.
void scrivi_griglia(platform::MSFlexGrid* griglia, const Matrice& matrice);

}  // namespace crossword
