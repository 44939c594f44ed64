// Where the pages of a development begin, and the reading of one page.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/text_file.h"

namespace viewer {

inline constexpr int righe_pagina = 40;
inline constexpr int righe_blocco = 20;

/// Numbers of one played column; only as many as the game plays are set.
using Riga = std::array<std::uint8_t, 6>;

/// One page as it was read.
struct Pagina {
    std::vector<Riga> righe;
    /// 1-based position of the byte after the last line read; nothing when the reading broke off.
    std::optional<std::int64_t> seguente;
};

/// Called with the lines done so far.
using Passo = std::function<void(std::int32_t righe)>;

/// Position of the first line of each page, counted from 1 like the bytes of the file.
class Indice {
public:
    /// One pass over the file, for at most `pagine` pages; page 1 has a position in any case.
    void costruisci(const std::string& file, std::int32_t pagine, const Passo& passo);
    /// Position of a page, 0 for one that has none.
    [[nodiscard]] std::int64_t posizione(std::int32_t pagina) const;
    /// Sets the position of a page that has one, or of the page after the last that has.
    void ricorda(std::int32_t pagina, std::int64_t posizione);
    [[nodiscard]] std::size_t pagine() const { return posizioni_.size(); }

private:
    // Grows with what is found: a damaged count must not reserve memory.
    std::vector<std::int64_t> posizioni_{1};
};

/// Pages of forty lines that hold `conteggio` lines.
std::int32_t pagine_di(std::int32_t conteggio);

/// Reads the next line of `numeri` numbers; false at the end, and at a line that is cut short or
/// holds no byte values.
bool leggi_riga(platform::TextReader& sviluppo, int numeri, Riga& riga);

/// Reads up to forty lines of `numeri` numbers from a 1-based position. A line that is cut short
/// or holds no byte values ends the page.
Pagina leggi_pagina(const std::string& file, std::int64_t posizione, int numeri);

}  // namespace viewer
