// Developing a system: here, into a named place, or beside its file.
#include "platform/disk.h"
#include "platform/links.h"
#include "sistema/verbi.h"
#include "systems/appartenenza.h"

namespace sistema {

namespace {

/// Puts pair and count where the player has the system; why not, empty when it did.
std::string scrivi_accanto(const Aperto& aperto) {
    if (aperto.cambiato()) return "il sistema è cambiato nel frattempo: è rimasto com'è";
    const systems::Coppia& suoi = aperto.coppia();
    if (platform::collegamento(suoi.sistema()) || platform::collegamento(suoi.sviluppo()))
        return "accanto a un collegamento non si scrive: andate dove porta";
    // Both take their places at once, and the system stays as old as it is.
    const systems::Passi passi = systems::importa(aperto.propria(), suoi, systems::Vecchia::ceduta);
    if (passi.disco_pieno()) return "il disco è pieno: il sistema è rimasto com'era";
    const bool scritti =
        passi.sistema == platform::Esito::ok && passi.sviluppo == platform::Esito::ok;
    return scritti ? "" : non_scritto(suoi.sviluppo());
}

std::string scrivi_altrove(const Aperto& aperto, const std::string& file) {
    // It bears the mark of its crossword wherever it goes.
    const platform::Esito esito =
        platform::FileCopy(aperto.propria().sviluppo(), file, platform::Meta::via,
                           systems::marca_sviluppo(aperto.propria()));
    return esito == platform::Esito::ok ? "" : non_scritto(file);
}

Risposta rispondi(Aperto& aperto, const Sviluppo& sviluppo, const std::string& scritto) {
    systems::Sessione& s = aperto.sessione();
    const std::uint64_t righe = sviluppo.giocate.righe();
    const std::uint64_t diverse = sviluppo.giocate.combinazioni.size();
    // What is played is paid, whatever was counted before.
    if (s.con_ripetizioni()) s.totale_combinazioni();
    analysis::Tavola t;
    t.titolo = titolo(aperto);
    t.note.push_back(combinazioni(static_cast<std::uint64_t>(s.totale())) + "; " + intero(diverse) +
                     " senza ripetizioni.");
    t.note.push_back("Lo sviluppo ne gioca " + intero(righe) + ".");
    t.note.push_back("Importo: " + importo(s.prezzo()) + ".");
    t.note.push_back(scritto.empty()
                         ? "Nulla è stato scritto: --scrivi mette lo sviluppo accanto al "
                           "sistema, -o altrove."
                         : "Scritto: " + platform::da_mostrare(scritto));
    suite::Json json;
    descrivi(s, json);
    json.voce("totale").intero(s.totale());
    json.voce("senza_ripetizioni").naturale(diverse);
    json.voce("giocate").naturale(righe);
    importo(s.prezzo(), json);
    json.voce("scritto");
    if (scritto.empty()) {
        json.fatto("null");
    } else {
        json.testo(scritto);
    }
    return {in_righe({&t, 1}), json.uscita(), ""};
}

}  // namespace

std::string sviluppa(const suite::Parole& parole, Contesto& contesto, Fare& fare) {
    Destinazione dove;
    if (std::string errore = dove.leggi(parole, contesto, false); !errore.empty()) return errore;
    const bool accanto = parole.ha("--scrivi");
    if (accanto && dove.data()) return "-o e --scrivi non vanno insieme";
    const std::string* ripetizioni = parole.valore("--ripetizioni");
    if (ripetizioni != nullptr && *ripetizioni != "con" && *ripetizioni != "senza")
        return "--ripetizioni vuole con o senza";
    const std::string quali = ripetizioni != nullptr ? *ripetizioni : "";
    fare = [dove, accanto, quali](Aperto& aperto) {
        if (!quali.empty()) aperto.sessione().ripetizioni(quali == "con");
        Sviluppo sviluppo;
        std::string scritto;
        std::string errore = aperto.sviluppa();
        if (errore.empty()) errore = aperto.leggi_proprio(sviluppo);
        if (errore.empty() && accanto) {
            scritto = aperto.coppia().sviluppo();
            errore = scrivi_accanto(aperto);
        } else if (errore.empty() && dove.data()) {
            scritto = dove.per(aperto, aperto.coppia().gioco.estensione_sviluppo());
            errore = Destinazione::vietata(aperto, scritto);
            if (errore.empty()) errore = scrivi_altrove(aperto, scritto);
        }
        if (!errore.empty()) return Risposta{"", "", errore};
        return rispondi(aperto, sviluppo, scritto);
    };
    return {};
}

}  // namespace sistema
