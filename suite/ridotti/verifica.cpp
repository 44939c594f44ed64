#include <algorithm>

#include "comune.h"
#include "development/economiche.h"
#include "platform/disk.h"

namespace ridotti {

using development::Buchi;
using development::Garanzia;

namespace {

constexpr std::size_t buchi_elencati = 10'000;

/// Why a guarantee cannot be asked of a table, empty when it can.
std::string insensata(const Garanzia& garanzia, const development::Tabella& tabella) {
    if (garanzia.p > tabella.n) {
        return "non si estraggono " + std::to_string(garanzia.p) + " numeri su " +
               std::to_string(tabella.n);
    }
    if (garanzia.t > tabella.k) {
        return "nessuna riga di " + std::to_string(tabella.k) + " numeri ne contiene " +
               std::to_string(garanzia.t);
    }
    return "";
}

std::string in_json(const TabellaLetta& letta, const std::optional<Garanzia>& garanzia,
                    const Buchi& mancati) {
    const development::Lettura& lettura = letta.lettura;
    std::string uscita = "{\"file\":" + json(letta.file);
    if (lettura.errori.empty()) {
        uscita += ",\"righe\":" + std::to_string(lettura.tabella.righe.size()) +
                  ",\"k\":" + std::to_string(lettura.tabella.k) +
                  ",\"n\":" + std::to_string(lettura.tabella.n);
    }
    if (lettura.errori.empty() && garanzia) {
        uscita += ",\"garanzia\":" + json(*garanzia) +
                  ",\"vale\":" + (mancati.quanti == 0 ? "true" : "false") +
                  ",\"scoperti\":" + std::to_string(mancati.quanti) + ",\"buchi\":[";
        for (std::size_t i = 0; i < mancati.primi.size(); ++i) {
            uscita += (i == 0 ? "" : ",") + json_posizioni(mancati.primi[i]);
        }
        uscita += "]";
    }
    return uscita + ",\"errori\":" + json(lettura.errori) + ",\"avvisi\":" + json(lettura.avvisi) +
           "}";
}

std::string in_testo(const TabellaLetta& letta, const Garanzia& garanzia, const Buchi& mancati) {
    const development::Tabella& tabella = letta.lettura.tabella;
    std::string uscita = platform::da_mostrare(letta.file) + ": " + righe(tabella.righe.size()) +
                         " di " + std::to_string(tabella.k) + " su " + std::to_string(tabella.n) +
                         " numeri; " + in_parole(garanzia) + ": ";
    if (mancati.quanti == 0) return uscita + "VALE\n";
    uscita +=
        "NON VALE, " + casi(mancati.quanti) + (mancati.quanti == 1 ? " scoperto\n" : " scoperti\n");
    for (const development::Maschera buco : mancati.primi) {
        uscita += "  " + development::posizioni(buco) + "\n";
    }
    if (mancati.quanti > mancati.primi.size()) {
        uscita += "  e altri " + std::to_string(mancati.quanti - mancati.primi.size()) + "\n";
    }
    return uscita;
}

/// What the file's name says that the table gives: that of the lists, or what an economical
/// table's number stands for; of one under a number of the player's own, what it is sure of.
std::optional<Garanzia> detta_dal_nome(const TabellaLetta& letta) {
    if (letta.nome) return development::garanzia_dichiarata(*letta.nome);
    const auto economica = development::leggi_nome_economico(letta.file);
    if (!economica) return std::nullopt;
    const auto gioco = gioco_di(economica->k());
    if (!gioco) return std::nullopt;
    const auto del_numero = development::garanzia_del_numero(*gioco, economica->tipo);
    return del_numero || !letta.lettura.errori.empty()
               ? del_numero
               : development::garanzia_migliore(letta.lettura.tabella, *gioco);
}

int un_file(const std::string& file, const Opzioni& opzioni, std::string& uscita) {
    TabellaLetta letta = leggi_tabella(file);
    std::optional<Garanzia> garanzia = opzioni.garanzia;
    if (!garanzia) garanzia = detta_dal_nome(letta);
    if (letta.lettura.errori.empty()) {
        std::string errore = garanzia ? insensata(*garanzia, letta.lettura.tabella)
                                      : "il nome non dice quale garanzia provare: serve --garanzia";
        if (!errore.empty()) letta.lettura.errori.push_back({0, std::move(errore)});
    }
    Buchi mancati;
    if (letta.lettura.errori.empty()) {
        Progresso progresso(platform::da_mostrare(file));
        mancati = development::buchi(letta.lettura.tabella, *garanzia, buchi_elencati,
                                     progresso.avanzamento());
    }
    stampa_errori(letta);
    if (opzioni.json) uscita += (uscita.empty() ? "" : ",\n") + in_json(letta, garanzia, mancati);
    if (!letta.lettura.errori.empty()) return impossibile;
    if (!opzioni.json) stampa(in_testo(letta, *garanzia, mancati));
    return mancati.quanti == 0 ? riuscito : garanzia_mancata;
}

}  // namespace

int verifica(const std::vector<std::string>& parole) {
    const Opzioni opzioni = leggi_opzioni(parole, {"--json", "--garanzia"});
    if (opzioni.errore || opzioni.file.empty()) {
        lamenta(opzioni.errore ? *opzioni.errore : "manca il nome della tabella");
        return impossibile;
    }
    int codice = riuscito;
    std::string uscita;
    for (const std::string& file : opzioni.file) {
        codice = std::max(codice, un_file(file, opzioni, uscita));
    }
    if (opzioni.json) stampa("[" + uscita + "]\n");
    return codice;
}

}  // namespace ridotti
