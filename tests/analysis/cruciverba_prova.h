// Random crosswords under the rule, and the plain count of what they win.
#pragma once

#include <algorithm>
#include <optional>

#include "analysis/giocate_prova.h"
#include "analysis/schema.h"
#include "crossword/linee.h"
#include "crossword/tipi.h"
#include "systems/file_sistema.h"

namespace prova {

/// Numbers of `scelti` laid at random, cell after cell; nothing when no cell order worked out.
inline std::optional<crossword::Matrice> cruciverba(Caso& caso, int colonne, int righe,
                                                    std::vector<int> scelti) {
    for (int volta = 0; volta < 300; ++volta) {
        crossword::Matrice m(colonne, righe);
        bool piena = true;
        for (int i = 0; i < colonne * righe && piena; ++i) {
            std::shuffle(scelti.begin(), scelti.end(), caso);
            piena = std::any_of(scelti.begin(), scelti.end(), [&](int numero) {
                return crossword::posa(m, i % colonne, i / colonne, numero);
            });
        }
        if (piena && crossword::numeri_in_gioco(m).size() == scelti.size()) return m;
    }
    return std::nullopt;
}

/// A system of any game, form and types, its crossword full; nothing when none was found.
inline std::optional<systems::Sistema> sistema(Caso& caso, int lato_massimo, int altri_numeri) {
    systems::Sistema s;
    const int forma = a_caso(caso, 4) + 3;
    s.gioco = forma == 6 ? crossword::Gioco::superenalotto() : crossword::Gioco::lotto(forma);
    const int minimo = s.gioco.lato_minimo();
    const int colonne = minimo + a_caso(caso, lato_massimo - minimo + 1);
    const int righe =
        a_caso(caso, 3) == 0 ? minimo + a_caso(caso, lato_massimo - minimo + 1) : colonne;
    const int numeri = std::max(colonne, righe) + 2 + a_caso(caso, altri_numeri);
    const auto m = cruciverba(caso, colonne, righe, numeri_a_caso(caso, std::min(numeri, 90)));
    if (!m) return std::nullopt;
    s.matrice = *m;
    const auto tipo = [&](crossword::Elenco quale, int n) {
        const auto tipi = crossword::tipi_sistema(s.gioco, quale, n);
        return tipi.empty() ? -1 : a_caso(caso, static_cast<int>(tipi.size()));
    };
    s.tipo_righe = tipo(crossword::Elenco::orizzontali, colonne);
    s.tipo_colonne = tipo(crossword::Elenco::verticali, righe);
    if (m->quadrata()) s.tipo_diagonali = tipo(crossword::Elenco::diagonali, righe);
    return s;
}

/// Sets of k things out of n.
inline std::uint64_t scelte(int n, int k) {
    std::uint64_t quante = 1;
    for (int i = 1; i <= k; ++i) {
        quante = quante * static_cast<std::uint64_t>(n - k + i) / static_cast<std::uint64_t>(i);
    }
    return quante;
}

/// Draws with `t` hits or more, each set of numbers in play against each combination.
inline std::uint64_t estrazioni_almeno(const analysis::Giocate& giocate, int estratti, int t) {
    const std::vector<std::uint32_t> combinazioni = maschere(giocate);
    std::uint64_t quante = 0;
    for (int k = t; k <= estratti; ++k) {
        std::uint64_t insiemi = 0;
        per_ogni_insieme(giocate.quanti(), k, [&](std::uint32_t s) {
            insiemi += std::any_of(combinazioni.begin(), combinazioni.end(),
                                   [&](std::uint32_t m) { return std::popcount(m & s) >= t; })
                           ? 1
                           : 0;
        });
        quante += insiemi * scelte(90 - giocate.quanti(), estratti - k);
    }
    return quante;
}

inline analysis::Celle celle(const crossword::Matrice& m) {
    analysis::Celle c;
    for (int i = 0; i < m.colonne() * m.righe(); ++i) {
        c.push_back(static_cast<std::uint8_t>(m(i % m.colonne(), i / m.colonne())));
    }
    return c;
}

}  // namespace prova
