// A development as a table for other programs: one writer, whoever asks.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>

#include "platform/disk.h"

namespace viewer {

enum class Formato {
    csv,    ///< a head, then number and combination between commas; LF at the end of a line
    testo,  ///< the numbers alone, in columns of two characters
};

/// The format that the ending of a file name asks for: ".txt" is text, any other CSV.
Formato formato_di(const std::string& file);

/// Adds the head of the table. `per_schedina` is the columns of a slip where slips are numbered
/// instead of combinations, else 0.
void accoda_testata(std::string& testo, int numeri, int per_schedina = 0);
/// Adds the row of combination `n`, counted from 1.
void accoda_riga(std::string& testo, std::int32_t n, std::span<const std::int16_t> numeri,
                 int per_schedina = 0);

enum class Esportato {
    completo,
    interrotto,   ///< asked to stop: nothing was written
    illeggibile,  ///< the development holds no combination
    non_scritto,  ///< the disk refused, as `disco` says
};

struct Esportazione {
    Esportato esito = Esportato::illeggibile;
    std::int32_t righe = 0;
    platform::Esito disco = platform::Esito::ok;
};

/// Called every few thousand rows; false asks to stop. May be empty.
using Continua = std::function<bool()>;

/// Writes the development `sviluppo`, of `numeri` numbers a combination, as `file`, whole or not at
/// all. It ends where the development can no longer be read.
Esportazione esporta(const std::string& sviluppo, int numeri, const std::string& file,
                     const Continua& continua = {});

}  // namespace viewer
