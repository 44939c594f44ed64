// The File menu and its prompts.
#include "app/dialoghi.h"
#include "app/form1.h"
#include "platform/application.h"
#include "platform/desktop.h"
#include "platform/runtime.h"
#include "systems/appartenenza.h"

namespace app {

using platform::MsgBox;
using platform::Pulsanti;

void Form1::mnunuovo_Click() {
    matrice = crossword::Matrice();
    sistema_in_linea(QString());
    Combo1->set_ListIndex(0);
    Combo2->set_ListIndex(0);
    MSFlexGrid1->setFocus();
    salvato = true;
}

systems::Coppia Form1::coppia() const {
    return {platform::App().Path, platform::s(Tag()), gioco()};
}

systems::Sistema Form1::sistema_a_schermo() {
    systems::Sistema sistema;
    MSFlexGrid2->cella(4, 3);
    sistema.totale = platform::leggi_numero(platform::s(MSFlexGrid2->Text()));
    MSFlexGrid2->cella(5, 3);
    sistema.senza_ripetizioni = platform::leggi_numero(platform::s(MSFlexGrid2->Text()));
    MSFlexGrid2->cella(3, 1);
    sistema.diagonali = platform::s(MSFlexGrid2->Text());
    sistema.tipo_righe = Combo3->ListIndex();
    sistema.tipo_colonne = Combo4->ListIndex();
    sistema.tipo_diagonali = Combo5->ListIndex();
    sistema.gioco = gioco();
    sistema.matrice = matrice;
    return sistema;
}

void Form1::salva_sistema(bool& esito) {
    bool completo = false;
    cruciverba_completo(completo);
    if (!completo) {
        MsgBox(this, {"Per procedere al salvataggio del sistema occorre completare lo schema del "
                      "Cruciverba",
                      Pulsanti::ok, "Tabellino", platform::Icona::informazione});
        esito = false;
        return;
    }
    if (Tag().isEmpty()) mnusalvanome_Click();
    esito = true;
    if (Tag().isEmpty()) return;
    if (in_elaborazione_) {
        systems::salva_per_elaborare(coppia(), sistema_a_schermo());
    } else {
        systems::scrivi_sistema(platform::App().Path, platform::s(Tag()), sistema_a_schermo());
        // What the player leaves behind the crossword now is shown as it is until the next opening.
        sviluppo_superato_ = sviluppo_superato_ || !salvato;
    }
    salvato = true;
}

void Form1::mnusalva_Click() {
    bool esito = false;
    salva_sistema(esito);
}

void Form1::mnusalvanome_Click() {
    bool completo = false;
    cruciverba_completo(completo);
    if (!completo) {
        MsgBox(this, {"Per procedere al salvataggio del sistema si deve completare il Cruciverba",
                      Pulsanti::ok, "Tabellino"});
        return;
    }
    dialoghi_.gestore_salva(*this);
}

void Form1::mnuapri_Click() {
    if (!salvato) {
        const int risposta =
            MsgBox(this, {"Sono state apportate delle modifiche al sistema in linea.\n"
                          "Salvare il Sistema?",
                          Pulsanti::si_no_annulla, "Tabellino"});
        if (risposta == platform::vbCancel) return;
        if (risposta == platform::vbYes) {
            bool esito = false;
            salva_sistema(esito);
            if (!esito) return;
        }
    }
    dialoghi_.gestore_apri(*this);
}

void Form1::mnugest_sist_Click() {
    dialoghi_.gestore_utility(*this);
}

void Form1::controllo_salvataggio() {
    if (!salvato) {
        const int risposta = MsgBox(this, {"Il sistema in linea è stato modificato.\n"
                                           "Si desidera salvarlo?",
                                           Pulsanti::si_no_annulla, "Tabellino"});
        if (risposta == platform::vbCancel) return;
        if (risposta == platform::vbYes) {
            bool esito = false;
            salva_sistema(esito);
        }
    }
    close();
}

}  // namespace app
