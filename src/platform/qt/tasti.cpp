#include "platform/qt/tasti.h"

#include <QKeyEvent>

namespace platform {

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

}  // namespace platform
