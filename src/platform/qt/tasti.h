// Keys that by themselves ask for nothing.
#pragma once

class QKeyEvent;

namespace platform {

/// True of a key that is held for the one that follows, as Shift or Ctrl, or that a lock or a
/// layout stands on.
bool solo_modificatore(const QKeyEvent& evento);

}  // namespace platform
