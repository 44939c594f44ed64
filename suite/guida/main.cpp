// The guide of the suite, a program of its own.
#include <QApplication>
#include <QIcon>

#include "app/aspetto.h"
#include "app/stile.h"
#include "finestra.h"
#include "pagine.h"
#include "platform/application.h"

int main(int argc, char** argv) {
    QApplication qt(argc, argv);
    QApplication::setApplicationName("guida");
    QApplication::setDesktopFileName("tabellino");
    app::applica_stile(qt);
    QApplication::setWindowIcon(QIcon(":/tabellino.svg"));

    const QString radice = guida::radice_suite(
        QString::fromLocal8Bit(argv[0]), QString::fromStdString(platform::cartella_eseguibile()));
    guida::Finestra finestra(guida::nome_richiesto(radice));
    finestra.setStyleSheet(QString::fromStdString(
        app::foglio_aspetto(radice.toStdString() + "/", app::desktop_scuro())));
    finestra.show();
    return QApplication::exec();
}
