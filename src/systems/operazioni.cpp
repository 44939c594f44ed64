#include "systems/operazioni.h"

#include <algorithm>

#include "platform/links.h"
#include "systems/elenco.h"

namespace systems {

using platform::Esito;

namespace {

std::string con_barra(const std::string& cartella) {
    return !cartella.empty() && cartella.back() == '/' ? cartella : cartella + "/";
}

Passi rifiutati() {
    return {Esito::errore, Esito::errore};
}

/// True when the names of both pairs can be files of their folders.
bool ammesse(const Coppia& a, const Coppia& b) {
    return nome_ammesso(a.nome) && nome_ammesso(b.nome);
}

Esito elimina_file(const std::string& nome) {
    return platform::esiste_file(nome) ? platform::Kill(nome) : Esito::assente;
}

Esito rinomina_file(const std::string& vecchio, const std::string& nuovo) {
    return platform::esiste_file(vecchio) ? platform::Name(vecchio, nuovo) : Esito::assente;
}

Esito copia_file(const std::string& origine, const std::string& arrivo,
                 platform::Meta meta = platform::Meta::via) {
    if (!platform::esiste_file(origine)) return Esito::assente;
    // A link out of the folder would carry a stranger's file into the library, or out of it.
    if (platform::esce_dalla_cartella(origine)) return Esito::errore;
    return platform::FileCopy(origine, arrivo, meta);
}

Esito libera_file(const std::string& origine, const std::string& arrivo) {
    return platform::stesso_file(origine, arrivo) ? Esito::assente : elimina_file(arrivo);
}

}  // namespace

std::string Coppia::sistema() const {
    return con_barra(cartella) + nome + gioco.estensione_sistema();
}

std::string Coppia::sviluppo() const {
    return con_barra(cartella) + nome + gioco.estensione_sviluppo();
}

bool nome_valido(std::string_view nome) {
    return std::all_of(nome.begin(), nome.end(), [](char c) {
        return c == 8 || (c >= '0' && c <= '9') || (c >= '@' && c <= 'Z') || (c >= 'a' && c <= 'z');
    });
}

bool controllo_sistemi_esistenti(const std::string& cartella, const std::string& nome) {
    return !nome_ammesso(nome) || !platform::esiste_file(con_barra(cartella) + nome);
}

Passi rinomina(const Coppia& vecchia, const std::string& nuovo) {
    const Coppia nuova{vecchia.cartella, nuovo, vecchia.gioco};
    if (!ammesse(vecchia, nuova)) return rifiutati();
    Passi passi;
    passi.sviluppo = rinomina_file(vecchia.sviluppo(), nuova.sviluppo());
    passi.sistema = rinomina_file(vecchia.sistema(), nuova.sistema());
    return passi;
}

Passi elimina(const Coppia& coppia) {
    if (!nome_ammesso(coppia.nome)) return rifiutati();
    Passi passi;
    passi.sviluppo = elimina_file(coppia.sviluppo());
    passi.sistema = elimina_file(coppia.sistema());
    return passi;
}

Passi libera(const Coppia& origine, const Coppia& arrivo) {
    if (!ammesse(origine, arrivo) || !platform::esiste_file(origine.sistema()) ||
        platform::esce_dalla_cartella(origine.sistema())) {
        return rifiutati();
    }
    Passi passi;
    passi.sviluppo = libera_file(origine.sviluppo(), arrivo.sviluppo());
    passi.sistema = libera_file(origine.sistema(), arrivo.sistema());
    return passi;
}

std::vector<std::string> elimina_tutti(const std::string& cartella, crossword::Gioco gioco) {
    std::vector<std::string> rimasti;
    for (const char* estensione : {gioco.estensione_sviluppo(), gioco.estensione_sistema()}) {
        for (const std::string& nome : platform::Dir(cartella, std::string("*") + estensione)) {
            if (platform::Kill(con_barra(cartella) + nome) != Esito::ok) rimasti.push_back(nome);
        }
    }
    return rimasti;
}

Passi duplica(const Coppia& origine, const Coppia& arrivo, const Pausa& pausa) {
    if (!ammesse(origine, arrivo)) return rifiutati();
    Passi passi;
    passi.sviluppo = copia_file(origine.sviluppo(), arrivo.sviluppo());
    pausa();
    passi.sistema = copia_file(origine.sistema(), arrivo.sistema());
    pausa();
    return passi;
}

Passi importa(const Coppia& origine, const Coppia& arrivo) {
    if (!ammesse(origine, arrivo)) return rifiutati();
    Passi passi;
    passi.sistema = copia_file(origine.sistema(), arrivo.sistema());
    passi.sviluppo = copia_file(origine.sviluppo(), arrivo.sviluppo());
    return passi;
}

Passi invia(const Coppia& origine, const Coppia& arrivo) {
    if (!ammesse(origine, arrivo)) return rifiutati();
    // Nothing else ever looks after the foreign folder.
    platform::spazza(arrivo.cartella);
    Passi passi;
    passi.sistema = copia_file(origine.sistema(), arrivo.sistema(), platform::Meta::resta);
    if (!passi.disco_pieno()) {
        passi.sviluppo = copia_file(origine.sviluppo(), arrivo.sviluppo(), platform::Meta::resta);
    }
    return passi;
}

}  // namespace systems
