#include "platform/qt/desktop.h"

#include <algorithm>

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QGridLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPointer>
#include <QProcess>
#include <QPushButton>
#include <QScreen>
#include <QStandardPaths>
#include <QUrl>
#include <QWidget>
#include <QWindow>

#include "platform/macchina.h"
#include "platform/qt/folder.h"
#include "platform/qt/scala.h"
#include "platform/qt/scrivania.h"

namespace platform {

namespace {

int puntatore = 0;
int lavori = 0;
int clessidre = 0;
QList<QPointer<QWidget>> ferme;
QPointer<const QWidget> ascoltato_in_forza;

/// The one control that is heard during a long job, and the window through which it hears.
bool in_ascolto(const QObject* oggetto) {
    if (!ascoltato_in_forza || !ascoltato_in_forza->isVisible()) return false;
    return oggetto == ascoltato_in_forza || oggetto == ascoltato_in_forza->window()->windowHandle();
}

/// Swallows input while a long job runs.
class Filtro : public QObject {
public:
    bool eventFilter(QObject* oggetto, QEvent* evento) override {
        if (in_ascolto(oggetto)) return QObject::eventFilter(oggetto, evento);
        switch (evento->type()) {
            case QEvent::MouseButtonPress:
            case QEvent::MouseButtonRelease:
            case QEvent::MouseButtonDblClick:
            case QEvent::Wheel:
            case QEvent::KeyPress:
            case QEvent::KeyRelease:
            case QEvent::Shortcut:
            case QEvent::ShortcutOverride:
            case QEvent::ContextMenu:
            case QEvent::TouchBegin:
            case QEvent::TouchUpdate:
            case QEvent::TouchEnd:
            case QEvent::Drop:
                return true;
            default:
                return QObject::eventFilter(oggetto, evento);
        }
    }
};

Filtro& filtro() {
    static Filtro unico;
    return unico;
}

/// Only pending events would paint, so only they freeze: thawing paints the whole window anew.
void sciogli(QWidget* finestra) {
    if (finestra == nullptr || finestra->updatesEnabled()) return;
    finestra->setUpdatesEnabled(true);
    // What changed while it was frozen asked for its painting then, in vain, and asks no more.
    QCoreApplication::postEvent(finestra->window(), new QEvent(QEvent::UpdateRequest));
}

/// Where there is no icon its place goes too, and the text stands as far from either side.
void senza_rientro(QMessageBox& box) {
    auto* testo = box.findChild<QLabel*>("qt_msgbox_label");
    auto* griglia = qobject_cast<QGridLayout*>(box.layout());
    QLayoutItem* posto = griglia != nullptr ? griglia->itemAtPosition(0, 0) : nullptr;
    if (testo == nullptr || posto == nullptr || posto->spacerItem() == nullptr) return;
    posto->spacerItem()->changeSize(0, 0);
    griglia->setHorizontalSpacing(0);
    testo->setContentsMargins(0, 0, 0, 0);
    testo->setIndent(0);
    griglia->invalidate();
}

}  // namespace

namespace {

// The halves of surrogate pairs that no text holds by themselves.
constexpr char16_t base_byte = 0xDC00;
constexpr char16_t ultimo_byte = 0xDCFF;

bool byte_sciolto(const QString& testo, qsizetype i) {
    const char16_t c = testo[i].unicode();
    return c >= base_byte && c <= ultimo_byte && (i == 0 || !testo[i - 1].isHighSurrogate());
}

/// True of a byte that a text has for a terminal only: neither a line's end nor a tabulator.
bool di_controllo(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return (byte < 0x20 && c != '\t' && c != '\n' && c != '\r') || byte == 0x7F;
}

/// Length of the UTF-8 character at `i` if it can be shown, else 0.
std::size_t carattere(const std::string& testo, std::size_t i) {
    if (di_controllo(testo[i])) return 0;
    for (std::size_t n = 1; n <= 4 && i + n <= testo.size(); ++n) {
        const auto pezzo = QByteArray::fromRawData(testo.data() + i, static_cast<qsizetype>(n));
        if (pezzo.isValidUtf8()) return n;
    }
    return 0;
}

}  // namespace

QString q(const std::string& testo) {
    const auto byte = QByteArray::fromRawData(testo.data(), static_cast<qsizetype>(testo.size()));
    if (byte.isValidUtf8() && std::none_of(testo.begin(), testo.end(), di_controllo)) {
        return QString::fromUtf8(byte);
    }
    QString letto;
    for (std::size_t i = 0; i < testo.size();) {
        const std::size_t n = carattere(testo, i);
        if (n > 0) {
            letto += QString::fromUtf8(testo.data() + i, static_cast<qsizetype>(n));
            i += n;
        } else {
            letto += QChar(static_cast<char16_t>(base_byte + static_cast<unsigned char>(testo[i])));
            ++i;
        }
    }
    return letto;
}

std::string s(const QString& testo) {
    std::string scritto;
    qsizetype da = 0;
    for (qsizetype i = 0; i < testo.size(); ++i) {
        if (!byte_sciolto(testo, i)) continue;
        scritto += testo.mid(da, i - da).toStdString();
        scritto += static_cast<char>(testo[i].unicode() - base_byte);
        da = i + 1;
    }
    return scritto + (da == 0 ? testo : testo.mid(da)).toStdString();
}

int MsgBox(QWidget* padre, const Messaggio& messaggio) {
    if (scrivania().risponde) return scrivania().risponde(messaggio);
    // A frozen window or an hourglass under a box would look like a program that hangs.
    const QList<QPointer<QWidget>> ferme_prima = std::exchange(ferme, {});
    for (QWidget* finestra : ferme_prima) sciogli(finestra);
    const int prima = MousePointer();
    MousePointer(0);
    // A window that is not shown yet has no place for a box over it.
    const bool sopra = padre != nullptr && padre->isVisible();
    QMessageBox box(sopra ? padre : nullptr);
    box.setWindowTitle(messaggio.titolo);
    box.setText(messaggio.testo);
    box.setTextFormat(Qt::PlainText);
    if (messaggio.icona == Icona::informazione) {
        box.setIcon(QMessageBox::Information);
    } else {
        senza_rientro(box);
    }
    if (messaggio.pulsanti == Pulsanti::ok) {
        box.setStandardButtons(QMessageBox::Ok);
        box.setEscapeButton(QMessageBox::Ok);
    } else {
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        if (messaggio.pulsanti == Pulsanti::si_no_annulla) {
            box.addButton(QMessageBox::Cancel)->setText(QStringLiteral("&Annulla"));
        }
        box.button(QMessageBox::Yes)->setText(QStringLiteral("&Sì"));
        box.button(QMessageBox::No)->setText(QStringLiteral("&No"));
        box.setDefaultButton(QMessageBox::Yes);
        if (messaggio.lasciata_vale_si) box.setEscapeButton(QMessageBox::Yes);
    }
    QList<QAbstractButton*> altri;
    for (const QString& testo : messaggio.altri) {
        altri << box.addButton("&" + testo, QMessageBox::ActionRole);
    }
    if (!altri.isEmpty()) box.setDefaultButton(qobject_cast<QPushButton*>(altri.first()));
    if (sopra) caratteri_come(&box, padre);
    if (const QScreen* schermo = QGuiApplication::primaryScreen(); !sopra && schermo != nullptr) {
        box.adjustSize();
        box.move(schermo->availableGeometry().center() - box.rect().center());
    }
    // A long job swallows all input, but its own question must be answered.
    if (LavoroLungo::in_corso()) qApp->removeEventFilter(&filtro());
    const int risposta = box.exec();
    if (LavoroLungo::in_corso()) qApp->installEventFilter(&filtro());
    ferme = ferme_prima;
    MousePointer(prima);
    const qsizetype altro = altri.indexOf(box.clickedButton());
    if (altro >= 0) return vbAltri + static_cast<int>(altro);
    switch (risposta) {
        case QMessageBox::Yes:
            return vbYes;
        case QMessageBox::No:
            return vbNo;
        case QMessageBox::Ok:
            return vbOK;
        default:
            // The close box of a question without "Annulla" must not count as a consent.
            return messaggio.pulsanti == Pulsanti::ok      ? vbOK
                   : messaggio.pulsanti == Pulsanti::si_no ? vbNo
                                                           : vbCancel;
    }
}

void DoEvents() {
    // Counted from the end of the last round of events, so that the wait for the next one counts
    // too: the first call after an idle time runs events, and then none for 15 ms.
    static QElapsedTimer orologio;
    static const QMetaObject::Connection risveglio =
        QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake,
                         qApp, [] { orologio.start(); });
    if (!orologio.isValid()) orologio.start();
    if (orologio.elapsed() < 15) return;
    for (QWidget* finestra : ferme) {
        if (finestra != nullptr) finestra->setUpdatesEnabled(false);
    }
    QCoreApplication::processEvents(LavoroLungo::in_corso() ? QEventLoop::AllEvents
                                                            : QEventLoop::ExcludeUserInputEvents);
    orologio.start();
}

void MousePointer(int valore) {
    if (valore == puntatore) return;
    puntatore = valore;
    if (valore == 11) {
        QApplication::setOverrideCursor(Qt::WaitCursor);
    } else {
        QApplication::restoreOverrideCursor();
    }
}

int MousePointer() {
    return puntatore;
}

Clessidra::Clessidra() : prima_(MousePointer()) {
    ++clessidre;
    MousePointer(11);
}

Clessidra::~Clessidra() {
    --clessidre;
    if (!resta_) MousePointer(clessidre > 0 ? prima_ : 0);
}

FinestraFerma::FinestraFerma(QWidget* finestra) : finestra_(finestra) {
    ferme << finestra_;
}

FinestraFerma::~FinestraFerma() {
    ferme.removeOne(finestra_);
    if (!ferme.contains(finestra_)) sciogli(finestra_);
}

LavoroLungo::LavoroLungo(const QWidget* ascoltato) : ascoltato_prima_(ascoltato_in_forza) {
    if (ascoltato != nullptr) ascoltato_in_forza = ascoltato;
    if (lavori++ == 0) qApp->installEventFilter(&filtro());
}

LavoroLungo::~LavoroLungo() {
    ascoltato_in_forza = ascoltato_prima_;
    if (--lavori == 0) qApp->removeEventFilter(&filtro());
}

bool LavoroLungo::in_corso() {
    return lavori > 0;
}

bool nessuno_apre(const QString& mime) {
    if (scrivania().apre) return false;
    constexpr int attesa = 3000;
    QProcess domanda;
    domanda.start("xdg-mime", {"query", "default", mime}, QIODevice::ReadOnly);
    return domanda.waitForFinished(attesa) && domanda.exitCode() == 0 &&
           domanda.readAllStandardOutput().trimmed().isEmpty();
}

bool apri_documento(const QString& documento) {
    if (scrivania().apre) return scrivania().apre(documento);
    const bool indirizzo = documento.contains("://");
    return QDesktopServices::openUrl(indirizzo ? QUrl(documento) : QUrl::fromLocalFile(documento));
}

void offri_documento(const QString& testo, const QString& file, const QString& mime,
                     const Dice& dice) {
    const int risposta = dice(testo, {"Apri", "Mostra la cartella"});
    if (risposta < vbAltri) return;
    const bool cartella = risposta > vbAltri;
    if (!nessuno_apre(cartella ? "inode/directory" : mime) &&
        apri_documento(cartella ? QFileInfo(file).path() : file)) {
        return;
    }
    const QString cosa = cartella                    ? "mostra le cartelle"
                         : mime == "application/pdf" ? "apre i PDF"
                                                     : "apre questo file";
    dice("Nessun programma di questo computer " + cosa + ".\nIl file è\n" + da_mostrare(file), {});
}

bool cestina(const QString& nome) {
    // Where the folder above the trash is missing, the trash would be made in the current folder.
    QDir().mkpath(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation));
    // Where a disk has none, the system decides what becomes of the file.
    return QFile::moveToTrash(nome) || macchina::cestina(s(nome));
}

void tieni_sullo_schermo(QWidget* finestra) {
    const QRect schermo = finestra->screen()->availableGeometry();
    const QRect cornice = finestra->frameGeometry();
    // What is larger than the screen keeps its title there.
    const QPoint posto(
        qMax(schermo.left(), qMin(cornice.left(), schermo.right() + 1 - cornice.width())),
        qMax(schermo.top(), qMin(cornice.top(), schermo.bottom() + 1 - cornice.height())));
    if (posto != cornice.topLeft()) finestra->move(posto);
}

void centra(QWidget* finestra, const QWidget* sotto) {
    Scala* sua = Scala::di(finestra);
    if (sua != nullptr && sua->rimetti()) return;
    const QPoint posto = sotto->pos() + QPoint((sotto->width() - finestra->width()) / 2,
                                               (sotto->height() - finestra->height()) / 2);
    if (sua != nullptr) sua->messa(posto);
    // A window that exists but has no frame yet would take a move for that of its client area.
    if (QWindow* w = finestra->windowHandle()) {
        w->setFramePosition(posto);
    } else {
        finestra->move(posto);
    }
}

void mostra_di_nuovo(QWidget* finestra) {
    // The window manager places anew whatever was never told its place.
    if (QWindow* w = finestra->windowHandle()) w->setGeometry(finestra->geometry());
    finestra->show();
    finestra->activateWindow();
}

}  // namespace platform
