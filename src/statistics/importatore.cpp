#include "statistics/importatore.h"

#include "platform/application.h"
#include "platform/qt/desktop.h"
#include "platform/qt/shell.h"
#include "statistics/stato_archivio.h"

namespace statistics {

void apri_importatore(QWidget* padre, crossword::Gioco gioco) {
    if (platform::AppActivate("Tabellino - Archivio delle estrazioni")) return;
    const std::string quale(gioco.e_lotto() ? chiave_lotto : chiave_superenalotto);
    for (const std::string& cartella : {platform::App().Path, platform::cartella_eseguibile()}) {
        if (platform::Shell(cartella + "/archivio", {"--gioco", quale}) != 0) return;
    }
    platform::MsgBox(padre,
                     {"Il programma \"archivio\", che importa le estrazioni, non c'è accanto a "
                      "questo.\nReinstallate Tabellino.",
                      platform::Pulsanti::ok, "Tabellino", platform::Icona::informazione});
}

}  // namespace statistics
