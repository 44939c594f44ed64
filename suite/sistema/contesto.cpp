#include "sistema/contesto.h"

#include "analysis/passato.h"
#include "platform/application.h"
#include "statistics/archivio.h"

namespace sistema {

Contesto::Contesto(const Mezzi& a, std::string cartella)
    : ambiente(a), programma(std::move(cartella)), passato(platform::radice(programma)) {}

std::string Passato::leggi(crossword::Gioco gioco, const std::string& ruota,
                           const std::vector<analysis::Estrazione>*& estrazioni) {
    const auto [dove, nuove] = lette_.try_emplace({gioco.e_lotto(), ruota});
    estrazioni = &dove->second;
    if (!nuove) return {};
    platform::Err esito;
    if (!aperto_) {
        esito = platform::OpenDatabase(statistics::file_archivio(radice_), false, true, database_);
        aperto_ = esito.ok();
    }
    if (aperto_) esito = analysis::leggi_passato(database_, gioco, ruota, dove->second);
    if (esito.ok()) return {};
    lette_.erase(dove);
    return "l'archivio delle estrazioni non si può leggere: " + std::string(esito.Description());
}

}  // namespace sistema
