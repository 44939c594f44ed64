#include "viewer/strumenti.h"

#include <QDir>
#include <QFileInfo>
#include <QIntValidator>
#include <QKeyEvent>
#include <QPointer>
#include <QScreen>
#include <QShortcut>

#include "app/finestra.h"
#include "platform/file_nuovo.h"
#include "platform/qt/desktop.h"
#include "platform/qt/disposizione.h"
#include "platform/qt/folder.h"
#include "platform/qt/scala.h"
#include "platform/runtime.h"
#include "viewer/esportazione.h"
#include "viewer/form3.h"
#include "viewer/frmcerca.h"

namespace viewer {

using platform::q;
using platform::s;

namespace {

void dice(QWidget* padre, const QString& testo) {
    platform::MsgBox(padre,
                     {testo, platform::Pulsanti::ok, "Tabellino", platform::Icona::informazione});
}

/// With an ending that is no system's nor a development's.
QString con_estensione(const QString& file) {
    const QString fine = QFileInfo(file).suffix().toLower();
    return fine == "csv" || fine == "txt" ? file : file + ".csv";
}

}  // namespace

Strumenti::Strumenti(Form3& visore) : QObject(&visore), visore_(visore) {
    const int y = visore.Command1->y();
    const auto pulsante = [&](const char* nome, const QString& testo, int x, int largo,
                              const QString& dice) {
        QPushButton* b = platform::pulsante(nome, testo, {x, y, largo, 28}, visore.Frame2);
        b->setAutoDefault(false);
        b->setToolTip(dice);
        return b;
    };
    cmdvai = pulsante("cmdvai", tr("Vai a…"), 256, 62, tr("Va a una pagina (Ctrl+G)"));
    cmdcerca = pulsante("cmdcerca", tr("Cerca…"), 324, 66,
                        tr("Cerca le combinazioni con certi numeri (Ctrl+F)"));
    cmdesporta = pulsante("cmdesporta", tr("Esporta…"), 396, 78,
                          tr("Scrive tutte le combinazioni in un file per altri programmi "
                             "(Ctrl+E)"));
    txtpagina =
        platform::posto(new QLineEdit(visore.Frame2), "txtpagina", visore.lblpag[0]->geometry());
    txtpagina->setAccessibleName(tr("Pagina a cui andare"));
    txtpagina->setAlignment(Qt::AlignCenter);
    txtpagina->setMaxLength(7);
    txtpagina->setValidator(new QIntValidator(1, 9999999, txtpagina));
    txtpagina->installEventFilter(this);
    txtpagina->hide();
    connect(cmdvai, &QPushButton::clicked, this, &Strumenti::vai);
    connect(cmdcerca, &QPushButton::clicked, this, &Strumenti::cerca);
    connect(cmdesporta, &QPushButton::clicked, this, [this] {
        if (al_lavoro_) {
            ferma();
        } else {
            esporta();
        }
    });
    const auto tasto = [&visore](const QKeySequence& tasti, QPushButton* preme) {
        connect(new QShortcut(tasti, &visore), &QShortcut::activated, preme,
                &QAbstractButton::click);
    };
    tasto(QKeySequence(Qt::CTRL | Qt::Key_G), cmdvai);
    tasto(QKeySequence::Find, cmdcerca);
    tasto(QKeySequence(Qt::CTRL | Qt::Key_E), cmdesporta);
}

void Strumenti::vai() {
    if (!visore_.HScroll1->isEnabled()) return;
    txtpagina->setText(visore_.lblpag[0]->text());
    txtpagina->show();
    txtpagina->raise();
    txtpagina->setFocus();
    txtpagina->selectAll();
}

void Strumenti::chiudi_casella(bool vai) {
    if (txtpagina->isHidden()) return;
    const int pagina = txtpagina->text().toInt();
    txtpagina->hide();
    if (vai && pagina > 0) visore_.HScroll1->setValue(pagina);
    visore_.Command1->setFocus();
}

bool Strumenti::eventFilter(QObject* oggetto, QEvent* evento) {
    if (evento->type() == QEvent::FocusOut) chiudi_casella(false);
    if (evento->type() == QEvent::KeyPress) {
        const int tasto = static_cast<QKeyEvent*>(evento)->key();
        const bool invio = tasto == Qt::Key_Return || tasto == Qt::Key_Enter;
        // Neither may reach the window, which would close.
        if (invio || tasto == Qt::Key_Escape) {
            chiudi_casella(invio);
            return true;
        }
    }
    return QObject::eventFilter(oggetto, evento);
}

namespace {

/// Where a window stands beside the viewer, on the side that has room; with none on either, over
/// its right edge.
QPoint accanto(const Form3& visore, const QWidget& quale) {
    constexpr int distanza = 8;
    // What its frame will take.
    constexpr QSize cornice(8, 36);
    const QSize serve = quale.size() + cornice;
    const QRect schermo = visore.screen()->availableGeometry();
    const QRect suo = visore.frameGeometry();
    const QPoint dove = suo.topRight() + QPoint(distanza, 0);
    if (dove.x() + serve.width() <= schermo.right() + 1) return dove;
    const int a_sinistra = suo.left() - distanza - serve.width();
    if (a_sinistra >= schermo.left()) return {a_sinistra, suo.top()};
    return {schermo.right() + 1 - serve.width(), suo.top()};
}

}  // namespace

void Strumenti::cerca() {
    if (!visore_.HScroll1->isEnabled() || al_lavoro_) return;
    auto* aperta = visore_.findChild<frmcerca*>();
    if (aperta == nullptr) {
        aperta = new frmcerca(visore_);
        platform::Scala* sua = platform::Scala::di(aperta);
        if (!sua->rimetti()) {
            aperta->move(accanto(visore_, *aperta));
            platform::tieni_sullo_schermo(aperta);
            sua->messa(aperta->pos());
        }
    }
    aperta->show();
    aperta->raise();
    aperta->activateWindow();
}

void Strumenti::esporta() {
    if (!visore_.HScroll1->isEnabled() || al_lavoro_) return;
    const QPointer<Form3> ancora(&visore_);
    const QString nome = platform::Tag(&visore_);
    const QString scelto = platform::scegli_nuovo_file(
        &visore_, tr("Esporta lo sviluppo"), QDir::homePath() + "/" + nome + "-sviluppo.csv",
        tr("Tabella CSV per un foglio di calcolo (*.csv);;Testo, i numeri soltanto (*.txt)"));
    if (!ancora || scelto.isEmpty()) return;
    const QString file = con_estensione(scelto);
    // What is on the screen may be another program's by now.
    visore_.rivedi();
    if (!visore_.isVisible()) return;
    Esportazione fatta;
    al_lavoro_ = true;
    fermato_ = false;
    cmdesporta->setText(tr("Ferma"));
    {
        const platform::Clessidra attesa;
        const platform::LavoroLungo lavoro(cmdesporta);
        const QPointer<Strumenti> io(this);
        fatta = viewer::esporta(visore_.file_sviluppo(), visore_.gioco().numeri(), s(file), [&io] {
            platform::DoEvents();
            return io && !io->fermato_;
        });
    }
    if (!ancora) return;
    al_lavoro_ = false;
    cmdesporta->setText(tr("Esporta…"));
    if (visore_.chiusura_chiesta()) {
        visore_.close();
        return;
    }
    racconta(fatta, file);
}

void Strumenti::racconta(const Esportazione& fatta, const QString& file) {
    const QString dove = platform::da_mostrare(file);
    const QString nome = platform::Tag(&visore_);
    switch (fatta.esito) {
        case Esportato::interrotto:
            return visore_.finestra().mostra_esito(tr("Esportazione interrotta: nessun file"));
        case Esportato::illeggibile:
            return dice(&visore_, "Lo sviluppo non si può leggere: nessun file è stato scritto.");
        case Esportato::non_scritto:
            return dice(&visore_, "Lo sviluppo non è stato esportato.\n\n" + dove + "\n" +
                                      q(platform::perche_non_si_scrive(s(file), fatta.disco)) +
                                      ".");
        default:
            break;
    }
    visore_.finestra().mostra_esito("Lo sviluppo di " + nome + " è nel file " + dove);
    const QString quante = q(platform::Format(fatta.righe, platform::Modello::interi));
    platform::offri_documento(
        "Lo sviluppo è nel file\n" + dove + "\n\n" +
            (fatta.righe == 1 ? tr("Una combinazione.") : quante + tr(" combinazioni.")),
        file, file.endsWith(".txt", Qt::CaseInsensitive) ? "text/plain" : "text/csv",
        [this](const QString& testo, const QStringList& altri) {
            return platform::MsgBox(&visore_, {testo, platform::Pulsanti::ok, "Tabellino",
                                               platform::Icona::informazione, altri});
        });
}

}  // namespace viewer
