// A table of the player's own among the economical ones.
#pragma once

#include <optional>
#include <string>

#include "crossword/gioco.h"
#include "development/tabella_rigorosa.h"

namespace development {

/// What came of it.
struct Adozione {
    std::string rifiuto;     ///< why not; empty when the table stands among the others
    bool scrivendo = false;  ///< it was the disk that refused
    std::string nome;        ///< of the file
    Garanzia garanzia;       ///< what the lists tell of it
};

/// Proves a table, `detta` too where it is given, and writes it into the folder `ridotti`, without
/// a final separator, under a number that no table had before. `gioco` plays rows as long as the
/// table's.
Adozione adotta(Tabella tabella, crossword::Gioco gioco, const std::optional<Garanzia>& detta,
                const std::string& ridotti);

}  // namespace development
