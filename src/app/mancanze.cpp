#include "app/mancanze.h"

#include "platform/application.h"
#include "platform/disk.h"
#include "platform/qt/desktop.h"
#include "platform/qt/folder.h"

namespace app {

namespace {

void avvisa(QWidget* padre, const QString& testo) {
    platform::MsgBox(padre,
                     {testo, platform::Pulsanti::ok, "Tabellino", platform::Icona::informazione});
}

}  // namespace

void avvisa_mancanze(QWidget* padre) {
    const std::string& programma = platform::App().Path;
    const std::string tabelle = platform::radice(programma) + "ridotti";
    if (platform::Dir(tabelle, "*.rid").empty()) {
        avvisa(padre,
               "Mancano le tabelle dei sistemi: nessun sistema si può elaborare.\n"
               "I file .rid vanno nella cartella \"" +
                   platform::da_mostrare(platform::q(tabelle)) + "\".");
    }
    if (!platform::cartella_scrivibile(programma)) {
        avvisa(padre, "Nella cartella \"" + platform::da_mostrare(platform::q(programma)) +
                          "\" non si può scrivere: i sistemi non si possono salvare né "
                          "elaborare.");
    }
}

}  // namespace app
