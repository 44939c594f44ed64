#include "app/frmsplash.h"

#include <QApplication>
#include <QScreen>

#include "platform/application.h"
#include "platform/disk.h"
#include "platform/qt/desktop.h"
#include "platform/qt/foglio_scalato.h"
#include "platform/qt/scala.h"
#include "platform/qt/tasti.h"

namespace app {

namespace {

constexpr QSize misura(480, 280);
constexpr int battiti_totali = 10;

}  // namespace

frmSplash::frmSplash(std::function<void()> carica, std::function<void()> mostra, qreal fattore)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint),
      carica_(std::move(carica)),
      mostra_(std::move(mostra)) {
    // Not the desktop's own kind of splash: window managers give that no keyboard.
    setObjectName("frmSplash");
    setWindowTitle("Tabellino");
    setAttribute(Qt::WA_DeleteOnClose);
    const auto posto = [fattore](int x, int y, QSize largo) {
        return QRect(QPoint(x, y) * fattore, largo * fattore);
    };
    setFixedSize(misura * fattore);
    if (fattore != 1) {
        setFont(platform::scalato(font(), fattore, this));
        setStyleSheet(platform::misure_scalate(qApp->styleSheet(), fattore));
    }
    constexpr QSize palla(64, 64);
    Image1_1 = new platform::Image(":/splash.svg", misura * fattore, this);
    Image1_1->setObjectName(platform::membro("Image1", 1));
    Image1_1->setGeometry(posto(0, 0, misura));
    Image1_0 = new platform::Image(":/splash_palla.svg", palla * fattore, this);
    Image1_0->setObjectName(platform::membro("Image1", 0));
    Image1_0->setGeometry(posto(390, 190, palla));
    auto* titolo = new QLabel("Tabellino", this);
    titolo->setProperty("titolo_splash", true);
    titolo->setGeometry(posto(26, 188, {280, 44}));
    lblVersion = new QLabel("Versione " + platform::q(platform::App().versione()), this);
    lblVersion->setObjectName("lblVersion");
    lblVersion->setProperty("su_scuro", true);
    lblVersion->setGeometry(posto(28, 232, {280, 20}));
    // The picture behind them is what a click is for.
    for (QLabel* scritta : {titolo, lblVersion}) {
        scritta->setAttribute(Qt::WA_TransparentForMouseEvents);
    }
    Command1 = new QPushButton("Start", this);
    Command1->setObjectName("Command1");
    Command1->hide();
    for (platform::Image* immagine : {Image1_0, Image1_1}) {
        immagine->setFocusPolicy(Qt::NoFocus);
        immagine->setToolTip("Avvia Tabellino");
        immagine->setAccessibleName(immagine->toolTip());
        connect(immagine, &QAbstractButton::clicked, this, &frmSplash::Command1_Click);
    }
    connect(Command1, &QPushButton::clicked, this, &frmSplash::Command1_Click);
    Timer1 = new QTimer(this);
    Timer1->setObjectName("Timer1");
    Timer1->setInterval(500);
    connect(Timer1, &QTimer::timeout, this, &frmSplash::Timer1_Timer);
    Timer1->start();
    if (const QScreen* schermo = QGuiApplication::primaryScreen()) {
        move(schermo->availableGeometry().center() - rect().center());
    }
}

void frmSplash::Timer1_Timer() {
    Image1_0->setVisible(!Image1_0->isVisible());
    if (++battiti_ == battiti_totali) Command1_Click();
}

void frmSplash::Command1_Click() {
    if (!Timer1->isActive()) return;
    Timer1->stop();
    platform::scrivi(platform::App().file("act"), "");
    const platform::Clessidra attesa;
    carica_();
    platform::DoEvents();
    mostra_();
    close();
}

void frmSplash::keyPressEvent(QKeyEvent* evento) {
    // A key that is held for another one, as of Alt+Tab, was not pressed for the splash.
    if (!Timer1->isActive() || platform::solo_modificatore(*evento)) return;
    Timer1->stop();
    hide();
    carica_();
    mostra_();
    close();
}

}  // namespace app
