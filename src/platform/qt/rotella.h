// What a turn of the mouse wheel may do.
#pragma once

class QApplication;

namespace platform {

/// From now on the wheel scrolls, in every window of `applicazione`, and chooses nothing: lists to
/// choose from, tabs, numbers and sliders leave it to what lies behind them, and no control takes
/// the keyboard for it.
void rotella_per_scorrere(QApplication& applicazione);

}  // namespace platform
