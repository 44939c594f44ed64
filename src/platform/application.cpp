#include "platform/application.h"

#include "platform/disk.h"
#include "platform/installazione.h"
#include "platform/macchina.h"

namespace platform {

namespace {

constexpr std::string_view nome_cartella = "cruciverba";

/// The suite that the program came with.
std::string suite_del_programma(const std::string& eseguibile, const std::string& condivisi) {
    const std::size_t barra = eseguibile.rfind('/');
    if (barra == std::string::npos || esiste_cartella(condivisi + "/ridotti")) return condivisi;
    const std::string sopra = eseguibile.substr(0, barra);
    const bool suite =
        eseguibile.substr(barra + 1) == nome_cartella || esiste_cartella(sopra + "/ridotti");
    return suite ? sopra : condivisi;
}

}  // namespace

std::string Application::versione() const {
    return std::to_string(Major) + "." + std::to_string(Minor) + "." + std::to_string(Revision);
}

std::string radice(std::string_view percorso) {
    return std::string(percorso.substr(
        0, percorso.size() >= nome_cartella.size() ? percorso.size() - nome_cartella.size() : 0));
}

std::string trova_cartella(const std::string& eseguibile, const std::string& condivisi) {
    const std::size_t barra = eseguibile.rfind('/');
    if (barra != std::string::npos && eseguibile.substr(barra + 1) == nome_cartella &&
        cartella_scrivibile(eseguibile)) {
        return eseguibile;
    }
    const std::string utente = macchina::dati_utente() + "/sortivario";
    const std::string programma(nome_cartella);
    riempi_radice(suite_del_programma(eseguibile, condivisi), utente, programma);
    return utente + "/" + programma;
}

std::string cartella_eseguibile() {
    return macchina::cartella_eseguibile();
}

}  // namespace platform
