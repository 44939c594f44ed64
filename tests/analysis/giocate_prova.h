// Random systems for the analysis, and the plain counts that it must equal.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <random>
#include <set>
#include <vector>

#include "analysis/giocate.h"

namespace prova {

using Riga = std::array<std::int16_t, 6>;
using Caso = std::mt19937;

/// A number from 0 to `n` - 1.
inline int a_caso(Caso& caso, int n) {
    return static_cast<int>(caso() % static_cast<unsigned>(n));
}

/// Different ascending numbers of 1 to `fino_a`.
inline std::vector<int> numeri_a_caso(Caso& caso, int quanti, int fino_a = 90) {
    std::set<int> numeri;
    while (static_cast<int>(numeri.size()) < quanti) numeri.insert(1 + a_caso(caso, fino_a));
    return {numeri.begin(), numeri.end()};
}

/// Rows of `numeri` numbers out of some lines of `lunga` numbers each; of every line one row in
/// `una_su`, and now and then a row twice.
inline std::vector<Riga> righe_a_caso(Caso& caso, int in_gioco, int linee, int lunga, int numeri,
                                      int una_su) {
    const std::vector<int> scelti = numeri_a_caso(caso, in_gioco);
    std::vector<Riga> righe;
    for (int l = 0; l < linee; ++l) {
        const std::vector<int> posti = numeri_a_caso(caso, lunga, in_gioco);
        for (std::uint32_t quali = 0; quali < 1U << lunga; ++quali) {
            if (std::popcount(quali) != numeri || a_caso(caso, una_su) != 0) continue;
            Riga riga{};
            std::size_t i = 0;
            for (std::size_t p = 0; p < posti.size(); ++p) {
                if ((quali >> p & 1) == 0) continue;
                riga[i++] =
                    static_cast<std::int16_t>(scelti[static_cast<std::size_t>(posti[p] - 1)]);
            }
            righe.push_back(riga);
            if (a_caso(caso, 50) == 0) righe.push_back(riga);
        }
    }
    return righe;
}

/// The combinations as sets of ranks; at most 32 numbers in play.
inline std::vector<std::uint32_t> maschere(const analysis::Giocate& giocate) {
    std::vector<std::uint32_t> quali;
    for (const analysis::Ranghi& r : giocate.combinazioni) {
        std::uint32_t m = 0;
        for (int i = 0; i < giocate.numeri; ++i) m |= 1U << r[static_cast<std::size_t>(i)];
        quali.push_back(m);
    }
    return quali;
}

/// Calls `f` with every set of `k` of `n` ranks.
template <typename F>
void per_ogni_insieme(int n, int k, const F& f) {
    if (k > n) return;
    std::uint32_t s = (1U << k) - 1;
    while (s < 1U << n) {
        f(s);
        const std::uint32_t basso = s & (~s + 1);
        const std::uint32_t su = s + basso;
        s = ((s ^ su) >> 2) / basso | su;
    }
}

}  // namespace prova
