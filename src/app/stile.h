// Look and feel that every program of the suite shares: fonts, palette, style sheet, wheel, copy
// key, and Italian for Qt's own texts.
#pragma once

class QApplication;

namespace app {

/// Sets look, feel and language once, before the first window.
void applica_stile(QApplication& applicazione);

/// True when the desktop asked for a dark look at the program's start.
bool desktop_scuro();

}  // namespace app
