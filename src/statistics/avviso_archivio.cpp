#include "statistics/avviso_archivio.h"

#include "platform/qt/desktop.h"

namespace statistics {

void errore_archivio(QWidget* padre, const platform::Err& errore, const QString& titolo) {
    if (errore.Number == platform::errore_esclusivo) {
        platform::MsgBox(padre, {"Database archivio già aperto", platform::Pulsanti::ok, titolo});
        return;
    }
    const std::string testo =
        "Errore n." + std::to_string(errore.Number) + " " + std::string(errore.Description());
    platform::MsgBox(padre, {platform::q(testo), platform::Pulsanti::ok, QString()});
}

}  // namespace statistics
