#include "platform/qt/rotella.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QDial>
#include <QSlider>
#include <QTabBar>
#include <QWheelEvent>

namespace platform {

namespace {

/// True for a control whose choice a turn of the wheel would change.
bool sceglie(const QObject* controllo) {
    return qobject_cast<const QComboBox*>(controllo) != nullptr ||
           qobject_cast<const QAbstractSpinBox*>(controllo) != nullptr ||
           qobject_cast<const QTabBar*>(controllo) != nullptr ||
           qobject_cast<const QSlider*>(controllo) != nullptr ||
           qobject_cast<const QDial*>(controllo) != nullptr;
}

class SoloScorre : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* oggetto, QEvent* evento) override {
        if (evento->type() == QEvent::Wheel && sceglie(oggetto)) {
            // Not accepted, it goes on to what lies behind.
            evento->ignore();
            return true;
        }
        if (evento->type() == QEvent::Polish) {
            auto* controllo = qobject_cast<QWidget*>(oggetto);
            if (controllo != nullptr && controllo->focusPolicy() == Qt::WheelFocus) {
                controllo->setFocusPolicy(Qt::StrongFocus);
            }
        }
        return false;
    }
};

}  // namespace

void rotella_per_scorrere(QApplication& applicazione) {
    applicazione.installEventFilter(new SoloScorre(&applicazione));
}

}  // namespace platform
