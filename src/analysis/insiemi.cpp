#include "analysis/insiemi.h"

#include "development/garanzie.h"

namespace analysis {

Posti::Posti(int n, int massimo) : n_(n) {
    const auto ranghi = static_cast<std::size_t>(n);
    quanti_[1] = ranghi;
    for (int k = 2; k <= massimo; ++k) {
        quanti_[k] = static_cast<std::size_t>(development::binomiale(n, k));
    }
    if (massimo < 2) return;
    inizio_1_.resize(ranghi);
    std::int32_t fatte = 0;
    for (int a = 0; a < n; ++a) {
        inizio_1_[posto(a)] = fatte - (a + 1);
        fatte += n - 1 - a;
    }
    if (massimo < 3) return;
    inizio_2_.resize(quanti_[2] + 1);
    fatte = 0;
    for (int a = 0; a < n; ++a) {
        for (int b = a + 1; b < n; ++b) {
            inizio_2_[posto(coppia(a, b))] = fatte - (b + 1);
            fatte += n - 1 - b;
        }
    }
    if (massimo < 4) return;
    inizio_3_.resize(quanti_[3] + 1);
    fatte = 0;
    for (int a = 0; a < n; ++a) {
        for (int b = a + 1; b < n; ++b) {
            for (int c = b + 1; c < n; ++c) {
                inizio_3_[posto(terna(a, b, c))] = fatte - (c + 1);
                fatte += n - 1 - c;
            }
        }
    }
}

Insiemi::Insiemi(const Giocate& giocate, int massimo) : posti_(giocate.quanti(), massimo) {
    for (int k = 1; k <= massimo; ++k) righe_[k].resize(posti_.quanti(k) + 2);
    const int n = giocate.numeri;
    for (const Ranghi& r : giocate.combinazioni) {
        for (int a = 0; a < n; ++a) {
            Bit dopo_a;
            for (int x = a + 1; x < n; ++x) dopo_a.accendi(r[static_cast<std::size_t>(x)]);
            // Ranks behind the last of a set: all that the combination adds to it.
            const int ra = r[static_cast<std::size_t>(a)];
            righe_[1][static_cast<std::size_t>(ra)] |= dopo_a;
            if (massimo < 2) continue;
            Bit dopo_b = dopo_a;
            for (int b = a + 1; b + 1 < n; ++b) {
                const int rb = r[static_cast<std::size_t>(b)];
                dopo_b.parole[rb >> 6] ^= std::uint64_t{1} << (rb & 63);
                const std::int32_t coppia = posti_.coppia(ra, rb);
                righe_[2][static_cast<std::size_t>(coppia)] |= dopo_b;
                if (massimo < 3) continue;
                const std::int32_t terne = posti_.inizio_terne(coppia);
                Bit dopo_c = dopo_b;
                for (int c = b + 1; c + 1 < n; ++c) {
                    const int rc = r[static_cast<std::size_t>(c)];
                    dopo_c.parole[rc >> 6] ^= std::uint64_t{1} << (rc & 63);
                    const std::int32_t terna = terne + rc;
                    righe_[3][static_cast<std::size_t>(terna)] |= dopo_c;
                    if (massimo < 4) continue;
                    const std::int32_t quaterne = posti_.inizio_quaterne(terna);
                    Bit dopo_d = dopo_c;
                    for (int d = c + 1; d + 1 < n; ++d) {
                        const int rd = r[static_cast<std::size_t>(d)];
                        dopo_d.parole[rd >> 6] ^= std::uint64_t{1} << (rd & 63);
                        const std::int32_t quaterna = quaterne + rd;
                        righe_[4][static_cast<std::size_t>(quaterna)] |= dopo_d;
                    }
                }
            }
        }
    }
}

}  // namespace analysis
