// Forms run offscreen, with one application for all tests of the program.
#include <cstdio>
#include <gtest/gtest.h>

#include <QApplication>

#include "app/stile.h"
#include "platform/qt/printer_qt.h"
#include "platform/qt/scrivania.h"

namespace {

/// The offscreen platform says for each window what it cannot do; all else is passed on.
void messaggio(QtMsgType /*tipo*/, const QMessageLogContext& /*dove*/, const QString& testo) {
    if (testo.startsWith("This plugin does not support")) return;
    std::fprintf(stderr, "%s\n", qPrintable(testo));
}

}  // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(messaggio);
    ::testing::InitGoogleTest(&argc, argv);
    QApplication applicazione(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    // A cursor that blinks would make two pictures of one window differ by the time of day.
    QApplication::setCursorFlashTime(0);
    app::applica_stile(applicazione);
    platform::scrivania().stampa_solo_su_file = true;
    return RUN_ALL_TESTS();
}
