// Listing of a whole development, and the number of columns on a slip.
#pragma once

#include <cstdint>
#include <string>

#include "printing/mod_stampa.h"

namespace printing {

/// The development to print.
struct Sviluppo {
    Testata testata;
    std::string cartella;  ///< program folder
    std::string nome;      ///< of the system
    int forma = 5;         ///< numbers of a Lotto combination; Lotto only
};

/// Columns on a slip, from the file "col.dat", which is made when missing; 0 when it holds no
/// such number.
std::uint8_t colonne_schedina(const std::string& cartella);

/// Print the development as one job. A job without its file is discarded; false when nothing
/// came out.
bool stampa_sviluppo_superenalotto(platform::Printer& printer, platform::Screen& screen,
                                   const Sviluppo& sviluppo);
bool stampa_sviluppo_lotto(platform::Printer& printer, platform::Screen& screen,
                           const Sviluppo& sviluppo);

}  // namespace printing
