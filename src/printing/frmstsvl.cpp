#include "printing/frmstsvl.h"

#include <QDate>
#include <QEvent>
#include <QFocusEvent>
#include <QPointer>

#include "app/finestra.h"
#include "platform/application.h"
#include "platform/disk.h"
#include "platform/file_nuovo.h"
#include "platform/qt/desktop.h"
#include "platform/qt/scala.h"
#include "platform/qt/shell.h"
#include "platform/runtime.h"
#include "platform/text_file.h"
#include "printing/intervallo.h"

namespace printing {

using platform::App;
using platform::q;
using platform::s;

frmstsvl::frmstsvl(app::Finestra& finestra) : QDialog(&finestra), finestra_(finestra) {
    setObjectName("frmstsvl");
    setWindowTitle("Opzioni di Stampa");
    setAttribute(Qt::WA_DeleteOnClose);
    setFixedSize(400, 212);
    crea_opzioni();
    crea_intervallo();
    crea_pulsanti();
    crea_invio();
    crea_lavoro();
    ordine_tastiera();
    connect(Command1, &QPushButton::clicked, this, &QDialog::close);
    connect(Command2, &QPushButton::clicked, this, &frmstsvl::Command2_Click);
    connect(Command3, &QPushButton::clicked, this, &QDialog::close);
    connect(cmdstampa, &QPushButton::clicked, this, &frmstsvl::cmdstampa_Click);
    connect(cmdferma, &QPushButton::clicked, this, &frmstsvl::ferma);
    platform::rendi_scalabile(this);
    Form_Load();
}

void frmstsvl::Form_Load() {
    centra();
    Option1[0]->setChecked(true);
    txtdalla[0]->setText("1");
    finestra_.cella_riepilogo(4, 3);
    const QString totale = q(totale_senza_punti(
        platform::Format(finestra_.sessione.totale(), platform::Modello::interi)));
    txtdalla[1]->setText(totale);
    platform::set_Tag(txtdalla[1], totale);
    const QSize dentro = platform::posto_a_100(Frame2).size();
    Shape2->setGeometry(platform::px(15), platform::px(15), dentro.width() - platform::px(15),
                        dentro.height() - platform::px(15));
}

void frmstsvl::centra() {
    if (platform::Scala::di(this)->rimetti()) return;
    // Both windows wear the same borders, so that middle over middle needs only the inner sizes.
    const QRect sotto = finestra_.frameGeometry();
    const QSize bordi = sotto.size() - finestra_.size();
    move(sotto.left() + sotto.width() / 2 - (width() + bordi.width()) / 2,
         sotto.top() + sotto.height() / 2 - (height() + bordi.height()) / 2);
    platform::Scala::di(this)->messa(pos());
}

bool frmstsvl::event(QEvent* evento) {
    if (evento->type() == QEvent::WindowDeactivate) dal_messaggio_ = in_messaggio_;
    if (evento->type() == QEvent::WindowActivate) {
        // Back from a box of its own the form is where it was.
        if (!dal_messaggio_) cmdstampa->setFocus();
        dal_messaggio_ = false;
    }
    return QDialog::event(evento);
}

bool frmstsvl::eventFilter(QObject* oggetto, QEvent* evento) {
    if (evento->type() == QEvent::FocusOut) {
        const Qt::FocusReason motivo = static_cast<QFocusEvent*>(evento)->reason();
        const bool altrove =
            motivo == Qt::ActiveWindowFocusReason || motivo == Qt::PopupFocusReason;
        if (!altrove) txtdalla_Validate(oggetto == txtdalla[0] ? 0 : 1);
    }
    return QDialog::eventFilter(oggetto, evento);
}

void frmstsvl::txtdalla_Validate(int Index) {
    const Intervallo i = convalida(
        {s(txtdalla[0]->text()), s(txtdalla[1]->text()), s(platform::Tag(txtdalla[1]))}, Index);
    if (s(txtdalla[0]->text()) != i.dalla) txtdalla[0]->setText(q(i.dalla));
    if (s(txtdalla[1]->text()) != i.alla) txtdalla[1]->setText(q(i.alla));
}

QString frmstsvl::nome() const {
    return finestra_.Tag();
}

int frmstsvl::messaggio(const QString& testo, const QString& titolo, bool informazione,
                        const QStringList& altri) {
    const QPointer<frmstsvl> ancora(this);
    in_messaggio_ = true;
    const int risposta = platform::MsgBox(
        this, {testo, platform::Pulsanti::ok, titolo,
               informazione ? platform::Icona::informazione : platform::Icona::nessuna, altri});
    if (ancora) in_messaggio_ = false;
    return risposta;
}

void frmstsvl::non_stampabile() {
    QString testo;
    if (!nome().isEmpty()) {
        testo =
            "Per poter  stampare sviluppo, prospetto o scehdine è necessario prima salvare il "
            "sistema.";
    } else if (finestra_.sessione.salvato()) {
        testo = "Nessun sistema è attualmente in linea.";
    } else {
        testo =
            "Per accedere alle funzioni di stampa occorre che il sistema in linea sia stato "
            "salvato.";
    }
    messaggio(testo, "Tabellino", true);
}

void frmstsvl::Command2_Click() {
    if (!finestra_.sessione.salvato() || nome().isEmpty()) {
        non_stampabile();
        return;
    }
    // A closing heard while events ran has already taken the form away.
    const QPointer<frmstsvl> ancora(this);
    const bool fatto = Option1[0]->isChecked()   ? prospetto()
                       : Option1[1]->isChecked() ? sviluppo()
                       : Option1[2]->isChecked() ? schedine()
                                                 : false;
    if (fatto && ancora) close();
}

void frmstsvl::cmdstampa_Click() {
    static_cast<void>(stampa_sviluppo(crossword::Gioco::superenalotto()));
}

Testata frmstsvl::testata() const {
    return {App().versione(), s(nome()), s(QDate::currentDate().toString("dd/MM/yyyy"))};
}

Prospetto frmstsvl::prospetto_a_schermo() const {
    finestra_.cella_riepilogo(5, 3);
    return prospetto_di(finestra_.sessione, testata());
}

bool frmstsvl::manca_lo_sviluppo() const {
    return !systems::esiste_sviluppo(App().Path, s(nome()), finestra_.sessione.gioco());
}

bool frmstsvl::sviluppo_valido() {
    // An elaboration that the close box ends takes this form with it.
    const QPointer<frmstsvl> ancora(this);
    in_messaggio_ = true;
    const bool valido = finestra_.sviluppo_valido();
    if (ancora) in_messaggio_ = false;
    return valido && ancora;
}

bool frmstsvl::sviluppo() {
    if (manca_lo_sviluppo()) {
        messaggio(
            "Per Poter stampare lo sviluppo o le schedine, occorre prima elaborare il sistema.",
            "Tabellino", true);
        return false;
    }
    if (!sviluppo_valido()) return false;
    return stampa_sviluppo(finestra_.sessione.gioco());
}

bool frmstsvl::schedine() {
    const std::string suite = platform::radice(App().Path);
    if (manca_lo_sviluppo()) {
        messaggio("Per poter stampare le schedine di un sistema bisogna prima elaborarlo.",
                  "Tabellino", true);
        return false;
    }
    if (!sviluppo_valido()) return false;
    if (nome().isEmpty()) {
        messaggio("Nessun Sistema è attualmente in linea", "Tabellino", false);
        return false;
    }
    if (platform::esiste_file(suite + "sch")) {
        platform::AppActivate("stampa");
        return true;
    }
    const std::string riga = platform::Record().scrivi("cruciverba").scrivi(s(nome())).testo();
    const std::string consegna = suite + "trans";
    if (const auto esito = platform::scrivi(consegna, riga); esito != platform::Esito::ok) {
        messaggio("Le schedine non sono state stampate.\n\n" + q(consegna) + "\n" +
                      q(platform::perche_non_si_scrive(consegna, esito)) + ".",
                  "Tabellino", true);
        return false;
    }
    if (platform::Shell(suite + "stampa.exe") == 0) {
        messaggio("Reinstalla Sortivario dal tuo CD-ROM.\r\nFile Danneggiato!", "Sortivario 2004",
                  false);
    }
    return true;
}

}  // namespace printing
