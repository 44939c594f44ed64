// The files of the session: saving, opening, developing.
#include "platform/application.h"
#include "platform/disk.h"
#include "systems/appartenenza.h"
#include "systems/elenco.h"
#include "systems/operazioni.h"
#include "systems/sessione_interna.h"

namespace systems {

using crossword::Elenco;
using development::Conclusione;

bool Sessione::sviluppo_proprio() const {
    return !(sviluppo_rimasto_ && sviluppo_presente()) && systems::sviluppo_proprio(coppia());
}

bool Sessione::sviluppo_presente() const {
    return esiste_sviluppo(cartella_, nome_, gioco_);
}

void Sessione::libera_sviluppo(crossword::Gioco gioco) const {
    platform::Kill(Coppia{cartella_, nome_, gioco}.sviluppo());
}

void Sessione::libera(const std::string& nome) const {
    if (nome_ammesso(nome)) platform::Kill(Coppia{cartella_, nome, gioco_}.sviluppo());
}

void Sessione::ripetizioni(bool con) {
    con_ripetizioni_ = con;
    if (!con) {
        platform::Kill(file("rip.dat"));
    } else if (!platform::esiste_file(file("rip.dat"))) {
        platform::scrivi(file("rip.dat"), "");
    }
}

void Sessione::economiche(bool con) {
    if (occupata_ || con == con_economiche_) return;
    const Azione azione(*this);
    con_economiche_ = con;
    if (!con) {
        platform::Kill(file("eco.dat"));
    } else if (!platform::esiste_file(file("eco.dat"))) {
        platform::scrivi(file("eco.dat"), "");
    }
    rinnova_tipi();
}

void Sessione::rinnova_tipi() {
    if (occupata_) return;
    const Azione azione(*this);
    bool altri = false;
    for (const Elenco quale : {Elenco::orizzontali, Elenco::verticali, Elenco::diagonali}) {
        ListaTipi& lista = elenchi_[posto(quale)];
        if (lista.testi().empty()) continue;
        const auto prima = lista.conto(indice(quale));
        lista.carica(fonte(), quale, numeri_di(quale));
        lista.aggiungi(fonte(), indice(quale));
        if (lista.conto(indice(quale)) == prima) continue;
        conta(quale);
        altri = true;
    }
    cambiamento_.tipi = true;
    if (altri) totale_combinazioni();
}

Salvataggio Sessione::salva() {
    if (occupata_) return Salvataggio::occupata;
    if (!completo()) return Salvataggio::incompleto;
    if (nome_.empty()) return Salvataggio::senza_nome;
    const Azione azione(*this);
    const bool scritto = scrivi_sistema(cartella_, nome_, sistema());
    // What the player leaves behind the crossword now is shown as it is until the next opening.
    sviluppo_superato_ = sviluppo_superato_ || !salvato_;
    segna_salvato(true);
    return scritto ? Salvataggio::salvato : Salvataggio::non_scritto;
}

Salvataggio Sessione::salva_come(const std::string& nome) {
    if (occupata_) return Salvataggio::occupata;
    if (!nome_ammesso(nome)) return Salvataggio::nome_vietato;
    if (!completo()) return Salvataggio::incompleto;
    const Azione azione(*this);
    nomina(nome);
    const Salvataggio esito = salva();
    sviluppo_superato_ = false;
    return esito;
}

bool Sessione::apri(const std::string& nome) {
    if (occupata_ || !nome_ammesso(nome)) return false;
    const Azione azione(*this);
    const Sistema letto = leggi_sistema(cartella_, nome, gioco_);
    if (gioco_.e_lotto()) cambia_forma(letto.gioco.forma());
    // A side that the game does not have leaves that of the grid as it is.
    dimensioni(letto.matrice.colonne(), righe_);
    dimensioni(colonne_, letto.matrice.righe());
    scegli_indice(Elenco::orizzontali, letto.tipo_righe);
    scegli_indice(Elenco::verticali, letto.tipo_colonne);
    scegli_indice(Elenco::diagonali, letto.tipo_diagonali);
    // The crossword stays whole behind the grid, or the next save would cut the file.
    matrice_ = letto.matrice;
    cambiamento_.dimensioni = cambiamento_.celle = cambiamento_.conteggi = true;
    senza_ripetizioni_ = letto.senza_ripetizioni;
    prezzo_.totale = calcolo_importo(senza_ripetizioni_);
    in_linea(nome);
    segna_salvato(true);
    return true;
}

Elaborato Sessione::sviluppa(const SeguitoSviluppo& seguito) {
    if (occupata_) return Elaborato::occupata;
    if (!completo()) return Elaborato::incompleto;
    if (nome_.empty()) return Elaborato::senza_nome;
    if (!tabelle_mancanti().empty()) return Elaborato::senza_tabella;
    const Azione azione(*this);
    const Lavoro lavoro(*this);
    // Programs on one folder share the working file.
    const platform::Turno turno(cartella_);
    if (!salvato_) salva_elaborando();
    development::elimina_temporanei(cartella_, seguito.cestina);
    const Elaborato esito = elabora(seguito);
    if (esito != Elaborato::interrotto) {
        sviluppo_superato_ = false;
        salva_elaborando();
    }
    // A development that cannot be taken away keeps its system's file too: the pair stays whole,
    // but is not what stands on the screen.
    const bool resta = sviluppo_presente();
    sviluppo_rimasto_ =
        resta && impronta(leggi_sistema(cartella_, nome_, gioco_)) != impronta(sistema());
    const bool nuovo = esito == Elaborato::completo || esito == Elaborato::interrotto;
    return resta && !nuovo ? Elaborato::rimasto : esito;
}

void Sessione::salva_elaborando() {
    salva_per_elaborare(coppia(), sistema());
    segna_salvato(true);
}

Elaborato Sessione::elabora(const SeguitoSviluppo& seguito) {
    development::Richiesta r;
    r.matrice = matrice_;
    r.gioco = gioco_;
    r.tipo_righe = indice(Elenco::orizzontali);
    r.tipo_colonne = indice(Elenco::verticali);
    r.tipo_diagonali = indice(Elenco::diagonali);
    r.cartella = cartella_;
    r.ridotti = ridotti_;
    r.senza_ripetizioni = !con_ripetizioni_;
    development::Elaborazione lavoro(r, seguito.avanzamento);
    const Conclusione conclusione = lavoro.sviluppa();
    if (conclusione == Conclusione::interrotta) return Elaborato::interrotto;
    const auto conta = [this, &seguito](std::int32_t quante) {
        if (!con_ripetizioni_) {
            if (seguito.ripetizioni) seguito.ripetizioni(quante);
            senza_ripetizioni_ = quante;
            cambiamento_.conteggi = true;
            prezzo_.totale = calcolo_importo(quante);
        }
        // The system first: broken off here it has no development, never another's.
        salva_elaborando();
    };
    const bool intero = conclusione == Conclusione::completa;
    conta(intero ? lavoro.righe_scritte() : 0);
    const bool fatto = concludi_sviluppo(coppia(), sistema(), lavoro, intero);
    if (intero && !fatto) conta(0);
    if (fatto) return Elaborato::completo;
    return conclusione == Conclusione::senza_file ? Elaborato::senza_file : Elaborato::guasto;
}

}  // namespace systems
