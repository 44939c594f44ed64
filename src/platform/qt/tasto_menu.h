// The keys for pop-up menus.
#pragma once

class QApplication;

namespace platform {

/// From now on Shift+F10 opens in every window of `applicazione` what the menu key does, and in
/// grids and lists either opens it at what is chosen.
void menu_da_tastiera(QApplication& applicazione);

}  // namespace platform
