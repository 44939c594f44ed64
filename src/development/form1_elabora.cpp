// Elaboration from the main form, with its prompts and its progress.
#include <QMenuBar>

#include "app/dialoghi.h"
#include "app/form1.h"
#include "platform/application.h"
#include "platform/desktop.h"
#include "platform/disk.h"
#include "platform/runtime.h"
#include "systems/appartenenza.h"

namespace app {

using development::Conclusione;
using platform::App;
using platform::MsgBox;
using platform::Pulsanti;
using platform::vbYes;

namespace {

/// A bar without a range would show the busy pattern: below 1 its end counts as 1.
void barra(QProgressBar* barra, int massimo) {
    barra->setRange(0, qMax(1, massimo));
    barra->setValue(0);
}

QString schema_incompleto() {
    return "Per procedere all'elaborazione del sistema occorre completare lo schema del "
           "Cruciverba";
}

}  // namespace

bool Form1::nome_per_elaborare(const QString& domanda, const QString& titolo) {
    if (MsgBox(this, {domanda, Pulsanti::si_no, titolo}) != vbYes) return false;
    dialoghi_.gestore_salva(*this);
    return !Tag().isEmpty();
}

development::Richiesta Form1::richiesta() const {
    development::Richiesta r;
    r.matrice = matrice;
    r.gioco = gioco();
    r.tipo_righe = Combo3->ListIndex();
    r.tipo_colonne = Combo4->ListIndex();
    r.tipo_diagonali = Combo5->ListIndex();
    r.cartella = App().Path;
    r.ridotti = platform::radice(App().Path) + "ridotti";
    r.senza_ripetizioni = mnuRipetizioniSenza->isChecked();
    return r;
}

bool Form1::avanza(std::int32_t righe, bool muovi) {
    if (muovi) ProgressBar1->setValue(qMin<int>(righe, ProgressBar1->maximum()));
    platform::DoEvents();
    return !chiusura_chiesta_;
}

void Form1::concludi_sviluppo(const development::Elaborazione& lavoro, Conclusione esito) {
    const auto salva_e_conta = [this] {
        if (mnuRipetizioniSenza->isChecked()) {
            controllo_ripetizioni(lotto ? 5 : 6, gioco().estensione_sviluppo());
        } else {
            mnusalva_Click();
        }
    };
    const bool intero = esito == Conclusione::completa;
    combinazioni_sviluppate_ = intero ? lavoro.righe_scritte() : 0;
    // The system first, with its count: broken off here it has no development, never another's.
    salva_e_conta();
    const bool fatto = systems::concludi_sviluppo(coppia(), sistema_a_schermo(), lavoro, intero);
    if (intero && !fatto) {
        combinazioni_sviluppate_ = 0;
        salva_e_conta();
    }
    rivedi_sviluppo();
}

void Form1::cmd_elabora() {
    if (in_elaborazione_) return;
    bool completo = false;
    cruciverba_completo(completo);
    if (!completo) {
        MsgBox(this,
               {schema_incompleto(), Pulsanti::ok, "Cruciverba", platform::Icona::informazione});
        return;
    }
    const QString domanda = "Per elaborare il sistema occore prima salvarlo.Vuoi salvare ora?";
    if (lblsistema->text().isEmpty() && !nome_per_elaborare(domanda, "Cruciverba")) return;
    if (!salvato && MsgBox(this, {domanda, Pulsanti::si_no, "Cruciverba"}) != vbYes) return;
    bool esito = false;
    {
        // Programs on one folder share the working file.
        const platform::Turno turno(App().Path);
        in_elaborazione_ = true;
        if (!salvato) salva_sistema(esito);
        development::elimina_temporanei(App().Path, [](const std::string& nome) {
            return platform::cestina(platform::q(nome));
        });
        esegui_elaborazione();
        if (!chiusura_chiesta_) {
            salvato = true;
            sviluppo_superato_ = false;
            salva_sistema(esito);
        }
        in_elaborazione_ = false;
    }
    if (chiusura_chiesta_) {
        chiudi_se_chiesto();
        return;
    }
    MsgBox(this,
           {"Elaborazione completata.", Pulsanti::ok, "Tabellino", platform::Icona::informazione});
}

void Form1::esegui_elaborazione() {
    const platform::LavoroLungo lavoro_lungo;
    for (QAction* menu : menuBar()->actions()) menu->setEnabled(false);
    barra(ProgressBar1, platform::leggi_numero(platform::s(MSFlexGrid2->testo(4, 3))) + 1);
    ProgressBar1->show();
    // In Lotto the bar stands still while the lines are walked.
    development::Elaborazione lavoro(richiesta(),
                                     [this](std::int32_t n) { return avanza(n, !lotto); });
    const Conclusione esito = lavoro.sviluppa();
    if (esito != Conclusione::interrotta) concludi_sviluppo(lavoro, esito);
    ProgressBar1->hide();
    for (QAction* menu : menuBar()->actions()) menu->setEnabled(true);
}

void Form1::controllo_ripetizioni(std::uint8_t /*lunghezza*/, const QString& /*estensione*/) {
    // The repetitions went with the walk; the bar tells of their removal all the same.
    barra(ProgressBar1, combinazioni_sviluppate_);
    ProgressBar1->setValue(ProgressBar1->maximum());
    platform::DoEvents();
    MSFlexGrid2->set_testo(
        5, 3, platform::q(platform::Format(combinazioni_sviluppate_, platform::Modello::interi)));
    lblimportotot->setText(
        calcolo_importo(platform::leggi_numero(platform::s(MSFlexGrid2->testo(5, 3)))));
    mnusalva_Click();
}

void Form1::sviluppo() {
    if (in_elaborazione_) return;
    bool completo = false;
    cruciverba_completo(completo);
    if (!completo) {
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
    if (!salvato) {
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
    bool esiste = false;
    controlo_colonne(Tag(), esiste);
    if (!esiste) {
        MsgBox(this, {"Per poter visulizzare lo sviluppo di un sistema bisogna prima elaborarlo.",
                      Pulsanti::ok, "Tabellino"});
        return;
    }
    if (!sviluppo_superato_ && !sviluppo_valido()) return;
    dialoghi_.visualizza_sviluppo(*this);
}

void Form1::rivedi_sviluppo() {
    dialoghi_.rivedi_sviluppo();
}

bool Form1::sviluppo_valido() {
    if (systems::sviluppo_proprio(coppia())) return true;
    if (MsgBox(this, {"Lo sviluppo di questo sistema è di un altro cruciverba: le sue colonne non "
                      "sono quelle da giocare.\nElaborare ora?",
                      Pulsanti::si_no, "Tabellino"}) != vbYes) {
        return false;
    }
    cmd_elabora();
    // Closed from its close box, the form asks for nothing more.
    return isVisible() && systems::esiste_sviluppo(App().Path, platform::s(Tag()), gioco());
}

void Form1::verifica_spoglio(bool& pronto) {
    pronto = false;
    if (in_elaborazione_) return;
    bool completo = false;
    cruciverba_completo(completo);
    if (!completo) {
        MsgBox(this, {"Per procedere all'elaborazione del sistema bisogna completare lo schema "
                      "del cruciverbas",
                      Pulsanti::ok, "Tabellino"});
        platform::MousePointer(0);
        return;
    }
    if (Tag().isEmpty() &&
        !nome_per_elaborare("Per visualizzare le colonne del sistema si deve prima salvare il "
                            "sistema.\nSalvare ora?",
                            "Tabellino")) {
        platform::MousePointer(0);
        return;
    }
    if (!salvato) {
        if (MsgBox(this, {"Per visualizzare lo sviluppo si deve elaborare il sistema.\n"
                          "Elaborare ora?",
                          Pulsanti::si_no, "Tabellino"}) != vbYes) {
            return;
        }
        cmd_elabora();
        if (!isVisible()) return;
    }
    bool esiste = false;
    controlo_colonne(Tag(), esiste);
    if (!esiste) {
        if (MsgBox(this, {"Per effettuare lo spoglio del sistema si deve prima effettuare "
                          "l'elaborazione. Elaborare ora?",
                          Pulsanti::si_no, "Tabellino"}) != vbYes) {
            return;
        }
        cmd_elabora();
        if (!isVisible()) return;
    }
    if (!sviluppo_valido()) return;
    pronto = true;
}

void Form1::mnuRipetizioniCon_Click() {
    mnuRipetizioniSenza->setChecked(false);
    mnuRipetizioniCon->setChecked(true);
    if (!platform::esiste_file(App().file("rip.dat"))) platform::scrivi(App().file("rip.dat"), "");
}

void Form1::mnuRipetizioniSenza_Click() {
    mnuRipetizioniSenza->setChecked(true);
    mnuRipetizioniCon->setChecked(false);
    platform::Kill(App().file("rip.dat"));
}

}  // namespace app
