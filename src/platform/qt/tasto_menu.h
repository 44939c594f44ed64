// The other key for pop-up menus.
#pragma once

class QApplication;

namespace platform {

/// From now on Shift+F10 opens in every window of `applicazione` what the menu key does.
void menu_con_maiusc_f10(QApplication& applicazione);

}  // namespace platform
