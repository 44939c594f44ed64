// The past draws of the archive, as the analysis takes them.
#pragma once

#include <string_view>
#include <vector>

#include "analysis/storico.h"
#include "crossword/gioco.h"
#include "platform/database.h"

namespace analysis {

/// Reads the draws of the game in the order of time, on a recordset of its own: nothing that is
/// open moves. In Lotto those of the wheel with that code, or of all wheels when it is empty. What
/// a record lacks stays 0; one without any number is passed over. On failure there are none.
platform::Err leggi_passato(platform::Database database, crossword::Gioco gioco,
                            std::string_view ruota, std::vector<Estrazione>& estrazioni);

}  // namespace analysis
