#include "crossword/classi.h"

#include <map>
#include <optional>
#include <utility>

namespace crossword {

namespace {

/// How many numbers of a group a line holds; columns come after the rows.
using Conto = std::map<std::pair<int, std::uint8_t>, int>;

std::optional<Conto> conta(const Matrice& m, const Classi& classi) {
    Conto conto;
    for (int y = 0; y < m.righe(); ++y) {
        for (int x = 0; x < m.colonne(); ++x) {
            const int numero = m(x, y);
            if (numero < 1 || numero > 90) return std::nullopt;
            const std::uint8_t classe = classi[static_cast<std::size_t>(numero)];
            ++conto[{y, classe}];
            ++conto[{m.righe() + x, classe}];
        }
    }
    return conto;
}

}  // namespace

bool stesse_classi(const Matrice& una, const Matrice& altra, const Classi& classi) {
    if (una.colonne() != altra.colonne() || una.righe() != altra.righe()) return false;
    const std::optional<Conto> conto = conta(una, classi);
    return conto && conto == conta(altra, classi);
}

}  // namespace crossword
