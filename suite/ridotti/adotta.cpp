// A table found, put among the economical ones.
#include <optional>

#include "comune.h"
#include "comune/parole.h"
#include "development/adozione.h"
#include "development/economiche.h"
#include "platform/disk.h"

namespace ridotti {

using development::Garanzia;
using development::Tabella;

namespace {

/// What was asked for.
struct Ordine {
    std::string file;
    std::string cartella;
    int numeri = 0;  ///< 0 for those that the table plays
    std::optional<Garanzia> garanzia;
};

std::string leggi_ordine(const suite::Parole& parole, Ordine& ordine) {
    if (parole.file.empty()) return "manca il nome della tabella";
    if (parole.file.size() > 1) return "adotta vuole una sola tabella";
    ordine.file = parole.file.front();
    if (const std::string* numeri = parole.valore("--numeri"); numeri != nullptr) {
        if (std::string errore = leggi_numero(parole, "--numeri", ordine.numeri); !errore.empty())
            return errore;
    }
    if (const std::string* detta = parole.valore("--garanzia"); detta != nullptr) {
        ordine.garanzia = development::leggi_garanzia(*detta);
        if (!ordine.garanzia || ordine.garanzia->righe > 1)
            return "--garanzia vuole p:t: \"" + *detta + "\" non lo è";
    }
    const std::string* cartella = parole.valore("--cartella");
    ordine.cartella = cartella != nullptr ? *cartella : cartella_delle_tabelle();
    if (!platform::esiste_cartella(ordine.cartella))
        return "la cartella delle tabelle non c'è: " + platform::da_mostrare(ordine.cartella);
    return {};
}

int rifiuta(const std::string& file, const std::string& perche) {
    lamenta(platform::da_mostrare(file) + ": " + perche);
    return garanzia_mancata;
}

}  // namespace

int adotta(const std::vector<std::string>& parole) {
    const std::array<suite::Opzione, 3> ammesse{
        {{"--garanzia", true}, {"--numeri", true}, {"--cartella", true}}};
    const suite::Parole lette = suite::leggi_parole(parole, ammesse);
    Ordine ordine;
    const std::string errore = lette.errore ? *lette.errore : leggi_ordine(lette, ordine);
    if (!errore.empty()) {
        lamenta(errore);
        return impossibile;
    }
    const auto nome = development::leggi_nome_economico(ordine.file);
    const int n = ordine.numeri > 0 ? ordine.numeri : nome ? nome->n : 0;
    TabellaLetta letta = leggi_tabella(ordine.file, n, 0);
    stampa_errori(letta);
    if (!letta.lettura.errori.empty()) return impossibile;
    Tabella& tabella = letta.lettura.tabella;
    const auto gioco = gioco_di(tabella.k);
    if (!gioco) {
        return rifiuta(ordine.file,
                       "nessun gioco ha combinazioni di " + std::to_string(tabella.k) + " numeri");
    }
    const auto quante = tabella.righe.size();
    const int giocati = tabella.k;
    const int su = tabella.n;
    const development::Adozione esito =
        development::adotta(std::move(tabella), *gioco, ordine.garanzia, ordine.cartella);
    if (esito.scrivendo) {
        lamenta(esito.rifiuto);
        return impossibile;
    }
    if (!esito.rifiuto.empty()) return rifiuta(ordine.file, esito.rifiuto);
    stampa(platform::da_mostrare(ordine.cartella + "/" + esito.nome) + ": " + righe(quante) +
           " di " + std::to_string(giocati) + " su " + std::to_string(su) + " numeri; " +
           in_parole(esito.garanzia) + ": VALE\n");
    return riuscito;
}

}  // namespace ridotti
