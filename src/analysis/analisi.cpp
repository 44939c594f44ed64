#include "analysis/analisi.h"

#include <algorithm>
#include <optional>

#include "analysis/cinque_piu_uno.h"

namespace analysis {

namespace {

// Shares of the whole work, as measured on the largest systems.
constexpr double dopo_distribuzione = 0.7;
constexpr double dopo_cinque_piu_uno = 0.8;

bool trova_buchi(const Giocate& giocate, const Insiemi& insiemi, const Continua& continua,
                 Analisi& analisi) {
    const Distribuzione& d = analisi.distribuzione;
    for (int t = 2; t <= std::min(d.massimo(), d.estratti - 1); ++t) {
        Buchi buchi;
        buchi.t = t;
        for (int k = t; k <= d.estratti && buchi.k == 0; ++k) {
            if (d.sotto(k, t) > 0) buchi.k = k;
        }
        if (buchi.k != 0) {
            buchi.quanti = d.sotto(buchi.k, t);
            const auto primi = insiemi_sotto(giocate, insiemi, buchi.k, t, buchi_massimi, continua);
            if (!primi) return false;
            buchi.primi = *primi;
        }
        analisi.buchi.push_back(buchi);
    }
    return true;
}

}  // namespace

bool analizza(const Giocate& giocate, int estratti, int esecutori, Analisi& analisi,
              const AvanzamentoConteggio& avanzamento) {
    analisi = Analisi();
    analisi.combinazioni = giocate.combinazioni.size();
    analisi.righe = giocate.righe();
    analisi.guaste = giocate.guaste;
    analisi.medie =
        calcola_medie(static_cast<std::int64_t>(giocate.righe()), giocate.numeri, estratti);
    double parte = 0;
    const Continua continua = [&] { return !avanzamento || avanzamento(parte); };
    const Insiemi insiemi(giocate, std::min(giocate.numeri - 1, insiemi_per_minimo));
    const AvanzamentoConteggio distribuzione = [&](double p) {
        parte = p * dopo_distribuzione;
        return continua();
    };
    if (!calcola_distribuzione(giocate, insiemi, estratti, esecutori, analisi.distribuzione,
                               distribuzione)) {
        return false;
    }
    parte = dopo_distribuzione;
    if (!continua()) return false;
    if (giocate.numeri == 6 && estratti == 6) {
        analisi.cinque_piu_uno = conta_cinque_piu_uno(giocate);
    }
    parte = dopo_cinque_piu_uno;
    for (int k = 1; k <= estratti; ++k) {
        const int t = analisi.distribuzione.garantito(k);
        if (t == 0) break;
        const std::optional<Minimo> minimo = minimo_vincenti(giocate, insiemi, k, t, continua);
        if (!minimo) return false;
        analisi.minimi[static_cast<std::size_t>(k)] = *minimo;
        parte = dopo_cinque_piu_uno + (1 - dopo_cinque_piu_uno) * k / estratti;
    }
    return trova_buchi(giocate, insiemi, continua, analisi) && continua();
}

}  // namespace analysis
