// Look of the program: fonts, palette and style sheet.
#pragma once

class QApplication;

namespace app {

/// Sets the look once, before the first window.
void applica_stile(QApplication& applicazione);

}  // namespace app
