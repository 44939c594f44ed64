// Files of draws, taken apart line by line: what they are is told by what they hold.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "contenuto.h"

namespace importazione {

/// A wheel of a day, from one line of a file.
struct RigaLotto {
    int riga = 0;
    Data data;
    std::size_t ruota = 0;
    Cinquina numeri{};
    std::optional<std::int32_t> numero;
};

struct RigaSuperEnalotto {
    int riga = 0;
    Data data;
    Sestina sestina;
};

/// A line that is no draw, with the reason in the player's words.
struct Rifiuto {
    int riga = 0;
    std::string motivo;
};

struct Lettura {
    std::vector<RigaLotto> lotto;
    std::vector<RigaSuperEnalotto> superenalotto;
    std::vector<Rifiuto> rifiuti;
    [[nodiscard]] bool riconosciuta() const { return !lotto.empty() || !superenalotto.empty(); }
};

/// Reads the text of a file: the Lotto history (day, wheel, five numbers), SuperEnalotto draws
/// (day, six numbers, Jolly, SuperStar), with the number of the draw or without, between tabs,
/// semicolons or commas.
Lettura leggi(std::string_view testo);

/// A day as yyyy-mm-dd, yyyy/mm/dd, yyyymmdd or dd/mm/yyyy.
std::optional<Data> leggi_data(std::string_view testo);

}  // namespace importazione
