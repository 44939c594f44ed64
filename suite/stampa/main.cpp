// The slip program of the suite: the main program starts it and leaves it a word in "trans".
#include <QApplication>
#include <QIcon>
#include <QScreen>

#include "app/aspetto.h"
#include "app/stile.h"
#include "platform/application.h"
#include "platform/qt/desktop.h"
#include "platform/qt/scala.h"
#include "platform/segno.h"
#include "stampa/avvio.h"
#include "stampa/finestra.h"

namespace {

/// In the middle of the screen; a dialog's own middle takes no heed of its title.
void metti(QWidget& finestra) {
    platform::Scala* scala = platform::Scala::di(&finestra);
    if (scala->rimetti()) return;
    constexpr QSize cornice(8, 36);
    const QRect schermo = finestra.screen()->availableGeometry();
    const QSize resto = (schermo.size() - finestra.size() - cornice).expandedTo({0, 0}) / 2;
    finestra.move(schermo.topLeft() + QPoint(resto.width(), resto.height()));
    scala->messa(finestra.pos());
}

}  // namespace

int main(int argc, char** argv) {
    const std::string radice =
        schedine::radice_suite(argc > 0 ? argv[0] : "", platform::cartella_eseguibile());
    const platform::Segno segno(radice + "sch");
    platform::App().Path = radice + "cruciverba";
    QApplication qt(argc, argv);
    QApplication::setApplicationName("tabellino-stampa");
    QApplication::setDesktopFileName("tabellino");
    QApplication::setWindowIcon(QIcon(":/tabellino.svg"));
    app::applica_stile(qt);
    if (segno.occupato()) {
        schedine::mostra_l_altra();
        return 0;
    }
    schedine::Finestra finestra(radice);
    finestra.setStyleSheet(platform::q(app::foglio_aspetto(radice, app::desktop_scuro())));
    metti(finestra);
    finestra.show();
    return QApplication::exec();
}
