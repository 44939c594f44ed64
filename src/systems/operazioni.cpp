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

/// One file of a pair on its way to the place of another.
struct Copia {
    Copia(const std::string& da, const std::string& a, const std::string& con)
        : origine(da), arrivo(a), lavoro(con) {}
    Copia(const Copia&) = delete;
    Copia& operator=(const Copia&) = delete;
    /// What did not arrive goes.
    ~Copia() { elimina_file(lavoro); }

    std::string origine;
    std::string arrivo;
    std::string lavoro;  ///< where the copy waits, in the folder of `arrivo`
    bool ferma = false;  ///< both names mean one file
    Esito esito = Esito::assente;
};

/// Replaces a pair by another, of which it first has whole copies.
class Sostituzione {
public:
    Sostituzione(const Coppia& origine, const Coppia& arrivo, Vecchia vecchia)
        : vecchia_(vecchia),
          sistema_(origine.sistema(), arrivo.sistema(), lavoro(arrivo, 100)),
          sviluppo_(origine.sviluppo(), arrivo.sviluppo(), lavoro(arrivo, 101)),
          da_parte_(lavoro(arrivo, 102)) {}

    Esito prepara_sistema() { return prepara(sistema_); }
    Esito prepara_sviluppo() { return prepara(sviluppo_); }

    /// Both copies take their places, or neither.
    Passi compi() {
        const bool intere = sistema_.esito == Esito::ok &&
                            (sviluppo_.esito == Esito::ok || sviluppo_.esito == Esito::assente);
        if (!intere || !scosta_sviluppo()) return rimaste();
        sistema_.esito = arriva(sistema_);
        if (sistema_.esito != Esito::ok) {
            rinomina_file(da_parte_, sviluppo_.arrivo);
            return rimaste();
        }
        if (sviluppo_.esito == Esito::ok) sviluppo_.esito = arriva(sviluppo_);
        elimina_file(da_parte_);
        return {sistema_.esito, sviluppo_.esito};
    }

private:
    static std::string lavoro(const Coppia& arrivo, int quale) {
        return platform::nome_di_lavoro(arrivo.cartella, quale);
    }

    Esito prepara(Copia& copia) const {
        copia.ferma = platform::stesso_file(copia.origine, copia.arrivo);
        if (copia.ferma) {
            copia.esito = Esito::ok;
        } else if (vecchia_ == Vecchia::ceduta && platform::collegamento(copia.arrivo)) {
            // Unasked, a link is neither written through nor replaced.
            copia.esito = Esito::errore;
        } else {
            const bool c_era = platform::esiste_file(copia.origine);
            copia.esito = copia_file(copia.origine, copia.lavoro);
            // One that vanishes on the way is not one that never was.
            if (c_era && copia.esito == Esito::assente) copia.esito = Esito::errore;
        }
        return copia.esito;
    }

    /// Between the two arrivals the old development would stand beside another crossword.
    bool scosta_sviluppo() {
        const bool cede = sviluppo_.esito == Esito::ok || vecchia_ == Vecchia::tolta;
        if (sviluppo_.ferma || !cede) return true;
        const Esito esito = rinomina_file(sviluppo_.arrivo, da_parte_);
        if (esito == Esito::ok || esito == Esito::assente) return true;
        sistema_.esito = esito;
        return false;
    }

    [[nodiscard]] Esito arriva(const Copia& copia) const {
        if (copia.ferma) return Esito::ok;
        return platform::pubblica(
            copia.lavoro, copia.arrivo, platform::dimensione_file(copia.lavoro).value_or(-1),
            vecchia_ == Vecchia::tolta ? platform::Creazione::nuova : platform::Creazione::resta);
    }

    /// Nothing was replaced: what was copied all the same counts as failed.
    [[nodiscard]] Passi rimaste() const {
        const auto fallito = [](Esito e) { return e == Esito::ok ? Esito::errore : e; };
        return {fallito(sistema_.esito), fallito(sviluppo_.esito)};
    }

    Vecchia vecchia_;
    Copia sistema_;
    Copia sviluppo_;
    std::string da_parte_;
};

/// True when the pair does not come to a free place.
bool da_sostituire(const Coppia& arrivo, Vecchia vecchia) {
    return vecchia == Vecchia::tolta || platform::esiste_file(arrivo.sistema());
}

Passi sostituisci(const Coppia& origine, const Coppia& arrivo, Vecchia vecchia) {
    Sostituzione sostituzione(origine, arrivo, vecchia);
    sostituzione.prepara_sistema();
    sostituzione.prepara_sviluppo();
    return sostituzione.compi();
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

std::vector<std::string> elimina_tutti(const std::string& cartella, crossword::Gioco gioco) {
    std::vector<std::string> rimasti;
    for (const char* estensione : {gioco.estensione_sviluppo(), gioco.estensione_sistema()}) {
        for (const std::string& nome : platform::Dir(cartella, std::string("*") + estensione)) {
            if (platform::Kill(con_barra(cartella) + nome) != Esito::ok) rimasti.push_back(nome);
        }
    }
    return rimasti;
}

Passi duplica(const Coppia& origine, const Coppia& arrivo, const Pausa& pausa, Vecchia vecchia) {
    if (!ammesse(origine, arrivo)) return rifiutati();
    if (da_sostituire(arrivo, vecchia)) {
        Sostituzione sostituzione(origine, arrivo, vecchia);
        sostituzione.prepara_sviluppo();
        pausa();
        sostituzione.prepara_sistema();
        pausa();
        return sostituzione.compi();
    }
    Passi passi;
    passi.sviluppo = copia_file(origine.sviluppo(), arrivo.sviluppo());
    pausa();
    passi.sistema = copia_file(origine.sistema(), arrivo.sistema());
    pausa();
    return passi;
}

Passi importa(const Coppia& origine, const Coppia& arrivo, Vecchia vecchia) {
    if (!ammesse(origine, arrivo)) return rifiutati();
    if (da_sostituire(arrivo, vecchia)) return sostituisci(origine, arrivo, vecchia);
    Passi passi;
    passi.sistema = copia_file(origine.sistema(), arrivo.sistema());
    passi.sviluppo = copia_file(origine.sviluppo(), arrivo.sviluppo());
    return passi;
}

Passi invia(const Coppia& origine, const Coppia& arrivo, Vecchia vecchia) {
    if (!ammesse(origine, arrivo)) return rifiutati();
    // Nothing else ever looks after the foreign folder.
    platform::spazza(arrivo.cartella);
    if (da_sostituire(arrivo, vecchia)) return sostituisci(origine, arrivo, vecchia);
    Passi passi;
    passi.sistema = copia_file(origine.sistema(), arrivo.sistema(), platform::Meta::resta);
    if (!passi.disco_pieno()) {
        passi.sviluppo = copia_file(origine.sviluppo(), arrivo.sviluppo(), platform::Meta::resta);
    }
    return passi;
}

}  // namespace systems
