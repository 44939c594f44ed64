// The commands of the main form and their prompts: games, files, elaboration.
#include <QMenuBar>

#include "app/dialoghi.h"
#include "app/form1.h"
#include "app/form1_lavoro.h"
#include "platform/desktop.h"

namespace app {

using platform::DoEvents;
using platform::LockWindowUpdate;
using platform::MousePointer;
using platform::MsgBox;
using platform::Pulsanti;
using platform::vbYes;

namespace {

QString schema_incompleto() {
    return "Per procedere all'elaborazione del sistema occorre completare lo schema del "
           "Cruciverba";
}

}  // namespace

// Games.

void Form1::Image8_Click() {
    MousePointer(11);
    DoEvents();
    LockWindowUpdate(this);
    sessione.passa_al_superenalotto();
    MSFlexGrid1->setFocus();
    DoEvents();
    LockWindowUpdate(nullptr);
    MousePointer(0);
}

void Form1::Image10_Click() {
    MousePointer(11);
    DoEvents();
    LockWindowUpdate(this);
    sessione.passa_al_lotto();
    rivedi_sviluppo();
    MSFlexGrid1->setFocus();
    DoEvents();
    LockWindowUpdate(nullptr);
    MousePointer(0);
}

void Form1::Imageb_Click(int Index) {
    sessione.cambia_forma(Index + 3);
    rivedi_sviluppo();
}

void Form1::nuovo_cruciverba() {
    if (sessione.salvato()) {
        resetta();
        return;
    }
    const int risposta =
        MsgBox(this, {"Sono state apportate delle modifiche al sistema attualmente in linea.\n"
                      "Si desidera salvare ora il sistema?",
                      Pulsanti::si_no_annulla, "Tabellino"});
    if (risposta == platform::vbNo) resetta();
    if (risposta != vbYes) return;
    if (sessione.completo()) {
        dialoghi_.gestore_salva(*this);
        resetta();
    } else {
        MsgBox(this, {"Per procedere al salvataggio del sistema occorre completare lo schema del "
                      "Cruciverba",
                      Pulsanti::ok, "Cruciverba"});
    }
}

void Form1::resetta() {
    sessione.azzera();
    MSFlexGrid1->setFocus();
}

// Files.

void Form1::mnunuovo_Click() {
    sessione.nuovo();
    MSFlexGrid1->setFocus();
}

void Form1::salva_sistema(bool& esito) {
    esito = sessione.completo();
    if (!esito) {
        MsgBox(this, {"Per procedere al salvataggio del sistema occorre completare lo schema del "
                      "Cruciverba",
                      Pulsanti::ok, "Tabellino", platform::Icona::informazione});
        return;
    }
    // A dialog that was dismissed can't be told from a save.
    if (Tag().isEmpty()) mnusalvanome_Click();
    if (!Tag().isEmpty()) sessione.salva();
    cella_riepilogo(3, 1);
}

void Form1::mnusalva_Click() {
    bool esito = false;
    salva_sistema(esito);
}

void Form1::mnusalvanome_Click() {
    if (!sessione.completo()) {
        MsgBox(this, {"Per procedere al salvataggio del sistema si deve completare il Cruciverba",
                      Pulsanti::ok, "Tabellino"});
        return;
    }
    dialoghi_.gestore_salva(*this);
}

void Form1::mnuapri_Click() {
    if (!sessione.salvato()) {
        const int risposta =
            MsgBox(this, {"Sono state apportate delle modifiche al sistema in linea.\n"
                          "Salvare il Sistema?",
                          Pulsanti::si_no_annulla, "Tabellino"});
        if (risposta == platform::vbCancel) return;
        if (risposta == vbYes) {
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
    if (!sessione.salvato()) {
        const int risposta = MsgBox(this, {"Il sistema in linea è stato modificato.\n"
                                           "Si desidera salvarlo?",
                                           Pulsanti::si_no_annulla, "Tabellino"});
        if (risposta == platform::vbCancel) return;
        if (risposta == vbYes) mnusalva_Click();
    }
    close();
}

// Elaboration.

bool Form1::nome_per_elaborare(const QString& domanda, const QString& titolo) {
    if (MsgBox(this, {domanda, Pulsanti::si_no, titolo}) != vbYes) return false;
    dialoghi_.gestore_salva(*this);
    return !Tag().isEmpty();
}

void Form1::cmd_elabora() {
    if (in_elaborazione()) return;
    if (!sessione.completo()) {
        MsgBox(this,
               {schema_incompleto(), Pulsanti::ok, "Cruciverba", platform::Icona::informazione});
        return;
    }
    const QString domanda = "Per elaborare il sistema occore prima salvarlo.Vuoi salvare ora?";
    if (Tag().isEmpty() && !nome_per_elaborare(domanda, "Cruciverba")) return;
    if (!sessione.salvato() && MsgBox(this, {domanda, Pulsanti::si_no, "Cruciverba"}) != vbYes)
        return;
    if (!esegui_elaborazione()) return;
    MsgBox(this,
           {"Elaborazione completata.", Pulsanti::ok, "Tabellino", platform::Icona::informazione});
}

bool Form1::esegui_elaborazione() {
    {
        const Lavoro lavoro(*this);
        for (QAction* menu : menuBar()->actions()) menu->setEnabled(false);
        barra(sessione.totale() + 1);
        systems::SeguitoSviluppo seguito;
        seguito.avanzamento = [this](std::int32_t righe) {
            // In Lotto the bar stands still while the lines are walked.
            if (!sessione.gioco().e_lotto())
                ProgressBar1->setValue(qMin<int>(righe, ProgressBar1->maximum()));
            DoEvents();
            return !chiusura_chiesta_;
        };
        // The repetitions went with the walk; the bar tells of their removal all the same.
        seguito.ripetizioni = [this](std::int32_t combinazioni) {
            barra(combinazioni);
            ProgressBar1->setValue(ProgressBar1->maximum());
            DoEvents();
        };
        seguito.cestina = [](const std::string& nome) {
            return platform::cestina(platform::q(nome));
        };
        sessione.sviluppa(seguito);
        rivedi_sviluppo();
        cella_riepilogo(3, 1);
        for (QAction* menu : menuBar()->actions()) menu->setEnabled(true);
    }
    if (!chiusura_chiesta_) return true;
    chiudi_se_chiesto();
    return false;
}

void Form1::sviluppo() {
    if (in_elaborazione()) return;
    if (!sessione.completo()) {
        MsgBox(this,
               {schema_incompleto(), Pulsanti::ok, "Cruciverba", platform::Icona::informazione});
        return;
    }
    if (Tag().isEmpty() &&
        !nome_per_elaborare("Per poter visulizzare le colonne del sistema occorre prima "
                            "salvarlo.\nSalvare ora?",
                            "Cruciverba")) {
        return;
    }
    if (!sessione.salvato()) {
        if (MsgBox(this, {"Sono state apportate delle modifiche alla struttura del cruciverba.\n"
                          "Per poetr visulizzare lo sviluppo occorre elaborare il sistema.\n"
                          "Elaborare ora?",
                          Pulsanti::si_no, "Cruciverba"}) != vbYes) {
            return;
        }
        cmd_elabora();
        // Closed from its close box, the form asks for nothing more.
        if (!isVisible()) return;
    }
    if (!sessione.sviluppo_presente()) {
        MsgBox(this, {"Per poter visulizzare lo sviluppo di un sistema bisogna prima elaborarlo.",
                      Pulsanti::ok, "Tabellino"});
        return;
    }
    if (!sessione.sviluppo_superato() && !sviluppo_valido()) return;
    dialoghi_.visualizza_sviluppo(*this);
}

void Form1::rivedi_sviluppo() {
    dialoghi_.rivedi_sviluppo();
}

bool Form1::sviluppo_valido() {
    if (sessione.sviluppo_proprio()) return true;
    if (MsgBox(this, {"Lo sviluppo di questo sistema è di un altro cruciverba: le sue colonne non "
                      "sono quelle da giocare.\nElaborare ora?",
                      Pulsanti::si_no, "Tabellino"}) != vbYes) {
        return false;
    }
    cmd_elabora();
    // Closed from its close box, the form asks for nothing more.
    return isVisible() && sessione.sviluppo_presente();
}

void Form1::verifica_spoglio(bool& pronto) {
    pronto = false;
    if (in_elaborazione()) return;
    if (!sessione.completo()) {
        MsgBox(this, {"Per procedere all'elaborazione del sistema bisogna completare lo schema "
                      "del cruciverbas",
                      Pulsanti::ok, "Tabellino"});
        MousePointer(0);
        return;
    }
    if (Tag().isEmpty() &&
        !nome_per_elaborare("Per visualizzare le colonne del sistema si deve prima salvare il "
                            "sistema.\nSalvare ora?",
                            "Tabellino")) {
        MousePointer(0);
        return;
    }
    const auto elabora = [this](const QString& domanda) {
        if (MsgBox(this, {domanda, Pulsanti::si_no, "Tabellino"}) != vbYes) return false;
        cmd_elabora();
        return isVisible();
    };
    if (!sessione.salvato() && !elabora("Per visualizzare lo sviluppo si deve elaborare il "
                                        "sistema.\nElaborare ora?")) {
        return;
    }
    if (!sessione.sviluppo_presente() &&
        !elabora("Per effettuare lo spoglio del sistema si deve prima effettuare "
                 "l'elaborazione. Elaborare ora?")) {
        return;
    }
    pronto = sviluppo_valido();
}

void Form1::mnuanalisi_Click() {
    bool pronto = false;
    verifica_spoglio(pronto);
    if (pronto) dialoghi_.analisi(*this);
}

void Form1::mnuRipetizioniCon_Click() {
    sessione.ripetizioni(true);
    mostra_ripetizioni();
}

void Form1::mnuRipetizioniSenza_Click() {
    sessione.ripetizioni(false);
    mostra_ripetizioni();
}

}  // namespace app
