// What a user's own root gets from the suite that the program came with; no Qt.
#pragma once

#include <string>

namespace platform {

/// Brings the root `utente` and its program folder, of the name `programma`, up to `suite`: at the
/// first start, and whenever the suite changed since, tables, skins and draws that are absent are
/// copied and those that the player left as they were are renewed. Systems come along once; guide
/// and slip printing are reached by links. What fails is taken up by the next start.
void riempi_radice(const std::string& suite, const std::string& utente,
                   const std::string& programma);

}  // namespace platform
