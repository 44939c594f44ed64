// The programs beside this one: the guide, and the browser on the web site.
#pragma once

#include <string>

namespace help {

/// Brings the guide to the front when its window is there, else starts it.
void apri_guida();

/// Tells the suite's program `nome` what to open and starts it; a missing one does nothing.
void avvia_guida(const std::string& nome);

/// Shows the web site in the default browser.
void apri_sito();

}  // namespace help
