#include "systems/elenco.h"

#include <cstdint>

#include "platform/disk.h"
#include "platform/runtime.h"
#include "platform/text_file.h"

namespace systems {

namespace {

/// Values of a head that outlive a file that cannot be read.
struct Testa {
    std::uint8_t ultima_riga = 0;
    std::uint8_t ultima_colonna = 0;
    std::uint8_t forma = 0;
};

void leggi_testa(const std::string& nome, crossword::Gioco gioco, Testa& testa) {
    platform::TextReader file(nome, platform::TextReader::testa);
    std::string non_tenuto;
    file.campo(non_tenuto);
    file.intero(testa.ultima_riga);
    file.intero(testa.ultima_colonna);
    if (!gioco.e_lotto()) return;
    for (int i = 4; i <= 7; ++i) file.campo(non_tenuto);
    file.intero(testa.forma);
}

std::string testo_dimensione(const Testa& testa, crossword::Gioco gioco) {
    if (!gioco.e_lotto()) {
        return std::to_string(testa.ultima_riga + 1) + " x" +
               platform::Str(testa.ultima_colonna + 1);
    }
    return crossword::Gioco::lotto(testa.forma).nome_combinazioni();
}

}  // namespace

std::vector<Voce> trova_sistemi(const std::string& cartella, const std::string& programma,
                                crossword::Gioco gioco) {
    std::vector<Voce> voci;
    Testa testa;
    std::string data;
    const std::string modello = std::string("*") + gioco.estensione_sistema();
    for (const std::string& nome : platform::Dir(cartella, modello)) {
        const std::string file = programma + "/" + nome;
        leggi_testa(file, gioco, testa);
        const std::string creazione = ShowFileInfo(file);
        if (!creazione.empty()) data = creazione.substr(0, 8);
        voci.push_back({nome.substr(0, nome.size() - 4), testo_dimensione(testa, gioco), data});
    }
    return voci;
}

std::string ShowFileInfo(const std::string& nome) {
    const auto secondi = platform::data_creazione(nome);
    return secondi ? platform::testo_data_ora(*secondi) : "";
}

int tasto_nome(int codice) {
    if (codice == 8) return codice;
    if (codice >= '0' && codice <= '9') return codice;
    if (codice >= 'A' && codice <= 'Z') return codice + ('a' - 'A');
    if (codice >= 'a' && codice <= 'z') return codice;
    return 0;
}

bool nome_ammesso(std::string_view nome) {
    return !nome.empty() && nome != "." && nome != ".." &&
           nome.find_first_of(std::string_view("/\\\0", 3)) == std::string_view::npos;
}

}  // namespace systems
