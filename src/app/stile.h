// Look of every program of the suite: fonts, palette, style sheet, and Italian for Qt's own texts.
#pragma once

class QApplication;

namespace app {

/// Sets look and language once, before the first window.
void applica_stile(QApplication& applicazione);

}  // namespace app
