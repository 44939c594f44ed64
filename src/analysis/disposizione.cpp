#include "analysis/disposizione.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <optional>
#include <utility>

#include "analysis/insiemi.h"
#include "analysis/ricerca.h"
#include "crossword/linee.h"
#include "development/garanzie.h"
#include "platform/orologio.h"

namespace analysis {

using crossword::Matrice;
using development::binomiale;

namespace {

/// Sets of ranks that a count looks up, at most.
constexpr int insiemi_massimi = 4;
/// Sets of drawn numbers up to which a count takes no time to speak of.
constexpr std::uint64_t conteggio_leggero = 20'000'000;
/// Steps of the first round of a search without an end, and the most of any.
constexpr double primo_giro = 1 << 16;
constexpr double giro_massimo = 1 << 25;
/// The rounds of a search that has an end, each twice as long as the one before.
constexpr int giri = 5;

Celle celle_di(const Matrice& m) {
    Celle celle;
    for (int y = 0; y < m.righe(); ++y) {
        for (int x = 0; x < m.colonne(); ++x) celle.push_back(static_cast<std::uint8_t>(m(x, y)));
    }
    return celle;
}

/// One number after the other, as a player would lay them; nothing when the rule refuses one.
std::optional<Matrice> posate(const Celle& celle, int colonne, int righe) {
    Matrice m(colonne, righe);
    for (int i = 0; i < colonne * righe; ++i) {
        const int numero = celle[static_cast<std::size_t>(i)];
        if (!crossword::posa(m, i % colonne, i / colonne, numero)) return std::nullopt;
    }
    return m;
}

/// What turns one layout into another of the same grid.
std::vector<Cambio> differenze(const Celle& da, const Celle& a) {
    std::vector<Cambio> cambi;
    for (std::size_t c = 0; c < da.size(); ++c) {
        if (da[c] != a[c]) cambi.push_back({static_cast<std::uint8_t>(c), da[c], a[c]});
    }
    return cambi;
}

class Lavoro {
public:
    Lavoro(const RichiestaDisposizione& richiesta, const Schema& schema,
           const SeguitoDisposizione& seguito)
        : r_(richiesta),
          seguito_(seguito),
          inizio_(platform::secondi()),
          schema_(schema),
          vecchie_(celle_di(richiesta.sistema.matrice)),
          ricerca_(schema, vecchie_, richiesta.ferme, richiesta.pareggia, richiesta.seme,
                   richiesta.classi) {}

    Disposizione fai();

private:
    [[nodiscard]] bool senza_fine() const { return r_.passi == 0 && r_.secondi <= 0; }
    /// How much of what was given is used: seconds, or steps.
    [[nodiscard]] double usato() const {
        return r_.secondi > 0 ? platform::secondi() - inizio_
                              : static_cast<double>(ricerca_.passi());
    }
    /// False when asked to leave all as it was.
    bool avvisa(bool conteggio);
    std::optional<Misura> misura(const Celle& celle);
    bool valuta();
    bool cerca();
    void giro(bool per_rango, double fine);

    const RichiestaDisposizione& r_;
    const SeguitoDisposizione& seguito_;
    double inizio_;
    const Schema& schema_;
    Celle vecchie_;
    Ricerca ricerca_;
    double tutto_ = 0;  ///< seconds or steps after which the search ends; 0 when it has no end
    Celle scelte_;      ///< the best whose draws were counted
    Celle candidate_;   ///< the best of the rounds since then; may be none
    std::int64_t valore_candidate_ = 0;
    Andamento andamento_;
    Ordine ordine_ = Ordine::continua;
    Misura dopo_;
};

bool Lavoro::avvisa(bool conteggio) {
    andamento_.conteggio = conteggio;
    if (tutto_ > 0) andamento_.parte = std::min(1.0, usato() / tutto_);
    if (seguito_ && ordine_ != Ordine::annulla) {
        const Ordine detto = seguito_(andamento_);
        if (detto != Ordine::continua) ordine_ = detto;
    }
    return ordine_ != Ordine::annulla;
}

std::optional<Misura> Lavoro::misura(const Celle& celle) {
    const Giocate giocate = sviluppa(schema_, celle);
    const Insiemi insiemi(giocate, std::min(giocate.numeri - 1, insiemi_massimi));
    Misura m;
    m.combinazioni = giocate.combinazioni.size();
    m.righe = giocate.righe();
    if (!calcola_distribuzione(giocate, insiemi, schema_.estratti, r_.esecutori, m.distribuzione,
                               [this](double) { return avvisa(true); })) {
        return std::nullopt;
    }
    return m;
}

/// Counts the draws of the candidate and keeps it if it wins more often; false when asked to stop.
bool Lavoro::valuta() {
    if (candidate_.empty()) return true;
    const Celle celle = std::exchange(candidate_, {});
    const std::optional<Misura> m = misura(celle);
    if (!m) return false;
    if (m->distribuzione.estrazioni_almeno(r_.scopo) >
        dopo_.distribuzione.estrazioni_almeno(r_.scopo)) {
        dopo_ = *m;
        scelte_ = celle;
        andamento_.migliore = dopo_.almeno(r_.scopo);
    }
    return true;
}

/// One round, up to `fine`: by the lines alone from anywhere, or by the ranks too from near the
/// best.
void Lavoro::giro(bool per_rango, double fine) {
    constexpr double tiepido = 0.2;
    std::unique_ptr<Stima> stima;
    if (per_rango) {
        stima = std::make_unique<Coperture>(schema_, r_.scopo, vecchie_);
        ricerca_.riparti(scelte_);
    } else {
        stima = std::make_unique<Incroci>(schema_, r_.scopo, vecchie_);
    }
    stima->cambia(differenze(vecchie_, ricerca_.celle()));
    const double da = usato();
    ricerca_.giro(*stima, per_rango ? tiepido : 1, [&] {
        avvisa(false);
        return ordine_ == Ordine::continua && fine > da ? (usato() - da) / (fine - da) : 1;
    });
    if (candidate_.empty() || ricerca_.valore_migliore() < valore_candidate_) {
        candidate_ = ricerca_.migliori();
        valore_candidate_ = ricerca_.valore_migliore();
    }
}

/// Round after round until the end; false when asked to leave all as it was.
bool Lavoro::cerca() {
    const bool rango = conta_il_rango(schema_, r_.scopo);
    // Where a count takes its time, only the last rounds end with one.
    const bool conta_ogni_giro =
        senza_fine() || usato() * 20 < r_.secondi ||
        binomiale(dopo_.distribuzione.in_gioco, schema_.estratti) <= conteggio_leggero;
    const double da = usato();
    for (int g = 0; ordine_ == Ordine::continua && (senza_fine() || g < giri); ++g) {
        const bool ultimo = !senza_fine() && g == giri - 1;
        const bool per_rango = rango && (senza_fine() ? g % 2 == 1 : ultimo);
        // Each kind of round has its own measure, and the count alone compares them.
        if ((conta_ogni_giro || per_rango) && !valuta()) return false;
        const double finora = std::ldexp(1, g + 1) - 1;
        giro(per_rango, senza_fine() ? usato() + std::min(std::ldexp(primo_giro, g), giro_massimo)
                                     : da + (tutto_ - da) * finora / (std::ldexp(1, giri) - 1));
    }
    return ordine_ != Ordine::annulla && valuta();
}

Disposizione Lavoro::fai() {
    Disposizione d;
    d.matrice = r_.sistema.matrice;
    const std::optional<Misura> prima = misura(vecchie_);
    if (!prima) return d;
    dopo_ = *prima;
    scelte_ = vecchie_;
    andamento_.prima = andamento_.migliore = dopo_.almeno(r_.scopo);
    // The last count takes as long as the first; some time is left to the search in any case.
    const double contare = usato();
    tutto_ = r_.secondi > 0 ? std::max(r_.secondi - contare, contare + r_.secondi / 4)
                            : static_cast<double>(r_.passi);
    if (ricerca_.mobile() && !cerca()) return d;
    d.passi = ricerca_.passi();
    d.prima = *prima;
    d.dopo = dopo_;
    d.esito = Disposta::uguale;
    if (scelte_ == vecchie_) return d;
    if (auto nuova = posate(scelte_, schema_.colonne, schema_.righe)) {
        d.esito = Disposta::migliorata;
        d.matrice = *std::move(nuova);
    } else {
        d.dopo = d.prima;
    }
    return d;
}

}  // namespace

double Misura::almeno(int t) const {
    const auto tutte = static_cast<double>(distribuzione.estrazioni_possibili());
    return static_cast<double>(distribuzione.estrazioni_almeno(t)) / tutte;
}

bool regolare(const Matrice& matrice) {
    constexpr int lato = crossword::Gioco::lato_massimo;
    if (matrice.colonne() > lato || matrice.righe() > lato) return false;
    for (int y = 0; y < matrice.righe(); ++y) {
        for (int x = 0; x < matrice.colonne(); ++x) {
            const int numero = matrice(x, y);
            if (numero < 1 || numero > numeri_del_gioco) return false;
        }
    }
    return posate(celle_di(matrice), matrice.colonne(), matrice.righe()).has_value();
}

Disposizione disponi(const RichiestaDisposizione& richiesta, const SeguitoDisposizione& seguito) {
    Disposizione d;
    const Matrice& matrice = d.matrice = richiesta.sistema.matrice;
    if (!crossword::cruciverba_completo(matrice)) {
        d.esito = Disposta::incompleta;
    } else if (!regolare(matrice)) {
        d.esito = Disposta::fuori_regola;
    } else if (const Schema schema(richiesta.sistema, richiesta.ridotti); schema.linee.empty()) {
        d.esito = Disposta::senza_tabelle;
    } else if (richiesta.scopo < 2 || richiesta.scopo > std::min(schema.numeri, 5)) {
        d.esito = Disposta::senza_scopo;
    } else {
        return Lavoro(richiesta, schema, seguito).fai();
    }
    return d;
}

}  // namespace analysis
