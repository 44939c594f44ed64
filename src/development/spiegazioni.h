// What the types of a list give, in words that are proven from the tables on the disk.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "crossword/gioco.h"
#include "development/tabella_rigorosa.h"

namespace development {

/// Rows, share of the full system and guarantees of a table, in one sentence.
std::string spiega(const Tabella& tabella, crossword::Gioco gioco);

/// Proves a table when it is first asked for, and again when its bytes have changed.
class Spiegazioni {
public:
    /// The sentence for lines of `n` numbers and type number `tipo`, from the table in the folder
    /// `ridotti`; one that cannot be read says so. Empty for a game that plays nothing.
    const std::string& di(const std::string& ridotti, crossword::Gioco gioco, int n, int tipo);

private:
    struct Provata {
        std::optional<std::string> contenuto;  ///< none of a table that is not there
        std::string frase;
    };
    std::map<std::string, Provata> provate_;  ///< by file name
};

}  // namespace development
