// How the slip program begins.
#pragma once

#include <string>

namespace schedine {

/// The suite's root with a final separator: the folder of the command as it was typed, if it is a
/// suite, that of the executable, or the one of the user's own program folder.
std::string radice_suite(const std::string& comando, const std::string& cartella_eseguibile);

/// Brings the window of the one that runs already to the front, or says that it runs when there is
/// none after so many milliseconds.
void mostra_l_altra(int attesa = 3000);

}  // namespace schedine
