// A development as the slips are made of it: checked once from end to end, then read where it is
// wanted, in memory that does not grow with the job.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/text_file.h"
#include "stampa/difetto.h"

namespace schedine {

/// Numbers of a played column; those that the game does not play are 0.
using Colonna = std::array<std::uint8_t, 6>;

class Sviluppo {
public:
    /// Checks every line of a file of `numeri` numbers a line, 3 to 6, or as many as its first line
    /// has when 0. Returns the first fault; the object is usable when there is none.
    std::optional<Difetto> apri(const std::string& file, int numeri);

    [[nodiscard]] int numeri() const { return numeri_; }
    [[nodiscard]] std::int64_t colonne() const { return colonne_; }
    /// Tells this content from another, of as many columns too.
    [[nodiscard]] std::uint64_t impronta() const { return impronta_; }
    /// Columns from `prima`, counted from 1, at most `quante`, into `colonne`; false when the file
    /// is no longer what it was.
    [[nodiscard]] bool leggi(std::int64_t prima, int quante, std::vector<Colonna>& colonne);

private:
    std::optional<Difetto> controlla();

    platform::TextReader lettore_;
    int numeri_ = 0;
    std::int64_t colonne_ = 0;
    std::int64_t byte_ = 0;
    std::uint64_t impronta_ = 0;
    /// Where every so many lines begin.
    std::vector<std::int64_t> inizi_;
};

}  // namespace schedine
