#include "platform/qt/tasto_menu.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QWidget>

namespace platform {

namespace {

class TastoMenu : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* oggetto, QEvent* evento) override {
        if (evento->type() != QEvent::KeyPress) return false;
        const auto* tasto = static_cast<QKeyEvent*>(evento);
        auto* widget = qobject_cast<QWidget*>(oggetto);
        if (widget == nullptr || tasto->key() != Qt::Key_F10 ||
            tasto->modifiers() != Qt::ShiftModifier) {
            return false;
        }
        const QPoint dove = widget->inputMethodQuery(Qt::ImCursorRectangle).toRect().center();
        QContextMenuEvent menu(QContextMenuEvent::Keyboard, dove, widget->mapToGlobal(dove));
        QApplication::sendEvent(widget, &menu);
        return true;
    }
};

}  // namespace

void menu_con_maiusc_f10(QApplication& applicazione) {
    applicazione.installEventFilter(new TastoMenu(&applicazione));
}

}  // namespace platform
