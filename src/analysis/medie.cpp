#include "analysis/medie.h"

#include <algorithm>

#include "analysis/giocate.h"
#include "development/garanzie.h"

namespace analysis {

using development::binomiale;

Medie calcola_medie(std::int64_t giocate, int numeri, int estratti) {
    Medie m;
    const auto tutte = static_cast<double>(binomiale(numeri_del_gioco, estratti));
    const auto quante = static_cast<double>(giocate);
    for (int t = 0; t <= std::min(numeri, estratti); ++t) {
        const std::uint64_t modi =
            binomiale(numeri, t) * binomiale(numeri_del_gioco - numeri, estratti - t);
        m.combinazioni[static_cast<std::size_t>(t)] = quante * static_cast<double>(modi) / tutte;
    }
    if (numeri == 6 && estratti == 6) {
        // Of the draws with five, those whose Jolly is the sixth number.
        m.cinque_piu_uno = m.combinazioni[5] / (numeri_del_gioco - 6);
        m.combinazioni[5] -= m.cinque_piu_uno;
    }
    return m;
}

double ritorno(const Medie& medie, const Premi& premi, double spesa) {
    if (!(spesa > 0)) return 0;
    double incasso = medie.cinque_piu_uno * premi.cinque_piu_uno;
    for (std::size_t t = 0; t < premi.premio.size(); ++t) {
        incasso += medie.combinazioni[t] * premi.premio[t];
    }
    return incasso / spesa;
}

}  // namespace analysis
