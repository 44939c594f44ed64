// The player's other ways to a window: other buttons, wheel, drag, touch, the focus by keys,
// mnemonics, menus of the moment, the window manager's close, paste and drop.
#include <QClipboard>
#include <QDropEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>
#include <QWindow>

#include "platform/qt/desktop.h"
#include "soak/giocatore.h"

namespace soak {

namespace {

/// Texts as other programs may leave them.
const QStringList portati{"12",      "7\t8\t9\n10\t11\t12", "90 91 -3", "", "x\ny", "0,50",
                          "sistema", QString(300, '7')};

QList<QWidget*> visibili(QWidget* finestra) {
    QList<QWidget*> tutti{finestra};
    for (QWidget* w : finestra->findChildren<QWidget*>()) {
        if (w->isVisible() && w->window() == finestra) tutti << w;
    }
    return tutti;
}

}  // namespace

void Giocatore::agisci(std::uint32_t seme) {
    sorte_ = Sorte(seme);
    if (sorte_.una_su(2)) {
        agisci();
    } else {
        dispositivo();
    }
}

QWidget* Giocatore::una_finestra() {
    QList<QWidget*> finestre;
    for (QWidget* w : QApplication::topLevelWidgets()) {
        if (w->isVisible() && w->windowType() != Qt::ToolTip && w->windowType() != Qt::Popup)
            finestre << w;
    }
    return finestre.isEmpty() ? nullptr : sorte_.uno(finestre);
}

void Giocatore::dispositivo() {
    QWidget* finestra = una_finestra();
    if (finestra == nullptr) return;
    finestra->activateWindow();
    QWidget* w = sorte_.uno(visibili(finestra));
    const QPoint dove(sorte_.sotto(qMax(1, w->width())), sorte_.sotto(qMax(1, w->height())));
    annota(QStringLiteral("%1 %2 %3,%4")
               .arg(finestra->objectName(), w->objectName())
               .arg(dove.x())
               .arg(dove.y()));
    // The menu of the manager may import, and its sending may leave the hourglass on.
    if (qobject_cast<systems::Form2*>(finestra) != nullptr) estraneo_ = clessidra_ammessa_ = true;
    std::vector<Scelta> scelte{
        {4, " destro", [this, w, dove] { destro(w, dove); }},
        {2, " centrale", [w, dove] { QTest::mouseClick(w, Qt::MiddleButton, {}, dove); }},
        {4, " rotella", [this, w, dove] { rotella(w, dove); }},
        {3, " trascina", [this, w, dove] { trascina(w, dove); }},
        {3, " incolla", [this, finestra] { incolla(finestra); }},
        {2, " lascia", [this, w, dove] { lascia(w, dove); }},
        {3, " tocca", [this, w, dove] { tocca(w, dove); }},
    };
    // What a key may begin, and what waits for a big development, would only cost time.
    if (!troppo_grande()) {
        scelte.push_back(
            {3, " doppio", [w, dove] { QTest::mouseDClick(w, Qt::LeftButton, {}, dove); }});
        scelte.push_back({4, " fuoco", [this, finestra] { fuoco(finestra); }});
        scelte.push_back({3, " lettera", [this, finestra] { lettera(finestra); }});
    }
    if (sorte_.una_su(8)) {
        // As the window manager asks for it.
        scelte.push_back({6, " chiudi", [finestra] { finestra->windowHandle()->close(); }});
    }
    esegui(scelte);
    QApplication::processEvents();
    for (int i = 0; i < 5 && QApplication::activePopupWidget() != nullptr; ++i) {
        QApplication::activePopupWidget()->close();
    }
    QApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    if (!form1_->isVisible() && aperta<check::frmspoglio>() == nullptr) dopo_la_chiusura();
}

void Giocatore::destro(QWidget* w, QPoint dove) {
    const QPointer<QWidget> ancora(w);
    QTest::mouseClick(w, Qt::RightButton, {}, dove);
    if (!ancora) return;
    const bool sceglie = sorte_.una_su(3);
    // Some menus have a loop of their own.
    QTimer::singleShot(0, this, [this, sceglie] {
        QWidget* menu = QApplication::activePopupWidget();
        if (menu == nullptr) return;
        annota(sceglie ? "   dal menu" : "   via il menu");
        if (sceglie) QTest::keyClick(menu, Qt::Key_Down);
        const QPointer<QWidget> aperto(menu);
        QTest::keyClick(menu, sceglie ? Qt::Key_Return : Qt::Key_Escape);
        // An entry that is off leaves its menu open.
        if (aperto && aperto->isVisible()) aperto->close();
    });
    QContextMenuEvent chiede(QContextMenuEvent::Mouse, dove, w->mapToGlobal(dove));
    QCoreApplication::sendEvent(w, &chiede);
    QApplication::processEvents();
}

void Giocatore::rotella(QWidget* w, QPoint dove) {
    const QPointer<QWidget> ancora(w);
    for (int i = sorte_.sotto(4); i >= 0 && ancora; --i) {
        const QPoint giro =
            sorte_.una_su(4) ? QPoint(120, 0) : QPoint(0, sorte_.una_su(2) ? 120 : -120);
        const auto con = sorte_.una_su(5) ? Qt::ControlModifier : Qt::NoModifier;
        QWheelEvent evento(dove, w->mapToGlobal(dove), {}, giro, Qt::NoButton, con,
                           Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(w, &evento);
    }
}

void Giocatore::trascina(QWidget* w, QPoint dove) {
    const QPointer<QWidget> ancora(w);
    QTest::mousePress(w, Qt::LeftButton, {}, dove);
    QPoint ultimo = dove;
    for (int i = 0; i < 3 && ancora; ++i) {
        ultimo = QPoint(sorte_.sotto(qMax(1, w->width())), sorte_.sotto(qMax(1, w->height())));
        QMouseEvent mosso(QEvent::MouseMove, ultimo, w->mapToGlobal(ultimo), Qt::NoButton,
                          Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(w, &mosso);
    }
    // Let go outside, too, where the press counts for nothing.
    if (sorte_.una_su(2)) ultimo = {-5, -5};
    if (ancora) QTest::mouseRelease(w, Qt::LeftButton, {}, ultimo);
}

void Giocatore::fuoco(QWidget* finestra) {
    const QPointer<QWidget> ancora(finestra);
    for (int i = sorte_.sotto(12); i >= 0 && ancora && ancora->isVisible(); --i) {
        QTest::keyClick(finestra, sorte_.una_su(3) ? Qt::Key_Backtab : Qt::Key_Tab);
    }
    if (!ancora || finestra->focusWidget() == nullptr) return;
    annota("   su " + finestra->focusWidget()->objectName());
    QTest::keyClick(finestra->focusWidget(),
                    sorte_.uno(QList<Qt::Key>{Qt::Key_Space, Qt::Key_Return, Qt::Key_Down,
                                              Qt::Key_Up, Qt::Key_Home, Qt::Key_End}));
}

void Giocatore::lettera(QWidget* finestra) {
    const auto tasto = static_cast<Qt::Key>(Qt::Key_A + sorte_.sotto(26));
    annota("   Alt+" + QKeySequence(tasto).toString());
    const QPointer<QWidget> ancora(finestra);
    QTest::keyClick(finestra, tasto, Qt::AltModifier);
    QWidget* menu = QApplication::activePopupWidget();
    if (menu == nullptr || !ancora) return;
    for (int i = sorte_.sotto(5); i >= 0; --i) QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, sorte_.una_su(2) ? Qt::Key_Return : Qt::Key_Escape);
}

void Giocatore::incolla(QWidget* finestra) {
    QApplication::clipboard()->setText(sorte_.uno(portati));
    QWidget* w = finestra->focusWidget() != nullptr ? finestra->focusWidget() : finestra;
    const auto tasto =
        sorte_.uno(QList<Qt::Key>{Qt::Key_V, Qt::Key_V, Qt::Key_C, Qt::Key_X, Qt::Key_A});
    annota("   Ctrl+" + QKeySequence(tasto).toString() + " su " + w->objectName());
    QTest::keyClick(w, tasto, Qt::ControlModifier);
}

void Giocatore::lascia(QWidget* w, QPoint dove) {
    const QString file = sorte_.uno(
        QStringList{platform::q(altra_) + "/a.sen", platform::q(altra_) + "/b.sel",
                    platform::q(cartella_.file("a.sen")), platform::q(altra_), "/manca.sen"});
    QMimeData dati;
    dati.setText(sorte_.uno(portati));
    if (sorte_.una_su(2)) dati.setUrls({QUrl::fromLocalFile(file)});
    // As it falls through to whoever takes it.
    QWidget* preso = w;
    while (preso != nullptr && !preso->acceptDrops()) preso = preso->parentWidget();
    if (preso == nullptr) return;
    dove = w->mapTo(preso, dove);
    QDragEnterEvent entra(dove, Qt::CopyAction, &dati, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(preso, &entra);
    if (!entra.isAccepted()) return;
    annota("   " + file);
    estraneo_ = clessidra_ammessa_ = true;
    QDropEvent cade(dove, Qt::CopyAction, &dati, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(preso, &cade);
}

void Giocatore::tocca(QWidget* w, QPoint dove) {
    static QPointingDevice* const schermo = QTest::createTouchDevice();
    const QPointer<QWindow> finestra(w->window()->windowHandle());
    if (!finestra) return;
    const QPoint qui = w->mapTo(w->window(), dove);
    QPoint ultimo = qui;
    QTest::touchEvent(finestra, schermo).press(0, qui, finestra);
    if (finestra && sorte_.una_su(3)) {
        ultimo += QPoint(sorte_.sotto(81) - 40, sorte_.sotto(81) - 40);
        QTest::touchEvent(finestra, schermo).move(0, ultimo, finestra);
    }
    if (finestra && sorte_.una_su(4)) {
        QTest::touchEvent(finestra, schermo).stationary(0).press(1, qui, finestra);
        if (finestra) {
            QTest::touchEvent(finestra, schermo).stationary(0).release(1, qui, finestra);
        }
    }
    if (finestra) QTest::touchEvent(finestra, schermo).release(0, ultimo, finestra);
}

QString Giocatore::in_linea() const {
    const crossword::Matrice& m = form1_->sessione.matrice();
    QString tutto = form1_->Tag() + '|' + form1_->lblimportotot->text();
    for (int y = 0; y < m.righe(); ++y) {
        for (int x = 0; x < m.colonne(); ++x) tutto += ' ' + QString::number(m(x, y));
    }
    return tutto;
}

void Giocatore::sotto() {
    if (!form1_->isVisible()) return;
    const QString prima = in_linea();
    QWidget* w = sorte_.uno(visibili(form1_.get()));
    const QPoint dove = w->mapTo(form1_.get(), w->rect().center());
    QWindow* finestra = form1_->windowHandle();
    annota("   sotto: " + w->objectName());
    // By the way of the desktop, where a modal window stops it.
    QTest::mouseClick(finestra, sorte_.una_su(3) ? Qt::RightButton : Qt::LeftButton, {}, dove);
    QTest::keyClick(finestra, sorte_.uno(QList<Qt::Key>{Qt::Key_7, Qt::Key_Delete, Qt::Key_F5}));
    tocca(w, w->rect().center());
    QApplication::processEvents();
    if (!form1_->isVisible() || in_linea() != prima) {
        boxes_inattesi_ << "sotto una finestra modale cambia il sistema: " + w->objectName();
    }
    if (QApplication::activePopupWidget() != nullptr) {
        boxes_inattesi_ << "un menu sotto una finestra modale";
    }
}

}  // namespace soak
