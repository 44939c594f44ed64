// The same numbers in other cells, so that they win more often.
#include "analysis/confronto.h"
#include "analysis/premi.h"
#include "platform/disk.h"
#include "platform/runtime.h"
#include "sistema/verbi.h"

namespace sistema {

namespace {

/// Reads an option that is a whole number, which stays where it is not given; what is wrong with
/// it, empty when nothing is.
template <typename T>
std::string leggi(const suite::Parole& parole, const std::string& nome, int da, int a, T& valore) {
    const std::string* detto = parole.valore(nome);
    if (detto == nullptr) return {};
    const bool cifre = !detto->empty() && detto->size() <= 9 &&
                       detto->find_first_not_of("0123456789") == std::string::npos;
    const int numero = cifre ? static_cast<int>(platform::Val(*detto)) : -1;
    if (numero < da || numero > a) {
        return nome + " vuole un numero da " + std::to_string(da) + " a " + std::to_string(a);
    }
    valore = static_cast<T>(numero);
    return {};
}

std::string leggi(const suite::Parole& parole, analysis::RichiestaDisposizione& r) {
    constexpr int tanto = 999'999'999;
    constexpr int un_giorno = 86400;
    if (parole.ha("--tempo") && parole.ha("--passi")) return "--tempo e --passi non vanno insieme";
    r.secondi = parole.ha("--passi") ? 0 : 5;
    std::string errore = leggi(parole, "--scopo", 2, 5, r.scopo);
    if (errore.empty()) errore = leggi(parole, "--tempo", 1, un_giorno, r.secondi);
    if (errore.empty()) errore = leggi(parole, "--passi", 1, tanto, r.passi);
    if (errore.empty()) errore = leggi(parole, "--seme", 0, tanto, r.seme);
    r.pareggia = parole.ha("--pareggia");
    r.esecutori = esecutori();
    return errore;
}

Risposta rispondi(const Aperto& aperto, const analysis::Disposizione& d, int scopo,
                  const analysis::Costo& costo, const std::string& scritto) {
    const crossword::Gioco gioco = aperto.coppia().gioco;
    suite::Json json;
    json.voce("scritto");
    if (scritto.empty()) {
        json.fatto("null");
    } else {
        json.testo(scritto);
    }
    for (const auto& [nome, misura] : {std::pair{"prima", &d.prima}, {"dopo", &d.dopo}}) {
        const analysis::Distribuzione& m = misura->distribuzione;
        json.voce(nome).apri('{').voce("combinazioni").naturale(misura->combinazioni);
        json.voce("estrazioni_vincenti").naturale(m.estrazioni_almeno(scopo));
        json.voce("estrazioni_possibili").naturale(m.estrazioni_possibili()).chiudi('}');
    }
    std::string testo = titolo(aperto) + ": " + analysis::frase_disposta(d, gioco, scopo) + ".\n";
    if (!scritto.empty()) {
        const analysis::Tavola t = analysis::tavola_confronto(d.prima, d.dopo, gioco, scopo, costo);
        testo += "\n" + in_righe({&t, 1}) + "\n" + platform::da_mostrare(scritto) +
                 " ha la nuova disposizione; va sviluppato.\n";
    }
    return {testo, json.uscita(), ""};
}

}  // namespace

std::string migliora(const suite::Parole& parole, Contesto& contesto, Fare& fare) {
    Destinazione dove;
    if (std::string errore = dove.leggi(parole, contesto, true); !errore.empty()) return errore;
    analysis::RichiestaDisposizione richiesta;
    if (std::string errore = leggi(parole, richiesta); !errore.empty()) return errore;
    const bool sovrascrivi = parole.ha("--sovrascrivi");
    fare = [dove, richiesta, sovrascrivi, &contesto](Aperto& aperto) {
        systems::Sessione& s = aperto.sessione();
        systems::Coppia coppia;
        std::string errore = arrivo(dove.per(aperto, aperto.coppia().gioco.estensione_sistema()),
                                    aperto, sovrascrivi, coppia);
        if (!errore.empty()) return Risposta{"", "", errore};
        analysis::RichiestaDisposizione r = richiesta;
        r.sistema = s.sistema();
        r.ridotti = s.ridotti();
        const analysis::Disposizione d = analysis::disponi(r, [&](const analysis::Andamento&) {
            return contesto.fermato() ? analysis::Ordine::annulla : analysis::Ordine::continua;
        });
        const bool migliorata = d.esito == analysis::Disposta::migliorata;
        if (!migliorata && d.esito != analysis::Disposta::uguale) {
            return Risposta{"", "", analysis::frase_disposta(d, s.gioco(), r.scopo)};
        }
        const analysis::Costo costo{analysis::prezzo_in_euro(contesto.programma),
                                    s.con_ripetizioni()};
        if (migliorata) {
            s.disponi(d.matrice);
            // What was counted is of the old layout's development.
            s.totale_combinazioni();
            errore = scrivi(aperto, coppia);
        }
        if (!errore.empty()) return Risposta{"", "", errore};
        return rispondi(aperto, d, r.scopo, costo, migliorata ? coppia.sistema() : "");
    };
    return {};
}

}  // namespace sistema
