// The walk over all sets of drawn numbers, its last element counted and not walked.
#pragma once

#include <array>
#include <cstdint>

#include "analysis/insiemi.h"
#include "analysis/quattro.h"
#include "platform/processore.h"

namespace analysis {

/// [k][t]: sets of k numbers in play whose best combination has t hits or more.
using Almeno = std::array<std::array<std::uint64_t, 7>, 7>;

/// What the inner loops need beside the rows.
struct Maschere {
    explicit Maschere(int n);
    std::array<Bit, numeri_del_gioco + 2> dopo;  ///< ranks behind each, none behind the last
    std::array<Bit, numeri_del_gioco + 2> solo;  ///< each rank alone
};

/// Walks the sets of D numbers drawn (5 or 6) that begin with two given ranks. T is the highest
/// level below D that a combination can reach. `ampio` code runs on any processor, and fast on the
/// one it is compiled for.
template <int D, int T>
class Cammino {
public:
    Cammino(const Insiemi& insiemi, const Maschere& maschere)
        : posti_(insiemi.posti()), maschere_(maschere), n_(insiemi.posti().n()) {
        for (int k = 1; k < T; ++k) righe_[posto(k)] = insiemi.righe(k);
    }

    /// Adds to `almeno` the sets of 3 to D ranks that begin with `a` and `b`.
    PLATFORM_INCORPORATO void coppia(int a, int b, Almeno& almeno) const {
        Nodo nodo;
        estendi(nodo, 0, a);
        estendi(nodo, 1, b);
        conta_figli(nodo, 2, almeno);
        for (int c = b + 1; c < n_; ++c) {
            Nodo tre = nodo;
            estendi(tre, 2, c);
            conta_figli(tre, 3, almeno);
            if constexpr (D == 5) {
                foglie(tre, almeno);
            } else {
                for (int d = c + 1; d < n_; ++d) {
                    Nodo quattro = tre;
                    estendi(quattro, 3, d);
                    conta_figli(quattro, 4, almeno);
                    foglie(quattro, almeno);
                }
            }
        }
    }

private:
    static constexpr int m = D - 2;  ///< elements in front of the two innermost

    /// A beginning of a set: its ranks, its level, and by level the ranks that reach it.
    struct Nodo {
        std::array<int, m> rango{};
        std::array<Bit, T + 1> giunge{};
        int livello = 1;
    };

    /// In the innermost loop: the ranks that reach a level, twice, and the sets that do.
    struct Livello {
        Quattro giunge{};
        Conta conta;
    };

    static std::size_t posto(std::int32_t i) { return static_cast<std::size_t>(i); }

    /// Adds rank `e` to the `j` that stand there.
    PLATFORM_INCORPORATO void estendi(Nodo& nodo, int j, int e) const {
        for (int t = nodo.livello + 1; t <= T; ++t) {
            if (!nodo.giunge[posto(t)].acceso(e)) break;
            nodo.livello = t;
        }
        auto& g = nodo.giunge;
        if constexpr (T >= 2) g[2] |= righe_[1][e];
        for (int x = 0; x < j; ++x) {
            const std::int32_t xe = posti_.coppia(nodo.rango[posto(x)], e);
            if constexpr (T >= 3) g[3] |= righe_[2][xe];
            for (int y = 0; y < x && T >= 4; ++y) {
                const int ry = nodo.rango[posto(y)];
                const std::int32_t yxe = posti_.terna(ry, nodo.rango[posto(x)], e);
                if constexpr (T >= 4) g[4] |= righe_[3][yxe];
                for (int z = 0; z < y && T >= 5; ++z) {
                    if constexpr (T >= 5) {
                        g[5] |= righe_[4][posti_.quaterna(nodo.rango[posto(z)], ry,
                                                          nodo.rango[posto(x)], e)];
                    }
                }
            }
        }
        nodo.rango[posto(j)] = e;
    }

    /// The sets of one more rank than the `j` of the node.
    PLATFORM_INCORPORATO void conta_figli(const Nodo& nodo, int j, Almeno& almeno) const {
        const int ultimo = nodo.rango[posto(j - 1)];
        for (int t = 2; t <= T; ++t) {
            Bit figli = nodo.giunge[posto(t)];
            figli &= maschere_.dopo[posto(ultimo)];
            almeno[posto(j + 1)][posto(t)] +=
                static_cast<std::uint64_t>(t <= nodo.livello ? n_ - 1 - ultimo : figli.quanti());
        }
    }

    /// The sets of D ranks that begin with the m of the node.
    PLATFORM_INCORPORATO void foglie(const Nodo& nodo, Almeno& almeno) const {
        const int dopo = n_ - 1 - nodo.rango[m - 1];
        if (dopo < 2) return;
        // All of them have what the beginning has.
        const auto tutte =
            static_cast<std::uint64_t>(dopo) * static_cast<std::uint64_t>(dopo - 1) / 2;
        for (int t = 2; t <= nodo.livello && t <= T; ++t) almeno[D][posto(t)] += tutte;
        if (nodo.livello <= 1) return foglie_da<2>(nodo, almeno);
        if (nodo.livello == 2) return foglie_da<3>(nodo, almeno);
        if (nodo.livello == 3) return foglie_da<4>(nodo, almeno);
        if (nodo.livello == 4) return foglie_da<5>(nodo, almeno);
    }

    /// The levels from `da` on: for each next rank, the row of those that end the set.
    template <int da>
    PLATFORM_INCORPORATO void foglie_da(const Nodo& nodo, Almeno& almeno) const {
        if constexpr (da <= T) {
            constexpr int terne = m * (m - 1) / 2;
            constexpr int quaterne = m * (m - 1) * (m - 2) / 6;
            [[maybe_unused]] std::array<const Bit*, m> f3{};
            [[maybe_unused]] std::array<const Bit*, terne> f4{};
            [[maybe_unused]] std::array<const Bit*, quaterne> f5{};
            int i4 = 0;
            int i5 = 0;
            for (int x = 0; x < m; ++x) {
                const int rx = nodo.rango[posto(x)];
                if constexpr (T >= 3 && da <= 3)
                    f3[posto(x)] = righe_[2] + posti_.inizio_coppie(rx);
                for (int y = x + 1; y < m; ++y) {
                    const int ry = nodo.rango[posto(y)];
                    if constexpr (T >= 4 && da <= 4) {
                        f4[posto(i4++)] = righe_[3] + posti_.inizio_terne(posti_.coppia(rx, ry));
                    }
                    for (int z = y + 1; z < m; ++z) {
                        if constexpr (T >= 5) {
                            f5[posto(i5++)] = righe_[4] + posti_.inizio_quaterne(posti_.terna(
                                                              rx, ry, nodo.rango[posto(z)]));
                        }
                    }
                }
            }
            std::array<Livello, T + 1> livelli{};
            for (int t = da; t <= T; ++t) {
                const Bit& g = nodo.giunge[posto(t)];
                livelli[posto(t)].giunge +=
                    Quattro{g.parole[0], g.parole[1], g.parole[0], g.parole[1]};
            }
            for (int s = nodo.rango[m - 1] + 1; s + 1 < n_; s += 2) {
                Quattro dopo;
                Quattro solo;
                leggi(&maschere_.dopo[posto(s)], dopo);
                leggi(&maschere_.solo[posto(s)], solo);
                if constexpr (da <= 2) {
                    const std::array<const Bit*, 1> f2{righe_[1]};
                    segna(livelli[2], f2, s, dopo, solo);
                }
                if constexpr (T >= 3 && da <= 3) {
                    segna(livelli[3], f3, s, dopo, solo);
                }
                if constexpr (T >= 4 && da <= 4) {
                    segna(livelli[4], f4, s, dopo, solo);
                }
                if constexpr (T >= 5) {
                    segna(livelli[5], f5, s, dopo, solo);
                }
            }
            for (int t = da; t <= T; ++t) almeno[D][posto(t)] += livelli[posto(t)].conta.totale();
        }
    }

    /// Counts the ranks that end at level t or above, all of them where the next rank is there
    /// already.
    template <std::size_t quante>
    static PLATFORM_INCORPORATO void segna(Livello& livello,
                                           const std::array<const Bit*, quante>& file, int s,
                                           const Quattro& dopo, const Quattro& solo) {
        Quattro ranghi = livello.giunge & solo;
        ranghi |= __builtin_shufflevector(ranghi, ranghi, 1, 0, 3, 2);
        ranghi = reinterpret_cast<Quattro>(ranghi != 0U) | livello.giunge;
        for (const Bit* fila : file) {
            Quattro righe;
            leggi(fila + s, righe);
            ranghi |= righe;
        }
        livello.conta.aggiungi(ranghi & dopo);
    }

    const Posti& posti_;
    const Maschere& maschere_;
    int n_;
    std::array<const Bit*, T + 1> righe_{};
};

}  // namespace analysis
