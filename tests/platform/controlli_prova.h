// What tests of controls begin with.
#pragma once

#include <QApplication>
#include <QWidget>

#include "platform/qt/controls.h"

inline void mostra(QWidget& w) {
    w.show();
    w.activateWindow();
    QApplication::processEvents();
}

inline void riempi(platform::ComboBox& combo) {
    for (const char* testo : {"uno", "due", "tre"}) combo.AddItem(testo);
}
