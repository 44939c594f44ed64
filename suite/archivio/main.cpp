// Fills the archive of draws: a command with words behind it, a window without.
#include <QApplication>
#include <QIcon>

#include "app/stile.h"
#include "comando.h"
#include "finestra.h"
#include "platform/application.h"

int main(int argc, char** argv) {
    const std::vector<std::string> parole(argv + 1, argv + argc);
    const auto archivio = [] {
        const std::string eseguibile = platform::cartella_eseguibile();
        return importazione::archivio_della_suite(
            platform::trova_cartella(eseguibile, eseguibile + "/../share/tabellino"));
    };
    if (!parole.empty()) return importazione::comando(parole, archivio);

    QApplication qt(argc, argv);
    QApplication::setApplicationName("tabellino-archivio");
    QApplication::setWindowIcon(QIcon(":/tabellino.svg"));
    app::applica_stile(qt);
    importazione::Finestra finestra(archivio());
    finestra.show();
    return QApplication::exec();
}
