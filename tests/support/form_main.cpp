// Forms run offscreen, with one application for all tests of the program.
#include <gtest/gtest.h>

#include <QApplication>

#include "app/stile.h"

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    ::testing::InitGoogleTest(&argc, argv);
    QApplication applicazione(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    app::applica_stile(applicazione);
    return RUN_ALL_TESTS();
}
