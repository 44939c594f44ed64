#include "comune/parole.h"

#include <algorithm>

namespace suite {

const std::string* Parole::valore(const std::string& nome) const {
    const auto quale = opzioni.find(nome);
    return quale == opzioni.end() ? nullptr : &quale->second;
}

Parole leggi_parole(std::span<const std::string> parole, std::span<const Opzione> ammesse) {
    Parole lette;
    bool solo_file = false;
    for (std::size_t i = 0; i < parole.size(); ++i) {
        const std::string& parola = parole[i];
        if (solo_file || !parola.starts_with('-')) {
            lette.file.push_back(parola);
            continue;
        }
        if (parola == "--") {
            solo_file = true;
            continue;
        }
        const auto opzione = std::find_if(ammesse.begin(), ammesse.end(),
                                          [&](const Opzione& o) { return o.nome == parola; });
        if (opzione == ammesse.end()) {
            lette.errore = "opzione sconosciuta: " + parola;
            return lette;
        }
        if (opzione->con_valore && i + 1 == parole.size()) {
            lette.errore = parola + " vuole un valore";
            return lette;
        }
        lette.opzioni[parola] = opzione->con_valore ? parole[++i] : "";
    }
    return lette;
}

}  // namespace suite
