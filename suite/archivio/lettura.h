// Files of draws, taken apart line by line: what they are is told by what they hold.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "campi.h"
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

/// More would only repeat what is wrong; the others are counted.
inline constexpr std::size_t rifiuti_tenuti = 200;
/// A file with more lines refused is given up, and so is one with more lines at all.
inline constexpr std::int64_t rifiuti_massimi = 10'000;
inline constexpr int righe_massime = 1'000'000;

struct Lettura {
    std::vector<RigaLotto> lotto;
    std::vector<RigaSuperEnalotto> superenalotto;
    std::vector<Rifiuto> rifiuti;  ///< the first of them, by their lines
    std::int64_t rifiutate = 0;    ///< all of them
    /// Why the file holds draws that cannot be told with certainty; empty when they can.
    std::string errore;
    [[nodiscard]] bool riconosciuta() const { return !lotto.empty() || !superenalotto.empty(); }
};

/// Reads the text of a file: the Lotto history (day, wheel, five numbers), SuperEnalotto draws
/// (day, six numbers, Jolly, SuperStar), with the number of the draw or without, between tabs,
/// semicolons or commas, in the order of the columns' names where there are any. `respiro` is
/// called now and then.
Lettura leggi(std::string_view testo, const std::function<void()>& respiro = {});

}  // namespace importazione
