// Fills the archive of draws: a command with words behind it, a window without.
#include <QApplication>
#include <QIcon>

#include "app/aspetto.h"
#include "app/stile.h"
#include "comando.h"
#include "finestra.h"
#include "platform/application.h"
#include "platform/comando.h"
#include "platform/qt/desktop.h"
#include "platform/qt/scala.h"

int main(int argc, char** argv) {
    const std::vector<std::string> parole = platform::parole(argc, argv);
    const auto cartella = [] {
        const std::string eseguibile = platform::cartella_eseguibile();
        return platform::trova_cartella(eseguibile, eseguibile + "/../share/tabellino");
    };
    // The program names the game whose draws it wants.
    const std::string gioco =
        parole.size() == 2 && parole[0] == "--gioco" ? parole[1] : std::string();
    if (!parole.empty() && gioco.empty()) {
        return importazione::comando(
            parole, [&] { return importazione::archivio_della_suite(cartella()); });
    }

    QApplication qt(argc, argv);
    QApplication::setApplicationName("tabellino-archivio");
    QApplication::setDesktopFileName("tabellino");
    QApplication::setWindowIcon(QIcon(":/tabellino.svg"));
    app::applica_stile(qt);
    const std::string programma = cartella();
    platform::App().Path = programma;
    importazione::Finestra finestra(importazione::archivio_della_suite(programma), gioco);
    finestra.setStyleSheet(
        platform::q(app::foglio_aspetto(platform::radice(programma), app::desktop_scuro())));
    platform::Scala::di(&finestra)->rimetti();
    finestra.show();
    return QApplication::exec();
}
