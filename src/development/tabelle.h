// Tables of positions (.rid): what a system type plays of a sorted line.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "crossword/gioco.h"

namespace development {

/// File name of the table for lines of `n` numbers and type number `tipo`, such as
/// "cr0904.rid" or "cr1556.rid"; empty for a game that plays nothing.
std::string nome_tabella(crossword::Gioco gioco, int n, int tipo);

/// Rows of positions, `k` to a row, as far as they could be read.
struct TabellaPosizioni {
    bool letta = false;  ///< false: no such file
    int k = 0;
    std::vector<std::uint8_t> posizioni;
    [[nodiscard]] std::size_t righe() const {
        return k > 0 ? posizioni.size() / static_cast<std::size_t>(k) : 0;
    }
};

/// Reads rows of `k` positions field by field. The first position outside 1 to `n`, or a row
/// cut short by the end of the file, ends the reading; the rows before it stay.
TabellaPosizioni leggi_tabella(const std::string& nome, int k, int n);

}  // namespace development
