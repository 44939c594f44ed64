#include <algorithm>

#include "comune.h"
#include "platform/disk.h"

namespace ridotti {

using development::Garanzia;
using development::GaranziaDiTabella;
using development::Tabella;
using development::Vincite;

namespace {

/// A guarantee of the list beside the table, with its proof.
struct Provata {
    Garanzia garanzia;
    bool vale = false;
};

/// Proves the guarantees that the list in the table's folder names for it; a table of the
/// player's own has none.
std::vector<Provata> ulteriori(const TabellaLetta& letta, const std::vector<Vincite>& tutte) {
    std::vector<Provata> provate;
    if (!letta.nome) return provate;
    const std::size_t barra = letta.file.find_last_of('/');
    const std::string elenco =
        (barra == std::string::npos ? "" : letta.file.substr(0, barra + 1)) + "garanzie.csv";
    const std::optional<std::string> contenuto = platform::leggi_tutto(elenco, 1 << 20);
    if (!contenuto) return provate;
    const development::ElencoGaranzie lette = development::leggi_elenco(*contenuto);
    for (const development::ErroreRiga& errore : lette.errori) {
        lamenta(platform::da_mostrare(elenco) + ":" + std::to_string(errore.riga) + ": " +
                errore.testo);
    }
    for (const GaranziaDiTabella& voce : lette.voci) {
        if (voce.tabella != letta.nome->testo()) continue;
        const auto p = static_cast<std::size_t>(voce.garanzia.p);
        const Vincite v = p <= tutte.size()
                              ? tutte[p - 1]
                              : development::vincite(letta.lettura.tabella, voce.garanzia.p);
        provate.push_back({voce.garanzia, v.vale(voce.garanzia)});
    }
    return provate;
}

std::vector<std::string> medie(const Vincite& v, char separatore) {
    std::vector<std::string> testi;
    for (const std::uint64_t quante : v.righe) {
        std::string testo =
            decimale(static_cast<double>(quante) / static_cast<double>(v.gruppi), 4);
        std::replace(testo.begin(), testo.end(), ',', separatore);
        testi.push_back(std::move(testo));
    }
    return testi;
}

Garanzia garantita(const Vincite& v) {
    const int t = v.garantito();
    return {v.p, t, static_cast<int>(v.minime[static_cast<std::size_t>(t)])};
}

std::string in_testo(const Vincite& v) {
    std::string uscita = "Con " + estratti(v.p) + " (" + casi(v.gruppi) + "): ";
    const Garanzia g = garantita(v);
    uscita += g.t == 0 ? "nessuna garanzia\n"
                       : "sempre" + in_parole(g).substr(in_parole(g).find(" almeno")) + "\n";
    uscita += "  indovinati  casi in cui è il massimo   su cento   righe in media\n";
    const std::vector<std::string> righe_medie = medie(v, ',');
    for (std::size_t j = v.migliore.size(); j-- > 0;) {
        if (static_cast<int>(j) > v.p) continue;
        const auto a_destra = [](const std::string& testo, std::size_t largo) {
            return std::string(largo - std::min(largo, testo.size()), ' ') + testo;
        };
        uscita += a_destra(std::to_string(j), 12) + a_destra(std::to_string(v.migliore[j]), 26) +
                  a_destra(decimale(100.0 * static_cast<double>(v.migliore[j]) /
                                        static_cast<double>(v.gruppi),
                                    2),
                           11) +
                  a_destra(righe_medie[j], 17) + "\n";
    }
    return uscita + "\n";
}

std::string in_testo(const TabellaLetta& letta, const std::vector<Vincite>& tutte,
                     const std::vector<Provata>& provate) {
    const Tabella& tabella = letta.lettura.tabella;
    std::string uscita = platform::da_mostrare(letta.file) + ": " + righe(tabella.righe.size()) +
                         " di " + std::to_string(tabella.k) + " su " + std::to_string(tabella.n) +
                         " numeri\n\n";
    if (!provate.empty()) {
        uscita += "Garanzie senza eccezioni:\n";
        for (const Provata& provata : provate) {
            uscita +=
                "  " + in_parole(provata.garanzia) + (provata.vale ? "" : ": NON VALE") + "\n";
        }
        uscita += "\n";
    }
    for (const Vincite& v : tutte) uscita += in_testo(v);
    return uscita;
}

std::string in_json(const TabellaLetta& letta, const std::vector<Vincite>& tutte,
                    const std::vector<Provata>& provate) {
    const Tabella& tabella = letta.lettura.tabella;
    std::string uscita = "{\"file\":" + json(letta.file) +
                         ",\"righe\":" + std::to_string(tabella.righe.size()) +
                         ",\"k\":" + std::to_string(tabella.k) +
                         ",\"n\":" + std::to_string(tabella.n) + ",\"estratti\":[";
    for (const Vincite& v : tutte) {
        if (&v != tutte.data()) uscita += ",";
        uscita += "\n{\"p\":" + std::to_string(v.p) + ",\"casi\":" + std::to_string(v.gruppi) +
                  ",\"garantita\":" + json(garantita(v)) + ",\"migliore\":" + json(v.migliore) +
                  ",\"medie\":[";
        bool primo = true;
        for (const std::string& media : medie(v, '.')) {
            uscita += (primo ? "" : ",") + media;
            primo = false;
        }
        uscita += "]}";
    }
    uscita += "],\n\"garanzie\":[";
    bool primo = true;
    for (const Provata& provata : provate) {
        uscita += std::string(primo ? "" : ",") + "\n{\"garanzia\":" + json(provata.garanzia) +
                  ",\"vale\":" + (provata.vale ? "true" : "false") +
                  ",\"testo\":" + json(in_parole(provata.garanzia)) + "}";
        primo = false;
    }
    return uscita + "],\n\"errori\":[],\"avvisi\":" + json(letta.lettura.avvisi) + "}\n";
}

}  // namespace

int vincite(const std::vector<std::string>& parole) {
    const Opzioni opzioni = leggi_opzioni(parole, {"--json"});
    if (opzioni.errore || opzioni.file.size() != 1) {
        lamenta(opzioni.errore         ? *opzioni.errore
                : opzioni.file.empty() ? "manca il nome della tabella"
                                       : "vincite vuole una sola tabella");
        return impossibile;
    }
    const TabellaLetta letta = leggi_tabella(opzioni.file.front());
    stampa_errori(letta);
    if (!letta.lettura.errori.empty()) {
        if (opzioni.json) {
            stampa("{\"file\":" + json(letta.file) + ",\"errori\":" + json(letta.lettura.errori) +
                   ",\"avvisi\":" + json(letta.lettura.avvisi) + "}\n");
        }
        return impossibile;
    }
    std::vector<Vincite> tutte;
    {
        Progresso progresso(platform::da_mostrare(letta.file));
        tutte = development::tutte_le_vincite(letta.lettura.tabella, progresso.avanzamento());
    }
    const std::vector<Provata> provate = ulteriori(letta, tutte);
    stampa(opzioni.json ? in_json(letta, tutte, provate) : in_testo(letta, tutte, provate));
    const bool tutte_valide =
        std::all_of(provate.begin(), provate.end(), [](const Provata& p) { return p.vale; });
    return tutte_valide ? riuscito : garanzia_mancata;
}

}  // namespace ridotti
