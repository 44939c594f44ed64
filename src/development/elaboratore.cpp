#include "development/elaboratore.h"

#include <QMenuBar>

#include "platform/qt/desktop.h"
#include "systems/passo.h"

namespace development {

using platform::DoEvents;
using platform::Icona;
using platform::MsgBox;
using platform::Pulsanti;

namespace {

QString schema_incompleto() {
    return "Per procedere all'elaborazione del sistema occorre completare lo schema del "
           "Cruciverba";
}

}  // namespace

int Elaboratore::chiedi(const QString& domanda, const QString& titolo) {
    return MsgBox(&finestra_, {domanda, Pulsanti::si_no, titolo});
}

void Elaboratore::avverti(const QString& testo, const QString& titolo, Icona icona) {
    MsgBox(&finestra_, {testo, Pulsanti::ok, titolo, icona});
}

bool Elaboratore::nome_per_elaborare(const QString& domanda, const QString& titolo) {
    if (chiedi(domanda, titolo) != platform::vbYes) return false;
    dialoghi_.gestore_salva(finestra_);
    return !finestra_.Tag().isEmpty();
}

bool Elaboratore::elabora_prima(const QString& domanda, const QString& titolo) {
    if (chiedi(domanda, titolo) != platform::vbYes) return false;
    cmd_elabora();
    // Closed from its close box, the form asks for nothing more.
    return finestra_.isVisible();
}

bool Elaboratore::tabelle_presenti() {
    const std::vector<std::string> mancanti = finestra_.sessione.tabelle_mancanti();
    if (mancanti.empty()) return true;
    QStringList nomi;
    for (const std::string& nome : mancanti) nomi << platform::q(nome);
    avverti("Il sistema usa una tabella economica che manca o è guasta: " + nomi.join(", ") +
                ".\nRimettetela nella cartella \"ridotti\", oppure scegliete un altro tipo di "
                "sistema.",
            "Tabellino", Icona::informazione);
    return false;
}

void Elaboratore::cmd_elabora() {
    if (finestra_.in_elaborazione()) return;
    if (!finestra_.sessione.completo()) {
        avverti(schema_incompleto(), "Cruciverba", Icona::informazione);
        return;
    }
    if (!tabelle_presenti()) return;
    const QString domanda = "Per elaborare il sistema occore prima salvarlo.Vuoi salvare ora?";
    if (finestra_.Tag().isEmpty() && !nome_per_elaborare(domanda, "Cruciverba")) return;
    if (!finestra_.sessione.salvato() && chiedi(domanda, "Cruciverba") != platform::vbYes) return;
    const systems::Elaborato esito = esegui();
    if (lavori_.chiudi_se_chiesto()) return;
    finestra_.mostra_esito(platform::q(systems::esito_detto(esito)));
    avverti("Elaborazione completata.", "Tabellino", Icona::informazione);
}

systems::Elaborato Elaboratore::esegui() {
    const app::Lavoro lavoro(lavori_);
    const QList<QAction*> menu = finestra_.menuBar()->actions();
    for (QAction* m : menu) m->setEnabled(false);
    lavori_.barra(finestra_.sessione.totale() + 1);
    systems::SeguitoSviluppo seguito;
    seguito.avanzamento = [this](std::int32_t righe) {
        // In Lotto the bar stands still while the lines are walked.
        if (!finestra_.sessione.gioco().e_lotto()) lavori_.avanza(righe);
        DoEvents();
        return !lavori_.fermati();
    };
    // The repetitions went with the walk; the bar tells of their removal all the same.
    seguito.ripetizioni = [this](std::int32_t combinazioni) {
        lavori_.barra(combinazioni);
        lavori_.alla_fine();
        DoEvents();
    };
    seguito.cestina = [](const std::string& nome) { return platform::cestina(platform::q(nome)); };
    const systems::Elaborato esito = finestra_.sessione.sviluppa(seguito);
    finestra_.rivedi_sviluppo();
    finestra_.cella_riepilogo(3, 1);
    for (QAction* m : menu) m->setEnabled(true);
    return esito;
}

void Elaboratore::sviluppo() {
    if (finestra_.in_elaborazione()) return;
    const systems::Sessione& sessione = finestra_.sessione;
    if (!sessione.completo()) {
        avverti(schema_incompleto(), "Cruciverba", Icona::informazione);
        return;
    }
    if (finestra_.Tag().isEmpty() &&
        !nome_per_elaborare("Per poter visulizzare le colonne del sistema occorre prima "
                            "salvarlo.\nSalvare ora?",
                            "Cruciverba")) {
        return;
    }
    if (!sessione.salvato() &&
        !elabora_prima("Sono state apportate delle modifiche alla struttura del cruciverba.\n"
                       "Per poetr visulizzare lo sviluppo occorre elaborare il sistema.\n"
                       "Elaborare ora?",
                       "Cruciverba")) {
        return;
    }
    if (!sessione.sviluppo_presente()) {
        avverti("Per poter visulizzare lo sviluppo di un sistema bisogna prima elaborarlo.",
                "Tabellino", Icona::nessuna);
        return;
    }
    if (!sessione.sviluppo_superato() && !sviluppo_valido()) return;
    dialoghi_.visualizza_sviluppo(finestra_);
}

bool Elaboratore::sviluppo_valido() {
    return finestra_.sessione.sviluppo_proprio() ||
           (elabora_prima("Lo sviluppo di questo sistema è di un altro cruciverba: le sue colonne "
                          "non sono quelle da giocare.\nElaborare ora?",
                          "Tabellino") &&
            finestra_.sessione.sviluppo_presente() && finestra_.sessione.sviluppo_proprio());
}

void Elaboratore::verifica_spoglio(bool& pronto) {
    pronto = false;
    if (finestra_.in_elaborazione()) return;
    const systems::Sessione& sessione = finestra_.sessione;
    if (!sessione.completo()) {
        avverti(
            "Per procedere all'elaborazione del sistema bisogna completare lo schema "
            "del cruciverbas",
            "Tabellino", Icona::nessuna);
        return;
    }
    if (finestra_.Tag().isEmpty() &&
        !nome_per_elaborare("Per visualizzare le colonne del sistema si deve prima salvare il "
                            "sistema.\nSalvare ora?",
                            "Tabellino")) {
        return;
    }
    if (!sessione.salvato() && !elabora_prima("Per visualizzare lo sviluppo si deve elaborare il "
                                              "sistema.\nElaborare ora?",
                                              "Tabellino")) {
        return;
    }
    if (!sessione.sviluppo_presente() &&
        !elabora_prima("Per effettuare lo spoglio del sistema si deve prima effettuare "
                       "l'elaborazione. Elaborare ora?",
                       "Tabellino")) {
        return;
    }
    pronto = sviluppo_valido();
}

void Elaboratore::spoglio() {
    const platform::Clessidra attesa;
    bool pronto = false;
    verifica_spoglio(pronto);
    if (pronto) dialoghi_.spoglio(finestra_);
}

void Elaboratore::analisi() {
    bool pronto = false;
    verifica_spoglio(pronto);
    if (pronto) dialoghi_.analisi(finestra_);
}

void Elaboratore::stampa() {
    if (finestra_.Tag().isEmpty()) {
        avverti("Nessun sistema in linea.", "Tabellino", Icona::nessuna);
    } else {
        dialoghi_.stampa(finestra_);
    }
}

}  // namespace development
