// The development as a table for other programs.
#include "check/dettaglio.h"
#include "platform/disk.h"
#include "printing/listati.h"
#include "sistema/verbi.h"
#include "viewer/esportazione.h"

namespace sistema {

namespace {

constexpr int colonne_del_lotto = 5;

/// Columns on a slip as the listing counts them; 0 when the player's file holds no such number.
int colonne_di_schedina(const Aperto& aperto) {
    const systems::Coppia propria = aperto.propria();
    return propria.gioco.e_lotto() ? colonne_del_lotto
                                   : printing::colonne_schedina(propria.cartella);
}

/// Both forms of the combinations, in the order of the development; `per_schedina` is 0 where
/// slips do not matter.
Risposta elenca(const Aperto& aperto, const Sviluppo& sviluppo, int per_schedina) {
    const int numeri = aperto.coppia().gioco.numeri();
    const auto quante = static_cast<std::int32_t>(sviluppo.giocate.righe());
    check::Lettore lettore(sviluppo.file, numeri);
    Risposta r;
    viewer::accoda_testata(r.testo, numeri, per_schedina);
    suite::Json json;
    descrivi(aperto.sessione(), json);
    if (per_schedina > 0) json.voce("colonne_per_schedina").intero(per_schedina);
    r.json = json.uscita() + ",\"combinazioni\":[";
    for (std::int32_t n = 1; n <= quante && lettore.prossimo(); ++n) {
        viewer::accoda_riga(
            r.testo, n, {lettore.colonna().data(), static_cast<std::size_t>(numeri)}, per_schedina);
        std::string riga;
        for (int i = 0; i < numeri; ++i) {
            riga +=
                (i > 0 ? "," : "") + std::to_string(lettore.colonna()[static_cast<std::size_t>(i)]);
        }
        if (per_schedina > 0) {
            const std::string scheda = std::to_string(check::scheda_di(n, per_schedina));
            const std::string posto = std::to_string((n - 1) % per_schedina + 1);
            r.json += std::string(n > 1 ? "," : "") + "{\"schedina\":" + scheda +
                      ",\"colonna\":" + posto + ",\"numeri\":[" + riga + "]}";
        } else {
            r.json += std::string(n > 1 ? "," : "") + "[" + riga + "]";
        }
    }
    r.json += "]";
    return r;
}

}  // namespace

std::string esporta(const suite::Parole& parole, Contesto& contesto, Fare& fare) {
    Destinazione dove;
    const bool piu_tabelle = contesto.sistemi > 1 && !contesto.json;
    if (std::string errore = dove.leggi(parole, contesto, false); !errore.empty()) return errore;
    if (piu_tabelle && !dove.data()) return "più sistemi vogliono una cartella dopo -o";
    const bool schede = parole.ha("--schede");
    const bool json = contesto.json;
    fare = [dove, schede, json](Aperto& aperto) {
        Sviluppo sviluppo;
        std::string errore = aperto.leggi_sviluppo(sviluppo);
        const int per_schedina = schede ? colonne_di_schedina(aperto) : 0;
        if (errore.empty() && schede && per_schedina == 0)
            errore = "col.dat non dice quante colonne ha una schedina";
        if (!errore.empty()) return Risposta{"", "", errore};
        Risposta r = elenca(aperto, sviluppo, per_schedina);
        if (!dove.data()) return r;
        const std::string file = dove.per(aperto, json ? ".json" : ".csv");
        errore = Destinazione::vietata(aperto, file);
        if (errore.empty() && platform::sostituisci(file, json ? "{" + r.json + "}\n" : r.testo) !=
                                  platform::Esito::ok) {
            errore = non_scritto(file);
        }
        if (!errore.empty()) return Risposta{"", "", errore};
        suite::Json scritto;
        scritto.voce("scritto").testo(file);
        return Risposta{titolo(aperto) + ": " + combinazioni(sviluppo.giocate.righe()) + " in " +
                            platform::da_mostrare(file) + "\n",
                        scritto.uscita(), ""};
    };
    return {};
}

}  // namespace sistema
