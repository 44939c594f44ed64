// Groups of numbers, of which the rows and columns of a crossword hold so many each.
#pragma once

#include <array>
#include <cstdint>

#include "crossword/matrice.h"

namespace crossword {

/// The group of each number from 1 to 90; place 0 is an empty cell's. With no groups all are 0.
using Classi = std::array<std::uint8_t, 91>;

/// True when both have the same sizes, and each row and each column of one holds as many numbers of
/// each group as that of the other. A cell without a number of the game makes it false.
bool stesse_classi(const Matrice& una, const Matrice& altra, const Classi& classi);

}  // namespace crossword
