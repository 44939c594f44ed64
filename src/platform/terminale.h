// The terminal that a command was started from; no Qt.
#pragma once

namespace platform {

/// True when what is written to standard error is seen by somebody.
bool errori_su_un_terminale();
/// The same of standard output.
bool uscita_su_un_terminale();

/// From now on the first wish to stop the program is only noted, so that it can put things in order
/// and end; the second one ends it.
void ascolta_interruzione();
[[nodiscard]] bool interrotto();

}  // namespace platform
