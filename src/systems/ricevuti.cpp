#include "systems/ricevuti.h"

#include <algorithm>

#include "platform/disk.h"
#include "platform/runtime.h"
#include "systems/elenco.h"

namespace systems {

namespace {

using crossword::Gioco;

void accoda(std::vector<Coppia>& coppie, const std::string& cartella, const std::string& file) {
    for (const Gioco gioco : {Gioco::superenalotto(), Gioco::lotto()}) {
        for (const std::string& fine :
             {std::string(gioco.estensione_sistema()), std::string(gioco.estensione_sviluppo())}) {
            if (file.size() <= fine.size() || !platform::LCase(file).ends_with(fine)) continue;
            const Coppia c{cartella, file.substr(0, file.size() - fine.size()), gioco};
            const auto stessa = [&c](const Coppia& altra) {
                return altra.sistema() == c.sistema();
            };
            if (!nome_ammesso(c.nome) || !platform::esiste_file(c.sistema()) ||
                std::any_of(coppie.begin(), coppie.end(), stessa)) {
                return;
            }
            coppie.push_back(c);
            return;
        }
    }
}

std::string quanti(int n, const char* uno, const char* tanti) {
    return n == 1 ? uno : std::to_string(n) + " " + tanti;
}

}  // namespace

std::vector<Coppia> sistemi_ricevuti(const std::vector<std::string>& percorsi) {
    std::vector<Coppia> coppie;
    for (const std::string& percorso : percorsi) {
        if (platform::esiste_cartella(percorso)) {
            for (const Gioco gioco : {Gioco::superenalotto(), Gioco::lotto()}) {
                const std::string modello = "*" + std::string(gioco.estensione_sistema());
                for (const std::string& file : platform::Dir(percorso, modello)) {
                    accoda(coppie, percorso, file);
                }
            }
            continue;
        }
        const std::size_t barra = percorso.rfind('/');
        if (barra == std::string::npos) continue;
        accoda(coppie, percorso.substr(0, barra + 1), percorso.substr(barra + 1));
    }
    return coppie;
}

std::string esito_detto(const Ricevuti& r) {
    std::string testo = r.importati == 0
                            ? "Nessun sistema importato"
                            : quanti(r.importati, "Un sistema importato", "sistemi importati");
    if (r.lasciati > 0)
        testo += ", " + quanti(r.lasciati, "uno rimasto", "rimasti") +
                 (r.lasciati == 1 ? " com'era" : " com'erano");
    if (r.falliti > 0) testo += ", " + quanti(r.falliti, "uno non riuscito", "non riusciti");
    return testo;
}

}  // namespace systems
