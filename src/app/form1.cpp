#include "app/form1.h"

#include <QCloseEvent>
#include <QMenuBar>
#include <QShortcut>

#include "app/aspetto.h"
#include "app/spazio.h"
#include "app/stile.h"
#include "platform/application.h"
#include "platform/disk.h"
#include "platform/qt/desktop.h"
#include "platform/runtime.h"
#include "statistics/avviso_archivio.h"
#include "systems/trascinati.h"

namespace app {

using platform::App;

Form1::Form1(Dialoghi& dialoghi) : Finestra(App().Path), dialoghi_(dialoghi) {
    setObjectName("Form1");
    setWindowTitle("Sortivario Plus - Sistemi a Cruciverba");
    setCentralWidget(new QWidget(this));
    crea_menu();
    crea_riquadri();
    crea_comandi();
    parti_ = std::make_unique<Parti>(*this, dialoghi);
    lblpasso = parti_->piede->lblpasso;
    lblanalisi = parti_->piede->lblanalisi;
    ordine_tastiera();
    setFixedSize(centralWidget()->width(),
                 centralWidget()->height() + menuBar()->sizeHint().height());
    new Spazio(*this, *parti_->piede);
    collega();
}

Form1::Parti::Parti(Form1& f, Dialoghi& dialoghi)
    : lavori(f, f.ProgressBar1),
      vista(f, f),
      scelta(f, f),
      riempimento(f, lavori, vista, f, f),
      riepilogo(f.sessione, f),
      quote(f.sessione, f),
      piede(new Piede(f, f.ProgressBar1, f.tipi())),
      elaboratore(f, dialoghi, lavori),
      archiviatore(f, dialoghi),
      archivio(f, f, f.mnuarchivio) {
    new systems::Trascinati(f, &f);
}

void Form1::collega() {
    // A half-typed number must not wait behind another command for its second digit.
    const auto dimentica_cifra = [this] { MSFlexGrid1->set_digitato(QString()); };
    for (const QAbstractButton* b : findChildren<QAbstractButton*>()) {
        connect(b, &QAbstractButton::clicked, this, dimentica_cifra);
    }
    for (const QAction* a : findChildren<QAction*>()) {
        connect(a, &QAction::triggered, this, dimentica_cifra);
    }
    mostra_linee->setChecked(parti_->vista.luce().accesa());
    connect(mostra_linee, &QAction::toggled, this,
            [this](bool mostrate) { parti_->vista.luce().accendi(mostrate); });
    const auto comanda = [this](auto tasto, std::size_t comando) {
        connect(new QShortcut(tasto, this), &QShortcut::activated, Image3[comando],
                &QAbstractButton::click);
    };
    comanda(Qt::Key_F5, 1);
    comanda(Qt::Key_F6, 2);
    comanda(Qt::Key_F7, 6);
    comanda(Qt::Key_F8, 7);
    comanda(QKeySequence::Print, 7);
    // The menu's "Nuovo" empties without a question, which a slip of a key must not.
    comanda(QKeySequence::New, 0);
}

// Start and end.

void Form1::Form_Load() {
    // The forms that open later are this one's children and take its skin from it.
    const std::string aspetto = foglio_aspetto(platform::radice(App().Path), desktop_scuro());
    if (!aspetto.empty()) setStyleSheet(platform::q(aspetto));
    const platform::FinestraFerma ferma(this);
    sessione.osserva([this](const systems::Cambiamento& cambiato) { mostra(cambiato); });
    sessione.avvia();
    mostra_opzioni();
    inizializza();
    platform::DoEvents();
}

void Form1::inizializza() {
    apri_archivio();
    MSFlexGrid1->cella(0, 0);
    MSFlexGrid1->setFocus();
}

void Form1::apri_archivio() {
    const platform::Err errore = sessione.apri_archivio();
    if (!errore.ok()) statistics::errore_archivio(this, errore, "Sortivario");
    parti_->archivio.aggiorna();
}

void Form1::closeEvent(QCloseEvent* evento) {
    if (in_elaborazione()) {
        // The job ends at its next pending-events point and closes the form itself.
        parti_->lavori.ferma();
        evento->ignore();
        return;
    }
    platform::Kill(App().file("act"));
    parti_->archiviatore.dimentica_ripresa();
    sessione.archivio.chiudi();
    dialoghi_.chiudi_tutti();
    evento->accept();
}

void Form1::controllo_salvataggio() {
    if (parti_->archiviatore.controllo_salvataggio()) close();
}

void Form1::mostra(const systems::Cambiamento& cambiato) {
    if (cambiato.gioco) {
        // A damaged system file can name a form that does not exist, and no title tells of it.
        if (sessione.gioco().valido()) setWindowTitle(platform::q(sessione.gioco().titolo()));
        parti_->scelta.mostra_gioco();
        parti_->riempimento.mostra_gioco();
        parti_->archivio.aggiorna();
    }
    if (cambiato.nome) platform::set_Tag(this, Tag());
    if (cambiato.dimensioni || cambiato.tipi || cambiato.celle) mostra_analisi({});
    if (cambiato.dimensioni) parti_->scelta.mostra_dimensioni();
    parti_->riepilogo.mostra(cambiato);
    if (cambiato.importo) parti_->quote.mostra();
    parti_->vista.mostra(cambiato);
    parti_->piede->aggiorna();
}

// Games and crossword.

void Form1::passa(void (systems::Sessione::*al_gioco)()) {
    const platform::Clessidra attesa;
    platform::DoEvents();
    const platform::FinestraFerma ferma(this);
    (sessione.*al_gioco)();
    rivedi_sviluppo();
    MSFlexGrid1->setFocus();
    platform::DoEvents();
}

void Form1::Imageb_Click(int Index) {
    sessione.cambia_forma(Index + 3);
    rivedi_sviluppo();
}

void Form1::nuovo_cruciverba() {
    if (parti_->archiviatore.nuovo_cruciverba()) resetta();
}

void Form1::resetta() {
    sessione.azzera();
    MSFlexGrid1->setFocus();
}

void Form1::mnunuovo_Click() {
    sessione.nuovo();
    MSFlexGrid1->setFocus();
}

// Files.

void Form1::ripetizioni(bool con) {
    sessione.ripetizioni(con);
    mostra_opzioni();
}

void Form1::mnuEconomiche_Click() {
    sessione.economiche(mnuEconomiche->isChecked());
    mostra_opzioni();
}

void Form1::mostra_opzioni() {
    mnuEconomiche->setChecked(sessione.con_economiche());
    mnuRipetizioniCon->setChecked(sessione.con_ripetizioni());
    mnuRipetizioniSenza->setChecked(!sessione.con_ripetizioni());
}

// Development.

void Form1::rivedi_sviluppo() {
    dialoghi_.rivedi_sviluppo();
    parti_->piede->aggiorna();
}

void Form1::mnumigliora_Click() {
    if (!in_elaborazione()) dialoghi_.migliora(*this);
}

void Form1::Image3_Click(int Index) {
    if (Index != 8) Image3[static_cast<std::size_t>(Index)]->a_riposo();
    switch (Index) {
        case 0:
            return nuovo_cruciverba();
        case 1:
            return cmd_elabora();
        case 2:
            return sviluppo();
        case 3:
            return parti_->scelta.modifica_griglia(0);
        case 4:
            return parti_->vista.rimuovi();
        case 5:
            return parti_->riempimento.completa_con_scelti();
        case 6:
            return parti_->elaboratore.spoglio();
        case 7:
            return parti_->elaboratore.stampa();
        default:
            return controllo_salvataggio();
    }
}

}  // namespace app
