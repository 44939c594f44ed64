// Other numbers in the same crossword, one for one.
#include <algorithm>
#include <map>

#include "platform/disk.h"
#include "sistema/verbi.h"

namespace sistema {

namespace {

/// What each number becomes.
using Cambi = std::map<int, int>;

/// "5=12,7=80"; empty for any other text.
Cambi leggi_cambi(const std::string& testo) {
    Cambi cambi;
    std::vector<int> nuovi;
    std::size_t da = 0;
    while (da <= testo.size()) {
        const std::size_t a = std::min(testo.find(',', da), testo.size());
        const std::size_t uguale = std::min(testo.find('=', da), a);
        const std::vector<int> vecchio = leggi_numeri(testo.substr(da, uguale - da));
        const std::vector<int> nuovo = uguale < a
                                           ? leggi_numeri(testo.substr(uguale + 1, a - uguale - 1))
                                           : std::vector<int>();
        if (vecchio.size() != 1 || nuovo.size() != 1 || cambi.contains(vecchio[0])) return {};
        if (std::find(nuovi.begin(), nuovi.end(), nuovo[0]) != nuovi.end()) return {};
        cambi[vecchio[0]] = nuovo[0];
        nuovi.push_back(nuovo[0]);
        da = a + 1;
    }
    return cambi;
}

/// The numbers in play become those of the list, in ascending order; why not, empty when they can.
std::string abbina(const std::vector<int>& in_gioco, const std::vector<int>& nuovi, Cambi& cambi) {
    if (nuovi.size() != in_gioco.size()) {
        return "il cruciverba ha " + std::to_string(in_gioco.size()) +
               " numeri, e quelli nuovi sono " + std::to_string(nuovi.size());
    }
    for (std::size_t i = 0; i < nuovi.size(); ++i) cambi[in_gioco[i]] = nuovi[i];
    return {};
}

/// Why some numbers cannot change so, empty when they can.
std::string controlla(const std::vector<int>& in_gioco, const Cambi& cambi) {
    const auto c_e = [&](int n) { return std::binary_search(in_gioco.begin(), in_gioco.end(), n); };
    for (const auto& [vecchio, nuovo] : cambi) {
        if (!c_e(vecchio)) return "il cruciverba non ha il " + std::to_string(vecchio);
        if (c_e(nuovo) && !cambi.contains(nuovo)) {
            return "il " + std::to_string(nuovo) + " è già nel cruciverba: deve cambiare anche lui";
        }
    }
    return {};
}

/// Lays the crossword anew by the rule of the board; why not, empty when it did.
std::string ridisponi(systems::Sessione& s, const Cambi& cambi) {
    const crossword::Matrice prima = s.matrice();
    const auto per_cella = [&](const auto& fare) {
        for (int y = 0; y < prima.righe(); ++y) {
            for (int x = 0; x < prima.colonne(); ++x) fare(systems::Cella{x, y});
        }
    };
    per_cella([&](systems::Cella c) { s.rimuovi(c); });
    int sbarrato = 0;
    per_cella([&](systems::Cella c) {
        const int vecchio = prima(c.colonna, c.riga);
        const auto cambio = cambi.find(vecchio);
        const int nuovo = cambio == cambi.end() ? vecchio : cambio->second;
        if (s.posa(c, nuovo) != systems::Posata::posata) sbarrato = nuovo;
    });
    if (sbarrato != 0)
        return "il " + std::to_string(sbarrato) + " starebbe più di una volta sulla stessa linea";
    // What was counted is of the old numbers' development.
    s.totale_combinazioni();
    return {};
}

}  // namespace

std::string sostituisci(const suite::Parole& parole, Contesto& contesto, Fare& fare) {
    Destinazione dove;
    if (std::string errore = dove.leggi(parole, contesto, true); !errore.empty()) return errore;
    const std::string* numeri = parole.valore("--numeri");
    const std::string* coppie = parole.valore("--cambia");
    if ((numeri != nullptr) == (coppie != nullptr)) return "serve uno fra --numeri e --cambia";
    const std::vector<int> nuovi = numeri != nullptr ? leggi_numeri(*numeri) : std::vector<int>();
    const Cambi detti = coppie != nullptr ? leggi_cambi(*coppie) : Cambi();
    if (numeri != nullptr && nuovi.empty())
        return "--numeri vuole numeri diversi da 1 a 90, separati da virgole";
    if (coppie != nullptr && detti.empty())
        return "--cambia vuole coppie come 5=12,7=80, ogni numero una volta sola";
    const bool sovrascrivi = parole.ha("--sovrascrivi");
    fare = [dove, nuovi, detti, sovrascrivi](Aperto& aperto) {
        const std::vector<int> in_gioco = crossword::numeri_in_gioco(aperto.sessione().matrice());
        Cambi cambi = detti;
        systems::Coppia coppia;
        std::string errore = nuovi.empty() ? "" : abbina(in_gioco, nuovi, cambi);
        if (errore.empty()) errore = controlla(in_gioco, cambi);
        if (errore.empty()) {
            errore = arrivo(dove.per(aperto, aperto.coppia().gioco.estensione_sistema()), aperto,
                            sovrascrivi, coppia);
        }
        if (errore.empty()) errore = ridisponi(aperto.sessione(), cambi);
        if (errore.empty()) errore = scrivi(aperto, coppia);
        if (!errore.empty()) return Risposta{"", "", errore};
        suite::Json json;
        json.voce("scritto").testo(coppia.sistema()).voce("cambi").apri('{');
        for (const auto& [vecchio, nuovo] : cambi) json.voce(std::to_string(vecchio)).intero(nuovo);
        json.chiudi('}');
        return Risposta{titolo(aperto) + ": " + platform::da_mostrare(coppia.sistema()) +
                            " ha gli stessi posti e altri numeri; va sviluppato.\n",
                        json.uscita(), ""};
    };
    return {};
}

}  // namespace sistema
