#include "app/finestra.h"

#include "platform/qt/desktop.h"

namespace app {

QString Finestra::Tag() const {
    return platform::q(sessione.nome());
}

}  // namespace app
