#include "development/gruppi.h"

#include <algorithm>
#include <array>
#include <bit>
#include <numeric>

#include "development/garanzie.h"

namespace development {

namespace {

using Bit = std::uint32_t;

/// Numbers the sets of as many positions in the order of their bits.
class Ordine {
public:
    Ordine() {
        for (std::size_t posto = 0; posto < binomi_.size(); ++posto) {
            for (std::size_t i = 0; i < binomi_[posto].size(); ++i) {
                binomi_[posto][i] = static_cast<std::uint32_t>(
                    binomiale(static_cast<int>(posto), static_cast<int>(i) + 1));
            }
        }
    }
    [[nodiscard]] std::uint32_t di(Bit insieme) const {
        std::uint32_t posto = 0;
        for (std::size_t i = 0; insieme != 0; insieme &= insieme - 1, ++i) {
            posto += binomi_[static_cast<std::size_t>(std::countr_zero(insieme))][i];
        }
        return posto;
    }

private:
    std::array<std::array<std::uint32_t, numeri_cercati>, numeri_cercati> binomi_{};
};

/// Calls `f` with all sets of `quanti` of the positions of `da`, in the order of their bits.
template <typename F>
void parti(Bit da, int quanti, const F& f) {
    const int n = std::popcount(da);
    if (quanti > n) return;
    if (quanti == 0) {
        f(Bit{0});
        return;
    }
    std::array<Bit, 32> posti{};
    for (std::size_t i = 0; da != 0; da &= da - 1) posti[i++] = da & (~da + 1);
    std::uint64_t scelta = (std::uint64_t{1} << quanti) - 1;
    while (scelta < std::uint64_t{1} << n) {
        Bit insieme = 0;
        for (std::uint64_t resto = scelta; resto != 0; resto &= resto - 1) {
            insieme |= posti[static_cast<std::size_t>(std::countr_zero(resto))];
        }
        f(insieme);
        const std::uint64_t minimo = scelta & (~scelta + 1);
        const std::uint64_t salito = scelta + minimo;
        scelta = (((salito ^ scelta) >> 2) / minimo) | salito;
    }
}

Bit immagine(Bit insieme, const Permutazione& dove) {
    Bit altro = 0;
    for (; insieme != 0; insieme &= insieme - 1) {
        altro |= Bit{1} << dove[static_cast<std::size_t>(std::countr_zero(insieme))];
    }
    return altro;
}

/// Which orbit each set is of, and the sets of each orbit.
struct Divisione {
    std::vector<std::uint32_t> orbita;
    std::vector<Bit> primo;  ///< one set of each orbit
    std::vector<std::uint32_t> inizio{0};
    std::vector<std::uint32_t> membri;
};

Divisione dividi(int n, int quanti, const Ordine& ordine, const std::vector<Permutazione>& gruppo) {
    constexpr std::uint32_t nessuna = ~0U;
    const Bit tutte = static_cast<Bit>((std::uint64_t{1} << n) - 1);
    Divisione d;
    d.orbita.assign(binomiale(n, quanti), nessuna);
    std::vector<Bit> coda;
    parti(tutte, quanti, [&](Bit insieme) {
        if (d.orbita[ordine.di(insieme)] != nessuna) return;
        const auto questa = static_cast<std::uint32_t>(d.primo.size());
        d.primo.push_back(insieme);
        coda.assign(1, insieme);
        d.orbita[ordine.di(insieme)] = questa;
        for (std::size_t i = 0; i < coda.size(); ++i) {
            d.membri.push_back(ordine.di(coda[i]));
            for (const Permutazione& p : gruppo) {
                const Bit altro = immagine(coda[i], p);
                std::uint32_t& sua = d.orbita[ordine.di(altro)];
                if (sua != nessuna) continue;
                sua = questa;
                coda.push_back(altro);
            }
        }
        d.inizio.push_back(static_cast<std::uint32_t>(d.membri.size()));
    });
    return d;
}

/// Cycles of the given lengths, one after the other.
Permutazione cicli(const std::vector<int>& lunghezze) {
    Permutazione p;
    for (const int d : lunghezze) {
        const auto da = p.size();
        for (std::size_t i = 0; i < static_cast<std::size_t>(d); ++i) {
            p.push_back(static_cast<std::uint8_t>(da + (i + 1) % static_cast<std::size_t>(d)));
        }
    }
    return p;
}

/// Takes the cycle permutation into a power of itself: cycles of one length change places, and
/// within each the positions are multiplied and shifted.
Permutazione normalizzatore(const std::vector<int>& lunghezze, Sorte& sorte) {
    const int massima = *std::max_element(lunghezze.begin(), lunghezze.end());
    int unita = 1;
    do {
        unita = 1 + static_cast<int>(sorte.fino_a(static_cast<std::uint32_t>(massima)));
    } while (std::gcd(unita, massima) != 1);
    std::vector<int> inizio;
    int da = 0;
    for (const int d : lunghezze) {
        inizio.push_back(da);
        da += d;
    }
    std::vector<std::size_t> arrivo(lunghezze.size());
    std::iota(arrivo.begin(), arrivo.end(), std::size_t{0});
    for (std::size_t i = 0; i < arrivo.size(); ++i) {
        const std::size_t j = sorte.fino_a(static_cast<std::uint32_t>(arrivo.size()));
        if (lunghezze[arrivo[i]] == lunghezze[arrivo[j]] && sorte.fino_a(2) == 0) {
            std::swap(arrivo[i], arrivo[j]);
        }
    }
    Permutazione p(static_cast<std::size_t>(da));
    for (std::size_t c = 0; c < lunghezze.size(); ++c) {
        const int d = lunghezze[c];
        const int spostata = static_cast<int>(sorte.fino_a(static_cast<std::uint32_t>(d)));
        for (int i = 0; i < d; ++i) {
            const int posto = inizio[c] + i;
            p[static_cast<std::size_t>(posto)] =
                static_cast<std::uint8_t>(inizio[arrivo[c]] + (i * unita + spostata) % d);
        }
    }
    return p;
}

}  // namespace

std::vector<Permutazione> gruppo_a_caso(int n, Sorte& sorte) {
    const auto caso = [&](int da, int a) {
        return da + static_cast<int>(sorte.fino_a(static_cast<std::uint32_t>(a - da + 1)));
    };
    // Short cycles leave the most freedom, and are drawn the most.
    const int d = caso(0, 2) > 0 ? caso(2, std::min(n, 5)) : caso(2, n);
    const int tutti = n / d;
    const int quanti = caso(0, 1) == 0 ? tutti : caso((tutti + 1) / 2, tutti);
    std::vector<int> lunghezze(static_cast<std::size_t>(quanti), d);
    int resto = n - quanti * d;
    std::vector<int> divisori;
    for (int e = 2; e < d; ++e) {
        if (d % e == 0) divisori.push_back(e);
    }
    while (resto > 0) {
        int e = 1;
        if (!divisori.empty() && caso(0, 2) > 0) {
            e = divisori[static_cast<std::size_t>(caso(0, static_cast<int>(divisori.size()) - 1))];
        }
        if (e > resto) e = 1;
        lunghezze.push_back(e);
        resto -= e;
    }
    std::vector<Permutazione> gruppo{cicli(lunghezze)};
    if (caso(0, 2) == 0) gruppo.push_back(normalizzatore(lunghezze, sorte));
    return gruppo;
}

std::vector<std::uint32_t> Orbite::espandi(const std::vector<std::uint32_t>& colonne) const {
    std::vector<std::uint32_t> tutte;
    for (const std::uint32_t c : colonne) {
        tutte.insert(tutte.end(), righe.begin() + inizio[c], righe.begin() + inizio[c + 1]);
    }
    return tutte;
}

Orbite orbite(const Desiderio& desiderio, const std::vector<Permutazione>& gruppo) {
    static const Ordine ordine;
    Divisione righe = dividi(desiderio.n, desiderio.k, ordine, gruppo);
    const Divisione sorteggi = dividi(desiderio.n, desiderio.p, ordine, gruppo);
    Orbite o;
    for (std::size_t s = 0; s < sorteggi.primo.size(); ++s) {
        o.incidenza.peso_riga.push_back(
            static_cast<std::int32_t>(sorteggi.inizio[s + 1] - sorteggi.inizio[s]));
    }
    const Bit tutte = static_cast<Bit>((std::uint64_t{1} << desiderio.n) - 1);
    std::vector<std::uint32_t> coperti;
    for (std::size_t c = 0; c < righe.primo.size(); ++c) {
        coperti.clear();
        const Bit riga = righe.primo[c];
        for (int j = desiderio.t; j <= std::min(desiderio.k, desiderio.p); ++j) {
            parti(riga, j, [&](Bit dentro) {
                parti(tutte & ~riga, desiderio.p - j, [&](Bit fuori) {
                    coperti.push_back(sorteggi.orbita[ordine.di(dentro | fuori)]);
                });
            });
        }
        if (!gruppo.empty()) {
            std::sort(coperti.begin(), coperti.end());
            coperti.erase(std::unique(coperti.begin(), coperti.end()), coperti.end());
        }
        o.incidenza.righe.insert(o.incidenza.righe.end(), coperti.begin(), coperti.end());
        o.incidenza.inizio_colonna.push_back(static_cast<std::uint32_t>(o.incidenza.righe.size()));
        o.incidenza.costo.push_back(
            static_cast<std::int32_t>(righe.inizio[c + 1] - righe.inizio[c]));
    }
    if (gruppo.empty()) {
        o.incidenza.insieme_riga = sorteggi.primo;
        o.incidenza.insieme_colonna = righe.primo;
        o.incidenza.fuori = desiderio.p - desiderio.t;
        // A row of the table that covers both of two draws shares t with each, and it has only k.
        o.incidenza.comuni = std::max(0, 2 * desiderio.t - desiderio.k);
    }
    o.incidenza.trasponi();
    o.inizio = std::move(righe.inizio);
    o.righe = std::move(righe.membri);
    return o;
}

std::uint64_t coperti_da_una(const Desiderio& d) {
    std::uint64_t quanti = 0;
    for (int j = d.t; j <= std::min(d.k, d.p); ++j) {
        quanti += binomiale(d.k, j) * binomiale(d.n - d.k, d.p - j);
    }
    return quanti;
}

}  // namespace development
