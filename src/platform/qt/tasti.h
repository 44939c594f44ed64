// Keys that by themselves ask for nothing.
#pragma once

class QApplication;
class QKeyEvent;

namespace platform {

/// True of a key that is held for the one that follows, as Shift or Ctrl, or that a lock or a
/// layout stands on.
bool solo_modificatore(const QKeyEvent& evento);
/// From now on a letter with Alt, which asks for a menu or a button, is typed into no field of
/// `applicazione` where nothing answers to it.
void alt_non_scrive(QApplication& applicazione);

}  // namespace platform
