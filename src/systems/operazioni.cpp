#include "systems/operazioni.h"

#include <algorithm>

#include "platform/application.h"
#include "platform/lavoro.h"
#include "platform/links.h"
#include "systems/appartenenza.h"
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

Esito copia_file(const std::string& origine, const std::string& arrivo, platform::Meta meta,
                 const std::string& marca = "") {
    if (!platform::esiste_file(origine)) return Esito::assente;
    // A link out of the folder would carry a stranger's file into the library, or out of it.
    if (platform::esce_dalla_cartella(origine)) return Esito::errore;
    return platform::FileCopy(origine, arrivo, meta, marca);
}

Esito copia_sistema(const Coppia& origine, const Coppia& arrivo,
                    platform::Meta meta = platform::Meta::via) {
    // A development that stays behind is not of the system that comes.
    ricorda_origine(arrivo);
    return copia_file(origine.sistema(), arrivo.sistema(), meta);
}

Esito copia_sviluppo(const Coppia& origine, const Coppia& arrivo,
                     platform::Meta meta = platform::Meta::via) {
    return copia_file(origine.sviluppo(), arrivo.sviluppo(), meta, marca_sviluppo(origine));
}

/// One file of a pair on its way to the place of another.
struct Copia {
    Copia(const std::string& da, const std::string& a, const std::string& in)
        : origine(da), arrivo(a), lavoro(in) {}

    std::string origine;
    std::string arrivo;
    platform::Lavoro lavoro;  ///< where the copy waits, in the folder of `arrivo`
    std::int64_t byte = 0;
    bool ferma = false;  ///< both names mean one file
    Esito esito = Esito::assente;
};

/// Replaces a pair by another, of which it first has whole copies.
class Sostituzione {
public:
    Sostituzione(const Coppia& origine, const Coppia& arrivo, Vecchia vecchia)
        : origine_(origine),
          arrivo_(arrivo),
          vecchia_(vecchia),
          sistema_(origine.sistema(), arrivo.sistema(), arrivo.cartella),
          sviluppo_(origine.sviluppo(), arrivo.sviluppo(), arrivo.cartella) {}

    Esito prepara_sistema() { return prepara(sistema_, ""); }
    Esito prepara_sviluppo() { return prepara(sviluppo_, marca_sviluppo(origine_)); }

    /// Both copies take their places, or neither.
    Passi compi() {
        const platform::Turno turno(arrivo_.cartella);
        const bool intere = sistema_.esito == Esito::ok &&
                            (sviluppo_.esito == Esito::ok || sviluppo_.esito == Esito::assente);
        if (!intere || !scosta_sviluppo()) return rimaste();
        sistema_.esito = arriva(sistema_);
        if (sistema_.esito != Esito::ok) {
            da_parte_.rimetti();
            return rimaste();
        }
        if (sviluppo_.esito == Esito::ok) sviluppo_.esito = arriva(sviluppo_);
        return {sistema_.esito, sviluppo_.esito};
    }

private:
    Esito prepara(Copia& copia, const std::string& marca) const {
        copia.ferma = platform::stesso_file(copia.origine, copia.arrivo);
        if (copia.ferma) {
            copia.esito = Esito::ok;
        } else if (vecchia_ == Vecchia::ceduta && platform::collegamento(copia.arrivo)) {
            // Unasked, a link is neither written through nor replaced.
            copia.esito = Esito::errore;
        } else {
            const bool c_era = platform::esiste_file(copia.origine);
            copia.esito = !c_era ? Esito::assente
                          : platform::esce_dalla_cartella(copia.origine)
                              ? Esito::errore
                              : platform::copia_in(copia.origine, copia.lavoro, copia.byte, marca);
            // One that vanishes on the way is not one that never was.
            if (c_era && copia.esito == Esito::assente) copia.esito = Esito::errore;
        }
        return copia.esito;
    }

    /// Between the two arrivals the old development would stand beside another crossword.
    bool scosta_sviluppo() {
        const bool cede = sviluppo_.esito == Esito::ok || vecchia_ == Vecchia::tolta;
        if (sviluppo_.ferma) return true;
        if (!cede) {
            ricorda_origine(arrivo_);
            return true;
        }
        const Esito esito = da_parte_.metti(sviluppo_.arrivo);
        if (esito == Esito::ok || esito == Esito::assente) return true;
        sistema_.esito = esito;
        return false;
    }

    [[nodiscard]] Esito arriva(Copia& copia) const {
        if (copia.ferma) return Esito::ok;
        return copia.lavoro.pubblica(
            copia.arrivo, copia.byte,
            vecchia_ == Vecchia::tolta ? platform::Creazione::nuova : platform::Creazione::resta);
    }

    /// Nothing was replaced: what was copied all the same counts as failed.
    [[nodiscard]] Passi rimaste() const {
        const auto fallito = [](Esito e) { return e == Esito::ok ? Esito::errore : e; };
        return {fallito(sistema_.esito), fallito(sviluppo_.esito)};
    }

    Coppia origine_;
    Coppia arrivo_;
    Vecchia vecchia_;
    Copia sistema_;
    Copia sviluppo_;
    platform::Accantonato da_parte_;
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
    const platform::Turno turno(vecchia.cartella);
    // Broken off between the two, each file still says what it is.
    ricorda_origine(vecchia);
    Passi passi;
    passi.sviluppo = rinomina_file(vecchia.sviluppo(), nuova.sviluppo());
    passi.sistema = rinomina_file(vecchia.sistema(), nuova.sistema());
    return passi;
}

Passi elimina(const Coppia& coppia) {
    if (!nome_ammesso(coppia.nome)) return rifiutati();
    const platform::Turno turno(coppia.cartella);
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
    passi.sviluppo = copia_sviluppo(origine, arrivo);
    pausa();
    passi.sistema = copia_sistema(origine, arrivo);
    pausa();
    return passi;
}

Passi importa(const Coppia& origine, const Coppia& arrivo, Vecchia vecchia) {
    if (!ammesse(origine, arrivo)) return rifiutati();
    if (da_sostituire(arrivo, vecchia)) return sostituisci(origine, arrivo, vecchia);
    const platform::Turno turno(arrivo.cartella);
    Passi passi;
    passi.sistema = copia_sistema(origine, arrivo);
    passi.sviluppo = copia_sviluppo(origine, arrivo);
    return passi;
}

Passi invia(const Coppia& origine, const Coppia& arrivo, Vecchia vecchia) {
    if (!ammesse(origine, arrivo)) return rifiutati();
    // Nothing else ever looks after the foreign folder.
    platform::spazza(arrivo.cartella);
    if (da_sostituire(arrivo, vecchia)) return sostituisci(origine, arrivo, vecchia);
    Passi passi;
    passi.sistema = copia_sistema(origine, arrivo, platform::Meta::resta);
    if (!passi.disco_pieno()) {
        passi.sviluppo = copia_sviluppo(origine, arrivo, platform::Meta::resta);
    }
    return passi;
}

}  // namespace systems
