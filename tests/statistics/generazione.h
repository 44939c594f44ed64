// What the tests of both ways to fill the crossword from the archive have in common.
#pragma once

#include <functional>

#include "crossword/matrice.h"
#include "support/programma.h"

namespace support {

/// A program whose archive holds so many draws.
inline std::function<void(const Cartella&)> con(const Quante& quante) {
    return
        [quante](const Cartella& c) { metti_archivio(c.radice(), archivio_inventato(quante, 1)); };
}

/// The number of each cell, as the matrix and as the screen have it.
inline void uguali(const Programma& p, const crossword::Matrice& m) {
    ASSERT_EQ(p.form1.sessione.matrice(), m);
    for (int x = 0; x < m.colonne(); ++x) {
        for (int y = 0; y < m.righe(); ++y) {
            const QString testo = m(x, y) == 0 ? QString() : QString::number(m(x, y));
            EXPECT_EQ(p.form1.MSFlexGrid1->testo(y, x), testo) << x << ',' << y;
        }
    }
}

}  // namespace support
