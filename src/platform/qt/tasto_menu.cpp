#include "platform/qt/tasto_menu.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>

namespace platform {

namespace {

/// Where a menu that a key asks for belongs: at what is chosen in a grid or list, elsewhere at the
/// caret.
QPoint posto_del_menu(QWidget* widget) {
    auto* vista = qobject_cast<QAbstractItemView*>(widget);
    const QModelIndex scelto = vista != nullptr ? vista->currentIndex() : QModelIndex();
    if (!scelto.isValid()) {
        return widget->inputMethodQuery(Qt::ImCursorRectangle).toRect().center();
    }
    vista->scrollTo(scelto);
    return vista->viewport()->mapTo(vista, vista->visualRect(scelto).center());
}

void chiedi_menu(QWidget* widget, QPoint dove) {
    QContextMenuEvent menu(QContextMenuEvent::Keyboard, dove, widget->mapToGlobal(dove));
    QApplication::sendEvent(widget, &menu);
}

class TastoMenu : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* oggetto, QEvent* evento) override {
        auto* widget = qobject_cast<QWidget*>(oggetto);
        if (widget == nullptr) return false;
        if (evento->type() == QEvent::KeyPress) {
            const auto* tasto = static_cast<QKeyEvent*>(evento);
            if (tasto->key() != Qt::Key_F10 || tasto->modifiers() != Qt::ShiftModifier) {
                return false;
            }
            chiedi_menu(widget, posto_del_menu(widget));
            return true;
        }
        if (evento->type() != QEvent::ContextMenu) return false;
        const auto* menu = static_cast<QContextMenuEvent*>(evento);
        if (menu->reason() != QContextMenuEvent::Keyboard) return false;
        const QPoint dove = posto_del_menu(widget);
        if (menu->pos() == dove) return false;
        chiedi_menu(widget, dove);
        return true;
    }
};

}  // namespace

void menu_da_tastiera(QApplication& applicazione) {
    applicazione.installEventFilter(new TastoMenu(&applicazione));
}

}  // namespace platform
