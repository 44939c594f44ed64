#include "platform/qt/tasti.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>

namespace platform {

namespace {

/// True of a control that writes, or looks up, what is typed.
bool prende_lettere(const QObject* controllo) {
    return qobject_cast<const QLineEdit*>(controllo) != nullptr ||
           qobject_cast<const QPlainTextEdit*>(controllo) != nullptr ||
           qobject_cast<const QAbstractSpinBox*>(controllo) != nullptr ||
           qobject_cast<const QComboBox*>(controllo) != nullptr ||
           qobject_cast<const QAbstractItemView*>(controllo) != nullptr;
}

class AltTace : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* oggetto, QEvent* evento) override {
        if (evento->type() != QEvent::KeyPress || !prende_lettere(oggetto)) return false;
        const auto* tasto = static_cast<QKeyEvent*>(evento);
        // With Ctrl it is the AltGr of some keyboards, which does write.
        const bool con_alt = (tasto->modifiers() & Qt::AltModifier) != 0 &&
                             (tasto->modifiers() & Qt::ControlModifier) == 0;
        if (!con_alt || tasto->text().isEmpty() || !tasto->text()[0].isPrint()) return false;
        evento->ignore();
        return true;
    }
};

}  // namespace

bool solo_modificatore(const QKeyEvent& evento) {
    switch (evento.key()) {
        case Qt::Key_Shift:
        case Qt::Key_Control:
        case Qt::Key_Meta:
        case Qt::Key_Alt:
        case Qt::Key_AltGr:
        case Qt::Key_CapsLock:
        case Qt::Key_NumLock:
        case Qt::Key_ScrollLock:
        case Qt::Key_Super_L:
        case Qt::Key_Super_R:
        case Qt::Key_Hyper_L:
        case Qt::Key_Hyper_R:
        case Qt::Key_Mode_switch:
        case Qt::Key_Multi_key:
            return true;
        default:
            return false;
    }
}

void alt_non_scrive(QApplication& applicazione) {
    applicazione.installEventFilter(new AltTace(&applicazione));
}

}  // namespace platform
