// The systems that files and folders from elsewhere name.
#pragma once

#include <string>
#include <vector>

#include "systems/operazioni.h"

namespace systems {

/// Those that `percorsi` name, of either game, each once, in the order of the paths: a system file,
/// a development whose system stands beside it, or a folder with those right in it. What is none
/// of these, or has a name that no system of the library can have, is passed over.
std::vector<Coppia> sistemi_ricevuti(const std::vector<std::string>& percorsi);

/// What the player is told of several that were imported.
struct Ricevuti {
    int importati = 0;
    int lasciati = 0;  ///< those that the player wanted to keep as they were, or that are here
    int falliti = 0;
};
std::string esito_detto(const Ricevuti& ricevuti);

}  // namespace systems
