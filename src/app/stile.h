// Look and feel that every program of the suite shares: fonts, palette, style sheet, wheel, and
// Italian for Qt's own texts.
#pragma once

class QApplication;

namespace app {

/// Sets look, feel and language once, before the first window.
void applica_stile(QApplication& applicazione);

}  // namespace app
