#include "analysis/cinque_piu_uno.h"

#include <array>
#include <vector>

#include "analysis/cinquine.h"
#include "analysis/insiemi.h"

namespace analysis {

namespace {

/// For each combination and each of its numbers, the row of those that may stand in its place; 0
/// where it is the only one.
class Scambi {
public:
    explicit Scambi(const Giocate& giocate) : riga_(giocate.combinazioni.size()), righe_(1) {
        per_uguali(cinquine_ordinate(giocate), [&](std::span<const Cinquina> uguali) {
            if (uguali.size() > 1) raccogli(giocate, uguali);
        });
    }
    [[nodiscard]] const Bit& di(std::size_t combinazione, std::size_t fuori) const {
        return righe_[riga_[combinazione][fuori]];
    }

private:
    void raccogli(const Giocate& giocate, std::span<const Cinquina> uguali) {
        Bit scambio;
        for (const Cinquina& c : uguali) {
            scambio.accendi(giocate.combinazioni[c.combinazione()][c.fuori()]);
            riga_[c.combinazione()][c.fuori()] = static_cast<std::uint32_t>(righe_.size());
        }
        righe_.push_back(scambio);
    }

    std::vector<std::array<std::uint32_t, 6>> riga_;
    std::vector<Bit> righe_;
};

}  // namespace

std::uint64_t conta_cinque_piu_uno(const Giocate& giocate) {
    const Scambi scambi(giocate);
    // How often a sixth number makes a draw that so many combinations reach, this one included.
    std::array<std::uint64_t, 7> volte{};
    for (std::size_t i = 0; i < giocate.combinazioni.size(); ++i) {
        Bit sua;
        for (const std::uint8_t rango : giocate.combinazioni[i]) sua.accendi(rango);
        for (std::size_t jolly = 0; jolly < 6; ++jolly) {
            // Sixth numbers that make a whole combination, and so no "5 + 1".
            Bit esclusi = scambi.di(i, jolly);
            esclusi |= sua;
            // The other combinations that reach the same draw with the same Jolly, added up for
            // all sixth numbers at once: three binary digits each.
            std::array<Bit, 3> cifre{};
            for (std::size_t altro = 0; altro < 6; ++altro) {
                if (altro == jolly) continue;
                Bit riporto = scambi.di(i, altro);
                for (Bit& cifra : cifre) {
                    const Bit prima = cifra;
                    for (int p = 0; p < 2; ++p) {
                        cifra.parole[p] ^= riporto.parole[p];
                        riporto.parole[p] &= prima.parole[p];
                    }
                }
            }
            std::uint64_t condivise = 0;
            for (std::uint64_t altre = 1; altre < 6; ++altre) {
                Bit quali;
                for (int p = 0; p < 2; ++p) {
                    quali.parole[p] = ~esclusi.parole[p];
                    for (int cifra = 0; cifra < 3; ++cifra) {
                        const std::uint64_t c = cifre[static_cast<std::size_t>(cifra)].parole[p];
                        quali.parole[p] &= (altre >> cifra & 1) != 0 ? c : ~c;
                    }
                }
                const auto quante = static_cast<std::uint64_t>(quali.quanti());
                volte[altre + 1] += quante;
                condivise += quante;
            }
            // All sixth numbers there are, those not in play too, less the six or the shared.
            volte[1] += static_cast<std::uint64_t>(numeri_del_gioco - esclusi.quanti()) - condivise;
        }
    }
    std::uint64_t somma = volte[1];
    for (std::uint64_t m = 2; m < volte.size(); ++m) somma += volte[m] / m;
    return somma;
}

}  // namespace analysis
