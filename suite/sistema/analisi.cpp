// What a system wins: exactly, over every possible draw, and in the past.
#include "comune/progresso.h"
#include "platform/codepage.h"
#include "platform/disk.h"
#include "sistema/verbi.h"

namespace sistema {

using analysis::Analisi;
using analysis::Categoria;
using analysis::Distribuzione;
using analysis::Estrazione;
using analysis::Storico;

namespace {

/// One count for each result from 0 on.
void per_punti(const Distribuzione& d, suite::Json& json,
               std::uint64_t (Distribuzione::*conto)(int) const) {
    json.apri('[');
    for (int t = 0; t <= d.massimo(); ++t) json.naturale((d.*conto)(t));
    json.chiudi(']');
}

void garanzie(const Analisi& a, suite::Json& json) {
    const Distribuzione& d = a.distribuzione;
    json.voce("garanzie").apri('[');
    for (int k = 1; k <= std::min(d.estratti, d.in_gioco); ++k) {
        const analysis::Minimo& m = a.minimi[static_cast<std::size_t>(k)];
        json.apri('{').voce("usciti").intero(k).voce("garantito").intero(d.garantito(k));
        json.voce("combinazioni").intero(m.combinazioni).voce("esatto").vero(m.esatto);
        json.voce("migliore").apri('[');
        for (int t = 0; t <= std::min(k, d.massimo()); ++t) {
            json.naturale(d.migliore[static_cast<std::size_t>(k)][static_cast<std::size_t>(t)]);
        }
        json.chiudi(']').chiudi('}');
    }
    json.chiudi(']');
}

void buchi(const Analisi& a, suite::Json& json) {
    json.voce("buchi").apri('[');
    for (const analysis::Buchi& b : a.buchi) {
        json.apri('{').voce("punti").intero(b.t).voce("usciti").intero(b.k);
        json.voce("insiemi").naturale(b.quanti).voce("esempi").apri('[');
        for (const analysis::Numeri& numeri : b.primi) {
            json.apri('[');
            for (const std::uint8_t n : numeri) json.intero(n);
            json.chiudi(']');
        }
        json.chiudi(']').chiudi('}');
    }
    json.chiudi(']');
}

void medie(const Analisi& a, crossword::Gioco gioco, const analysis::Premi& premi, double spesa,
           suite::Json& json) {
    json.voce("medie").apri('{');
    for (const Categoria& c : analysis::categorie(gioco))
        json.voce(c.chiave).decimale(c.media(a.medie));
    json.chiudi('}').voce("premi").apri('{');
    for (const Categoria& c : analysis::categorie(gioco))
        json.voce(c.chiave).decimale(c.premio(premi));
    json.chiudi('}').voce("spesa").decimale(spesa);
    json.voce("ritorno").decimale(analysis::ritorno(a.medie, premi, spesa));
}

void passato(const Storico& s, const std::vector<Estrazione>& estrazioni, const Ruota& ruota,
             crossword::Gioco gioco, suite::Json& json) {
    json.voce("storico").apri('{');
    if (gioco.e_lotto()) json.voce("ruota").testo(ruota.nome);
    json.voce("estrazioni").naturale(estrazioni.size()).voce("vincenti").naturale(s.vincenti);
    json.voce("combinazioni").apri('{');
    for (const Categoria& c : analysis::categorie(gioco)) {
        json.voce(c.chiave).naturale(
            c.con_jolly ? s.cinque_piu_uno : s.combinazioni[static_cast<std::size_t>(c.punti)]);
    }
    json.chiudi('}').voce("digiuno").naturale(s.digiuno);
    json.voce("digiuno_attuale").naturale(s.digiuno_attuale);
    json.voce("migliori").apri('[');
    for (const std::size_t i : s.migliori) {
        const Estrazione& e = estrazioni[i];
        json.apri('{').voce("concorso").intero(e.concorso).voce("data").testo(e.data);
        if (gioco.e_lotto()) json.voce("ruota").testo(e.ruota);
        json.voce("punti").intero(s.esiti[i].migliore()).chiudi('}');
    }
    json.chiudi(']').chiudi('}');
}

Risposta analizza(Contesto& contesto, bool storico, const Ruota& ruota, Aperto& aperto) {
    const crossword::Gioco gioco = aperto.coppia().gioco;
    Sviluppo sviluppo;
    const std::vector<Estrazione>* estrazioni = nullptr;
    std::string errore = ruota_fuori_luogo(ruota, aperto);
    if (errore.empty()) errore = aperto.leggi_sviluppo(sviluppo);
    if (errore.empty() && storico) errore = contesto.passato.leggi(gioco, ruota.codice, estrazioni);
    if (!errore.empty()) return {"", "", errore};
    Analisi a;
    {
        suite::Progresso progresso("Analisi di " + platform::da_mostrare(aperto.file()));
        const analysis::AvanzamentoConteggio avanti = [&](double parte) {
            constexpr std::uint64_t passi = 1000;
            progresso.mostra(static_cast<std::uint64_t>(parte * passi), passi);
            return !contesto.fermato();
        };
        if (!analysis::analizza(sviluppo.giocate, gioco.e_lotto() ? 5 : 6, esecutori(), a, avanti))
            return {"", "", std::string(analysis::parola(analysis::Lettura::interrotta))};
    }
    const analysis::Premi premi = analysis::leggi_premi(contesto.programma, gioco);
    const double spesa =
        static_cast<double>(a.righe) * analysis::prezzo_in_euro(contesto.programma);
    std::vector<analysis::Tavola> tavole = analysis::tavole_analisi(a, gioco, premi, spesa);
    suite::Json json;
    descrivi(aperto.sessione(), json);
    json.voce("giocate").naturale(a.righe).voce("diverse").naturale(a.combinazioni);
    json.voce("estrazioni_possibili").naturale(a.distribuzione.estrazioni_possibili());
    json.voce("estrazioni");
    per_punti(a.distribuzione, json, &Distribuzione::estrazioni);
    json.voce("estrazioni_almeno");
    per_punti(a.distribuzione, json, &Distribuzione::estrazioni_almeno);
    if (!gioco.e_lotto()) json.voce("cinque_piu_uno").naturale(a.cinque_piu_uno);
    garanzie(a, json);
    buchi(a, json);
    medie(a, gioco, premi, spesa, json);
    if (storico) {
        Storico s;
        const analysis::Mappe mappe(sviluppo.giocate);
        if (!analysis::calcola_storico(mappe, *estrazioni, analysis::vincita_minima(gioco),
                                       esecutori(), s,
                                       [&](double) { return !contesto.fermato(); })) {
            return {"", "", std::string(analysis::parola(analysis::Lettura::interrotta))};
        }
        passato(s, *estrazioni, ruota, gioco, json);
        const std::string nome = gioco.e_lotto() ? ruota.nome : "";
        for (analysis::Tavola& t : analysis::tavole_passato(s, *estrazioni, gioco, nome))
            tavole.push_back(std::move(t));
    }
    return {"Analisi del sistema " + titolo(aperto) + "\n\n" + in_righe(tavole), json.uscita(), ""};
}

}  // namespace

std::string analisi(const suite::Parole& parole, Contesto& contesto, Fare& fare) {
    Ruota ruota;
    const bool storico = parole.ha("--storico");
    if (std::string errore = leggi_ruota(parole, ruota); !errore.empty()) return errore;
    if (ruota.data && !storico) return "--ruota va con --storico";
    fare = [storico, ruota, &contesto](Aperto& aperto) {
        return analizza(contesto, storico, ruota, aperto);
    };
    return {};
}

}  // namespace sistema
