// Both computations side by side: readable forms of tables and grids, and short prints of them.
#pragma once

#include <cstdint>
#include <string>

#include "calcolo_semplice.h"
#include "crossword/matrice.h"
#include "statistics/statistica.h"

namespace support {

inline std::string nome(statistics::Classe classe) {
    switch (classe) {
        case statistics::Classe::nessuna:
            return "";
        case statistics::Classe::ab:
            return "ab";
        case statistics::Classe::b:
            return "b";
        case statistics::Classe::c:
            return "c";
        case statistics::Classe::d:
            return "d";
    }
    return "?";
}

/// One entry a line: number, value, class, band.
inline std::string testo(const statistics::Graduatoria& tabella) {
    std::string t;
    for (std::size_t i = 1; i <= 90; ++i) {
        t += std::to_string(tabella[i].numero) + ' ' + std::to_string(tabella[i].valore) + ' ' +
             nome(tabella[i].classe) + ' ' + std::to_string(tabella[i].fascia) + '\n';
    }
    return t;
}
inline std::string testo(const semplice::Elenco& elenco) {
    std::string t;
    for (std::size_t i = 1; i <= 90; ++i) {
        t += std::to_string(elenco[i].numero) + ' ' + std::to_string(elenco[i].valore) + ' ' +
             elenco[i].classe + ' ' + std::to_string(elenco[i].fascia) + '\n';
    }
    return t;
}

/// The numbers of a table, best first.
inline std::string ordine(const statistics::Graduatoria& tabella) {
    std::string t;
    for (std::size_t i = 1; i <= 90; ++i) {
        t += (i == 1 ? "" : " ") + std::to_string(tabella[i].numero);
    }
    return t;
}

/// Rows of a grid, one a line.
inline std::string testo(const crossword::Matrice& m) {
    std::string t;
    for (int y = 0; y < m.righe(); ++y) {
        for (int x = 0; x < m.colonne(); ++x) t += (x == 0 ? "" : " ") + std::to_string(m(x, y));
        t += '\n';
    }
    return t;
}
inline std::string testo(const semplice::Griglia& g) {
    std::string t;
    for (std::size_t y = 0; y < g[0].size(); ++y) {
        for (std::size_t x = 0; x < g.size(); ++x)
            t += (x == 0 ? "" : " ") + std::to_string(g[x][y]);
        t += '\n';
    }
    return t;
}

/// The same grid for the second computation.
inline semplice::Griglia griglia(const crossword::Matrice& m) {
    auto g = semplice::vuota(m.righe(), m.colonne());
    for (int y = 0; y < m.righe(); ++y) {
        for (int x = 0; x < m.colonne(); ++x) semplice::a(semplice::a(g, x), y) = m(x, y);
    }
    return g;
}

/// Grid of a size with a share of its cells, in a hundred, filled at random.
inline crossword::Matrice iniziata(Sorte& sorte, int colonne, int righe, int parte) {
    crossword::Matrice m(colonne, righe);
    for (int y = 0; y < righe; ++y) {
        for (int x = 0; x < colonne; ++x) {
            if (sorte.sotto(100) < parte)
                m.scrivi(x, y, static_cast<std::int16_t>(1 + sorte.sotto(90)));
        }
    }
    return m;
}

/// Short print of a text, to pin what is too long to quote.
inline std::uint32_t impronta(const std::string& t) {
    std::uint32_t h = 2166136261U;
    for (const char c : t) h = (h ^ static_cast<unsigned char>(c)) * 16777619U;
    return h;
}

/// True when no line of the grid holds a number twice.
inline bool senza_doppioni(const crossword::Matrice& m) {
    for (int i = 0; i < m.colonne() * m.righe(); ++i) {
        for (int j = 0; j < i; ++j) {
            const int x = i % m.colonne();
            const int y = i / m.colonne();
            const int x2 = j % m.colonne();
            const int y2 = j / m.colonne();
            if (m(x, y) != 0 && m(x, y) == m(x2, y2) &&
                semplice::in_linea(x, y, x2, y2, m.righe(), m.colonne()))
                return false;
        }
    }
    return true;
}

}  // namespace support
