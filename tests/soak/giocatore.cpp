// Windows, boxes and the main form, as the player meets them.
#include "soak/giocatore.h"

#include <filesystem>
#include <fstream>

#include <QAbstractItemView>
#include <QMenu>
#include <QTabBar>
#include <QTest>
#include <QTimer>

#include "help/frmAbout.h"
#include "platform/qt/desktop.h"
#include "platform/qt/folder.h"
#include "platform/qt/scrivania.h"
#include "support/archivio_prova.h"

namespace soak {

namespace fs = std::filesystem;

namespace {

/// Beginnings of every text that the program may show in a box.
const std::array<const char*, 39> previsti = {
    "Per procedere al salvataggio del sistema occorre completare lo schema del Cruciverba",
    "Per procedere al salvataggio del sistema si deve completare il Cruciverba",
    "Per procedere all'elaborazione del sistema occorre completare lo schema del Cruciverba",
    "Per procedere all'elaborazione del sistema bisogna completare lo schema del cruciverbas",
    "Sono state apportate delle modifiche al sistema attualmente in linea.\nSi desidera",
    "Sono state apportate delle modifiche al sistema in linea.\nSalvare il Sistema?",
    "Sono state apportate delle modifiche alla struttura del cruciverba.\nPer poetr",
    "Il sistema in linea è stato modificato.\nSi desidera salvarlo?",
    "Per elaborare il sistema occore prima salvarlo.Vuoi salvare ora?",
    "Elaborazione completata.",
    "Per poter visulizzare le colonne del sistema occorre prima salvarlo.\nSalvare ora?",
    "Per poter visulizzare lo sviluppo di un sistema bisogna prima elaborarlo.",
    "Per visualizzare le colonne del sistema si deve prima salvare il sistema.\nSalvare ora?",
    "Per visualizzare lo sviluppo si deve elaborare il sistema.\nElaborare ora?",
    "Per effettuare lo spoglio del sistema si deve prima effettuare l'elaborazione. Elaborare",
    "Nessun sistema in linea.",
    "Impossibile completare il Cruciverba con i nuemeri scelti.",
    "Inserire il nome del sistema.",
    "Esiste già un sistema con questo nome. Sovrascrivere?",
    "Esiste già un sistema con uesto nome. Sovrascrivere?",
    "Impossibile rinominare. Sono stati utilizzati dei caratteri non validi.",
    "Impossibile rinominare. Esiste già un sistema con questo nome.",
    "Inserire il nome da dare al sistema!",
    "Impossibile copiare un sistema con il proprio nome!",
    "Il sistema scelto sarà eliminato. Confermi?",
    "Questa operazione eliminerà tutti i sistemi in archivio. Confermi?",
    "Inserire tutti i numeri della combinazione vincente.",
    "Inserire l'importo per la giocata della singola Colonna",
    "Per inserire il valore in Euro il formato corretto è: x,xx",
    "Modifica Registrata!",
    "Per Poter stampare lo sviluppo o le schedine, occorre prima elaborare il sistema.",
    "Per poter stampare le schedine di un sistema bisogna prima elaborarlo.",
    "Per poter  stampare sviluppo, prospetto o scehdine è necessario prima salvare il sistema.",
    "Il prospetto è nel file\n",
    "Lo sviluppo è nel file\n",
    "L'analisi è nel file\n",
    "L'analisi non è stata scritta.\n",
    "Reinstalla Sortivario dal tuo CD-ROM.\r\nFile Danneggiato!",
    "Il programma \"archivio\", che importa le estrazioni, non c'è accanto a questo.",
};
const std::array<const char*, 4> previsti_rari = {
    "Lo sviluppo di questo sistema è di un altro cruciverba: le sue colonne non sono quelle da",
    "Nessun sistema è attualmente in linea.",
    "Per accedere alle funzioni di stampa occorre che il sistema in linea sia stato salvato.",
    "Per poter Realizzare un sistema statistico devono essere state effettuate almeno 100",
};

bool previsto(const QString& testo) {
    const auto comincia = [&testo](const char* inizio) {
        return testo.startsWith(QString::fromUtf8(inizio));
    };
    return std::any_of(previsti.begin(), previsti.end(), comincia) ||
           std::any_of(previsti_rari.begin(), previsti_rari.end(), comincia);
}

constexpr int al_massimo = 4000;

}  // namespace

Giocatore::Giocatore(std::uint32_t seme) : sorte_(seme), altra_(cartella_.radice() + "/altra") {
    fs::create_directories(altra_);
    cartella_.con_tabelle();
    support::metti_archivio(cartella_.radice(), support::archivio_di_prova());
    platform::scrivania().risponde = [this](const platform::Messaggio& m) { return rispondi(m); };
    platform::scrivania().apre = [](const QString&) { return true; };
    platform::scrivania().sceglie_cartella = [this](const QString&, const QString& inizio) {
        const QString scelta =
            sorte_.uno(QStringList{QString(), platform::q(altra_), platform::q(altra_) + "/",
                                   inizio, platform::q(altra_) + "/manca"});
        annota("   cartella: " + scelta);
        return scelta;
    };
    qApp->installEventFilter(this);
    avvia();
}

Giocatore::~Giocatore() {
    ferma();
    qApp->removeEventFilter(this);
    platform::MousePointer(0);
}

void Giocatore::avvia() {
    dialoghi_ = std::make_unique<app::DialoghiQt>();
    form1_ = std::make_unique<app::Form1>(*dialoghi_);
    form1_->Form_Load();
    form1_->show();
    form1_->activateWindow();
    QApplication::processEvents();
}

void Giocatore::ferma() {
    if (form1_->isVisible()) form1_->close();
    form1_.reset();
    dialoghi_.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void Giocatore::annota(const QString& riga) {
    diario_ << riga;
}

int Giocatore::rispondi(const platform::Messaggio& messaggio) {
    if (!previsto(messaggio.testo)) boxes_inattesi_ << messaggio.testo;
    if (sorte_.una_su(6)) return rispondi_alla_vera(messaggio);
    int risposta = platform::vbOK;
    if (messaggio.pulsanti != platform::Pulsanti::ok) {
        const int caso = sorte_.sotto(10);
        risposta = caso < 6 ? platform::vbYes : platform::vbNo;
        if (caso > 8 && messaggio.pulsanti == platform::Pulsanti::si_no_annulla) {
            risposta = platform::vbCancel;
        }
    }
    annota(QStringLiteral("   box \"%1\" -> %2").arg(messaggio.testo.left(60)).arg(risposta));
    return risposta;
}

int Giocatore::rispondi_alla_vera(const platform::Messaggio& messaggio) {
    const auto risponde = std::exchange(platform::scrivania().risponde, {});
    annota(QStringLiteral("   box vero \"%1\"").arg(messaggio.testo.left(60)));
    const int risposta = platform::MsgBox(form1_.get(), messaggio);
    platform::scrivania().risponde = risponde;
    annota(QStringLiteral("   -> %1").arg(risposta));
    return risposta;
}

bool Giocatore::eventFilter(QObject* oggetto, QEvent* evento) {
    auto* finestra = qobject_cast<QDialog*>(oggetto);
    if (evento->type() == QEvent::Show && finestra != nullptr && finestra->isModal()) {
        ++modali_;
        // After the window's own loop has begun.
        QTimer::singleShot(0, finestra, [this, finestra] { gioca_modale(finestra); });
    }
    return false;
}

void Giocatore::gioca_modale(QWidget* finestra) {
    const QPointer<QWidget> ancora(finestra);
    if (sorte_.una_su(3)) sotto();
    if (auto* gestore = qobject_cast<systems::Form2*>(finestra)) {
        for (int i = sorte_.sotto(3); i >= 0 && ancora && ancora->isVisible(); --i) {
            if (sorte_.una_su(2)) {
                const QString n = nome();
                annota("   modale: salva " + n);
                gestore->Text1->clear();
                QTest::keyClicks(gestore->Text1, n);
                clic(gestore->cmdsalva);
            } else {
                gioca_gestore(*gestore);
            }
            QApplication::processEvents();
        }
    } else if (auto* box = qobject_cast<QMessageBox*>(finestra)) {
        gioca_box(*box);
    } else if (auto* migliora = qobject_cast<analysis::frmmigliora*>(finestra)) {
        gioca_migliora(*migliora);
    } else if (auto* cerca = qobject_cast<analysis::frmcercatabella*>(finestra)) {
        gioca_cerca(*cerca);
    } else if (auto* info = qobject_cast<help::frmAbout*>(finestra)) {
        clic(info->cmdOK);
    }
    --modali_;
    if (!ancora || !ancora->isVisible()) return;
    annota("   modale: via");
    QTest::keyClick(finestra, Qt::Key_Escape);
    if (ancora && ancora->isVisible()) ancora->close();
}

void Giocatore::esegui(const std::vector<Scelta>& scelte) {
    int somma = 0;
    for (const Scelta& s : scelte) somma += s.peso;
    int quale = sorte_.sotto(somma);
    for (const Scelta& s : scelte) {
        quale -= s.peso;
        if (quale >= 0) continue;
        annota(s.nome);
        s.fare();
        return;
    }
}

void Giocatore::agisci() {
    std::vector<Scelta> scelte;
    if (form1_->isVisible()) scelte.push_back({8, "Form1", [this] { gioca_form1(); }});
    if (auto* f = aperta<systems::Form2>()) {
        scelte.push_back({4, "Form2", [this, f] { gioca_gestore(*f); }});
    }
    if (auto* f = aperta<viewer::Form3>()) {
        scelte.push_back({2, "Form3", [this, f] { gioca_visualizzatore(*f); }});
    }
    if (auto* f = aperta<check::frmspoglio>()) {
        scelte.push_back({8, "frmspoglio", [this, f] { gioca_spoglio(*f); }});
    }
    if (auto* f = aperta<printing::frmstsvl>()) {
        scelte.push_back({3, "frmstsvl", [this, f] { gioca_stampa(*f); }});
    }
    if (auto* f = aperta<viewer::formeuro>()) {
        scelte.push_back({3, "formeuro", [this, f] { gioca_importo(*f); }});
    }
    if (auto* f = aperta<analysis::frmanalisi>()) {
        scelte.push_back({3, "frmanalisi", [this, f] { gioca_analisi(*f); }});
    }
    if (auto* f = aperta<analysis::frmtabelle>()) {
        scelte.push_back({3, "frmtabelle", [this, f] { gioca_tabelle(*f); }});
    }
    esegui(scelte);
    QApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    if (!form1_->isVisible() && aperta<check::frmspoglio>() == nullptr) dopo_la_chiusura();
}

void Giocatore::dopo_la_chiusura() {
    annota("-- finito, si ricomincia");
    for (const QWidget* w : QApplication::topLevelWidgets()) {
        if (w->isVisible()) boxes_inattesi_ << "dopo la chiusura resta " + w->objectName();
    }
    if (cartella_.esiste("act")) boxes_inattesi_ << "dopo la chiusura resta act";
    ferma();
    avvia();
}

void Giocatore::clic(QWidget* w) {
    if (w != nullptr && w->isVisible()) QTest::mouseClick(w, Qt::LeftButton);
}

void Giocatore::voce(QAction* azione) {
    annota("   voce " + azione->objectName());
    for (QObject* oggetto : azione->associatedObjects()) {
        auto* menu = qobject_cast<QMenu*>(oggetto);
        if (menu == nullptr) continue;
        const QPointer<QMenu> ancora(menu);
        menu->popup(QPoint(10, 10));
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(azione).center());
        if (ancora) ancora->close();
        return;
    }
}

void Giocatore::premi_un_pulsante(QWidget& finestra) {
    QList<QAbstractButton*> pulsanti;
    for (QAbstractButton* b : finestra.findChildren<QAbstractButton*>()) {
        if (b->isVisible()) pulsanti << b;
    }
    if (pulsanti.isEmpty()) return;
    QAbstractButton* scelto = sorte_.uno(pulsanti);
    annota("   pulsante " + scelto->objectName());
    clic(scelto);
}

QString Giocatore::nome() {
    return sorte_.uno(QStringList{"a", "b", "c1", "sistema7", "", "A", "a@ _"});
}

bool Giocatore::troppo_grande() const {
    return platform::leggi_numero(platform::s(form1_->MSFlexGrid2->testo(4, 3))) > al_massimo;
}

}  // namespace soak
