// The menu that changes the skin while the program runs.
#pragma once

#include <string>

class QMenu;
class QWidget;

namespace app {

/// Adds "Aspetto" to `menu`: each choice dresses `finestra`, and with it all windows that are its
/// children, at once, and is kept below `radice`.
void aggiungi_menu_aspetto(QMenu* menu, QWidget* finestra, const std::string& radice);

}  // namespace app
