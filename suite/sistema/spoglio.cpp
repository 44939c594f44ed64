// The check of a development: against numbers given, a draw of the archive, or every draw of it.
#include <algorithm>

#include "check/dettaglio.h"
#include "platform/codepage.h"
#include "platform/runtime.h"
#include "sistema/verbi.h"

namespace sistema {

using analysis::Categoria;
using analysis::EsitoEstrazione;
using analysis::Estrazione;

namespace {

/// What to check against.
struct Domanda {
    std::vector<int> numeri;
    int jolly = 0;  ///< 0 for none
    std::string concorso;
    bool storico = false;
    Ruota ruota;
    bool dettaglio = false;
    int pannelli = 5;
};

std::string leggi_jolly(const suite::Parole& parole, Domanda& d) {
    const std::string* jolly = parole.valore("--jolly");
    if (jolly == nullptr) return {};
    const std::vector<int> letto = leggi_numeri(*jolly);
    if (letto.size() != 1) return "--jolly vuole un numero da 1 a 90";
    if (d.numeri.size() != 6) return "--jolly va con i sei numeri del SuperEnalotto";
    d.jolly = letto.front();
    if (std::find(d.numeri.begin(), d.numeri.end(), d.jolly) != d.numeri.end())
        return "il Jolly non è fra i sei numeri";
    return {};
}

std::string leggi_dettaglio(const suite::Parole& parole, Domanda& d) {
    d.dettaglio = parole.ha("--dettaglio");
    const std::string* pannelli = parole.valore("--pannelli");
    if (d.dettaglio && d.storico) return "--dettaglio e --storico non vanno insieme";
    if (pannelli == nullptr) return {};
    if (!d.dettaglio) return "--pannelli va con --dettaglio";
    if (pannelli->size() != 1 || (*pannelli)[0] < '1' || (*pannelli)[0] > '5')
        return "--pannelli vuole un numero da 1 a 5";
    d.pannelli = (*pannelli)[0] - '0';
    return {};
}

/// What is wrong with the words, empty when nothing is.
std::string leggi_domanda(const suite::Parole& parole, Domanda& d) {
    const std::string* numeri = parole.valore("--numeri");
    const std::string* concorso = parole.valore("--concorso");
    d.storico = parole.ha("--storico");
    if ((numeri != nullptr) + (concorso != nullptr) + (d.storico ? 1 : 0) != 1)
        return "serve uno fra --numeri, --concorso e --storico";
    if (concorso != nullptr) d.concorso = *concorso;
    if (concorso != nullptr && concorso->empty()) return "--concorso vuole un concorso";
    if (numeri != nullptr) {
        d.numeri = leggi_numeri(*numeri);
        if (d.numeri.size() != 5 && d.numeri.size() != 6)
            return "--numeri vuole cinque o sei numeri diversi da 1 a 90, separati da virgole";
    }
    std::string errore = leggi_jolly(parole, d);
    if (errore.empty()) errore = leggi_ruota(parole, d.ruota);
    if (errore.empty() && d.ruota.data && numeri != nullptr)
        errore = "--ruota e --numeri non vanno insieme";
    return errore.empty() ? leggi_dettaglio(parole, d) : errore;
}

bool e_il_concorso(const Estrazione& e, const std::string& detto) {
    return detto == e.data || detto == std::to_string(e.concorso);
}

/// The draws that are meant; why there are none, empty when there are some.
std::string trova(const Domanda& d, const Aperto& aperto, Passato& passato,
                  std::vector<Estrazione>& scelte) {
    const crossword::Gioco gioco = aperto.coppia().gioco;
    if (!d.numeri.empty()) {
        const std::size_t quanti = gioco.e_lotto() ? 5 : 6;
        if (d.numeri.size() != quanti) {
            return std::string("per il ") + gioco.nome() + " servono " +
                   (gioco.e_lotto() ? "cinque" : "sei") + " numeri";
        }
        Estrazione e;
        std::copy(d.numeri.begin(), d.numeri.end(), e.numeri.begin());
        e.jolly = static_cast<std::uint8_t>(d.jolly);
        scelte.push_back(e);
        return {};
    }
    if (std::string errore = ruota_fuori_luogo(d.ruota, aperto); !errore.empty()) return errore;
    const std::vector<Estrazione>* tutte = nullptr;
    if (std::string errore = passato.leggi(gioco, d.ruota.codice, tutte); !errore.empty())
        return errore;
    if (tutte->empty()) return "l'archivio non ha estrazioni del gioco";
    if (d.storico) {
        scelte = *tutte;
        return {};
    }
    const std::string detto =
        d.concorso == "ultimo" ? std::to_string(tutte->back().concorso) : d.concorso;
    std::copy_if(tutte->begin(), tutte->end(), std::back_inserter(scelte),
                 [&](const Estrazione& e) { return e_il_concorso(e, detto); });
    return scelte.empty() ? "l'archivio non ha il concorso " + d.concorso : "";
}

std::string in_fila(const Estrazione& e, bool lotto) {
    std::string testo;
    for (std::size_t i = 0; i < (lotto ? 5U : 6U); ++i)
        testo += (i > 0 ? " " : "") + std::to_string(e.numeri[i]);
    if (e.jolly != 0) testo += ", Jolly " + std::to_string(e.jolly);
    return testo;
}

std::uint64_t vinte(const Categoria& c, const EsitoEstrazione& esito) {
    return c.con_jolly ? esito.cinque_piu_uno
                       : esito.combinazioni[static_cast<std::size_t>(c.punti)];
}

std::uint64_t vincenti(const EsitoEstrazione& esito, crossword::Gioco gioco) {
    std::uint64_t somma = esito.cinque_piu_uno;
    for (int t = analysis::vincita_minima(gioco); t <= 6; ++t)
        somma += esito.combinazioni[static_cast<std::size_t>(t)];
    return somma;
}

/// The combinations that won in a draw, with their slips.
std::string dettaglio(const Domanda& d, const Estrazione& e, const Sviluppo& sviluppo,
                      crossword::Gioco gioco, suite::Json& json, analysis::Tavola& t) {
    check::RichiestaSpoglio r{
        sviluppo.file, static_cast<std::int32_t>(sviluppo.giocate.righe()), gioco, {}};
    std::size_t casella = 0;
    // A Jolly that nobody drew is in no combination.
    if (!gioco.e_lotto()) r.vincente[casella++] = e.jolly != 0 ? e.jolly : std::int16_t{-1};
    for (std::size_t i = 0; i < (gioco.e_lotto() ? 5U : 6U); ++i)
        r.vincente[casella++] = e.numeri[i];
    check::Spoglio spoglio;
    check::Dettaglio righe;
    const check::Passo avanti = [](std::int32_t) { return true; };
    if (!spoglio.conta(r, avanti) || !righe.aggiungi(r, spoglio, d.pannelli, avanti))
        return "lo spoglio non si può elencare";
    t.colonne = {"Combinazione", "Schedina", "Punti", "Numeri"};
    json.voce("schedine").apri('[');
    for (std::size_t k = 1; k <= spoglio.quante(); ++k) {
        const check::Punti punti = spoglio.lista_punti(k);
        if (punti.punti() < analysis::vincita_minima(gioco)) continue;
        std::string numeri;
        for (int i = 0; i < gioco.numeri(); ++i) {
            numeri += (i > 0 ? " " : "") + righe.testo(k - 1, check::colonna_numeri + i);
        }
        const std::string scheda = righe.testo(k - 1, check::colonna_scheda);
        t.righe.push_back(
            {std::to_string(spoglio.lista_colonne(k)), scheda, punti.testo(), numeri});
        json.apri('{').voce("combinazione").intero(spoglio.lista_colonne(k));
        json.voce("schedina").fatto(scheda).voce("punti").testo(punti.testo());
        json.voce("numeri").testo(numeri).chiudi('}');
    }
    json.chiudi(']');
    return {};
}

void in_json(const Estrazione& e, const EsitoEstrazione& esito, crossword::Gioco gioco,
             suite::Json& json) {
    if (e.concorso != 0) {
        json.voce("concorso").intero(e.concorso).voce("data").testo(e.data);
        if (gioco.e_lotto()) json.voce("ruota").testo(e.ruota);
    }
    json.voce("numeri").apri('[');
    for (std::size_t i = 0; i < (gioco.e_lotto() ? 5U : 6U); ++i) json.intero(e.numeri[i]);
    json.chiudi(']');
    if (!gioco.e_lotto()) {
        json.voce("jolly");
        if (e.jolly != 0) {
            json.intero(e.jolly);
        } else {
            json.fatto("null");
        }
    }
    // The check lists a Lotto combination from the ambo on.
    json.voce("punti").apri('{');
    for (int t = gioco.e_lotto() ? 2 : 0; t <= gioco.numeri(); ++t) {
        json.voce(std::to_string(t)).naturale(esito.combinazioni[static_cast<std::size_t>(t)]);
    }
    if (!gioco.e_lotto()) json.voce("5+1").naturale(esito.cinque_piu_uno);
    json.chiudi('}').voce("vincenti").naturale(vincenti(esito, gioco));
}

/// The draws of the table: all of a few, of the whole archive those that won.
analysis::Tavola tavola(const Domanda& d, const Aperto& aperto,
                        const std::vector<Estrazione>& scelte,
                        const std::vector<EsitoEstrazione>& esiti) {
    const crossword::Gioco gioco = aperto.coppia().gioco;
    const bool dall_archivio = d.numeri.empty();
    analysis::Tavola t;
    t.titolo = titolo(aperto);
    if (dall_archivio) t.colonne = {"Concorso", "Data"};
    if (dall_archivio && gioco.e_lotto()) t.colonne.emplace_back("Ruota");
    t.colonne.emplace_back("Estratti");
    const std::vector<Categoria> categorie = analysis::categorie(gioco);
    for (const Categoria& c : categorie) t.colonne.push_back(c.nome);
    t.colonne.emplace_back("Vincenti");
    std::size_t con_vincita = 0;
    for (std::size_t i = 0; i < scelte.size(); ++i) {
        const std::uint64_t quante = vincenti(esiti[i], gioco);
        if (quante > 0) ++con_vincita;
        if (d.storico && quante == 0) continue;
        const Estrazione& e = scelte[i];
        std::vector<std::string> riga;
        if (dall_archivio) riga = {std::to_string(e.concorso), e.data};
        if (dall_archivio && gioco.e_lotto()) riga.push_back(e.ruota);
        riga.push_back(in_fila(e, gioco.e_lotto()));
        for (const Categoria& c : categorie) riga.push_back(intero(vinte(c, esiti[i])));
        riga.push_back(intero(quante));
        t.righe.push_back(std::move(riga));
    }
    if (d.storico) {
        t.note.push_back("Con una vincita: " + intero(con_vincita) + " delle " +
                         intero(scelte.size()) + " estrazioni dell'archivio.");
    }
    return t;
}

Risposta spoglia(const Domanda& d, Passato& passato, const Contesto& contesto, Aperto& aperto) {
    const crossword::Gioco gioco = aperto.coppia().gioco;
    Sviluppo sviluppo;
    std::vector<Estrazione> scelte;
    std::string errore = aperto.leggi_sviluppo(sviluppo);
    if (errore.empty()) errore = trova(d, aperto, passato, scelte);
    if (!errore.empty()) return {"", "", errore};
    const analysis::Mappe mappe(sviluppo.giocate);
    analysis::Storico storico;
    if (!analysis::calcola_storico(mappe, scelte, analysis::vincita_minima(gioco), esecutori(),
                                   storico, [&](double) { return !contesto.fermato(); }))
        return {"", "", "spoglio interrotto"};
    suite::Json json;
    descrivi(aperto.sessione(), json);
    json.voce("combinazioni").naturale(sviluppo.giocate.righe());
    json.voce("estrazioni").apri('[');
    std::vector<analysis::Tavola> tavole{tavola(d, aperto, scelte, storico.esiti)};
    tavole[0].note.push_back("Giocate: " + combinazioni(sviluppo.giocate.righe()) + ".");
    for (std::size_t i = 0; i < scelte.size(); ++i) {
        json.apri('{');
        in_json(scelte[i], storico.esiti[i], gioco, json);
        if (d.dettaglio) {
            analysis::Tavola t;
            t.titolo = "Schedine vincenti con " + in_fila(scelte[i], gioco.e_lotto());
            errore = dettaglio(d, scelte[i], sviluppo, gioco, json, t);
            if (!errore.empty()) return {"", "", errore};
            if (t.righe.empty()) t.note.emplace_back("Nessuna.");
            tavole.push_back(std::move(t));
        }
        json.chiudi('}');
    }
    json.chiudi(']');
    return {in_righe(tavole), json.uscita(), ""};
}

}  // namespace

std::string spoglio(const suite::Parole& parole, Contesto& contesto, Fare& fare) {
    Domanda domanda;
    if (std::string errore = leggi_domanda(parole, domanda); !errore.empty()) return errore;
    fare = [domanda, &contesto](Aperto& aperto) {
        return spoglia(domanda, contesto.passato, contesto, aperto);
    };
    return {};
}

}  // namespace sistema
