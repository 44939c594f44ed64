// The opening of the archive by the main form.
#include "app/form1.h"
#include "platform/application.h"
#include "platform/desktop.h"

namespace app {

void Form1::errore_archivio(QWidget* padre, const platform::Err& errore, const QString& titolo) {
    if (errore.Number == platform::errore_esclusivo) {
        platform::MsgBox(padre, {"Database archivio già aperto", platform::Pulsanti::ok, titolo});
        return;
    }
    const std::string testo =
        "Errore n." + std::to_string(errore.Number) + " " + std::string(errore.Description());
    platform::MsgBox(padre, {platform::q(testo), platform::Pulsanti::ok, QString()});
}

void Form1::apri_archivio() {
    // The root is cut blindly off the program path, and the image decides between the tables.
    const std::string file = statistics::file_archivio(platform::radice(platform::App().Path));
    const platform::Err errore = archivio.apri(file, Image8->isHidden());
    if (!errore.ok()) errore_archivio(this, errore, "Sortivario");
}

}  // namespace app
