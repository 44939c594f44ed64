#include <QApplication>
#include <QIcon>
#include <QScreen>
#include <QTimer>

#include "app/dialoghi_qt.h"
#include "app/form1.h"
#include "app/frmsplash.h"
#include "app/mancanze.h"
#include "app/stile.h"
#include "platform/application.h"
#include "platform/qt/scala.h"

int main(int argc, char** argv) {
    platform::Application& app = platform::App();
    app.Major = TABELLINO_MAJOR;
    app.Minor = TABELLINO_MINOR;
    app.Revision = TABELLINO_REVISION;
    const std::string eseguibile = platform::cartella_eseguibile();
    app.Path = platform::trova_cartella(eseguibile, eseguibile + "/../share/tabellino");
    if (app.PrevInstance()) return 0;

    QApplication qt(argc, argv);
    QApplication::setApplicationName("tabellino");
    QApplication::setDesktopFileName("tabellino");
    QApplication::setWindowIcon(QIcon(":/tabellino.svg"));
    app::applica_stile(qt);

    app::DialoghiQt dialoghi;
    app::Form1 form1(dialoghi);
    auto* splash = new app::frmSplash(
        [&form1] { form1.Form_Load(); },
        [&form1] {
            // A window manager may leave to the corner what follows a window without a frame.
            platform::Scala* scala = platform::Scala::di(&form1);
            if (!scala->rimetti()) {
                // With the frame that the window manager will give it.
                constexpr int titolo = 36;
                const QRect libero = form1.screen()->availableGeometry();
                form1.move(libero.center() -
                           QPoint(form1.width() / 2, (form1.height() + titolo) / 2));
                scala->messa(form1.pos());
            }
            form1.show();
            // Once the splash is gone.
            QTimer::singleShot(0, &form1, [&form1] {
                app::avvisa_mancanze(&form1);
                form1.offri_ripresa();
            });
        },
        platform::scala(&form1));
    splash->show();
    return QApplication::exec();
}
